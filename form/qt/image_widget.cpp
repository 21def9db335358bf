// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/qt/image_widget.h"

#include <QPainter>

#include "form/qt/geometry.h"

namespace form::qt {

ImageWidget::ImageWidget(const Form& form, QWidget* parent) : QWidget(parent), form_(form) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ImageWidget::show_image() {
    const Image& image = form_.Image2;
    setGeometry(pixel_rect(image.bounds()));
    update();
    if (const qreal ratio = devicePixelRatioF(); ratio != prepared_ratio_) {
        prepared_ratio_ = ratio;
        prepared_ = {};
    }
    if (!image.Picture->has_value()) return;
    const auto frame = static_cast<std::size_t>(**image.Picture);
    if (!prepared_.at(frame)) {
        prepared_[frame] = prepare(form_.Image1.at(frame),
                                   (QSizeF(size()) * prepared_ratio_).toSize(), prepared_ratio_);
    }
}

void ImageWidget::paintEvent(QPaintEvent*) {
    const auto& picture = form_.Image2.Picture;
    if (!picture->has_value()) return;
    QPainter painter(this);
    prepared_.at(static_cast<std::size_t>(**picture))->paint(painter, rect());
}

}  // namespace form::qt
