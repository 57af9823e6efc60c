#!/usr/bin/env bash
# The start-up race: a bare Qt Widgets program (a window of the editor's default size and one
# message box, bench/startup/bare_window.cpp) against the editor on a 20 x 20 and a
# 1000 x 1000 level, under one private X server, in turns. Each run is timed from just before
# the program starts until its box ("Nápověda") is mapped, and its peak resident memory is
# read from the kernel (bench/startup/map_watcher.cpp). Prints the medians and their ratios to
# the bare program; where valgrind is installed, also the instructions each needs until then.
#
#   bench/startup_race.sh BUILD_DIR [ROUNDS]     (a release build with VARNOK_BENCH=ON)
set -euo pipefail
build=$(realpath "$1")
rounds=${2:-7}
watch=$build/bench/startup-watch
bare=$build/bench/bare-window
editor=$build/src/app/varnok-editor
sheet=$build/art/generated/EditPic.jpg
. "$(dirname "$0")/private_x_server.sh" 1920x1080x24

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
for side in 20 1000; do
    mkdir -p "$work/$side"
    cp "$sheet" "$work/$side/EditPic.jpg"
    level "$side" > "$work/$side/level99.VRK"
done

# One run: "microseconds peak-KiB" appended to the kind's file.
run() {
    local kind=$1
    shift
    "$watch" 'Nápověda' "$@" >> "$work/$kind.runs"
}
for _ in $(seq "$rounds"); do
    run bare "$bare"
    (cd "$work/20" && run editor20 "$editor")
    (cd "$work/1000" && run editor1000 "$editor")
done

label() {
    case $1 in
        bare) echo "bare Qt window + box" ;;
        editor20) echo "editor, 20 x 20 level" ;;
        editor1000) echo "editor, 1000 x 1000 level" ;;
    esac
}
median() { sort -n | awk '{ v[NR] = $1 } END { print (NR % 2 ? v[(NR + 1) / 2] : (v[NR / 2] + v[NR / 2 + 1]) / 2) }'; }
for kind in bare editor20 editor1000; do
    printf '%s\t%s\t%s\n' "$(label "$kind")" "$(cut -d' ' -f1 "$work/$kind.runs" | median)" \
        "$(cut -d' ' -f2 "$work/$kind.runs" | median)"
done > "$work/medians"
awk -F '\t' -v rounds="$rounds" '
    { name[NR] = $1; ready[NR] = $2 / 1000; peak[NR] = $3 / 1024 }
    END {
        printf "start-up race, medians of %d runs each, in turns\n", rounds
        printf "%-28s %10s %8s %10s %8s %10s\n", "program", "ready ms", "ratio", "peak MiB", "ratio", "over MiB"
        for (i = 1; i <= NR; ++i)
            printf "%-28s %10.1f %8.2f %10.1f %8.2f %10.1f\n", name[i], ready[i],
                   ready[i] / ready[1], peak[i], peak[i] / peak[1], peak[i] - peak[1]
    }' "$work/medians"

# Instructions to the same point, counted by callgrind: unlike the time, the same on a busy
# machine, so a change shows even when the clock's noise hides it. Only where valgrind is.
command -v valgrind > /dev/null || exit 0
instructions() {
    "$watch" 'Nápověda' valgrind --tool=callgrind --callgrind-out-file=/dev/null "$@" 2>&1 |
        sed -n 's/.*I *refs: *//p' | tail -n 1 | tr -d ,
}
bareCount=$(instructions "$bare")
echo
printf '%-28s %10s %8s\n' "instructions until ready" "millions" "ratio"
for kind in bare editor20 editor1000; do
    case $kind in
        bare) count=$bareCount ;;
        editor20) count=$(cd "$work/20" && instructions "$editor") ;;
        editor1000) count=$(cd "$work/1000" && instructions "$editor") ;;
    esac
    awk -v name="$(label "$kind")" -v count="$count" -v bare="$bareCount" \
        'BEGIN { printf "%-28s %10.1f %8.2f\n", name, count / 1e6, count / bare }'
done
