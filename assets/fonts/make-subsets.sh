#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Rebuilds the two fonts compiled into the window, from the Debian font packages, when a text
# that the window shows changes. Each subset holds only the characters of those texts, so the
# program draws them the same way on a machine with no Chinese font at all.
# Needs: fonts-arphic-ukai fonts-noto-cjk python3-fonttools. Usage: assets/fonts/make-subsets.sh
set -euo pipefail
cd "$(dirname "$0")/../.."

out=assets/fonts
python=/usr/bin/python3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Every text constant ("kName = "..." "...";") of the headers that hold the window's texts.
"$python" - form/layout.h effects/toss.h game/form1.h >"$work/text.txt" <<'PY'
import re, sys
chars = set()
for path in sys.argv[1:]:
    source = open(path, encoding="utf-8").read()
    for literals in re.findall(r'\bk\w+\s*=\s*((?:"(?:[^"\\]|\\.)*"\s*)+);', source):
        chars.update("".join(re.findall(r'"((?:[^"\\]|\\.)*)"', literals)))
sys.stdout.write("".join(sorted(chars)))
PY

# source file, family to take from the collection, output file, family name of the subset
subset() {
    local source=$1 family=$2 output=$3 new_family=$4
    local index
    index=$("$python" -c '
import sys
from fontTools.ttLib import TTCollection
fonts = TTCollection(sys.argv[1], lazy=True).fonts
print(next(i for i, f in enumerate(fonts) if f["name"].getDebugName(1) == sys.argv[2]))
' "$source" "$family")
    "$python" -m fontTools.subset "$source" --font-number="$index" --text-file="$work/text.txt" \
        --name-IDs='*' --no-hinting --desubroutinize --output-file="$work/subset"
    # A new family name keeps the subset apart from a full copy of the font installed on the
    # machine. The line box becomes one em, as in the faces that the layout was designed with,
    # so the rules fit their box and a caption starts at the top of its label.
    "$python" - "$work/subset" "$output" "$new_family" "$work/text.txt" "$family" <<'PY'
import datetime, sys
from fontTools.ttLib import TTFont
subset_path, output, family, text_path, source_family = sys.argv[1:]
font = TTFont(subset_path)
missing = [c for c in open(text_path, encoding="utf-8").read() if ord(c) not in font.getBestCmap()]
if missing:
    sys.exit(f"{output}: no glyph for {''.join(missing)!r}")
names = font["name"]
for record in list(names.names):
    if record.nameID in (1, 3, 4, 6, 16, 17, 21, 22):
        names.removeNames(nameID=record.nameID)
# The notice of the change, in the file itself, as the Arphic licence asks.
notice = (f"{names.getDebugName(0)}\n{family} is {source_family} reduced to the characters of "
          f"the Sanlian game's texts, renamed, with a line box of one em; changed on "
          f"{datetime.date.today().isoformat()}.")
names.removeNames(nameID=0)
names.setName(notice, 0, 3, 1, 0x409)
names.setName(family, 1, 3, 1, 0x409)
names.setName("Regular", 2, 3, 1, 0x409)
names.setName(family, 3, 3, 1, 0x409)
names.setName(family, 4, 3, 1, 0x409)
names.setName(family.replace(" ", "") + "-Regular", 6, 3, 1, 0x409)
em = font["head"].unitsPerEm
ascent = round(em * 0.88)
descent = em - ascent
hhea, os2 = font["hhea"], font["OS/2"]
hhea.ascent, hhea.descent, hhea.lineGap = ascent, -descent, 0
os2.sTypoAscender, os2.sTypoDescender, os2.sTypoLineGap = ascent, -descent, 0
os2.usWinAscent, os2.usWinDescent = ascent, descent
font.save(output)
PY
}

subset /usr/share/fonts/truetype/arphic/ukai.ttc "AR PL UKai CN" "$out/sanlian-kai.ttf" "Sanlian Kai"
subset /usr/share/fonts/opentype/noto/NotoSerifCJK-Regular.ttc "Noto Serif CJK SC" \
    "$out/sanlian-serif.otf" "Sanlian Serif"

# The licences travel with the fonts: sanlian-kai.ttf under ARPHICPL.TXT, sanlian-serif.otf
# under OFL.txt.
gzip -dc /usr/share/doc/fonts-arphic-ukai/license/english/ARPHICPL.TXT.gz >"$out/ARPHICPL.TXT"
"$python" - "$out/OFL.txt" <<'PY'
import re, sys
from fontTools.ttLib import TTCollection
fonts = TTCollection("/usr/share/fonts/opentype/noto/NotoSerifCJK-Regular.ttc", lazy=True).fonts
notice = fonts[0]["name"].getDebugName(0)
copyright = open("/usr/share/doc/fonts-noto-cjk/copyright", encoding="utf-8").read()
# The stand-alone licence paragraph: its first line of text follows the name.
body = re.search(r"^License: SIL-1\.1\n((?: .*\n)+)", copyright, re.M).group(1)
text = "\n".join("" if line == " ." else line[1:] for line in body.splitlines())
open(sys.argv[1], "w", encoding="utf-8").write(f"Noto Serif CJK: {notice}\n\n{text}\n")
PY

ls -l "$out"
