// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/qt/window.h"

#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <algorithm>
#include <utility>
#include <vector>

#include "form/qt/cell_widget.h"
#include "form/qt/geometry.h"
#include "form/qt/image_widget.h"
#include "form/qt/palette.h"
#include "form/qt/panel_label.h"
#include "form/qt/shape_widget.h"
#include "form/speech.h"

namespace form::qt {

namespace {

constexpr std::array<TimerId, 3> kTimerIds{TimerId::Timer1, TimerId::Timer2, TimerId::Timer3};

QString text(const std::string& utf8) { return QString::fromStdString(utf8); }

// Only a change is announced to assistive tools, not every tick's sync.
void set_accessible_name(QWidget& widget, const QString& name) {
    if (widget.accessibleName() != name) widget.setAccessibleName(name);
}

Qt::Alignment to_qt(Alignment alignment) {
    return (alignment == Alignment::Centre ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignTop;
}

void show_button(QPushButton& button, const CommandButton& model) {
    button.setText(text(model.Caption));
    set_accessible_name(button, text(model.Caption));
    button.setEnabled(model.Enabled);
}

// The name is set before the text: a label with a name of its own announces no new text.
void show_label(QLabel& label, const Label& model, const std::string& name) {
    set_accessible_name(label, text(name));
    label.setText(text(model.Caption));
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, to_qcolor(model.ForeColor.value_or(kDefaultForeColor)));
    label.setPalette(palette);
}

void show_timer(QTimer& timer, const Timer& model) {
    if (!model.Enabled) {
        timer.stop();
    } else if (!timer.isActive() || timer.interval() != model.Interval) {
        // A timer that stays enabled keeps its rhythm; start() would begin a new interval.
        timer.start(model.Interval);
    }
}

template <typename LabelWidget = QLabel>
QLabel* make_label(const Label& model, const FontBook& fonts, const char* name,
                   const char* description, QWidget* parent) {
    auto* label = new LabelWidget(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setAccessibleDescription(QString::fromUtf8(description));
    label->setTextFormat(Qt::PlainText);
    label->setFont(fonts.font_for(model.font));
    label->setGeometry(pixel_rect(model.bounds));
    label->setAlignment(to_qt(model.alignment));
    label->setWordWrap(model.word_wrap);
    return label;
}

QPushButton* make_button(const CommandButton& model, const FontBook& fonts, const char* name,
                         const char* description, QWidget* parent) {
    auto* button = new QPushButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAccessibleDescription(QString::fromUtf8(description));
    button->setFont(fonts.font_for(model.font));
    button->setGeometry(pixel_rect(model.bounds));
    button->setAutoDefault(true);  // Enter presses the button that has the focus
    return button;
}

}  // namespace

Window::Window(Form& form, QWidget* parent) : QWidget(parent), form_(form) {
    setFixedSize(pixel_rect({0, 0, layout::kClientWidth, layout::kClientHeight}).size());
    setPalette(form_palette());
    setAutoFillBackground(true);

    for (int i = 0; i < layout::kCellCount; ++i) {
        const auto& model = form_.Picture1[static_cast<std::size_t>(i)];
        auto* cell = new CellWidget(model, this);
        cell->setObjectName(QStringLiteral("Picture1(%1)").arg(i));
        cell->setGeometry(pixel_rect(model.bounds));
        connect(cell, &CellWidget::clicked, this, [this, i] { click_cell(i); });
        cells_[static_cast<std::size_t>(i)] = cell;
    }
    command1_ = make_button(form_.Command1, fonts_, "Command1", speech::kCommand1Description, this);
    command2_ = make_button(form_.Command2, fonts_, "Command2", speech::kCommand2Description, this);
    connect(command1_, &QPushButton::clicked, this, [this] { click(ButtonId::Command1); });
    connect(command2_, &QPushButton::clicked, this, [this] { click(ButtonId::Command2); });

    label1_ =
        make_label<PanelLabel>(form_.Label1, fonts_, "Label1", speech::kLabel1Description, this);
    QPalette panel = label1_->palette();
    panel.setColor(QPalette::Window, to_qcolor(kLabel1Background));
    label1_->setPalette(panel);
    // The outline lies over Label1's ground, and the caption shows through its inside.
    shape1_ = new ShapeWidget(this);
    shape1_->setObjectName(QStringLiteral("Shape1"));
    shape1_->setAccessibleName(QString::fromUtf8(speech::kShape1Name));
    shape1_->setGeometry(pixel_rect(form_.Shape1.bounds));
    label2_ = make_label(form_.Label2, fonts_, "Label2", speech::kLabel2Description, this);
    label3_ = make_label(form_.Label3, fonts_, "Label3", speech::kLabel3Description, this);
    image2_ = new ImageWidget(this);
    image2_->setObjectName(QStringLiteral("Image2"));
    image2_->setAccessibleName(QString::fromUtf8(speech::kImage2Name));
    image2_->setGeometry(pixel_rect(form_.Image2.bounds));

    for (std::size_t t = 0; t < kTimerIds.size(); ++t) {
        auto* timer = new QTimer(this);
        const TimerId id = kTimerIds[t];
        timer->setObjectName(QStringLiteral("Timer%1").arg(t + 1));
        connect(timer, &QTimer::timeout, this, [this, id] { tick(id); });
        timers_[t] = timer;
    }

    set_tab_order();
    sync();
}

void Window::click_cell(int index) {
    if (closed_) return;
    form_.click_cell(index);
    sync();
}

void Window::click(ButtonId button) {
    if (closed_) return;
    form_.click(button);
    sync();
}

void Window::tick(TimerId timer) {
    if (closed_) return;
    form_.tick(timer);
    sync();
}

void Window::sync() {
    if (closed_) return;
    const bool first = !shown_;
    ShownControls& shown = first ? shown_.emplace() : *shown_;
    const auto changed = [first](auto& last, const auto& now) {
        if (!first && last == now) return false;
        last = now;
        return true;
    };

    if (changed(shown.caption, form_.Caption)) setWindowTitle(text(form_.Caption));
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        const PictureBox& cell = form_.Picture1[i];
        auto& widget = *cells_[i];
        auto& last = shown.cells[i];
        const ShownControls::Cell now{cell.surface_revision(), cell.DrawWidth, cell.Visible};
        if (first || now.surface_revision != last.surface_revision ||
            now.draw_width != last.draw_width) {
            widget.update();
            set_accessible_name(widget, text(speech::cell_name(static_cast<int>(i), cell)));
        }
        if (first || now.visible != last.visible) widget.setVisible(now.visible);
        widget.set_playable(form_.cell_playable(static_cast<int>(i)));
        last = now;
    }
    if (changed(shown.command1, form_.Command1)) show_button(*command1_, form_.Command1);
    if (changed(shown.command2, form_.Command2)) show_button(*command2_, form_.Command2);
    // Label1 changes on every tick of the toss; its name follows only once Timer1 stops.
    const bool label1_changed = changed(shown.label1, form_.Label1);
    if (changed(shown.tossing, form_.Timer1.Enabled) || label1_changed) {
        show_label(*label1_, form_.Label1, speech::label1_name(form_.Label1, form_.Timer1.Enabled));
    }
    if (changed(shown.label2, form_.Label2)) {
        show_label(*label2_, form_.Label2, speech::caption_name(form_.Label2));
    }
    if (changed(shown.label3, form_.Label3)) {
        show_label(*label3_, form_.Label3, speech::caption_name(form_.Label3));
    }
    if (changed(shown.shape1, form_.Shape1)) {
        shape1_->set_border_color(to_qcolor(form_.Shape1.BorderColor.value_or(kDefaultForeColor)));
    }
    const Image& image2 = form_.Image2;
    if (changed(shown.image2,
                ShownControls::Image2{image2.picture, image2.bounds, image2.Visible})) {
        show_image2();
    }

