// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/qt/shape_widget.h"

#include <QPainter>

#include <algorithm>

namespace form::qt {

ShapeWidget::ShapeWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ShapeWidget::set_border_color(const QColor& colour) {
    if (colour == border_color_) return;
    border_color_ = colour;
    update();
}

void ShapeWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(border_color_, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(outline(rect()));
}

QPainterPath ShapeWidget::outline(const QRect& rect) {
    // Half a pixel in, so a one-pixel line lies on the outermost pixels.
    const QRectF line = QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5);
    const double radius = std::min(line.width(), line.height()) / 6;
    QPainterPath path;
    path.addRoundedRect(line, radius, radius);
    return path;
}

}  // namespace form::qt
