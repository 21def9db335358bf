// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/qt/framed_label.h"

#include <QPainter>
#include <QPainterPath>

#include "form/appearance.h"
#include "form/qt/geometry.h"

namespace form::qt {

FramedLabel::FramedLabel(const form::Shape& shape, QWidget* parent)
    : QLabel(parent), shape_(shape) {}

// The ground, the caption, then the outline over both, each in its own pass so that the edge's
// blended pixels come out as those of a label under a separate outline.
void FramedLabel::paintEvent(QPaintEvent* event) {
    // Half a pixel in, so the one-pixel line lies on the outermost pixels.
    const QRectF line = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const double radius = appearance::corner_radius(line.width(), line.height());
    QPainterPath outline;
    outline.addRoundedRect(line, radius, radius);
    const auto draw_outline = [&](const QPen& pen, const QBrush& brush) {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(pen);
        painter.setBrush(brush);
        painter.drawPath(outline);
    };
    draw_outline(Qt::NoPen, to_qcolor(appearance::kLabel1Background));
    QLabel::paintEvent(event);
    draw_outline(QPen(to_qcolor(shape_.BorderColor->value_or(appearance::kDefaultForeColor)), 1),
                 Qt::NoBrush);
}

}  // namespace form::qt
