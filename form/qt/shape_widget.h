// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QPainterPath>
#include <QWidget>

namespace form::qt {

// The outline of a rounded rectangle along the widget's edges, one pixel wide; the inside
// stays transparent, so a label beneath or above it shows through.
class ShapeWidget : public QWidget {
public:
    explicit ShapeWidget(QWidget* parent);

    void set_border_color(const QColor& colour);
    // The rounded rectangle along the edges of `rect`, through the middle of its outermost
    // pixels.
    static QPainterPath outline(const QRect& rect);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor border_color_;
};

}  // namespace form::qt
