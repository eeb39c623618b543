#!/usr/bin/env bash
# Runs the validator over every sample under examples/ and checks that it
# answers as the sample's name says: examples/<Class>/valid-*.xml exits 0,
# invalid-*.xml exits 1, unreadable-*.xml exits 2.
#
# Usage: scripts/check-examples.sh PATH/TO/kelxml [EXAMPLES_DIR]
set -u
kelxml=${1:?usage: scripts/check-examples.sh PATH/TO/kelxml [EXAMPLES_DIR]}
examples=${2:-$(cd "$(dirname "$0")/../examples" && pwd)}

checked=0
wrong=0
for file in "$examples"/*/*.xml; do
    class=$(basename "$(dirname "$file")")
    case $(basename "$file") in
        valid-*) expected=0 ;;
        invalid-*) expected=1 ;;
        unreadable-*) expected=2 ;;
        *) echo "skipping $file: its name says nothing about the expected answer"; continue ;;
    esac
    "$kelxml" check --as "$class" "$file"
    status=$?
    checked=$((checked + 1))
    if [ "$status" -ne "$expected" ]; then
        echo "  ^ expected exit status $expected, got $status"
        wrong=$((wrong + 1))
    fi
done

echo "examples: $((checked - wrong)) passed, $wrong failed"
[ "$checked" -gt 0 ] && [ "$wrong" -eq 0 ]
