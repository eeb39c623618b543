#!/usr/bin/env bash
# Runs two builds of the kelxml tool over the same files and compares what
# `check` and `format` print: standard output, standard error and exit
# status, byte for byte. For a change that must alter nothing a user sees,
# run the tool built before it (OLD) against the one built after (NEW) over
# the fuzz corpora and generated documents.
#
# Usage: scripts/compare-tools.sh OLD NEW [--as CLASS | --elements] FILE...
#   --as CLASS   the files that follow are read as CLASS (a class or an alias);
#                until the first option, files are read as "command"
#   --elements   the files that follow are fuzz_elements inputs: the first
#                byte picks the class (its place in 'OLD classes', as the
#                fuzz target counts), the rest is the element
# A difference is printed with the file and the command; the summary counts
# the files and runs compared. Exit status 1 when anything differs.
set -u
usage="usage: scripts/compare-tools.sh OLD NEW [--as CLASS | --elements] FILE..."
old=${1:?$usage}
new=${2:?$usage}
shift 2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

mapfile -t classes < <("$old" classes | cut -f1 | cut -d' ' -f1)
[ ${#classes[@]} -gt 0 ] || { echo "compare: $old lists no classes" >&2; exit 2; }

files=0 runs=0 differences=0
# run TOOL COMMAND CLASS FILE SIDE: the tool's three answers in $work/SIDE.*
run() {
    "$1" "$2" --as "$3" "$4" >"$work/$5.out" 2>"$work/$5.err"
    echo $? >"$work/$5.rc"
}

compare() {
    local class=$1 file=$2 shown=$3 command side
    for command in check format; do
        run "$old" "$command" "$class" "$file" old
        run "$new" "$command" "$class" "$file" new
        runs=$((runs + 1))
        for side in rc out err; do
            if ! cmp -s "$work/old.$side" "$work/new.$side"; then
                differences=$((differences + 1))
                echo "differs: $command --as $class $shown ($side)"
                diff "$work/old.$side" "$work/new.$side" | head -n 6
            fi
        done
    done
    files=$((files + 1))
}

mode=as class=command
while [ $# -gt 0 ]; do
    case $1 in
    --as)
        mode=as class=${2:?$usage}
        shift 2
        continue
        ;;
    --elements)
        mode=elements
        shift
        continue
        ;;
    esac
    file=$1
    shift
    [ -f "$file" ] || continue
    if [ $mode = elements ]; then
        [ -s "$file" ] || continue
        byte=$(head -c 1 "$file" | od -An -tu1 | tr -d ' ')
        element=$work/element.xml
        tail -c +2 "$file" >"$element"
        compare "${classes[byte % ${#classes[@]}]}" "$element" "$file"
    else
        compare "$class" "$file" "$file"
    fi
done

echo "compare: $files files, $runs commands run by both tools, $differences differences"
[ $differences -eq 0 ]
