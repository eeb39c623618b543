#!/usr/bin/env bash
# run-complexity.sh VALGRIND SHAPES KELXML GROUP
# For every shape of the group (kelxml_shapes list GROUP): the instructions the
# library's round costs on the document with N units and with 8N units, and
# the same for each tool command listed for the shape, run as a whole process
# (diff against a copy of the document with one value changed).
# Prints each count and ratio; fails when 8N costs more than 12 times N.
#
# KELXML_COMPLEXITY_SHAPES=name,name,... runs only those shapes of the group.
set -euo pipefail
valgrind=$1 shapes=$2 kelxml=$3 group=$4
growth=8
bound=12

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Instructions counted by callgrind for the command given; with a function
# pattern first (--toggle-collect=...), only what that function spends.
count() {
    local out=$work/callgrind.out
    rm -f "$out"
    # Qt's hash tables are laid out alike on every run, so the count repeats.
    QT_HASH_SEED=0 "$valgrind" --tool=callgrind --callgrind-out-file="$out" "$@" \
        >"$work/stdout" 2>"$work/stderr" || true
    if [ -f "$out" ]; then
        awk '$1 == "totals:" || $1 == "summary:" { n = $2 } END { printf "%.0f\n", n }' "$out"
    else
        echo 0
    fi
}

failed=0
report() { # label elements-N elements-8N count-N count-8N
    local ratio verdict=pass
    ratio=$(awk -v a="$4" -v b="$5" 'BEGIN { if (a > 0) printf "%.2f", b / a; else print "inf" }')
    if [ "$4" -eq 0 ] || [ "$5" -eq 0 ] ||
        awk -v r="$ratio" -v m="$bound" 'BEGIN { exit !(r > m) }'; then
        verdict=FAIL
        failed=1
    fi
    printf '%-44s %8s %9s %14s %15s %6s  %s\n' "$1" "$2" "$3" "$4" "$5" "$ratio" "$verdict"
}

printf 'complexity of the %s shapes: instructions at N and %dN, failing above %d times\n' \
    "$group" "$growth" "$bound"
printf '%-44s %8s %9s %14s %15s %6s\n' "shape (run)" "elem. N" "elem. 8N" "instr. N" \
    "instr. 8N" "ratio"
start=$SECONDS
while read -r name class units tools about; do
    if [ -n "${KELXML_COMPLEXITY_SHAPES:-}" ] &&
        ! [[ ",$KELXML_COMPLEXITY_SHAPES," == *",$name,"* ]]; then
        continue
    fi
    echo "# $name: $about"
    elements=()
    counts=()
    for size in "$units" "$((growth * units))"; do
        "$shapes" write "$name" "$size" "$work/$size.xml" >"$work/written"
        elements+=("$(sed -n 's/.*elements=\([0-9]*\).*/\1/p' "$work/written")")
        counts+=("$(count --toggle-collect='kelxmlShapeRun*' "$shapes" run "$name" "$size")")
        if ! grep -q '^bytes=' "$work/stdout"; then
            cat "$work/stdout" "$work/stderr"
            echo "the library's round on $name ($size units) failed"
            failed=1
        fi
    done
    small=${elements[0]} large=${elements[1]}
    report "$name (library)" "$small" "$large" "${counts[0]}" "${counts[1]}"
    if [ "$tools" != - ]; then
        as=$class
        for tool in ${tools//,/ }; do
            counts=()
            for size in "$units" "$((growth * units))"; do
                if [ "$tool" = diff ]; then
                    # Against a copy with one value changed: the last digit
                    # of the first longitude.
                    perl -0pe 's{(<Longitude>[^<]*?)(\d)<}{$1 . (($2 + 1) % 10) . "<"}e' \
                        "$work/$size.xml" >"$work/$size-changed.xml"
                    counts+=("$(count "$kelxml" diff --as "$as" "$work/$size.xml" \
                        "$work/$size-changed.xml")")
                    if ! [ "$(wc -l <"$work/stdout")" = 1 ]; then
                        echo "diff of $name ($size units) against one change: not one line"
                        cat "$work/stdout"
                        failed=1
                    fi
                else
                    counts+=("$(count "$kelxml" "$tool" --as "$as" "$work/$size.xml")")
                fi
            done
            report "$name ($tool)" "$small" "$large" "${counts[0]}" "${counts[1]}"
        done
    fi
    rm -f "$work"/*.xml
done < <("$shapes" list "$group")
echo "time: $((SECONDS - start)) s"
if [ "$failed" -ne 0 ]; then
    echo "complexity: FAILED, a cost grows faster than n log n with the document"
    exit 1
fi
echo "complexity: passed"
