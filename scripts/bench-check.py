#!/usr/bin/env python3
"""Checks the figures of a `make bench` run against their floors.

Reads the table of figures, floors and targets (bench/floors.txt), and the
JSON each benchmark program wrote (<build>/bench/<program>.json). For every
row it divides the figure's median by its floor's median from the same
program's run, prints a table of the ratios, and exits with 1 when a ratio is
over its target or a figure is missing, with 2 when the table cannot be read.

    scripts/bench-check.py [--figures DIR] [--floors FILE] [--time cpu_time]

Timings stay out of the test suite: this runs after `make bench` only.
"""

import argparse
import json
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent

# Google Benchmark writes each time in the benchmark's own unit.
NANOSECONDS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}


class Missing(Exception):
    pass


class Row:
    def __init__(self, line_number, program, figure, floor, target, what):
        self.line_number = line_number
        self.program = program
        self.figure = figure
        self.floor = floor
        self.target = target
        self.what = what


def read_rows(path):
    rows = []
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line.strip() or line.lstrip().startswith("#"):
            continue
        columns = line.split(None, 4)
        if len(columns) < 4:
            raise ValueError(f"{path}:{number}: a row needs program, figure, floor and target")
        try:
            target = float(columns[3])
        except ValueError:
            raise ValueError(f"{path}:{number}: the target {columns[3]!r} is not a number") from None
        rows.append(Row(number, columns[0], columns[1], columns[2], target,
                        columns[4].strip() if len(columns) > 4 else ""))
    return rows


class Run:
    """The medians of one program's run."""

    def __init__(self, path, time_field):
        self.path = path
        self.time_field = time_field
        with path.open(encoding="utf-8") as stream:
            entries = json.load(stream).get("benchmarks", [])
        self.spreads = {e.get("run_name"): e for e in entries if e.get("aggregate_name") == "cv"}
        # A run without repetitions has no aggregates: its one iteration
        # entry stands for the median.
        self.medians = [e for e in entries if e.get("aggregate_name") == "median"]
        if not self.medians:
            self.medians = [e for e in entries if e.get("run_type") == "iteration"]
        for entry in self.medians:
            # A manually timed benchmark's own time is its real time; its CPU
            # time is that of every step of the loop, the untimed ones too.
            entry["manual_time"] = "/manual_time" in entry.get("run_name", entry.get("name", ""))
            # The run options Google Benchmark appends to a name
            # (BM_Memory/iterations:1, BM_Row/0/manual_time) are not part of it.
            entry["run_name"] = re.sub(r"/(?:iterations|min_time|repeats|threads):[^/]*"
                                       r"|/(?:real_time|manual_time|process_time)", "",
                                       entry.get("run_name", entry.get("name", "")))

    def entry(self, name):
        # BM_Name[label]: the argument of BM_Name with that label.
        match = re.fullmatch(r"(.+)\[(.+)\]", name)
        if match:
            base, label = match.groups()
            found = [e for e in self.medians
                     if (e["run_name"] == base or e["run_name"].startswith(base + "/"))
                     and e.get("label") == label]
        else:
            found = [e for e in self.medians if e["run_name"] == name]
        if not found:
            raise Missing(f"{name} is not in {self.path}")
        return found[0]

    def value(self, term):
        """One term of a figure or floor: [factor*]name[:counter]."""
        factor = 1.0
        scaled = re.fullmatch(r"([0-9.]+)\*(.+)", term)
        if scaled:
            factor, term = float(scaled.group(1)), scaled.group(2)
        name, _, counter = term.partition(":")
        entry = self.entry(name)
        if counter:
            if counter not in entry:
                raise Missing(f"{name} has no counter {counter} in {self.path}")
            return factor * float(entry[counter]), ""
        field = "real_time" if entry["manual_time"] else self.time_field
        seconds = float(entry[field]) * NANOSECONDS[entry.get("time_unit", "ns")]
        return factor * seconds, "ns"

    def spread(self, expression):
        """The coefficient of variation of a figure's time, as a text."""
        try:
            entry = self.entry(expression.split("+")[0].split("*")[-1].partition(":")[0])
        except Missing:
            return "-"
        cv = self.spreads.get(entry.get("name", "").rpartition("_median")[0])
        return f"{100 * cv[self.time_field]:.0f} %" if cv and ":" not in expression else "-"

    def mean(self, expression):
        values = [self.value(term) for term in expression.split("+")]
        return sum(v for v, _ in values) / len(values), values[0][1]


def shown(value, unit):
    if unit != "ns":
        return f"{value:,.1f}"
    for name, size in (("s", 1e9), ("ms", 1e6), ("us", 1e3)):
        if value >= size:
            return f"{value / size:.3g} {name}"
    return f"{value:.3g} ns"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--figures", type=Path, default=ROOT / "build" / "bench",
                        help="the folder of the benchmark programs' JSON (default: build/bench)")
    parser.add_argument("--floors", type=Path, default=ROOT / "bench" / "floors.txt",
                        help="the table of figures, floors and targets")
    parser.add_argument("--time", choices=("real_time", "cpu_time"), default="real_time",
                        help="which time to compare (cpu_time on a machine others load)")
    options = parser.parse_args()

    try:
        rows = read_rows(options.floors)
    except (OSError, ValueError) as error:
        print(f"bench-check: {error}", file=sys.stderr)
        return 2

    runs = {}
    table = []
    failures = 0
    for row in rows:
        name = row.figure + (f" ({row.what})" if row.what else "")
        try:
            if row.program not in runs:
                path = options.figures / f"{row.program}.json"
                if not path.is_file():
                    raise Missing(f"{path} was not written")
                runs[row.program] = Run(path, options.time)
            run = runs[row.program]
            figure, unit = run.mean(row.figure)
            floor, _ = run.mean(row.floor)
            ratio = figure / floor if floor > 0 else float("inf")
            verdict = "ok" if ratio <= row.target else "MISSED"
            table.append((name, shown(figure, unit), run.spread(row.figure), row.floor, shown(floor, unit),
                          run.spread(row.floor), f"{ratio:.2f}", f"{row.target:g}", verdict))
        except (Missing, OSError, ValueError, KeyError) as error:
            verdict = "NO FIGURE"
            table.append((name, "-", "-", row.floor, "-", "-", "-", f"{row.target:g}", verdict))
            print(f"bench-check: {error}", file=sys.stderr)
        if verdict != "ok":
            failures += 1

    # cv: the coefficient of variation over the repetitions; a figure whose
    # cv is large is worth measuring again (scripts/bench.sh BUILD PROGRAM).
    header = ("figure", "median", "cv", "floor", "floor median", "cv", "ratio", "target", "")
    widths = [max(len(str(line[i])) for line in [header] + table) for i in range(len(header))]
    for line in [header] + table:
        print("  ".join(str(cell).ljust(width) for cell, width in zip(line, widths)).rstrip())
    print()
    if failures:
        print(f"bench-check: {failures} of {len(rows)} figures miss their target "
              f"({options.time}, medians from {options.figures})")
        return 1
    print(f"bench-check: all {len(rows)} figures within their targets "
          f"({options.time}, medians from {options.figures})")
    return 0


if __name__ == "__main__":
    sys.exit(main())
