// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/qt/picture_cache.h"

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

QImage PictureCache::image(const std::shared_ptr<const Picture>& picture) {
    if (!picture) return {};
    const auto found = entries_.find(picture.get());
    if (found != entries_.end() && found->second.picture.lock() == picture) {
        return found->second.image;
    }
    std::erase_if(entries_, [](const auto& entry) { return entry.second.picture.expired(); });
    auto image = to_image(*picture);
    entries_.insert_or_assign(picture.get(), Entry{picture, image});
    return image;
}

}  // namespace form::qt
