#!/usr/bin/env bash
# Runs `kelxml check` and `kelxml format` over every sample under examples/ and
# compares what they print (standard output, standard error and exit status)
# with the answers kept in tests/tools/golden/: a change that alters a report,
# a message or a written form by one byte fails here.
#
# Usage: scripts/check-golden.sh PATH/TO/kelxml [--update]
#   --update  writes the answers of this tool as the expected ones
set -u
kelxml=${1:?usage: scripts/check-golden.sh PATH/TO/kelxml [--update]}
kelxml=$(cd "$(dirname "$kelxml")" && pwd)/$(basename "$kelxml")
root=$(cd "$(dirname "$0")/.." && pwd)
golden=$root/tests/tools/golden
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Paths are given relative to examples/, so that the answers do not depend on
# where the checkout lies.
answers() {
    local command=$1 file class
    cd "$root/examples" || exit 2
    for file in */*.xml; do
        class=${file%%/*}
        [ "$class" = maps ] && continue
        "$kelxml" "$command" --as "$class" "$file" >"$work/out" 2>"$work/err"
        echo "=== $command $file: exit $?"
        cat "$work/out"
        if [ -s "$work/err" ]; then
            echo "--- standard error"
            cat "$work/err"
        fi
    done
}

status=0
for command in check format; do
    answers "$command" >"$work/$command.txt"
    if [ "${2:-}" = --update ]; then
        mkdir -p "$golden"
        cp "$work/$command.txt" "$golden/$command.txt"
        echo "golden: $golden/$command.txt written"
    elif ! diff -u "$golden/$command.txt" "$work/$command.txt"; then
        echo "golden: the answers of '$command' differ from $golden/$command.txt (above)"
        status=1
    fi
done
[ $status -eq 0 ] && [ "${2:-}" != --update ] && echo "golden: every sample answered as kept"
exit $status
