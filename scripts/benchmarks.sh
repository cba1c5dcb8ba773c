#!/usr/bin/env bash
# Runs all benchmarks of the release build; further arguments go to every program, for example
# --benchmark_filter=Histogram. --smoke only starts every program of an existing build.
set -euo pipefail
cd "$(dirname "$0")/.."

export QT_QPA_PLATFORM=offscreen
programs() { find build/release/benchmarks -maxdepth 1 -type f -executable -name 'bench_*' | sort; }
if [ "${1:-}" = "--smoke" ]; then
    for program in $(programs); do
        "$program" --benchmark_list_tests >/dev/null
        echo "$(basename "$program"): starts"
    done
    exit 0
fi
cmake --preset release -DGK_BUILD_BENCHMARKS=ON >/dev/null
cmake --build --preset release
for program in $(programs); do
    echo "== $(basename "$program")"
    "$program" "$@"
done
