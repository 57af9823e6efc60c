#!/usr/bin/env bash
# Previews of the drawn artwork, for looking at it the way a level designer would.
#
#   art/preview.sh [GENERATED-FOLDER] [OUTPUT-FOLDER]
#
# GENERATED-FOLDER is what varnok-art wrote (default: build/release/art/generated); the
# varnok-art beside it lays the sample level. OUTPUT-FOLDER receives (default:
# build/art-preview):
#   contact-sheet.png  all 140 sheet cells, enlarged, on a grid, each with its number
#   sample-level.png   a walled level with corridors, all eight rooms, furniture, items and
#                      figures, laid from the editor's own wall and room tables
#   palette.png        the 26 palette pictures, the three button pictures and the icons
# Needs ImageMagick (convert, montage). A developer's tool only; the build does not use it.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
generated=${1:-$root/build/release/art/generated}
out=${2:-$root/build/art-preview}
mkdir -p "$out"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0 "$generated/../varnok-art" "$work/drawn" \
    --sample-level "$out/sample-level.png"

# Contact sheet: every cell of the sheet, numbered row by row like tile codes, at 1.5 times
# its size.
convert "$generated/EditPic.jpg" -crop 64x64 +repage "$work/%03d.png"
montage -label '%t' -filter point -tile 10x14 -geometry 96x96+3+3 -font DejaVu-Sans \
    -pointsize 12 -background '#303040' -fill white "$work"/[0-9][0-9][0-9].png \
    "$out/contact-sheet.png"

# Palette pictures by code, buttons and icons, enlarged three times without smoothing.
mapfile -t palette < <(printf '%s\n' "$generated"/palette/*.bmp | sort -V)
montage -label '%t' -filter point -tile 8x -geometry 192x192+4+4 -font DejaVu-Sans \
    -pointsize 12 -background '#b4cde4' "${palette[@]}" \
    "$generated"/buttons/{new,open,save}.bmp "$generated"/icon/icon{32,16}.png "$out/palette.png"

echo "previews in $out"
