#!/usr/bin/env bash
# Previews of the drawn artwork, for looking at it the way a level designer would.
#
#   art/preview.sh [GENERATED-FOLDER] [OUTPUT-FOLDER]
#
# GENERATED-FOLDER is what varnok-art wrote (default: build/helper-art/art/generated),
# OUTPUT-FOLDER receives (default: build/art-preview):
#   contact-sheet.png  all 140 sheet cells, enlarged, on a grid, each with its number
#   sample-level.png   a walled level with corridors, all eight rooms laid as their blocks,
#                      furniture, items and figures, walls shaped by the same wall table
#                      as the editor's
#   palette.png        the 26 palette pictures, the three button pictures and the icons
# Needs ImageMagick (convert, montage). A developer's tool only; the build does not use it.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
generated=${1:-$root/build/helper-art/art/generated}
out=${2:-$root/build/art-preview}
mkdir -p "$out"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Cut the sheet into its cells, numbered row by row like tile codes.
convert "$generated/EditPic.jpg" -crop 64x64 +repage "$work/%03d.png"

# Contact sheet: every cell at 1.5 times its size, labelled with its code.
montage -label '%t' -filter point -tile 10x14 -geometry 96x96+3+3 -pointsize 12 \
    -background '#303040' -fill white "$work"/[0-9][0-9][0-9].png "$out/contact-sheet.png"

# The sample level: '#' wall, '.' floor, A..H a room (its first cell is the block's top-left),
# other letters single-cell objects. Walls are shaped from their four neighbours.
cat > "$work/level.txt" <<'EOF'
..........................
.########################.
.#AAA.BBB.CCC.DDD.#.....#.
.#AAA.BBB.CCC.DDD.#..M..#.
.#AAA.BBB.CCC.DDD.#.....#.
.#AAA.BBB.CCC.DDD.##.####.
.#......................#.
.#.h.t.....$.......g....#.
.####.#######.#########.#.
.#......#...............#.
.#.EEEE.#.FFFF..GGGG..p.#.
.#.EEEE.#.FFFF..GGGG....#.
.#.EEEE.#.FFFF..GGGG..k.#.
.#......#...............#.
.#.HHHH.#..@..o...a.b.u.#.
.#.HHHH.#.#.#.........w.#.
.#.HHHH.#.s.#..l.......e#.
.########################.
..........................
EOF

awk '
BEGIN {
    # Blocks of the rooms A..H, row by row, as the room painter lays them.
    block["A"] = "30 31 32 40 41 42 50 51 52 60 114 62";      cols["A"] = 3
    block["B"] = "33 34 35 43 44 45 53 54 55 63 114 65";      cols["B"] = 3
    block["C"] = "70 71 72 80 81 82 90 91 92 100 114 102";    cols["C"] = 3
    block["D"] = "73 74 75 83 84 85 93 94 95 103 114 105";    cols["D"] = 3
    block["E"] = "36 37 38 39 46 47 48 49 56 114 58 59";      cols["E"] = 4
    block["F"] = "66 67 68 69 76 77 78 79 86 114 88 89";      cols["F"] = 4
    block["G"] = "96 97 98 99 106 107 108 109 116 117 114 119"; cols["G"] = 4
    block["H"] = "110 111 112 113 120 121 122 123 130 114 132 133"; cols["H"] = 4
    split("h 23 t 24 k 25 p 26 a 27 b 28 u 29 $ 124 o 125 l 126 e 127 w 134 @ 135 M 136 g 137 s 138", o, " ")
    for (i = 1; i < length(o); i += 2) object[o[i]] = o[i + 1]
    # Wall key (left, below, right, above) to piece; straight pieces pick one of four looks.
    split("0000 14 1000 17 0100 15 0010 18 0001 16 1100 20 0110 21 0011 22 1001 19 " \
          "1110 10 0111 12 1011 9 1101 11 1111 13", t, " ")
    for (i = 1; i < length(t); i += 2) piece[t[i]] = t[i + 1]
}
{ row[NR - 1] = $0; if (NR == 1) width = length($0) }
length($0) != width { print "level row " NR " has the wrong length" > "/dev/stderr"; exit 1 }
function at(x, y) { return (x < 0 || y < 0 || y >= height || x >= width) ? "." : substr(row[y], x + 1, 1) }
function wall(x, y) { return (x > 0 && y > 0 && x < width && y < height && at(x, y) == "#") ? 1 : 0 }
END {
    height = NR
    for (y = 0; y < height; ++y) for (x = 0; x < width; ++x) {
        c = at(x, y); code[x, y] = 0
        if (c in object) code[x, y] = object[c]
        if (c == "#") {
            key = wall(x - 1, y) wall(x, y + 1) wall(x + 1, y) wall(x, y - 1)
            if (key == "1010") code[x, y] = 1 + (x * 7 + y * 3) % 4
            else if (key == "0101") code[x, y] = 5 + (x * 5 + y * 3) % 4
            else code[x, y] = piece[key]
        }
    }
    for (y = 0; y < height; ++y) for (x = 0; x < width; ++x) {
        c = at(x, y)
        if (!(c in block) || placed[c]++) continue
        n = split(block[c], b, " ")
        for (i = 0; i < n; ++i) code[x + i % cols[c], y + int(i / cols[c])] = b[i + 1]
    }
    for (y = 0; y < height; ++y) for (x = 0; x < width; ++x) printf "%03d\n", code[x, y]
    print width > "'"$work"'/width"
}' "$work/level.txt" > "$work/codes"

files=()
while read -r n; do files+=("$work/$n.png"); done < "$work/codes"
montage "${files[@]}" -tile "$(cat "$work/width")x" -geometry 64x64+0+0 "$out/sample-level.png"

# Palette, buttons and icons, enlarged three times without smoothing.
montage -label '%t' -filter point -tile 8x -geometry 192x192+4+4 -pointsize 12 \
    -background '#b4cde4' \
    "$generated"/palette/{0,1,23,24,25,26,134,27,28,29,124,125,126,127,2,3,4,5,6,7,8,9,135,136,137,138}.bmp \
    "$generated"/buttons/{new,open,save}.bmp "$generated"/icon/icon{32,16}.png "$out/palette.png"

echo "previews in $out"
