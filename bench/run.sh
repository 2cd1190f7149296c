#!/bin/sh
# Times Lumbra's catalogue with 1,000 games in 10 folders:
#  1. the rebuild with an empty store (every caption read from the game's header),
#  2. the rebuild with every game's data stored,
#  3. the real program from process start to its filled game list, on Xvfb.
# Each rebuild runs once under strace to count file-system calls per game.
set -eu
build=${1:-build}
bench="$build/bench/lumbra-bench"
cli="$build/src/lumbra-cli"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_CONFIG_HOME="$work/config" XDG_DATA_HOME="$work/data" XDG_CACHE_HOME="$work/cache"

"$bench" prepare "$work/games" >/dev/null
calls() { # file-system calls per game of one rebuild
    strace -f -c -o "$work/strace" -e trace=%file,%desc "$bench" rebuild "$work/games" >/dev/null
    awk '/^[ 0-9.]+ total$/ || / total$/ { print $(NF-2) }' "$work/strace" | tail -n 1 |
        awk '{ printf "%.1f", $1 / 1000 }'
}

rm -rf "$XDG_CONFIG_HOME"
echo "cold (captions from headers): $("$bench" rebuild "$work/games")"
rm -rf "$XDG_CONFIG_HOME"
echo "  file-system calls per game: $(calls)"
echo "warm (all data stored):       $("$bench" rebuild "$work/games")"
echo "  file-system calls per game: $(calls)"

# The real program: game folders stored, then process start to mapped window,
# which Lumbra shows only after its list is filled.
for folder in "$work/games"/*; do "$cli" folders add "$folder" >/dev/null; done
"$cli" scan >/dev/null
xvfb-run -a -s "-screen 0 1024x768x24" sh -c '
    start=$(date +%s%N)
    "$0" & pid=$!
    window=$(xdotool search --sync --onlyvisible --name "^Lumbra$" | head -n 1)
    end=$(date +%s%N)
    echo "start to filled list (1,000 games, real window): $(( (end - start) / 1000000 )) ms"
    xdotool windowfocus --sync "$window" key --window "$window" alt+o
    sleep 0.3; xdotool key x; wait $pid
' "$build/src/lumbra" 2>/dev/null
