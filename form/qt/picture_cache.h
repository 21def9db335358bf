// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>

#include <memory>
#include <unordered_map>

#include "form/picture.h"

namespace form::qt {

// The picture as an image of two indexed colours, ground and ink.
QImage to_image(const Picture& picture);

// Decodes each distinct picture once: the banner hands Image2 a new frame every 50 ms, but
// only 93 frames exist. The images stay at one bit a pixel (about 3 KB a frame); a pixmap
// would hold 32 bits a pixel for each of them. Entries are keyed by the picture's address and hold
// it weakly, so a freed picture whose address is reused is decoded afresh, and freed pictures are
// dropped.
class PictureCache {
public:
    // A null image for no picture.
    QImage image(const std::shared_ptr<const Picture>& picture);

private:
    struct Entry {
        std::weak_ptr<const Picture> picture;
        QImage image;
    };
    std::unordered_map<const Picture*, Entry> entries_;
};

}  // namespace form::qt
