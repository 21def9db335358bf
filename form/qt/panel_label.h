// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLabel>

namespace form::qt {

// A label on a ground of its own, a rounded rectangle that fills the widget as Shape1's
// outline frames it, so a caption can have a ground other than the form's. The ground is the
// palette's Window colour.
class PanelLabel : public QLabel {
public:
    explicit PanelLabel(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace form::qt
