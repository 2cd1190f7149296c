#!/bin/sh
# Installs the Debian packages that building, running and testing Lumbra need,
# and only those that are missing.
set -e
# xvfb, xauth and xdotool run the smoke test: the real window on a virtual display.
# desktop-file-utils and appstream validate the installed desktop entry and metainfo.
# libxml2-dev: the export tests read the HTML page back with libxml2's HTML parser.
# retroarch with libretro-bsnes-mercury-performance plays a real game in the launch
# tests; dbus gives them dbus-run-session, a session bus for RetroArch's start.
# Packages named as arguments are added: `make fuzz` asks for clang and libFuzzer.
packages="cmake make g++ pkg-config qt6-base-dev libarchive-dev libgtest-dev xvfb xauth xdotool libxml2-dev desktop-file-utils appstream retroarch libretro-bsnes-mercury-performance dbus $*"
missing=""
for p in $packages; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing="$missing $p"
done
[ -z "$missing" ] && exit 0
echo "Installing missing packages:$missing"
if [ "$(id -u)" -eq 0 ]; then sudo=""; else sudo="sudo"; fi
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq $missing
