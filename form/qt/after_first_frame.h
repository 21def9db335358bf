// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

#include <functional>

namespace form::qt {

// Runs a task once, right after the window's first frame is on the screen, so that work the
// frame does not show (decoding the window's icon) does not hold back its first pixels. Call
// after show(): the window must have its native window.
void after_first_frame(QWidget& window, std::function<void()> task);

}  // namespace form::qt
