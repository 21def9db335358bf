// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "form/form.h"
#include "form/qt/fonts.h"
#include "form/qt/prepared_picture.h"

class QLabel;
class QPushButton;
class QTimer;

namespace form::qt {

class CellWidget;
class ImageWidget;
class ShapeWidget;

// What the widgets were last told, for the properties that events change: a sync compares
// the form with this record and touches only the widgets whose controls changed, since the
// banner alone syncs 20 times a second. Cells keep no strokes here: their widgets paint from
// the form, and a cell's surface revision tells when to repaint.
struct ShownControls {
    struct Cell {
        std::uint64_t surface_revision = 0;
        int draw_width = 0;
        bool visible = true;
        friend bool operator==(const Cell&, const Cell&) = default;
    };
    struct Image2 {
        // Held, so that a new picture cannot take a freed one's address and pass as shown.
        std::shared_ptr<const Picture> picture;
        Bounds bounds;
        bool visible = true;
        friend bool operator==(const Image2&, const Image2&) = default;
    };

    std::string caption;
    std::array<Cell, layout::kCellCount> cells;
    CommandButton command1;
    CommandButton command2;
    Label label1;
    bool tossing = false;
    Label label2;
    Label label3;
    Shape shape1;
    Image2 image2;
};

// The form on the screen: a widget for each control, a QTimer for each timer. The controls
// are laid out once, at construction; afterwards only Image2's size follows the form. Every
// click and tick is handed to the form, and then the window shows what it changed, so the
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

    // Shows every control as the form now has it and starts or stops the timers to match;
    // closes the window once the form is unloaded.
    void sync();

signals:
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    // One event each: handed to the form, then shown.
    void click_cell(int index);
    void click(ButtonId button);
    void tick(TimerId timer);

    void show_image2();
    void set_tab_order();

    Form& form_;
    FontBook fonts_;
    PreparedPictures pictures_;
    std::array<CellWidget*, layout::kCellCount> cells_{};
    QPushButton* command1_;
    QPushButton* command2_;
    ShapeWidget* shape1_;
    QLabel* label1_;
    QLabel* label2_;
    QLabel* label3_;
    ImageWidget* image2_;
    std::array<QTimer*, 3> timers_{};

    // Null until the first sync, which shows everything.
    std::optional<ShownControls> shown_;
    bool closed_ = false;
};

}  // namespace form::qt
