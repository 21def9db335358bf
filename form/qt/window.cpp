// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/qt/window.h"

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <iterator>
#include <map>

#include "form/appearance.h"
#include "form/qt/cell_widget.h"
#include "form/qt/framed_label.h"
#include "form/qt/geometry.h"
#include "form/qt/image_widget.h"
#include "form/speech.h"
#include "form/texts.h"

namespace form::qt {

namespace {

QString text(const std::string& utf8) { return QString::fromStdString(utf8); }

// Only a change is announced to assistive tools.
void set_accessible_name(QWidget& widget, const QString& name) {
    if (widget.accessibleName() != name) widget.setAccessibleName(name);
}

// The name is set before the text: a label with a name of its own announces no new text.
void show_label(QLabel& label, const Label& model, const std::string& name) {
    set_accessible_name(label, text(name));
    label.setText(text(model.Caption));
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText,
                     to_qcolor(model.ForeColor->value_or(appearance::kDefaultForeColor)));
    label.setPalette(palette);
}

template <typename LabelWidget>
LabelWidget* set_up_label(LabelWidget* label, const Label& model, const FontBook& fonts,
                          const char* name, const char* description) {
    label->setObjectName(QString::fromLatin1(name));
    label->setAccessibleDescription(QString::fromUtf8(description));
    label->setTextFormat(Qt::PlainText);
    label->setFont(fonts.font_for(model.font));
    label->setGeometry(pixel_rect(model.bounds));
    label->setAlignment((model.alignment == Alignment::Centre ? Qt::AlignHCenter : Qt::AlignLeft) |
                        Qt::AlignTop);
    label->setWordWrap(model.word_wrap);
    return label;
}

QPushButton* make_button(const CommandButton& model, const FontBook& fonts, const char* name,
                         const char* description, QWidget* parent) {
    auto* button = new QPushButton(text(model.Caption), parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAccessibleName(text(model.Caption));
    button->setAccessibleDescription(QString::fromUtf8(description));
    button->setFont(fonts.font_for(model.font));
    button->setGeometry(pixel_rect(model.bounds));
    button->setAutoDefault(true);  // Enter presses the button that has the focus
    return button;
}

// Every colour the window shows, whatever the desktop's palette: a silver form and button
// faces with black text, so the captions read the same on a light, dark or high-contrast
// desktop. A disabled control's text is grey, fainter than black but still legible.
QPalette form_palette() {
    const QColor ground = to_qcolor(appearance::kFormBackground);
    // Derives the bevel shades from the face and sets every role in every group, so no role
    // is left to the desktop's palette.
    QPalette palette(ground, ground);
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
        palette.setColor(role, to_qcolor(appearance::kDefaultForeColor));
        palette.setColor(QPalette::Disabled, role, to_qcolor(appearance::kDisabledText));
    }
    palette.setColor(QPalette::Base, to_qcolor(kWhite));
    palette.setColor(QPalette::BrightText, to_qcolor(kWhite));
    return palette;
}

}  // namespace

Window::Window(Form& form, QWidget* parent) : QWidget(parent), form_(form) {
    setFixedSize(pixel_rect({0, 0, layout::kClientWidth, layout::kClientHeight}).size());
    setWindowTitle(text(form_.Caption));
    setPalette(form_palette());
    setAutoFillBackground(true);

    for (int i = 0; i < layout::kCellCount; ++i) {
        auto* cell = new CellWidget(form_, i, this);
        cell->setObjectName(QStringLiteral("Picture1(%1)").arg(i));
        cell->setGeometry(pixel_rect(form_.Picture1[static_cast<std::size_t>(i)].bounds));
        connect(cell, &CellWidget::clicked, this, [this, i] { show_changed(form_.click_cell(i)); });
        cells_[static_cast<std::size_t>(i)] = cell;
    }
    command1_ = make_button(form_.Command1, fonts_, "Command1", texts::kCommand1Description, this);
    command2_ = make_button(form_.Command2, fonts_, "Command2", texts::kCommand2Description, this);
    connect(command1_, &QPushButton::clicked, this,
            [this] { show_changed(form_.click(ButtonId::Command1)); });
    connect(command2_, &QPushButton::clicked, this,
            [this] { show_changed(form_.click(ButtonId::Command2)); });

    label1_ = set_up_label(new FramedLabel(form_.Shape1, this), form_.Label1, fonts_, "Label1",
                           texts::kLabel1Description);
    label2_ =
        set_up_label(new QLabel(this), form_.Label2, fonts_, "Label2", texts::kLabel2Description);
    label3_ =
        set_up_label(new QLabel(this), form_.Label3, fonts_, "Label3", texts::kLabel3Description);
    image2_ = new ImageWidget(form_, this);
    image2_->setObjectName(QStringLiteral("Image2"));
    image2_->setAccessibleName(QString::fromUtf8(texts::kImage2Name));

    for (std::size_t t = 0; t < timers_.size(); ++t) {
        auto* timer = new QTimer(this);
        const auto id = static_cast<TimerId>(t);
        timer->setObjectName(QStringLiteral("Timer%1").arg(t + 1));
        timer->setInterval(form_.timer(id).Interval);
        connect(timer, &QTimer::timeout, this, [this, id] { show_changed(form_.tick(id)); });
        timers_[t] = timer;
    }

    // Keyboard focus follows TabIndex among the controls that can take it: cells and buttons.
    std::map<int, QWidget*> order{{form_.Command1.TabIndex, command1_},
                                  {form_.Command2.TabIndex, command2_}};
    for (std::size_t i = 0; i < cells_.size(); ++i) order[form_.Picture1[i].TabIndex] = cells_[i];
    for (auto it = order.begin(); std::next(it) != order.end(); ++it)
        setTabOrder(it->second, std::next(it)->second);
    show_changed(Changes::all());
}

void Window::show_changed(const Changes& changes) {
    for (int i = 0; i < layout::kCellCount; ++i) {
        if (!changes.cell(i)) continue;
        const PictureBox& model = form_.Picture1[static_cast<std::size_t>(i)];
        CellWidget& cell = *cells_[static_cast<std::size_t>(i)];
        cell.setVisible(model.Visible);
        cell.update();
        set_accessible_name(cell, text(speech::cell_name(i, model)));
        QAccessible::State playable;
        playable.disabled = true;
        QAccessibleStateChangeEvent event(&cell, playable);
        QAccessible::updateAccessibility(&event);
    }
    if (changes[Control::Command1]) command1_->setEnabled(form_.Command1.Enabled);
    if (changes[Control::Command2]) command2_->setEnabled(form_.Command2.Enabled);
    // Label1 changes on every tick of the toss; its name follows only once Timer1 stops.
    if (changes[Control::Label1] || changes[Control::Timer1]) {
        show_label(*label1_, form_.Label1, speech::label1_name(form_.Label1, form_.Timer1.Enabled));
    }
    if (changes[Control::Label2]) {
        show_label(*label2_, form_.Label2, speech::caption_name(form_.Label2));
    }
    if (changes[Control::Label3]) {
        show_label(*label3_, form_.Label3, speech::caption_name(form_.Label3));
    }
    if (changes[Control::Shape1]) label1_->update();
    if (changes[Control::Image2]) image2_->show_image();
    for (std::size_t t = 0; t < timers_.size(); ++t) {
        const auto id = static_cast<TimerId>(t);
        const bool enabled = form_.timer(id).Enabled;
        if (changes[timer_control(id)] && enabled != timers_[t]->isActive())
            enabled ? timers_[t]->start() : timers_[t]->stop();
    }
    if (changes[Control::Form] && form_.unloaded()) close();
}

}  // namespace form::qt
