#!/usr/bin/env bash
# Times varnok-level on a 1000 x 1000 level in a release build, all figures from one run:
#   - start-up alone (--version) and check of the level, process start included; the
#     difference is the editor's reader and the checks after it;
#   - render at 4 pixels a cell to PNG, and the share of the PNG encoder in it, from the
#     program's own step times (VARNOK_LEVEL_TIMES=1: load, redraw, picture, encode, write;
#     wall and processor time; process start and the module's loading come before them).
# Wall times come from hyperfine (installed through apt-get when missing), which repeats each
# command and reports mean, spread and the processor time it used; on a machine shared with
# other work the wall time moves, the processor time much less.
#
#   bench/cli_timing.sh [BUILD_DIR]      (default build/bench, as scripts/bench)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/install-deps"
if ! command -v hyperfine >/dev/null; then
    sudo=()
    [ "$(id -u)" -eq 0 ] || sudo=(sudo)
    "${sudo[@]}" apt-get update -qq
    DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -qq --no-install-recommends \
        hyperfine
fi

build=${1:-$root/build/bench}
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" --target varnok-level >/dev/null
program=$build/src/app/varnok-level

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

# 1000 x 1000: about 60 % floor, the rest wall pieces of every shape, furniture and items,
# and a hero; every code has a picture, so check says ok and render draws it all.
LC_ALL=C awk 'BEGIN {
    side = 1000
    printf "1\r\n %d \r\n %d \r\n", side + 14, side + 14
    border = sprintf("%0" (side + 14) "d", 0)
    for (i = 0; i < 7; ++i) printf "%s\r\n", border
    for (y = 0; y < side; ++y) {
        row = ""
        for (x = 0; x < side; ++x) {
            r = (x * 7919 + y * 104729 + x * y) % 100
            code = r < 60 ? 0 : r < 85 ? 1 + r % 22 : r < 95 ? 23 + r % 7 : 124 + r % 4
            if (x == 5 && y == 5) code = 135
            row = row sprintf("%c", 48 + code)
        }
        printf "0000000%s0000000\r\n", row
    }
    for (i = 0; i < 7; ++i) printf "%s\r\n", border
}' > level.VRK
"$program" check level.VRK
# The same size with every cell a random code that has a picture: the hardest to compress.
LC_ALL=C awk 'BEGIN {
    srand(32); side = 1000
    printf "1\r\n %d \r\n %d \r\n", side + 14, side + 14
    border = sprintf("%0" (side + 14) "d", 0)
    for (i = 0; i < 7; ++i) printf "%s\r\n", border
    for (y = 0; y < side; ++y) {
        row = ""
        for (x = 0; x < side; ++x) row = row sprintf("%c", 48 + int(rand() * 140))
        printf "0000000%s0000000\r\n", row
    }
    for (i = 0; i < 7; ++i) printf "%s\r\n", border
}' > random.VRK

echo "load average before: $(cut -d' ' -f1-3 /proc/loadavg)"
hyperfine -N --style basic --warmup 5 --runs 40 --export-csv start.csv \
    -n "start-up (--version)" "$program --version" \
    -n "check 1000 x 1000" "$program check level.VRK"
hyperfine -N --style basic --warmup 1 --runs 10 --export-csv render.csv \
    -n "render 1000 x 1000 at 4 px a cell to PNG" "$program render level.VRK -o level.png --cell-size 4" \
    -n "render random 1000 x 1000 at 4 px a cell" "$program render random.VRK -o random.png --cell-size 4"
ls -l level.png | awk '{ printf "PNG: %.1f MB, %s\n", $5 / 1e6, "4000 x 4000 pixels" }'

# The program's own step times over 10 runs, as medians.
for _ in $(seq 10); do
    VARNOK_LEVEL_TIMES=1 "$program" render level.VRK -o level.png --cell-size 4 2>&1 |
        sed -n 's/^varnok-level: ms: //p'
done > steps.txt
echo "load average after: $(cut -d' ' -f1-3 /proc/loadavg)"

# hyperfine's CSV: command,mean,stddev,median,user,system,min,max (seconds)
awk -F, -v steps=steps.txt '
    FNR == 1 { next }
    { median[$1] = $4 * 1000; low[$1] = $7 * 1000; cpu[$1] = ($5 + $6) * 1000 }
    END {
        start = "start-up (--version)"; check = "check 1000 x 1000"
        render = "render 1000 x 1000 at 4 px a cell to PNG"
        random = "render random 1000 x 1000 at 4 px a cell"
        printf "\n%-42s %10s %10s %10s\n", "figure", "median ms", "min ms", "cpu ms"
        split(start SUBSEP check SUBSEP render SUBSEP random, names, SUBSEP)
        for (i = 1; i <= 4; ++i)
            printf "%-42s %10.1f %10.1f %10.1f\n", names[i], median[names[i]], low[names[i]], cpu[names[i]]
        # Processor time splits steadily; the wall time moves with whatever else the machine runs.
        printf "\ncheck: processor %.1f ms, of which start-up %.1f (%.0f %%) and the reader with the " \
            "checks %.1f; wall median %.1f ms, fastest %.1f\n", cpu[check], cpu[start],
            100 * cpu[start] / cpu[check], cpu[check] - cpu[start], median[check], low[check]
        # Step lines: "load W/C redraw W/C ...", wall and processor milliseconds.
        n = 0
        while ((getline line < steps) > 0) {
            k = split(line, f, " ")
            for (i = 1; i < k; i += 2) {
                split(f[i + 1], wc, "/")
                ++c[f[i]]; wall[f[i], c[f[i]]] = wc[1]; proc[f[i], c[f[i]]] = wc[2]
            }
            ++n
        }
        split("load redraw picture encode write", step, " ")
        for (s = 1; s <= 5; ++s) {
            w[step[s]] = middle(wall, step[s], c[step[s]]); p[step[s]] = middle(proc, step[s], c[step[s]])
            walls += w[step[s]]; procs += p[step[s]]
        }
        printf "render steps, medians of %d runs, wall/processor ms:", n
        for (s = 1; s <= 5; ++s) printf " %s %d/%d", step[s], w[step[s]], p[step[s]]
        printf "\nthe PNG encoder: %d of %d ms wall (%.0f %%), %d of %d ms processor (%.0f %%)\n",
            w["encode"], walls, 100 * w["encode"] / walls, p["encode"], procs, 100 * p["encode"] / procs
    }
    function middle(table, name, m,    i, j, x, v) {
        for (i = 1; i <= m; ++i) v[i] = table[name, i] + 0
        for (i = 1; i <= m; ++i) for (j = i + 1; j <= m; ++j) if (v[j] < v[i]) { x = v[i]; v[i] = v[j]; v[j] = x }
        return m % 2 ? v[(m + 1) / 2] : (v[m / 2] + v[m / 2 + 1]) / 2
    }' start.csv render.csv
