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
#include "form/qt/shape_widget.h"

namespace form::qt {

namespace {

constexpr std::array<TimerId, 3> kTimerIds{TimerId::Timer1, TimerId::Timer2, TimerId::Timer3};

QString text(const std::string& utf8) { return QString::fromStdString(utf8); }

// Label1's name while the toss flickers: the captions it passes through are not the outcome.
const QString kTossRunning = QStringLiteral("正在决定谁先");

// Only a change is announced to assistive tools, not every tick's sync.
void set_accessible_name(QWidget& widget, const QString& name) {
    if (widget.accessibleName() != name) widget.setAccessibleName(name);
}

Qt::Alignment to_qt(Alignment alignment) {
    return (alignment == Alignment::Centre ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignTop;
}

void sync_button(QPushButton& button, const CommandButton& model) {
    button.setGeometry(pixel_rect(model.bounds));
    button.setText(text(model.Caption));
    set_accessible_name(button, text(model.Caption));
    button.setEnabled(model.Enabled);
}

// The name is set before the text: a label with a name of its own announces no new text.
void sync_label(QLabel& label, const Label& model, const QString& name) {
    label.setGeometry(pixel_rect(model.bounds));
    set_accessible_name(label, name);
    label.setText(text(model.Caption));
    label.setAlignment(to_qt(model.alignment));
    // Qt lays the text out and repaints on every setWordWrap, changed or not.
    if (label.wordWrap() != model.word_wrap) label.setWordWrap(model.word_wrap);
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, to_qcolor(model.ForeColor.value_or(kDefaultForeColor)));
    label.setPalette(palette);
}

QLabel* make_label(const Label& model, const FontBook& fonts, const char* name,
                   const QString& description, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setAccessibleDescription(description);
    label->setTextFormat(Qt::PlainText);
    label->setFont(fonts.font_for(model.font));
    return label;
}

QPushButton* make_button(const CommandButton& model, const FontBook& fonts, const char* name,
                         const QString& description, QWidget* parent) {
    auto* button = new QPushButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAccessibleDescription(description);
    button->setFont(fonts.font_for(model.font));
    button->setAutoDefault(true);  // Enter presses the button that has the focus
    return button;
}

}  // namespace

Window::Window(Form& form, QWidget* parent) : QWidget(parent), form_(form) {
    setFixedSize(pixel_rect({0, 0, layout::kClientWidth, layout::kClientHeight}).size());
    setPalette(form_palette());
    setAutoFillBackground(true);

    for (int i = 0; i < layout::kCellCount; ++i) {
        auto* cell = new CellWidget(i / 3 + 1, i % 3 + 1, this);
        cell->setObjectName(QStringLiteral("Picture1(%1)").arg(i));
        connect(cell, &CellWidget::clicked, this,
                [this, i] { deliver([&] { form_.click_cell(i); }); });
        cells_[static_cast<std::size_t>(i)] = cell;
    }
    command1_ =
        make_button(form_.Command1, fonts_, "Command1", QStringLiteral("开始新的一局"), this);
    command2_ = make_button(form_.Command2, fonts_, "Command2", QStringLiteral("退出游戏"), this);
    connect(command1_, &QPushButton::clicked, this,
            [this] { deliver([&] { form_.click(ButtonId::Command1); }); });
    connect(command2_, &QPushButton::clicked, this,
            [this] { deliver([&] { form_.click(ButtonId::Command2); }); });

    // The outline lies under Label1's caption; both show, as the label has no ground.
    shape1_ = new ShapeWidget(this);
    shape1_->setObjectName(QStringLiteral("Shape1"));
    label1_ = make_label(form_.Label1, fonts_, "Label1", QStringLiteral("谁先"), this);
    label2_ = make_label(form_.Label2, fonts_, "Label2", QStringLiteral("结果"), this);
    label3_ = make_label(form_.Label3, fonts_, "Label3", QStringLiteral("游戏规则"), this);
    image2_ = new ImageWidget(this);
    image2_->setObjectName(QStringLiteral("Image2"));

    for (std::size_t t = 0; t < kTimerIds.size(); ++t) {
        auto* timer = new QTimer(this);
        const TimerId id = kTimerIds[t];
        timer->setObjectName(QStringLiteral("Timer%1").arg(t + 1));
        connect(timer, &QTimer::timeout, this, [this, id] { deliver([&] { form_.tick(id); }); });
        timers_[t] = timer;
    }

    set_tab_order();
    sync();
}

template <typename Event>
void Window::deliver(Event&& event) {
    if (closed_) return;
    std::forward<Event>(event)();
    sync();
}

void Window::sync() {
    if (closed_) return;
    setWindowTitle(text(form_.Caption));
    const bool first = !shown_;
    ShownControls& shown = first ? shown_.emplace() : *shown_;
    const auto changed = [first](auto& last, const auto& now) {
        if (!first && last == now) return false;
        last = now;
        return true;
    };

    for (std::size_t i = 0; i < cells_.size(); ++i) {
        if (changed(shown.cells[i], form_.Picture1[i])) cells_[i]->show_state(form_.Picture1[i]);
    }
    if (changed(shown.command1, form_.Command1)) sync_button(*command1_, form_.Command1);
    if (changed(shown.command2, form_.Command2)) sync_button(*command2_, form_.Command2);
    // Label1 changes on every tick of the toss; its name follows only once Timer1 stops, so
    // the outcome is announced once instead of a hundred times a second.
    const auto caption = [](const Label& label) { return text(label.Caption).trimmed(); };
    const bool label1_changed = changed(shown.label1, form_.Label1);
    if (changed(shown.tossing, form_.Timer1.Enabled) || label1_changed) {
        sync_label(*label1_, form_.Label1,
                   form_.Timer1.Enabled ? kTossRunning : caption(form_.Label1));
    }
    if (changed(shown.label2, form_.Label2)) {
        sync_label(*label2_, form_.Label2, caption(form_.Label2));
    }
    if (changed(shown.label3, form_.Label3)) {
        sync_label(*label3_, form_.Label3, caption(form_.Label3));
    }
    if (changed(shown.shape1, form_.Shape1)) {
        shape1_->setGeometry(pixel_rect(form_.Shape1.bounds));
        shape1_->set_border_color(to_qcolor(form_.Shape1.BorderColor.value_or(kDefaultForeColor)));
    }

    const Image& image = form_.Image2;
    image2_->setGeometry(pixel_rect(image.bounds));
    image2_->set_image(pictures_.image(image.picture));
    image2_->setVisible(image.Visible);

    for (std::size_t t = 0; t < kTimerIds.size(); ++t)
        sync_timer(*timers_[t], form_.timer(kTimerIds[t]));
    if (form_.unloaded()) close();
}

void Window::sync_timer(QTimer& timer, const Timer& model) {
    if (!model.Enabled) {
        timer.stop();
    } else if (!timer.isActive() || timer.interval() != model.Interval) {
        // A timer that stays enabled keeps its rhythm; start() would begin a new interval.
        timer.start(model.Interval);
    }
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
