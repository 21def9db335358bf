// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/qt/fonts.h"

#include <QFile>
#include <QFontDatabase>
#include <QString>
#include <QStringList>

#include <string_view>

#include "form/fonts.h"

namespace form::qt {

namespace {

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace

FontBook::FontBook() {
    // A platform that takes no application fonts (Qt's minimal one) leaves the texts to the
    // system's faces: Qt falls back to them for a family it does not know.
    for (const auto& entry : fonts::kStandIns) {
        QFile file(QStringLiteral(":/fonts/") + text(entry.file));
        if (file.open(QIODevice::ReadOnly))
            QFontDatabase::addApplicationFontFromData(file.readAll());
    }
    // The list of families is read from fontconfig once for any text. hasFamily() would also
    // run fontconfig's substitution over every font on the machine for each name it is asked.
    const QStringList families = QFontDatabase::families();
    for (const auto& entry : fonts::kStandIns) {
        const QString face = text(entry.face);
        if (families.contains(face, Qt::CaseInsensitive)) faces_present_ << face;
    }
}

QFont FontBook::font_for(const Font& font) const {
    const QString face = QString::fromUtf8(font.face);
    // The stand-in stays behind a present face, so a character that face lacks still shows.
    QStringList families;
    if (faces_present_.contains(face)) families << face;
    families << text(fonts::stand_in_for(font.face).family);

    QFont result;
    result.setFamilies(families);
    result.setPixelSize(fonts::pixel_size(font.points));
    result.setWeight(static_cast<QFont::Weight>(font.weight));
    // The compiled-in faces carry no hinting of their own, so FreeType's light hinting ran its
    // auto-hinter over every character before the first frame (about 15 M instructions, a
    // third of the start-up above an empty window). Unhinted they keep their drawn shapes.
    result.setHintingPreference(QFont::PreferNoHinting);
    // Chinese needs no shaping and these faces have no kerning for its characters, so the
    // characters map straight to glyphs: the same pixels without HarfBuzz, whose pages would
    // add half a megabyte to the resident set.
    result.setStyleStrategy(QFont::PreferNoShaping);
    return result;
}

}  // namespace form::qt
