// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

#include <vector>

#include "form/controls.h"

namespace form::qt {

// A cell: a sunken border two pixels wide around a surface that shows the cell's strokes.
// The strokes are kept as vectors in twips of the inner area and drawn through the painter's
// transform, so they stay sharp at any device pixel ratio.
class CellWidget : public QWidget {
    Q_OBJECT

public:
    // row and column count from 1, for the accessible name.
    CellWidget(int row, int column, QWidget* parent);

    // Takes the cell's strokes, visibility and state; repaints only when the strokes change.
    void show_state(const PictureBox& cell);

signals:
    // A press and release of the left button, both inside the cell.
    void clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    QString position_name_;
    std::vector<Stroke> strokes_;
    int draw_width_ = 1;
    bool pressed_ = false;
};

}  // namespace form::qt
