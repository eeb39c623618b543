#!/usr/bin/env bash
# Runs the libFuzzer targets one after the other, each for SECONDS, started
# with the samples; the corpora grow in FUZZ_BUILD/corpus/<target> from run to
# run. Afterwards each target's corpus is run once more and the slowest input
# is reported (inputs must take less than 100 ms; a second, or a second per
# 128 KB of the longest input allowed, is a failure).
#
# Usage: scripts/fuzz.sh FUZZ_BUILD KELXML [SECONDS] [TARGET...]
#   FUZZ_BUILD  the clang build with the fuzzers (build/fuzz)
#   KELXML      a kelxml tool, to number the classes for fuzz_elements
#   TARGET      fuzz_elements or a document target, fuzz_command... (default: all; the build
#               lists them in FUZZ_BUILD/fuzz/targets.txt, one per document kind)
# Extra libFuzzer options can be given in FUZZ_OPTIONS, e.g. FUZZ_OPTIONS=-runs=10000000.
# FUZZ_MAX_LEN (default 32768) bounds the inputs; FUZZ_SEEDS names a folder
# whose subfolders command/, response/, scenario/ and elements/ hold more
# starting inputs for their target (large generated documents, for a run at
# size: `kelxml_shapes seeds DIR` writes them).
set -euo pipefail
usage="usage: scripts/fuzz.sh FUZZ_BUILD KELXML [SECONDS] [TARGET...]"
build=${1:?$usage}
kelxml=${2:?$usage}
seconds=${3:-60}
shift $(($# < 3 ? $# : 3))
targets=("$@")
root=$(cd "$(dirname "$0")/.." && pwd)
# Each target with the class whose samples start it ("-" for fuzz_elements).
listed=$build/fuzz/targets.txt
[ -f "$listed" ] || { echo "no $listed: build the fuzzers first" >&2; exit 64; }
[ ${#targets[@]} -gt 0 ] || mapfile -t targets < <(cut -d' ' -f1 "$listed")

# Starting inputs: every sample of a document for its target; for fuzz_elements every
# sample prefixed with the byte that selects its class (its place in
# 'kelxml classes').
fill_corpus() {
    local target=$1 corpus=$build/corpus/$1
    mkdir -p "$corpus"
    local samples
    samples=$(awk -v t="$target" '$1 == t { print $2 }' "$listed")
    case $samples in
    '') echo "unknown target $target" >&2; exit 64 ;;
    -)
        local index=0 class sample
        for class in $("$kelxml" classes | cut -f1 | cut -d' ' -f1); do
            for sample in "$root"/examples/"$class"/*.xml; do
                [ -e "$sample" ] || continue
                { printf "\\$(printf '%03o' "$index")"; cat "$sample"; } \
                    > "$corpus/$class-$(basename "$sample")"
            done
            index=$((index + 1))
        done
        ;;
    *) cp "$root"/examples/"$samples"/*.xml "$corpus"/ ;;
    esac
    if [ -n "${FUZZ_SEEDS:-}" ]; then
        local extra
        for extra in "$FUZZ_SEEDS/${target#fuzz_}"/*; do
            [ -e "$extra" ] && cp "$extra" "$corpus"/
        done
    fi
    return 0
}
max_len=${FUZZ_MAX_LEN:-32768}
# An input takes at most a second per 128 KB it may hold; slow ones are
# reported. A 1 MB document of 77,000 invalid elements takes about 2 s under
# the sanitizers when the machine is idle, and more when it is busy.
timeout=$(((max_len + 131071) / 131072))

for target in "${targets[@]}"; do
    fuzzer=$build/fuzz/$target
    fill_corpus "$target"
    echo "== $target for $seconds s"
    log=$build/$target.log
    # Crashes, timeouts and slow inputs are written beside the corpora, not
    # into the folder the script is run from.
    mkdir -p "$build/artifacts"
    # shellcheck disable=SC2086
    if ! "$fuzzer" -max_total_time="$seconds" -max_len="$max_len" -timeout="$timeout" \
        -rss_limit_mb=2048 -report_slow_units=2 -artifact_prefix="$build/artifacts/$target-" \
        -dict="$root/fuzz/kelxml.dict" -print_final_stats=1 ${FUZZ_OPTIONS:-} \
        "$build/corpus/$target" > "$log" 2>&1; then
        tail -n 60 "$log"
        echo "$target failed: see $log" >&2
        exit 1
    fi
    grep -E '^(stat::|Done|INFO: Loaded)|DONE' "$log" || true
    # The slowest input of the corpus, timed one by one.
    slowest=$(find "$build/corpus/$target" -type f -print0 |
        xargs -0 "$fuzzer" -timeout="$timeout" -rss_limit_mb=2048 2>&1 |
        sed -n 's/^Executed \(.*\) in \([0-9]*\) ms$/\2 \1/p' | sort -n | tail -1)
    echo "$target: slowest input of $(find "$build/corpus/$target" -type f | wc -l): ${slowest%% *} ms"
done
