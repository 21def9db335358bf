// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

#include <array>
#include <optional>

#include "form/form.h"
#include "form/qt/fonts.h"
#include "form/qt/picture_cache.h"

class QLabel;
class QPushButton;
class QTimer;

namespace form::qt {

class CellWidget;
class ImageWidget;
class ShapeWidget;

// The controls as the widgets show them, from the last sync: the banner ticks 20 times a
// second, and touching every widget each time costs as much idle CPU as the banner.
struct ShownControls {
    std::array<PictureBox, layout::kCellCount> cells;
    CommandButton command1;
    CommandButton command2;
    Label label1;
    bool tossing = false;
    Label label2;
    Label label3;
    Shape shape1;
};

// The form on the screen: a widget for each control, a QTimer for each timer. Every click
// and tick is handed to the form, and then every widget is read again from the form, so the
// window shows the model and nothing else. Closing the window, or the form unloading, emits
// closed() once.
//
//     game::Form1 form;
//     form::qt::Window window(form);
//     form.load();
//     window.sync();
//     window.show();
class Window : public QWidget {
    Q_OBJECT

public:
    // form must outlive the window. Needs a QApplication.
    explicit Window(Form& form, QWidget* parent = nullptr);

    // Reads every control from the form and starts or stops the timers to match; closes the
    // window once the form is unloaded.
    void sync();

signals:
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    // Runs one event of the form, then shows its outcome.
    template <typename Event>
    void deliver(Event&& event);
    void sync_timer(QTimer& timer, const Timer& model);
    void set_tab_order();

    Form& form_;
    FontBook fonts_;
    PictureCache pictures_;
    std::array<CellWidget*, layout::kCellCount> cells_{};
    QPushButton* command1_;
    QPushButton* command2_;
    ShapeWidget* shape1_;
    QLabel* label1_;
    QLabel* label2_;
    QLabel* label3_;
    ImageWidget* image2_;
    std::array<QTimer*, 3> timers_{};

    std::optional<ShownControls> shown_;
    bool closed_ = false;
};

}  // namespace form::qt
