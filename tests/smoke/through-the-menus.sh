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
# No start-up question about the emulators this machine may have.
mkdir -p "$XDG_CONFIG_HOME/Lumbra"
printf '[Settings]\nFoundEmulatorOffered=0\n' > "$XDG_CONFIG_HOME/Lumbra/Lumbra.conf"

xvfb-run -a -s "-screen 0 1024x768x24" sh -c '
    store="$XDG_CONFIG_HOME/Lumbra/Lumbra.conf"
    "$0" & pid=$!
    fail() { kill $pid 2>/dev/null; echo "$1"; exit 1; }
    # xdotool ends on an X error when a window it walks past goes away, as windows
    # do while a program starts: the search is tried again until it names one.
    window=
    for _ in $(seq 600); do
        window=$(xdotool search --onlyvisible --name "^Lumbra$" 2>/dev/null | head -n 1)
        [ -n "$window" ] && break
        sleep 0.1
    done
    [ -n "$window" ] || fail "the main window did not show"
    # open_dialog TITLE KEY...: Options, then the keys, until the dialog shows.
    open_dialog() {
        title=$1
        shift
        for _ in $(seq 60); do
            xdotool windowfocus --sync "$window" 2>/dev/null
            xdotool key --window "$window" alt+o 2>/dev/null
            for key in "$@"; do sleep 0.5; xdotool key "$key" 2>/dev/null; done
            for _ in $(seq 10); do
                dialog=$(xdotool search --onlyvisible --name "^$title\$" 2>/dev/null | head -n 1)
                [ -n "$dialog" ] && return 0
                sleep 0.1
            done
            xdotool key Escape Escape 2>/dev/null # the menus may not have opened yet
        done
        fail "the $title dialog did not open"
    }
    # close_dialog KEY WHAT: Alt+C on the dialog until the store holds KEY.
    close_dialog() {
        for _ in $(seq 60); do
            xdotool windowfocus --sync "$dialog" 2>/dev/null
            xdotool key --window "$dialog" alt+c 2>/dev/null
            for _ in $(seq 10); do grep -q "^$1=" "$store" 2>/dev/null && return 0; sleep 0.1; done
        done
        fail "Close did not store $2"
    }
    open_dialog Settings f
    close_dialog SPC_App "the settings"
    kill -0 $pid 2>/dev/null || { echo "Lumbra ended with the dialog"; exit 1; }
    open_dialog "Export Game List" e l
    close_dialog optExportMethod "the export choices"
    for _ in $(seq 60); do
        xdotool windowfocus --sync "$window" 2>/dev/null
        xdotool key --window "$window" alt+o 2>/dev/null
        sleep 0.5
        xdotool key x 2>/dev/null
        for _ in $(seq 10); do kill -0 $pid 2>/dev/null || break 2; sleep 0.1; done
        xdotool key Escape 2>/dev/null
    done
    kill -0 $pid 2>/dev/null && fail "Lumbra did not close through its menu"
    wait $pid
' "$lumbra"
status=$?
[ $status -eq 0 ] || { echo "smoke test failed with status $status"; exit 1; }
grep -q '^MainForm=' "$work/config/Lumbra/Lumbra.conf" || { echo "settings were not saved on close"; exit 1; }
echo "the settings and export dialogs opened and closed, and Lumbra closed through its menu"
