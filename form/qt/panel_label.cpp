// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/qt/panel_label.h"

#include <QPainter>

#include "form/qt/shape_widget.h"

namespace form::qt {

PanelLabel::PanelLabel(QWidget* parent) : QLabel(parent) {}

void PanelLabel::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().window());
        painter.drawPath(ShapeWidget::outline(rect()));
    }
    QLabel::paintEvent(event);
}

}  // namespace form::qt
