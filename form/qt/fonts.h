// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFont>
#include <QStringList>

#include "form/controls.h"

namespace form::qt {

// Turns the layout's fonts into QFonts. A face the machine has is used as it is; a face it
// lacks (隶书 and 宋体 on most machines other than Windows) is replaced by a font compiled into
// the program that holds every character the window shows, so no text can turn into boxes.
// Sizes in points are taken at 96 dpi, the resolution the layout was designed at, whatever
// the resolution of the screen.
class FontBook {
public:
    // Registers the compiled-in fonts with the application, once per process, where the
    // platform takes application fonts. Needs a QGuiApplication.
    FontBook();

    QFont font_for(const Font& font) const;

private:
    QStringList faces_present_;  // the layout's faces that the machine has
};

}  // namespace form::qt
