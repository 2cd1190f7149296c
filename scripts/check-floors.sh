#!/bin/sh
# Every include in src/ points to its own folder or to a folder on a lower floor.
# The floors, bottom to top; folders on one floor do not include each other.
floors="base platform config:rom catalogue snapshots:savestates:emulators launch export app ui:cli"
cd "$(dirname "$0")/../src" || exit 2
grep -rn '^#include "[a-z]*/' --include='*.h' --include='*.cpp' . |
    awk -v floors="$floors" '
    BEGIN {
        count = split(floors, floor, " ")
        for (level = 1; level <= count; ++level) {
            split(floor[level], folders, ":")
            for (i in folders) rank[folders[i]] = level
        }
    }
    {
        split($0, where, ":")
        file = substr(where[1], 3)
        if (split(file, parts, "/") < 2) next
        own = parts[1]
        target = $0
        sub(/^[^"]*"/, "", target)
        sub(/\/.*/, "", target)
        if (target == own) next
        if (!(own in rank)) { print file ": the folder " own " is on no floor"; bad = 1; next }
        if (!(target in rank) || rank[target] >= rank[own]) {
            print file ":" where[2] ": the include of " target "/ runs up from " own "/"
            bad = 1
        }
    }
    END { exit bad }'
