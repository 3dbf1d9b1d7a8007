#!/usr/bin/env bash
# Runs every benchmark program with repetitions and writes the figures
# (mean, median, standard deviation) as JSON under <build>/bench/.
set -euo pipefail
build=${1:-build}
out="$build/bench"
mkdir -p "$out"
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
for program in "$build"/bin/bench_*; do
    [ -x "$program" ] || continue
    name=$(basename "$program")
    echo "== $name"
    "$program" --benchmark_repetitions="${BENCH_REPETITIONS:-10}" \
        --benchmark_report_aggregates_only=true \
        --benchmark_out="$out/$name.json" --benchmark_out_format=json
done
echo "Figures written to $out/"
