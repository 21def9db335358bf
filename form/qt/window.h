// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

#include <array>

#include "form/form.h"
#include "form/qt/fonts.h"

class QLabel;
class QPushButton;
class QTimer;

namespace form::qt {

class CellWidget;
class FramedLabel;
class ImageWidget;

// The form on the screen: a widget for each control, a QTimer for each timer. The controls
// are laid out once, at construction; afterwards only Image2's size follows the form. Every
// click and tick is handed to the form, and the window shows the controls the event changed,
// reading their values from the form. It closes when the form unloads.
//
//     game::Form1 form;
//     form::qt::Window window(form);  // shows every control
//     window.show_changed(form.load());
//     window.show();
class Window : public QWidget {
    Q_OBJECT

public:
    // form must outlive the window. Needs a QApplication.
    explicit Window(Form& form, QWidget* parent = nullptr);

    // Shows the controls in `changes` as the form now has them, and starts or stops the
    // timers among them.
    void show_changed(const Changes& changes);

private:
    Form& form_;
    FontBook fonts_;
    std::array<CellWidget*, layout::kCellCount> cells_{};
    QPushButton* command1_;
    QPushButton* command2_;
    FramedLabel* label1_;
    QLabel* label2_;
    QLabel* label3_;
    ImageWidget* image2_;
    std::array<QTimer*, 3> timers_{};
};

}  // namespace form::qt
