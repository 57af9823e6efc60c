#!/usr/bin/env bash
# Peak memory of the whole editor process (maximum resident set size from /usr/bin/time -v)
# holding a 20 x 20 and a 1000 x 1000 level after start-up, in a private X server.
#
#   bench/peak_memory.sh EDITOR SHEET
set -euo pipefail
editor=$(realpath "$1")
sheet=$(realpath "$2")
work=$(mktemp -d)
server=
cleanup() {
    [ -n "$server" ] && kill "$server" 2>/dev/null
    rm -rf "$work"
}
trap cleanup EXIT

# -noreset: a server that resets when its last client leaves refuses the next one meanwhile.
Xvfb -displayfd 3 -screen 0 1920x1080x24 -nolisten tcp -noreset 3> "$work/display" 2>/dev/null &
server=$!
for _ in $(seq 100); do [ -s "$work/display" ] && break; sleep 0.1; done
export DISPLAY=:$(head -n 1 "$work/display")

# A level file of the given side: walls, furniture and floor in a repeating pattern.
level() {
    awk -v side="$1" 'BEGIN {
        printf "1\r\n %d \r\n %d \r\n", side + 14, side + 14
        border = sprintf("%0" (side + 14) "d", 0)
        for (i = 0; i < 7; ++i) printf "%s\r\n", border
        for (y = 0; y < side; ++y) {
            row = ""
            for (x = 0; x < side; ++x) row = row ((x * 7 + y * 13) % 10 < 3 ? "1" : (x + y) % 11 == 0 ? "I" : "0")
            printf "0000000%s0000000\r\n", row
        }
        for (i = 0; i < 7; ++i) printf "%s\r\n", border
    }'
}

peak_kib() {
    local folder=$work/$1
    mkdir -p "$folder"
    cp "$sheet" "$folder/EditPic.jpg"
    level "$1" > "$folder/level99.VRK"
    (cd "$folder" && exec /usr/bin/time -v -o "$folder/time" \
        sh -c 'echo $$ > editor.pid; exec "$0"' "$editor") &
    local timer=$!
    # Start-up ends with the help box, shown over the level once it is drawn.
    xdotool search --sync --name '^Nápověda$' >/dev/null
    sleep 1
    kill -TERM "$(cat "$folder/editor.pid")"
    wait "$timer" || true
    local kib
    kib=$(sed -n 's/.*Maximum resident set size (kbytes): //p' "$folder/time")
    [ -n "$kib" ] || { echo "no measurement for side $1" >&2; exit 1; }
    echo "$kib"
}

small=$(peak_kib 20)
large=$(peak_kib 1000)
awk -v small="$small" -v large="$large" 'BEGIN {
    printf "%-28s %10s\n", "editor holding", "peak MiB"
    printf "%-28s %10.1f\n", "20 x 20 level", small / 1024
    printf "%-28s %10.1f\n", "1000 x 1000 level", large / 1024
    printf "%-28s %10.1f\n", "difference", (large - small) / 1024
}'
