#!/bin/sh
# Installs the build folder into a temporary prefix, as `cmake --install build --prefix
# ~/.local` does, checks that each file of the desktop integration is there and
# validates the menu entry and the AppStream metainfo: any error, warning or hint
# fails. Arguments: cmake, the build folder, the project version.
set -u
cmake="$1" build="$2" version="$3"
id=invalid.lumbra.Lumbra
work=$(mktemp -d)
# cmake --install rewrites the build folder's manifest, which removing a real install
# reads (README): it is put back as it was.
manifest="$build/install_manifest.txt"
[ -f "$manifest" ] && cp "$manifest" "$work/manifest"
trap 'if [ -f "$work/manifest" ]; then cp "$work/manifest" "$manifest"; else rm -f "$manifest"; fi
      rm -rf "$work"' EXIT
unset DESTDIR
prefix="$work/prefix" share="$work/prefix/share"
"$cmake" --install "$build" --prefix "$prefix" > "$work/install.log" 2>&1 ||
    { cat "$work/install.log"; echo "cmake --install failed"; exit 1; }

failed=0
fail() { echo "$*"; failed=1; }
for program in lumbra lumbra-cli; do
    [ -f "$prefix/bin/$program" ] && [ -x "$prefix/bin/$program" ] || fail "no program bin/$program"
done
for file in applications/$id.desktop metainfo/$id.metainfo.xml doc/lumbra/README.md \
    lumbra/emulators/emulators.json icons/hicolor/scalable/apps/$id.svg; do
    [ -s "$share/$file" ] || fail "no share/$file"
done
for size in 16 32 48 64 128 256; do
    [ -s "$share/icons/hicolor/${size}x$size/apps/$id.png" ] || fail "no $size px icon"
done
metainfo="$share/metainfo/$id.metainfo.xml"
grep -q "<release version=\"$version\"" "$metainfo" || fail "the metainfo's release is not $version"

# desktop-file-validate prints nothing at all for an entry without issues.
report=$(desktop-file-validate "$share/applications/$id.desktop" 2>&1)
[ $? -eq 0 ] && [ -z "$report" ] || fail "desktop-file-validate: $report"
# validate-tree also finds the desktop entry that the metainfo names. --strict fails on
# any issue above "pedantic"; the one lowered to it is the note that "invalid", the
# id's top-level name, is unknown: reserved on purpose (the metainfo says why).
appstreamcli validate-tree --no-net --strict --override=cid-maybe-not-rdns=pedantic "$prefix" ||
    fail "appstreamcli found issues"

[ $failed -eq 0 ] && echo "installed and valid: $(grep -c . "$manifest") files"
exit $failed
