// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPalette>

namespace form::qt {

// Every colour the window shows, whatever the desktop's palette: a silver form and button
// faces with black text, so the captions read the same on a light, dark or high-contrast
// desktop. A disabled control's text is grey, fainter than black but still legible.
QPalette form_palette();

}  // namespace form::qt
