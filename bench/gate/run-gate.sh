#!/usr/bin/env bash
# run-gate.sh VALGRIND GATE BUDGET_FILE [stream]
# Counts the instructions the gate program spends reading and checking its
# document, per input byte, and fails when that exceeds the budget in
# BUDGET_FILE by more than 3%. With "stream", the document is read through
# the document entry point from a device (kelxmlGateStream) instead of by
# processXml from a byte array (kelxmlGateRead). With KELXML_GATE_WRITE=1 it
# writes the measured number into BUDGET_FILE instead.
set -euo pipefail
valgrind=$1 gate=$2 budget_file=$3 mode=${4:-}
tolerance=1.03
collect='kelxmlGateRead*'
[ "$mode" = stream ] && collect='kelxmlGateStream*'

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Qt's hash tables are laid out alike on every run, so the count repeats.
if ! QT_HASH_SEED=0 "$valgrind" --tool=callgrind --callgrind-out-file="$work/out" \
    --toggle-collect="$collect" "$gate" $mode >"$work/stdout" 2>"$work/stderr"; then
    cat "$work/stdout" "$work/stderr"
    echo "gate: the gate program failed"
    exit 1
fi
bytes=$(sed -n 's/^bytes=//p' "$work/stdout")
instructions=$(awk '$1 == "totals:" || $1 == "summary:" { n = $2 } END { print n }' "$work/out")
if [ -z "$bytes" ] || [ -z "$instructions" ] || [ "$instructions" -eq 0 ]; then
    echo "gate: no count (bytes '$bytes', instructions '$instructions')"
    exit 1
fi
per_byte=$(awk -v i="$instructions" -v b="$bytes" 'BEGIN { printf "%.1f", i / b }')

if [ "${KELXML_GATE_WRITE:-0}" = 1 ]; then
    echo "$per_byte" >"$budget_file"
    echo "gate: $per_byte instructions per input byte written to $budget_file"
    exit 0
fi

budget=$(tr -d ' \n' <"$budget_file")
limit=$(awk -v b="$budget" -v t="$tolerance" 'BEGIN { printf "%.1f", b * t }')
echo "gate: $instructions instructions for $bytes input bytes"
echo "gate: $per_byte instructions per input byte (budget $budget, limit $limit)"
if awk -v p="$per_byte" -v l="$limit" 'BEGIN { exit !(p > l) }'; then
    echo "gate: FAILED, reading costs more than the budget allows"
    exit 1
fi
if awk -v p="$per_byte" -v b="$budget" 'BEGIN { exit !(p < 0.9 * b) }'; then
    echo "gate: well under the budget; lower it with scripts/update-gate-budget.sh"
fi
echo "gate: passed"
