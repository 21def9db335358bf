// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

#include "form/form.h"

namespace form::qt {

// A cell: a sunken border around a surface that shows the strokes of Picture1(index), read
// from the form at every paint. The strokes are vectors in twips of the inner area, drawn
// through the painter's transform, so they stay sharp at any device pixel ratio.
//
// Assistive tools see a cell of the board with the press action of a button, which is a
// click; the cell reads as enabled only while the form says a click would play it.
class CellWidget : public QWidget {
    Q_OBJECT

public:
    // form must outlive the widget. 0 <= index < 9
    CellWidget(const Form& form, int index, QWidget* parent);

    bool playable() const { return form_.cell_playable(index_); }

signals:
    // A press and release of the left button, both inside the cell.
    void clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    const Form& form_;
    int index_;
    bool pressed_ = false;
};

}  // namespace form::qt
