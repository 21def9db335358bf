// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The baseline for the startup benchmarks: an empty Qt Widgets window with the game window's
// title and client size. With --banner, a label in the banner's place swaps its pixmap every
// 50 ms, as the game's banner does, so that idle CPU has a baseline too.
#include <QApplication>
#include <QColor>
#include <QLabel>
#include <QPixmap>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstring>

namespace {

constexpr int kClientWidth = 656;
constexpr int kClientHeight = 450;
// The banner's largest frame and where it stands on the window, in pixels.
constexpr int kBannerX = 400;
constexpr int kBannerY = 8;
constexpr int kBannerWidth = 225;
constexpr int kBannerHeight = 97;
constexpr int kBannerIntervalMs = 50;

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const bool banner = argc == 2 && std::strcmp(argv[1], "--banner") == 0;
    if (argc > 1 && !banner) {
        std::fprintf(stderr, "usage: %s [--banner]\n", argv[0]);
        return 2;
    }

    QWidget window;
    window.setWindowTitle(QStringLiteral("三连棋局"));
    window.setFixedSize(kClientWidth, kClientHeight);

    std::array<QPixmap, 2> frames;
    QLabel label(&window);
    QTimer timer;
    std::size_t frame_no = 0;
    if (banner) {
        frames[0] = QPixmap(kBannerWidth, kBannerHeight);
        frames[0].fill(QColor(0xc0, 0x20, 0x20));
        frames[1] = QPixmap(kBannerWidth, kBannerHeight);
        frames[1].fill(QColor(0x20, 0x20, 0xc0));
        label.setGeometry(kBannerX, kBannerY, kBannerWidth, kBannerHeight);
        label.setPixmap(frames[0]);
        QObject::connect(&timer, &QTimer::timeout, [&] {
            frame_no = (frame_no + 1) % frames.size();
            label.setPixmap(frames[frame_no]);
        });
        timer.start(kBannerIntervalMs);
    }

    window.show();
    return QApplication::exec();
}
