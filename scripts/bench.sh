#!/usr/bin/env bash
# Runs every benchmark program with repetitions and writes the figures
# (mean, median, standard deviation) as JSON under <build>/bench/.
#   scripts/bench.sh [build] [bench_Name ...]
# With program names, only those run again (a figure that came out noisy);
# the others' figures stay as the last run wrote them.
# scripts/bench-check.py then checks each figure against its floor.
set -euo pipefail
build=${1:-build}
shift || true
out="$build/bench"
mkdir -p "$out"
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
programs=()
for name in "${@:-bench_*}"; do
    for program in "$build"/bin/$name; do
        if [ -x "$program" ]; then programs+=("$program"); fi
    done
done
[ ${#programs[@]} -gt 0 ] || { echo "no benchmark program in $build/bin" >&2; exit 1; }
# The repetitions of a program run in random order, so that a slow spell of
# the shared machine falls on a figure and its floor alike rather than on
# the figures measured in the middle of the program. In order: the programs
# whose floors depend on what ran before them (a table that once held a
# million rows keeps their bookkeeping; a text document keeps its blocks),
# the heap readings, and the programs with no row in the check.
ordered=" bench_Console bench_EditorMemory bench_HistoryKeeping bench_ListOpen bench_PluginLoad "
# A program of many figures of a few hundred milliseconds each, whose medians
# a slow spell of a few seconds still moves apart from their floor's: three
# times the repetitions.
many=" bench_SingleValueEditors "
for program in "${programs[@]}"; do
    name=$(basename "$program")
    echo "== $name"
    order=()
    if [[ $ordered != *" $name "* ]]; then order=(--benchmark_enable_random_interleaving=true); fi
    repetitions=${BENCH_REPETITIONS:-5}
    if [[ $many == *" $name "* ]]; then repetitions=$((repetitions * 3)); fi
    "$program" --benchmark_repetitions="$repetitions" "${order[@]}" \
        --benchmark_report_aggregates_only=true \
        --benchmark_out="$out/$name.json" --benchmark_out_format=json
done
echo "Figures written to $out/"
