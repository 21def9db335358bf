// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/qt/image_widget.h"

#include <QPainter>

#include <cmath>

namespace form::qt {

ImageWidget::ImageWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

QSize ImageWidget::device_size() const {
    const qreal ratio = devicePixelRatioF();
    return {static_cast<int>(std::lround(width() * ratio)),
            static_cast<int>(std::lround(height() * ratio))};
}

void ImageWidget::show_picture(const PreparedPicture* picture) {
    if (picture == nullptr) {
        if (!picture_) return;
        picture_.reset();
    } else {
        picture_ = *picture;
    }
    // A picture covers the whole widget, so the form's ground under it need not be painted.
    setAttribute(Qt::WA_OpaquePaintEvent, picture_.has_value());
    update();
}

void ImageWidget::paintEvent(QPaintEvent*) {
    if (!picture_) return;
    QPainter painter(this);
    picture_->paint(painter, rect());
}

}  // namespace form::qt
