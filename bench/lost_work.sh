#!/usr/bin/env bash
# Lost work on a kill -9: the editor, on a new level under a private X server, gets a crate
# painted into one new cell every 0.1 s by xdotool and is killed with SIGKILL at a random moment
# 3 to 12 s into the painting. Its recovery copy is then read: the work lost is the time from
# the oldest crate missing in the copy to the kill (0 when none is missing). Prints every round,
# then the median and the largest, in milliseconds.
#
#   bench/lost_work.sh BUILD_DIR [ROUNDS]     (a release build)
set -euo pipefail
build=$(realpath "$1")
rounds=${2:-10}
editor=$build/src/app/varnok-editor
sheet=$build/art/generated/EditPic.jpg
. "$(dirname "$0")/private_x_server.sh" 1920x1400x24
now() { echo $(($(date +%s%N) / 1000000)); }

for round in $(seq "$rounds"); do
    folder=$work/round$round
    mkdir "$folder"
    cp "$sheet" "$folder/EditPic.jpg"
    rm -rf "$XDG_STATE_HOME"
    (cd "$folder" && exec "$editor") &
    pid=$!
    xdotool search --sync --onlyvisible --name '^Nápověda$' > /dev/null
    xdotool key Return
    window=$(xdotool search --sync --onlyvisible --name '^VARNOK LEVEL EDITOR$' | head -n 1)
    xdotool windowsize --sync "$window" 1600 1300
    eval "$(xdotool getwindowgeometry --shell "$window")"
    sleep 0.5
    xdotool mousemove --sync $((X + 50)) $((Y + 179 + 72 * 4)) click 1  # Bedna
    kill_after=$((3000 + RANDOM % 9000))
    start=$(now)
    : > "$folder/painted"
    for n in $(seq 0 255); do
        cx=$((2 + n % 16)) cy=$((2 + n / 16))
        [ $(($(now) - start)) -ge "$kill_after" ] && break
        xdotool mousemove --sync $((X + 174 + 64 * cx)) $((Y + 51 + 64 * cy)) click 1
        echo "$cx $cy $(now)" >> "$folder/painted"
        sleep 0.1
    done
    kill -9 "$pid"
    killed=$(now)
    wait "$pid" 2> /dev/null || true
    copy=$(ls "$XDG_STATE_HOME"/varnok/recovery/*.VRK 2> /dev/null | head -n 1)
    # The oldest painted cell whose crate (byte "I") the copy lacks; without a copy, all of them.
    [ -n "$copy" ] || copy=$folder/painted
    lost=$(awk -v killed="$killed" '
        FNR == NR { sub(/\r$/, ""); line[FNR] = $0; next }
        substr(line[11 + $2], 8 + $1, 1) != "I" { print killed - $3; found = 1; exit }
        END { if (!found) print 0 }' "$copy" "$folder/painted")
    echo "round $round: $(wc -l < "$folder/painted") crates in $((killed - start)) ms, lost $lost ms"
    echo "$lost" >> "$work/lost"
done
sort -n "$work/lost" | awk '{ v[NR] = $1 } END {
    printf "lost work: median %d ms, largest %d ms (of %d rounds)\n", v[int((NR + 1) / 2)], v[NR], NR }'
