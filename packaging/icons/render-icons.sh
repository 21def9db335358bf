#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Renders the committed PNG icons from the SVG. Run after editing the SVG; needs rsvg-convert
# (librsvg2-bin). The PNGs are committed so that building does not need librsvg; they are
# installed under the desktop entry's id.
set -euo pipefail
cd "$(dirname "$0")"

name=sanlian
for size in 48 256; do
    mkdir -p "${size}x${size}"
    rsvg-convert --width "$size" --height "$size" --format png \
        --output "${size}x${size}/$name.png" "$name.svg"
done
