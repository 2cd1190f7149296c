#!/bin/sh
# Starts the real program on a virtual display, opens Options > Front-End Settings...
# with the keyboard, closes the dialog with its "&Close" button and checks that the
# dialog stored the settings while Lumbra still ran; does the same with Options >
# Export... > Game List and the export choices; then ends Lumbra through Options >
# Exit and checks that it ended normally and saved its placement. No step relies on
# the machine's speed: each one is retried until it has taken effect, within a
# generous deadline.
set -u
lumbra="$1"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_CONFIG_HOME="$work/config" XDG_DATA_HOME="$work/data" XDG_CACHE_HOME="$work/cache"
unset QT_QPA_PLATFORM

xvfb-run -a -s "-screen 0 1024x768x24" sh -c '
    store="$XDG_CONFIG_HOME/Lumbra/Lumbra.conf"
    "$0" & pid=$!
    window=$(xdotool search --sync --onlyvisible --name "^Lumbra$" | head -n 1)
    for _ in $(seq 60); do
        xdotool windowfocus --sync "$window" 2>/dev/null
        xdotool key --window "$window" alt+o 2>/dev/null
        sleep 0.5
        xdotool key f 2>/dev/null
        for _ in $(seq 10); do
            settings=$(xdotool search --onlyvisible --name "^Settings$" 2>/dev/null | head -n 1)
            [ -n "$settings" ] && break 2
            sleep 0.1
        done
        xdotool key Escape 2>/dev/null # the menu may not have opened yet
    done
    [ -n "${settings:-}" ] || { kill $pid; echo "the settings dialog did not open"; exit 1; }
    for _ in $(seq 60); do
        xdotool windowfocus --sync "$settings" 2>/dev/null
        xdotool key --window "$settings" alt+c 2>/dev/null
        for _ in $(seq 10); do grep -q "^SPC_App=" "$store" 2>/dev/null && break 2; sleep 0.1; done
    done
    grep -q "^SPC_App=" "$store" 2>/dev/null || { kill $pid; echo "Close did not store the settings"; exit 1; }
    kill -0 $pid 2>/dev/null || { echo "Lumbra ended with the dialog"; exit 1; }
    for _ in $(seq 60); do
        xdotool windowfocus --sync "$window" 2>/dev/null
        xdotool key --window "$window" alt+o 2>/dev/null
        sleep 0.5
        xdotool key e 2>/dev/null
        sleep 0.3
        xdotool key l 2>/dev/null
        for _ in $(seq 10); do
            export=$(xdotool search --onlyvisible --name "^Export Game List$" 2>/dev/null | head -n 1)
            [ -n "$export" ] && break 2
            sleep 0.1
        done
        xdotool key Escape Escape 2>/dev/null # the menus may not have opened yet
    done
    [ -n "${export:-}" ] || { kill $pid; echo "the export dialog did not open"; exit 1; }
    for _ in $(seq 60); do
        xdotool windowfocus --sync "$export" 2>/dev/null
        xdotool key --window "$export" alt+c 2>/dev/null
        for _ in $(seq 10); do grep -q "^optExportMethod=" "$store" 2>/dev/null && break 2; sleep 0.1; done
    done
    grep -q "^optExportMethod=" "$store" 2>/dev/null || { kill $pid; echo "Close did not store the export choices"; exit 1; }
    for _ in $(seq 60); do
        xdotool windowfocus --sync "$window" 2>/dev/null
        xdotool key --window "$window" alt+o 2>/dev/null
        sleep 0.5
        xdotool key x 2>/dev/null
        for _ in $(seq 10); do kill -0 $pid 2>/dev/null || break 2; sleep 0.1; done
        xdotool key Escape 2>/dev/null
    done
    if kill -0 $pid 2>/dev/null; then kill $pid; echo "Lumbra did not close through its menu"; exit 1; fi
    wait $pid
' "$lumbra"
status=$?
[ $status -eq 0 ] || { echo "smoke test failed with status $status"; exit 1; }
grep -q '^MainForm=' "$work/config/Lumbra/Lumbra.conf" || { echo "settings were not saved on close"; exit 1; }
echo "the settings and export dialogs opened and closed, and Lumbra closed through its menu"
