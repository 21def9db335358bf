#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Exports the banner's frames from the built program data as PNGs and makes the animated
# preview: up through the frames and back down, 50 ms a frame, as Timer3 shows them.
# Usage: assets/banner/preview.sh [build-dir] [png-dir]
set -euo pipefail
cd "$(dirname "$0")/../.."

build_dir=${1:-build}
png_dir=${2:-$build_dir/banner-frames}
cmake --build "$build_dir" --target banner_export
ppm_dir=$(mktemp -d)
trap 'rm -rf "$ppm_dir"' EXIT
"$build_dir/assets/banner_export" "$ppm_dir"

mkdir -p "$png_dir"
frames=()
for i in $(seq -w 0 92); do
    convert "$ppm_dir/frame_$i.ppm" "$png_dir/frame_$i.png"
    frames+=("$png_dir/frame_$i.png")
done
for i in $(seq -w 91 -1 0); do frames+=("$png_dir/frame_$i.png"); done

# ImageMagick delays are in hundredths of a second.
mkdir -p docs
convert -delay 5 -loop 0 "${frames[@]}" -layers Optimize docs/banner.gif
echo "PNG frames in $png_dir; preview in docs/banner.gif"
