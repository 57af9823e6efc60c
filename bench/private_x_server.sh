# Sourced by the benchmark scripts: a scratch folder ($work) and a private X server of the
# given screen size, both gone when the script ends; DISPLAY and private runtime, settings and
# state folders are exported for every program the script starts.
#
#   . "$(dirname "$0")/private_x_server.sh" 1920x1080x24
work=$(mktemp -d)
server=
cleanup() {
    [ -n "$server" ] && kill "$server" 2>/dev/null
    rm -rf "$work"
}
trap cleanup EXIT

# -noreset: a server that resets when its last client leaves refuses the next one meanwhile.
Xvfb -displayfd 3 -screen 0 "$1" -nolisten tcp -noreset 3> "$work/display" 2>/dev/null &
server=$!
for _ in $(seq 100); do [ -s "$work/display" ] && break; sleep 0.1; done
export DISPLAY=:$(head -n 1 "$work/display")
# Qt warns without a runtime folder; every program gets the same private one.
export XDG_RUNTIME_DIR=$work/runtime
mkdir -m 700 "$XDG_RUNTIME_DIR"
# Nor are the user's own settings and state touched: the editor remembers the levels it opened
# there and keeps its recovery copies and their locks there (a killed editor leaves its lock).
export XDG_CONFIG_HOME=$work/config XDG_STATE_HOME=$work/state
