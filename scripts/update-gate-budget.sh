#!/usr/bin/env bash
# update-gate-budget.sh [BUILD_DIR...]
# Measures the instructions per input byte of the instruction-count gates in
# each build folder (default build/qt5 and build/qt6, optimised test builds)
# and writes them as the new budgets, bench/gate/budget-qt<major>.txt and
# bench/gate/budget-stream-qt<major>.txt.
# Commit the budget files with the change that moved them.
set -euo pipefail
cd "$(dirname "$0")/.."
[ $# -gt 0 ] || set -- build/qt5 build/qt6
for dir in "$@"; do
    cmake --build "$dir" --target kelxml_gate
    KELXML_GATE_WRITE=1 ctest --test-dir "$dir" -R '^instruction_gate' --output-on-failure -V \
        | grep 'gate:' || { echo "no instruction gate in $dir (valgrind missing, or not a RelWithDebInfo build?)" >&2; exit 1; }
done
git --no-pager diff --stat -- bench/gate/budget-qt*.txt || true
