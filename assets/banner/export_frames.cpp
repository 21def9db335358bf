// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Writes the banner's frames, as the program builds them, to DIR/frame_00.ppm ... frame_92.ppm.
//
//     banner_export DIR

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "assets/banner_frames.h"
#include "form/colour.h"

namespace {

void put_colour(std::ofstream& out, form::Colour colour) {
    out.put(static_cast<char>(form::red_of(colour)));
    out.put(static_cast<char>(form::green_of(colour)));
    out.put(static_cast<char>(form::blue_of(colour)));
}

bool write_ppm(const form::Picture& picture, const std::filesystem::path& path) {
    std::ofstream out(path, std::ios::binary);
    out << "P6\n" << picture.width() << ' ' << picture.height() << "\n255\n";
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            put_colour(out, picture.is_ink(x, y) ? picture.ink() : picture.ground());
        }
    }
    return static_cast<bool>(out);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s DIR\n", argv[0]);
        return 2;
    }
    const std::filesystem::path dir = argv[1];
    std::filesystem::create_directories(dir);
    const auto frames = assets::make_banner_frames();
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const std::string name = (i < 10 ? "frame_0" : "frame_") + std::to_string(i) + ".ppm";
        if (!write_ppm(frames[i], dir / name)) {
            std::fprintf(stderr, "cannot write %s\n", (dir / name).c_str());
            return 1;
        }
    }
    return 0;
}
