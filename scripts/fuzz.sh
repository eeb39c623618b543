#!/usr/bin/env bash
# Runs the element fuzzer for a while, seeded with the samples.
# Usage: scripts/fuzz.sh PATH/TO/fuzz_elements PATH/TO/kelxml [SECONDS]
set -euo pipefail
usage="usage: scripts/fuzz.sh PATH/TO/fuzz_elements PATH/TO/kelxml [SECONDS]"
fuzzer=${1:?$usage}
kelxml=${2:?$usage}
seconds=${3:-60}
root=$(cd "$(dirname "$0")/.." && pwd)
corpus=$(mktemp -d)
trap 'rm -rf "$corpus"' EXIT

# A starting input is the sample prefixed with the byte that selects its class (the
# class's place in 'kelxml classes').
classes=$("$kelxml" classes | cut -f1 | cut -d' ' -f1)
index=0
for class in $classes; do
    for sample in "$root"/examples/"$class"/*.xml; do
        [ -e "$sample" ] || continue
        { printf "\\$(printf '%03o' "$index")"; cat "$sample"; } > "$corpus/$class-$(basename "$sample")"
    done
    index=$((index + 1))
done

"$fuzzer" -max_total_time="$seconds" -max_len=32768 -timeout=5 -rss_limit_mb=2048 \
    -dict="$root/fuzz/elements.dict" -print_final_stats=1 "$corpus"
