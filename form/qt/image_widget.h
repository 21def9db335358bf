// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QWidget>

namespace form::qt {

// A picture stretched to the whole widget; nothing at all without a picture.
class ImageWidget : public QWidget {
public:
    explicit ImageWidget(QWidget* parent);

    void set_image(const QImage& image);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage image_;
};

}  // namespace form::qt
