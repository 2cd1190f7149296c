#!/bin/sh
# Starts the real program on a virtual display, closes it through Options > Exit
# and checks that it ended normally and saved its settings. No step relies on the
# machine's speed: each one is retried until it has taken effect, within a generous
# deadline.
set -u
lumbra="$1"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_CONFIG_HOME="$work/config" XDG_DATA_HOME="$work/data" XDG_CACHE_HOME="$work/cache"
unset QT_QPA_PLATFORM

xvfb-run -a -s "-screen 0 1024x768x24" sh -c '
    "$0" & pid=$!
    window=$(xdotool search --sync --onlyvisible --name "^Lumbra$" | head -n 1)
    for _ in $(seq 60); do
        xdotool windowfocus --sync "$window" 2>/dev/null
        xdotool key --window "$window" alt+o 2>/dev/null
        sleep 0.5
        xdotool key x 2>/dev/null
        for _ in $(seq 10); do kill -0 $pid 2>/dev/null || break 2; sleep 0.1; done
        xdotool key Escape 2>/dev/null # the menu may not have opened yet
    done
    if kill -0 $pid 2>/dev/null; then kill $pid; echo "Lumbra did not close through its menu"; exit 1; fi
    wait $pid
' "$lumbra"
status=$?
[ $status -eq 0 ] || { echo "Lumbra ended with status $status"; exit 1; }
grep -q '^MainForm=' "$work/config/Lumbra/Lumbra.conf" || { echo "settings were not saved on close"; exit 1; }
echo "Lumbra started and closed through its menu"
