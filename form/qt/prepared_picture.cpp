// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/qt/prepared_picture.h"

#include <QPainter>
#include <QRect>

#include <algorithm>
#include <cstring>

#include "form/qt/geometry.h"

namespace form::qt {

QImage to_image(const Picture& picture) {
    // Picture and Format_Mono agree on the bits: one a pixel, most significant first.
    QImage image(picture.width(), picture.height(), QImage::Format_Mono);
    image.setColorTable({to_qcolor(picture.ground()).rgb(), to_qcolor(picture.ink()).rgb()});
    const auto row_bytes = static_cast<std::size_t>(picture.bytes_per_row());
    for (int y = 0; y < picture.height(); ++y) {
        std::memcpy(image.scanLine(y),
                    picture.bits().data() + row_bytes * static_cast<std::size_t>(y), row_bytes);
    }
    return image;
}

PreparedPicture prepare(const Picture& picture, QSize device_size, qreal device_pixel_ratio) {
    PreparedPicture prepared;
    if (device_size.isEmpty()) return prepared;

    // On a screen with more pixels than the layout's, a picture with a finer drawing of its ink
    // is drawn from that at the screen's own pixels; elsewhere its pixels are stretched.
    const bool finer = device_pixel_ratio > 1 && picture.finer_ink() != nullptr;
    QImage whole(device_size, QImage::Format_RGB32);
    {
        QPainter painter(&whole);
        painter.drawImage(
            QRect(QPoint(), device_size),
            to_image(finer ? picture.drawn_finer(device_size.width(), device_size.height())
                           : picture));
    }
    const QRgb ground = to_qcolor(picture.ground()).rgb();
    QRect box;
    for (int y = 0; y < whole.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(whole.constScanLine(y));
        const auto* end = row + whole.width();
        const auto* first = std::find_if(row, end, [&](QRgb p) { return p != ground; });
        if (first == end) continue;
        const auto last =
            std::find_if(std::make_reverse_iterator(end), std::make_reverse_iterator(first),
                         [&](QRgb p) { return p != ground; });
        box |= QRect(static_cast<int>(first - row), y, static_cast<int>(last.base() - first), 1);
    }
    if (box.isEmpty()) return prepared;
    prepared.ink = whole.copy(box);
    prepared.ink.setDevicePixelRatio(device_pixel_ratio);
    prepared.ink_at = box.topLeft();
    return prepared;
}

void PreparedPicture::paint(QPainter& painter, const QRect& target) const {
    if (ink.isNull()) return;
    const qreal ratio = ink.devicePixelRatio();
    painter.drawImage(QPointF(target.topLeft()) + QPointF(ink_at) / ratio, ink);
}

}  // namespace form::qt
