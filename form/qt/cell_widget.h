// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

#include "form/controls.h"

namespace form::qt {

// A cell: a sunken border two pixels wide around a surface that shows the strokes of the
// form's cell, read from the form at every paint. The strokes are vectors in twips of the
// inner area, drawn through the painter's transform, so they stay sharp at any device pixel
// ratio. The window calls update() when the cell's surface changes.
//
// Assistive tools see a cell of the board with the press action of a button, which is a
// click; the cell reads as enabled only while a click would play it.
class CellWidget : public QWidget {
    Q_OBJECT

public:
    // cell must outlive the widget.
    CellWidget(const PictureBox& cell, QWidget* parent);

    bool playable() const { return playable_; }
    // Whether a click would play the cell now; a change is announced to assistive tools.
    void set_playable(bool playable);

signals:
    // A press and release of the left button, both inside the cell.
    void clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    const PictureBox& cell_;
    bool pressed_ = false;
    bool playable_ = false;
};

}  // namespace form::qt
