// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

#include <array>
#include <optional>

#include "form/form.h"
#include "form/qt/prepared_picture.h"

namespace form::qt {

// Image2: the one of the form's Image1 pictures that it names, stretched to its size, or
// nothing before it names one. Each picture is always shown at the same size, so it is
// prepared once for the screen's device pixel ratio, the first time it is shown, and again only
// when the ratio changes. Only the ink is drawn: the pictures' ground is the form's own, which
// Qt paints beneath, and a widget that is not opaque can change its size every tick without
// making Qt work out afresh which of its many siblings cover the form.
class ImageWidget : public QWidget {
public:
    // form must outlive the widget.
    ImageWidget(const Form& form, QWidget* parent);

    // Takes Image2's picture and size from the form.
    void show_image();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Form& form_;
    qreal prepared_ratio_ = 0;
    std::array<std::optional<PreparedPicture>, layout::kBannerFrameCount> prepared_;
};

}  // namespace form::qt
