#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Rebuilds the two fonts compiled into the window, from the Debian font packages, when a text
# that the window shows changes. Each subset holds only the characters of those texts, so the
# program draws them the same way on a machine with no Chinese font at all.
# Needs: fonts-lxgw-wenkai fonts-noto-cjk python3-fonttools. Usage: assets/fonts/make-subsets.sh
# The dates written into the fonts come from SOURCE_DATE_EPOCH, by default the date of the last
# commit that changed this script or a text it reads, so running it again gives the same bytes.
set -euo pipefail
cd "$(dirname "$0")/../.."
texts=(form/layout.h effects/toss.h game/form1.h)
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct -- assets/fonts/make-subsets.sh "${texts[@]}")}
export SOURCE_DATE_EPOCH

out=assets/fonts
python=/usr/bin/python3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Every text constant ("kName = "..." "...";") of the headers that hold the window's texts, and
# the letters that fontconfig counts as English. A face without them is not "Latin" to Qt, which
# then loads it twice, once for the Chinese and once for the punctuation and metrics, and the
# second load costs a fontconfig match on the way to the first frame.
"$python" - "${texts[@]}" >"$work/text.txt" <<'PY'
import re, sys
chars = set()
for path in sys.argv[1:]:
    source = open(path, encoding="utf-8").read()
    for literals in re.findall(r'\bk\w+\s*=\s*((?:"(?:[^"\\]|\\.)*"\s*)+);', source):
        chars.update("".join(re.findall(r'"((?:[^"\\]|\\.)*)"', literals)))
chars.update(map(chr, range(0x20, 0x7F)))
chars.update("ÀÇÈÉÊËÏÑÔÖàçèéêëïñôö")
sys.stdout.write("".join(sorted(chars)))
PY

# source file, family to take from it, output file, family name of the subset
subset() {
    local source=$1 family=$2 output=$3 new_family=$4
    local index=0
    [[ $source != *.ttc ]] || index=$("$python" -c '
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
import datetime, os, sys
from fontTools.ttLib import TTFont
subset_path, output, family, text_path, source_family = sys.argv[1:]
font = TTFont(subset_path)
missing = [c for c in open(text_path, encoding="utf-8").read() if ord(c) not in font.getBestCmap()]
if missing:
    sys.exit(f"{output}: no glyph for {''.join(missing)!r}")
names = font["name"]
style = names.getDebugName(2)
# A Modified Version must not use the original's names (the OFL's Reserved Font Names among
# them): every record that names the font goes, on every platform and in every language.
for name_id in (1, 2, 3, 4, 6, 16, 17, 18, 21, 22):
    names.removeNames(nameID=name_id)
changed = datetime.datetime.fromtimestamp(int(os.environ["SOURCE_DATE_EPOCH"]), datetime.timezone.utc)
notice = (f"{names.getDebugName(0)}\n{family} is {source_family} reduced to the characters of "
          f"the Sanlian game's texts, renamed, with a line box of one em; changed on "
          f"{changed.date().isoformat()}.")
names.removeNames(nameID=0)
names.setName(notice, 0, 3, 1, 0x409)
full_name = family if style == "Regular" else f"{family} {style}"
postscript_name = f"{family.replace(' ', '')}-{style}"
for name_id, value in ((1, family), (2, style), (3, postscript_name), (4, full_name),
                       (6, postscript_name)):
    names.setName(value, name_id, 3, 1, 0x409)
if "CFF " in font:
    font["CFF "].cff.fontNames = [postscript_name]
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

# The window's brush face is always bold, so the subset is of the Bold, not a smeared Regular.
subset /usr/share/fonts/truetype/lxgw-wenkai/LXGWWenKai-Bold.ttf "LXGW WenKai" \
    "$out/sanlian-kai.ttf" "Sanlian Kai"
subset /usr/share/fonts/opentype/noto/NotoSerifCJK-Regular.ttc "Noto Serif CJK SC" \
    "$out/sanlian-serif.otf" "Sanlian Serif"

# Both fonts are under the SIL OFL 1.1, whose text travels with them behind each font's notice.
"$python" - "$out/OFL.txt" "$out/sanlian-kai.ttf" "$out/sanlian-serif.otf" <<'PY'
import re, sys
from fontTools.ttLib import TTFont
output, *fonts = sys.argv[1:]
notices = []
for path in fonts:
    # The subset's notice: the original's copyright lines, then what was changed.
    notice = TTFont(path)["name"].getDebugName(0).replace("\r\n", "\n")
    notices.append(f"{path.rsplit('/', 1)[-1]}:\n{notice}\n")
notices[0] += 'Reserved Font Names "霞鹜" and "LXGW" (LXGW WenKai).\n'
copyright = open("/usr/share/doc/fonts-noto-cjk/copyright", encoding="utf-8").read()
# The stand-alone licence paragraph: its first line of text follows the name.
body = re.search(r"^License: SIL-1\.1\n((?: .*\n)+)", copyright, re.M).group(1)
text = "\n".join("" if line == " ." else line[1:] for line in body.splitlines())
open(output, "w", encoding="utf-8").write("\n".join(notices) + f"\n{text}\n")
PY
rm -f "$out/ARPHICPL.TXT"

ls -l "$out"