    for (std::size_t t = 0; t < kTimerIds.size(); ++t)
        show_timer(*timers_[t], form_.timer(kTimerIds[t]));
    if (form_.unloaded()) close();
}

// The banner's only moving part: a new picture and a new size on every tick.
void Window::show_image2() {
    const Image& model = form_.Image2;
    image2_->setGeometry(pixel_rect(model.bounds));
    image2_->show_picture(model.picture ? &pictures_.prepared(model.picture, image2_->device_size(),
                                                              image2_->devicePixelRatioF())
                                        : nullptr);
    image2_->setVisible(model.Visible);
}

// Keyboard focus follows TabIndex among the controls that can take it: cells and buttons.
void Window::set_tab_order() {
    std::vector<std::pair<int, QWidget*>> order;
    for (int i = 0; i < layout::kCellCount; ++i) {
        order.emplace_back(form_.Picture1[static_cast<std::size_t>(i)].TabIndex,
                           cells_[static_cast<std::size_t>(i)]);
    }
    order.emplace_back(form_.Command1.TabIndex, command1_);
    order.emplace_back(form_.Command2.TabIndex, command2_);
    std::ranges::sort(order, {}, &std::pair<int, QWidget*>::first);
    for (std::size_t i = 1; i < order.size(); ++i) {
        setTabOrder(order[i - 1].second, order[i].second);
    }
}

void Window::closeEvent(QCloseEvent* event) {
    for (auto* timer : timers_) timer->stop();
    event->accept();
    if (!std::exchange(closed_, true)) emit closed();
}

}  // namespace form::qt
