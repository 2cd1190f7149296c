#!/bin/sh
# Renders lumbra.svg to the PNG sizes that CMake installs (lumbra-16.png ...
# lumbra-256.png), beside it. Run it after changing the SVG and commit the PNGs:
# building needs no renderer. Needs rsvg-convert (Debian: librsvg2-bin).
set -e
cd "$(dirname "$0")"
for size in 16 32 48 64 128 256; do
    rsvg-convert --width $size --height $size lumbra.svg --output lumbra-$size.png
done
