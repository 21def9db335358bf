// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

#include <optional>

#include "form/qt/prepared_picture.h"

namespace form::qt {

// A picture prepared at the widget's size, covering the whole widget; nothing at all without
// a picture.
class ImageWidget : public QWidget {
public:
    explicit ImageWidget(QWidget* parent);

    // The widget's size in device pixels, the size to prepare its picture at.
    QSize device_size() const;
    void show_picture(const PreparedPicture* picture);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    // Shares the prepared image; nothing is copied.
    std::optional<PreparedPicture> picture_;
};

}  // namespace form::qt
