// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QSize>

#include "form/picture.h"

class QPainter;
class QRect;

namespace form::qt {

// The picture as an image of two indexed colours, ground and ink, at its own size.
QImage to_image(const Picture& picture);

// The ink of a picture stretched to a size in device pixels, pixel by pixel as a bitmap
// stretches (or, at a device pixel ratio above 1, drawn from its finer ink where it has one):
// the box around the ink as a 32-bit image in the backing store's format, which the raster
// engine copies row by row. The ink's box is about a third of a banner frame, so the 93 frames
// take 1.7 MB at a device pixel ratio of 1 instead of 5.3 (6.7 MB instead of 21 at a ratio of
// 2). The ground is left to whatever lies beneath, which must be of the picture's ground.
struct PreparedPicture {
    QImage ink;     // null when the picture has no ink; carries the device pixel ratio
    QPoint ink_at;  // device pixels from the top left corner

    // Draws the ink within target, in the painter's logical pixels, as the picture stretched to
    // it.
    void paint(QPainter& painter, const QRect& target) const;
};

PreparedPicture prepare(const Picture& picture, QSize device_size, qreal device_pixel_ratio);

}  // namespace form::qt
