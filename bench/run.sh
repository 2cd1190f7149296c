#!/bin/sh
# Times Lumbra with 1,000 games in 10 folders against the floor of its work, as
# whole processes with a warm page cache, and prints each figure beside its floor:
#   cold scan  lumbra-cli scan on a store that holds the game folders and no game
#              record (written without a scan): every caption read from a header
#   warm list  lumbra-cli list with the game list stored by a scan: no game file opened
#   export     lumbra-cli export of the whole stored list as the plain-text table
#   window     lumbra from exec to its main window mapped on Xvfb, which it maps only
#              once the game list is filled
#   window+shot the same with a 4000x3000 snapshot for the first game shown, beside
#              the window without it: the picture is decoded once the window is there
#   detect     lumbra-cli emulators detect with no emulator installed (an empty home and
#              PATH): every find rule of the catalogue tried, the result stored; beside
#              the bare start of a C++ process, and under 200 ms
# The file-system floor (lumbra-floor-scan) lists the folders and reads the header
# bytes, nothing else; the store floor (lumbra-floor-list) reads the store file, lists
# the folders and prints the stored captions; the Qt floor (lumbra-floor-window) maps a
# QMainWindow holding a QListWidget of 1,000 lines. The scan and the list are also set
# beside the same two floors run inside a Qt process (lumbra-floor-scan-qt,
# lumbra-floor-list-qt): Lumbra is a program on Qt, and loading Qt alone takes longer
# than the whole plain floor of a warm list, so their targets are ratios to these.
# After one warm-up each, Lumbra and its floors take turns BENCH_RUNS times (21 unless
# set): times are medians, peaks the highest max RSS. Then where the time goes:
# start-up alone, the rebuild alone (timed inside lumbra-bench and inside the floor),
# the file-system calls per game (strace), and the instructions per game past start-up
# (callgrind; they do not depend on the machine's load, as times do).
# Last, the game filter keystroke by keystroke, in process: in the core
# (lumbra-bench-filter, beside a substring scan over folded captions) and in the main
# window (lumbra-bench-filter-window, beside a bare list widget refilled with the
# same lines); the target is under 5 ms a keystroke. And a found emulator's launch,
# from the request to the emulator's start, beside a bare fork and exec of the same
# command (lumbra-bench-launch).
set -eu
build=${1:-build}
runs=${BENCH_RUNS:-21}
bin="$build/bench"
cli="$build/src/lumbra-cli"
work=$(mktemp -d)
xvfb=
cleanup() {
    [ -z "$xvfb" ] || kill "$xvfb"
    rm -rf "$work"
}
trap cleanup EXIT
export XDG_CONFIG_HOME="$work/config" XDG_DATA_HOME="$work/data" XDG_CACHE_HOME="$work/cache"
export XDG_RUNTIME_DIR="$work/runtime"
mkdir -m 700 "$XDG_RUNTIME_DIR"

# The settings stores that runs start from: empty, the folders only (no game record),
# a scanned list.
save_store() { cp -a "$XDG_CONFIG_HOME" "$work/$1.store"; }
use_store() {
    rm -rf "$XDG_CONFIG_HOME"
    cp -a "$work/$1.store" "$XDG_CONFIG_HOME"
}
"$bin/lumbra-bench" prepare "$work/games" >/dev/null
mkdir -p "$XDG_CONFIG_HOME"
save_store empty
"$bin/lumbra-bench" folders "$work/games"
# The first window's question about a found emulator is answered, as a player would once.
printf '\n[Settings]\nFoundEmulatorOffered=0\n' >>"$XDG_CONFIG_HOME/Lumbra/Lumbra.conf"
save_store folders
"$cli" scan >/dev/null
save_store scanned
use_store empty
"$bin/lumbra-bench" rebuild "$work/games" >/dev/null # the list as the rebuild stores it
save_store rebuilt

