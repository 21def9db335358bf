// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The floors for the startup benchmarks. Without arguments: an empty Qt Widgets window with
// the game window's title and client size. With --banner: the least a Qt Widgets program can
// do to show the game's banner. Its 93 frames are prepared once as pixmaps at the device
// pixel sizes that the ticks give them; every 50 ms a QLabel in the banner's place is handed
// the next one and resized to it, in the game's order 0, 1, ... 92, 91, ... 0. With --texts:
// the least Qt needs to show the window's texts, the rules and the two buttons' captions in
// the compiled-in faces, as plain widgets at their places.
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <utility>
#include <vector>

#include "assets/banner_frames.h"
#include "form/appearance.h"
#include "form/layout.h"
#include "form/qt/fonts.h"
#include "form/qt/geometry.h"
#include "form/qt/prepared_picture.h"
#include "form/texts.h"

namespace {

namespace layout = form::layout;

using form::appearance::pixels;

QRect banner_rect(int frame_no) {
    const int left = layout::kImage2.Left;
    const int top = layout::kImage2.Top;
    const int right = left + frame_no * 22 + 1600;
    const int bottom = top + frame_no * 10 + 700;
    return {pixels(left), pixels(top), pixels(right) - pixels(left), pixels(bottom) - pixels(top)};
}

void add_texts(QWidget& window) {
    const form::qt::FontBook fonts;
    auto* rules = new QLabel(QString::fromUtf8(form::texts::kRulesCaption), &window);
    rules->setFont(fonts.font_for(layout::kRulesFont));
    rules->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    rules->setWordWrap(true);
    rules->setGeometry(form::qt::pixel_rect(layout::kLabel3));
    for (const auto& [caption, bounds] :
         {std::pair{form::texts::kStartCaption, layout::kCommand1},
          std::pair{form::texts::kExitCaption, layout::kCommand2}}) {
        auto* button = new QPushButton(QString::fromUtf8(caption), &window);
        button->setFont(fonts.font_for(layout::kButtonFont));
        button->setGeometry(form::qt::pixel_rect(bounds));
    }
}

// The frames in showing order: one cycle of 185 ticks.
std::vector<int> cycle() {
    std::vector<int> order;
    for (int f = 0; f < layout::kBannerFrameCount; ++f) order.push_back(f);
    for (int f = layout::kBannerFrameCount - 2; f >= 0; --f) order.push_back(f);
    return order;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const bool banner = argc == 2 && std::strcmp(argv[1], "--banner") == 0;
    const bool texts = argc == 2 && std::strcmp(argv[1], "--texts") == 0;
    if (argc > 1 && !banner && !texts) {
        std::fprintf(stderr, "usage: %s [--banner | --texts]\n", argv[0]);
        return 2;
    }

    QWidget window;
    window.setWindowTitle(QStringLiteral("三连棋局"));
    window.setFixedSize(pixels(layout::kClientWidth), pixels(layout::kClientHeight));

    std::vector<QPixmap> frames;
    const std::vector<int> order = cycle();
    std::size_t tick = 0;
    QLabel label(&window);
    QTimer timer;
    if (banner) {
        const qreal dpr = window.devicePixelRatioF();
        const auto pictures = assets::make_banner_frames();
        for (int f = 0; f < layout::kBannerFrameCount; ++f) {
            const QSize size = banner_rect(f).size();
            const QSize device(static_cast<int>(std::lround(size.width() * dpr)),
                               static_cast<int>(std::lround(size.height() * dpr)));
            QPixmap pixmap = QPixmap::fromImage(
                form::qt::to_image(pictures[static_cast<std::size_t>(f)]).scaled(device));
            pixmap.setDevicePixelRatio(dpr);
            frames.push_back(pixmap);
        }
        label.setGeometry(banner_rect(0));
        QObject::connect(&timer, &QTimer::timeout, [&] {
            const int f = order[tick];
            tick = (tick + 1) % order.size();
            label.setPixmap(frames[static_cast<std::size_t>(f)]);
            label.resize(banner_rect(f).size());
        });
        timer.start(layout::kBannerInterval);
    }
    if (texts) add_texts(window);

    window.show();
    return QApplication::exec();
}
