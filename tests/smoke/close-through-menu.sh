#!/bin/sh
# Starts the real program on a virtual display, closes it through Options > Exit
# and checks that it ended normally and saved its settings.
set -u
lumbra="$1"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_CONFIG_HOME="$work/config" XDG_DATA_HOME="$work/data" XDG_CACHE_HOME="$work/cache"
unset QT_QPA_PLATFORM

xvfb-run -a -s "-screen 0 1024x768x24" sh -c '
    "$0" & pid=$!
    window=$(xdotool search --sync --onlyvisible --name "^Lumbra$" | head -n 1)
    sleep 0.5
    xdotool windowfocus --sync "$window"
    xdotool key --window "$window" alt+o
    sleep 0.3
    xdotool key x
    for _ in $(seq 50); do kill -0 $pid 2>/dev/null || break; sleep 0.1; done
    if kill -0 $pid 2>/dev/null; then kill $pid; echo "Lumbra did not close through its menu"; exit 1; fi
    wait $pid
' "$lumbra"
status=$?
[ $status -eq 0 ] || { echo "Lumbra ended with status $status"; exit 1; }
grep -q '^MainForm=' "$work/config/Lumbra/Lumbra.conf" || { echo "settings were not saved on close"; exit 1; }
echo "Lumbra started and closed through its menu"
