#pragma once

#include <QImage>
#include <QPixmap>

#include <memory>
#include <unordered_map>

#include "form/picture.h"

namespace form::qt {

// The picture as an image of two indexed colours, ground and ink.
QImage to_image(const Picture& picture);

// Decodes each distinct picture once: the banner hands Image2 a new frame every 50 ms, but
// only 93 frames exist. Entries are keyed by the picture's address and hold it weakly, so a
// freed picture whose address is reused is decoded afresh, and freed pictures are dropped.
class PictureCache {
public:
    // A null pixmap for no picture.
    QPixmap pixmap(const std::shared_ptr<const Picture>& picture);

private:
    struct Entry {
        std::weak_ptr<const Picture> picture;
        QPixmap pixmap;
    };
    std::unordered_map<const Picture*, Entry> entries_;
};

}  // namespace form::qt
