// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLabel>

#include "form/controls.h"

namespace form::qt {

// Label1 inside Shape1, which frames it exactly: a caption on a light ground of its own,
// within a rounded outline one pixel wide in the shape's BorderColor, read at every paint.
class FramedLabel : public QLabel {
public:
    // shape must outlive the widget.
    FramedLabel(const form::Shape& shape, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const form::Shape& shape_;
};

}  // namespace form::qt