# One run each; every one prints "MILLISECONDS PEAK_KIB".
in_process() { awk '{ for (i = 2; i <= NF; ++i) if ($i == "ms;") print $(i - 1), $(NF - 1) * 1024 }'; }
cold_scan() { use_store folders && "$bin/lumbra-bench-time" "$cli" scan; }
warm_list() { use_store scanned && "$bin/lumbra-bench-time" "$cli" list; }
export_list() { use_store scanned && "$bin/lumbra-bench-time" "$cli" export --force "$work/gamelist.txt"; }
scan_floor() { "$bin/lumbra-bench-time" "$bin/lumbra-floor-scan" "$work/games"/*; }
list_floor() { use_store scanned && "$bin/lumbra-bench-time" "$bin/lumbra-floor-list"; }
scan_floor_qt() { "$bin/lumbra-bench-time" "$bin/lumbra-floor-scan-qt" "$work/games"/*; }
list_floor_qt() { use_store scanned && "$bin/lumbra-bench-time" "$bin/lumbra-floor-list-qt"; }
window() { use_store scanned && "$bin/lumbra-bench-mapwait" Lumbra "$build/src/lumbra"; }
shot=
window_shot() { use_store scanned && cp "$work/huge.png" "$shot" && "$bin/lumbra-bench-mapwait" Lumbra "$build/src/lumbra"; rm -f "$shot"; }
window_floor() { "$bin/lumbra-bench-mapwait" "Qt Floor" "$bin/lumbra-floor-window"; }
cli_start() { "$bin/lumbra-bench-time" "$cli" --help; }
mkdir "$work/nohome" "$work/nopath"
detect() { use_store empty && HOME="$work/nohome" PATH="$work/nopath" "$bin/lumbra-bench-time" "$cli" emulators detect; }
floor_start() { "$bin/lumbra-bench-time" "$bin/lumbra-floor-scan"; }
qt_start() { "$bin/lumbra-bench-time" "$bin/lumbra-floor-qt-start"; }
cold_rebuild() { use_store empty && "$bin/lumbra-bench" rebuild "$work/games" | in_process; }
warm_rebuild() { use_store rebuilt && "$bin/lumbra-bench" rebuild "$work/games" | in_process; }
floor_inside() { "$bin/lumbra-floor-scan" "$work/games"/* | in_process; }

# turns NAME LUMBRA FLOOR [QT_FLOOR]: a warm-up of each, then $runs runs taking turns,
# into $work/NAME.lumbra, $work/NAME.floor and $work/NAME.qtfloor.
turns() {
    qt_floor=${4:-}
    $2 >/dev/null
    $3 >/dev/null
    [ -z "$qt_floor" ] || $qt_floor >/dev/null
    : >"$work/$1.lumbra"
    : >"$work/$1.floor"
    rm -f "$work/$1.qtfloor"
    run=0
    while [ "$run" -lt "$runs" ]; do
        $2 >>"$work/$1.lumbra"
        $3 >>"$work/$1.floor"
        [ -z "$qt_floor" ] || $qt_floor >>"$work/$1.qtfloor"
        run=$((run + 1))
    done
}
median() { cut -d' ' -f1 "$1" | sort -n | awk '{ v[NR] = $1 }
    END { print NR % 2 ? v[(NR + 1) / 2] : (v[NR / 2] + v[NR / 2 + 1]) / 2 }'; }
peak() { cut -d' ' -f2 "$1" | sort -n | tail -n 1; }

# report LABEL NAME [RATIO_TARGET [PEAK_TARGET_MIB [TIME_TARGET_MS]]]
# With a floor inside Qt, the ratio target is to that floor.
report() {
    qt_floor=
    [ ! -s "$work/$2.qtfloor" ] || qt_floor=$(median "$work/$2.qtfloor")
    awk -v label="$1:" -v time="$(median "$work/$2.lumbra")" -v floor="$(median "$work/$2.floor")" \
        -v qt_floor="$qt_floor" \
        -v kib="$(peak "$work/$2.lumbra")" -v floor_kib="$(peak "$work/$2.floor")" \
        -v target="${3:-}" -v peak_target="${4:-}" -v time_target="${5:-}" 'BEGIN {
        printf "%-13s %7.1f ms", label, time
        if (time_target != "") printf " (target < %s ms)", time_target
        printf "   floor %6.1f ms   ratio %6.2fx", floor, time / floor
        if (qt_floor != "") printf "   floor in Qt %6.1f ms   ratio %6.2fx", qt_floor, time / qt_floor
        if (target != "") printf "   (target <= %sx)", target
        printf "   peak %5.1f MiB", kib / 1024
        if (peak_target != "") printf " (target < %s MiB)", peak_target
        printf "   floor peak %.1f MiB\n", floor_kib / 1024
    }'
}

Xvfb -displayfd 3 -nolisten tcp -screen 0 1024x768x24 3>"$work/display" 2>/dev/null &
xvfb=$!
wait_ticks=0
until [ -s "$work/display" ]; do
    [ "$wait_ticks" -lt 100 ] || { echo "Xvfb did not start" >&2 && exit 1; }
    sleep 0.1
    wait_ticks=$((wait_ticks + 1))
done
export DISPLAY=":$(cat "$work/display")"

turns cold_scan cold_scan scan_floor scan_floor_qt
turns warm_list warm_list list_floor list_floor_qt
turns export export_list scan_floor
turns window window window_floor
use_store scanned
first=$("$cli" list --json --group Ungrouped | head -n 1 | sed -n 's/.*"Filename":"\([^"]*\)".*/\1/p')
shot="$XDG_DATA_HOME/Lumbra/snapshots/${first%.*}.png"
mkdir -p "$XDG_DATA_HOME/Lumbra/snapshots"
"$bin/lumbra-bench-picture" "$work/huge.png" 4000 3000
turns window_shot window_shot window
turns start cli_start floor_start
turns qt_start qt_start floor_start
turns detect detect floor_start
turns cold_rebuild cold_rebuild floor_inside
turns warm_rebuild warm_rebuild floor_inside

echo "Lumbra against the floor of its work: 1,000 games in 10 folders, warm page cache."
echo "Whole processes, medians of $runs runs taking turns with the floor; peak = highest max RSS."
report "cold scan" cold_scan 2.0 15
report "warm list" warm_list 1.5 15
report "export" export
report "window" window 1.3
report "window+shot" window_shot 1.1
report "detect" detect "" "" 200
echo "Where the time goes, medians of $runs: start-up alone (lumbra-cli --help, and a bare"
echo "QCoreApplication, each beside the floor with no folder), then the rebuild alone, timed"
echo "inside lumbra-bench and inside the floor."
report "start-up" start
report "Qt start-up" qt_start
report "cold rebuild" cold_rebuild
report "warm rebuild" warm_rebuild

"$bin/lumbra-bench-filter"
use_store scanned
"$bin/lumbra-bench-filter-window"
"$bin/lumbra-bench-launch" "$runs"

calls() { # file-system calls per game of one whole process
    strace -f -c -o "$work/strace" -e trace=%file,%desc "$@" >/dev/null
    awk '$NF == "total" { printf "%.1f", $4 / 1000 }' "$work/strace"
}
opens() { # openat calls of one whole process
    strace -f -c -o "$work/strace" -e trace=openat "$@" >/dev/null
    awk '$NF == "openat" { print $4 }' "$work/strace"
}
use_store folders
scan_calls=$(calls "$cli" scan)
use_store folders
scan_opens=$(opens "$cli" scan)
use_store scanned
list_calls=$(calls "$cli" list)
floor_calls=$(calls "$bin/lumbra-floor-scan" "$work/games"/*)
list_floor_calls=$(calls "$bin/lumbra-floor-list")
echo "File-system calls per game (strace, whole process):" \
    "cold scan $scan_calls   warm list $list_calls   scan floor $floor_calls   list floor $list_floor_calls"
echo "openat calls of the cold scan: $scan_opens (each game file opened once)"

# Instructions per game past start-up: a run less the same program's start-up alone.
instructions() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null "$@" 2>&1 >/dev/null |
        awk '/Collected :/ { print $NF }'
}
per_game() { awk -v run="$1" -v start="$2" 'BEGIN { printf "%.0f", (run - start) / 1000 }'; }
cli_base=$(instructions "$cli" --help)
floor_base=$(instructions "$bin/lumbra-floor-scan")
use_store folders
scan_ir=$(instructions "$cli" scan)
use_store scanned
list_ir=$(instructions "$cli" list)
scan_floor_ir=$(instructions "$bin/lumbra-floor-scan" "$work/games"/*)
list_floor_ir=$(instructions "$bin/lumbra-floor-list")
echo "Instructions per game past start-up (callgrind): cold scan $(per_game "$scan_ir" "$cli_base")" \
    "(floor $(per_game "$scan_floor_ir" "$floor_base"))   warm list $(per_game "$list_ir" "$cli_base")" \
    "(floor $(per_game "$list_floor_ir" "$floor_base"));" \
    "whole processes: cold scan $scan_ir, warm list $list_ir, start-up $cli_base;" \
    "floors $scan_floor_ir, $list_floor_ir, start-up $floor_base"
