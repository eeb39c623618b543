#!/usr/bin/env bash
# Fails when the library's or the tool's files include one another in a loop.
# A header and the source of the same name count as one file (XmlText.h and
# XmlText.cpp are "XmlText"), so a loop through a source is found too:
# XmlElementBase.h -> XmlText.h, XmlText.cpp -> XmlKit.h, XmlKit.h ->
# XmlElementBase.h is one.
#
# Usage: scripts/check-includes.sh [DIR...]   (default: xml tools)
set -u
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root" || exit 2
dirs=("$@")
[ ${#dirs[@]} -gt 0 ] || dirs=(xml tools)

files=$(find "${dirs[@]}" -name '*.h' -o -name '*.cpp' | sort)
# The project's own headers, by name; includes of anything else are not followed.
headers=$(for file in $files; do case $file in *.h) basename "$file" .h ;; esac; done | sort -u)

edges=$(for file in $files; do
    from=$(basename "${file%.*}")
    echo "$from $from" # every file is a node, even one that includes nothing
    sed -n 's/^[[:space:]]*#[[:space:]]*include[[:space:]]*[<"]\(.*\/\)\{0,1\}\([^/>"]*\)\.h[>"].*/\2/p' "$file" |
        while read -r to; do
            grep -qx "$to" <<<"$headers" && [ "$to" != "$from" ] && echo "$from $to"
        done
done | sort -u)

if ! errors=$(tsort <<<"$edges" 2>&1 >/dev/null) || [ -n "$errors" ]; then
    echo "includes: a loop of files (each includes the next, a header and its source counting as one):"
    grep -v 'input contains a loop' <<<"$errors" | sed 's/^tsort: /  /'
    exit 1
fi
echo "includes: no loop among $(wc -l <<<"$files") files"
