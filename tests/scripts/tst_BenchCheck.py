#!/usr/bin/env python3
"""The bench check's reading of figures and floors, on figures written here.

No benchmark runs: the JSON is made up, in the form Google Benchmark writes
it, so that what is checked is the arithmetic and the verdicts, never a
timing.
"""

import json
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
CHECK = ROOT / "scripts" / "bench-check.py"
FLOORS = ROOT / "bench" / "floors.txt"


def median(name, time, unit="ms", label=None, **counters):
    entry = {"name": name + "_median", "run_name": name, "run_type": "aggregate",
             "aggregate_name": "median", "real_time": time, "cpu_time": time / 2,
             "time_unit": unit}
    if label:
        entry["label"] = label
    entry.update(counters)
    return entry


def mean(name, time):
    return {"name": name + "_mean", "run_name": name, "run_type": "aggregate",
            "aggregate_name": "mean", "real_time": time, "cpu_time": time, "time_unit": "ms"}


class BenchCheck(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.dir = Path(self.folder.name)

    def tearDown(self):
        self.folder.cleanup()

    def write(self, program, entries):
        (self.dir / f"{program}.json").write_text(json.dumps({"benchmarks": entries}))

    def check(self, floors, *options):
        table = self.dir / "floors.txt"
        table.write_text(floors)
        done = subprocess.run([sys.executable, str(CHECK), "--figures", str(self.dir),
                               "--floors", str(table), *options],
                              capture_output=True, text=True)
        return done.returncode, done.stdout + done.stderr

    def test_ratio_within_target_passes(self):
        self.write("bench_A", [median("BM_Floor", 2.0), median("BM_Figure", 3.0)])
        code, out = self.check("bench_A BM_Figure BM_Floor 1.5 one figure\n")
        self.assertEqual(code, 0, out)
        self.assertIn("1.50", out)
        self.assertIn("BM_Figure (one figure)", out)

    def test_ratio_over_target_fails(self):
        self.write("bench_A", [median("BM_Floor", 2.0), median("BM_Figure", 3.2)])
        code, out = self.check("bench_A BM_Figure BM_Floor 1.5\n")
        self.assertEqual(code, 1, out)
        self.assertIn("1.60", out)
        self.assertIn("MISSED", out)

    def test_median_not_mean_is_read(self):
        self.write("bench_A", [mean("BM_Floor", 100.0), median("BM_Floor", 2.0),
                               mean("BM_Figure", 1.0), median("BM_Figure", 3.0)])
        code, out = self.check("bench_A BM_Figure BM_Floor 2\n")
        self.assertEqual(code, 0, out)
        self.assertIn("1.50", out)

    def test_units_are_converted(self):
        self.write("bench_A", [median("BM_Floor", 500.0, "us"), median("BM_Figure", 1.0, "ms")])
        code, out = self.check("bench_A BM_Figure BM_Floor 1.9\n")
        self.assertEqual(code, 1, out)
        self.assertIn("2.00", out)

    def test_label_picks_the_argument(self):
        self.write("bench_A", [median("BM_Bare", 1.0), median("BM_Edit/0", 1.2, label="SFFloat"),
                               median("BM_Edit/1", 3.0, label="SFString")])
        self.assertEqual(self.check("bench_A BM_Edit[SFFloat] BM_Bare 2\n")[0], 0)
        code, out = self.check("bench_A BM_Edit[SFString] BM_Edit[SFFloat] 1.3\n")
        self.assertEqual(code, 1, out)
        self.assertIn("2.50", out)

    def test_floor_as_mean_and_multiple(self):
        self.write("bench_A", [median("BM_Before", 1.0), median("BM_After", 3.0),
                               median("BM_Figure", 3.0), median("BM_Small", 1.0)])
        code, out = self.check("bench_A BM_Figure BM_Before+BM_After 1.4\n"
                               "bench_A BM_Figure 4*BM_Small 0.7\n")
        self.assertEqual(code, 1, out)
        self.assertIn("1.50", out)
        self.assertIn("0.75", out)

    def test_counter_is_read(self):
        # Google Benchmark names a benchmark of fixed iterations
        # BM_Name/iterations:N; the table names it BM_Name.
        self.write("bench_A", [median("BM_Memory/iterations:1", 5.0, shown_kib=300.0, bare_kib=200.0)])
        code, out = self.check("bench_A BM_Memory:shown_kib BM_Memory:bare_kib 1.4\n")
        self.assertEqual(code, 1, out)
        self.assertIn("1.50", out)

    def test_floor_timed_beside_as_a_counter(self):
        # A floor a benchmark times in its own iterations is a counter in
        # nanoseconds, compared with the benchmark's own time.
        self.write("bench_A", [median("BM_Step/manual_time", 9.0, unit="us", floor_ns=6000.0)])
        code, out = self.check("bench_A BM_Step BM_Step:floor_ns 1.4\n")
        self.assertEqual(code, 1, out)
        self.assertIn("1.50", out)
        self.assertIn("6 us", out)
        self.assertEqual(self.check("bench_A BM_Step BM_Step:floor_ns 2\n")[0], 0)

    def test_cpu_time_on_request(self):
        self.write("bench_A", [median("BM_Floor", 2.0), median("BM_Figure", 3.0)])
        entries = json.loads((self.dir / "bench_A.json").read_text())["benchmarks"]
        entries[1]["cpu_time"] = 1.1  # the floor's is 1.0
        self.write("bench_A", entries)
        self.assertEqual(self.check("bench_A BM_Figure BM_Floor 1.2\n")[0], 1)
        self.assertEqual(self.check("bench_A BM_Figure BM_Floor 1.2\n", "--time", "cpu_time")[0], 0)

    def test_manual_time_is_read_as_real_time(self):
        # Google Benchmark names a manually timed benchmark BM_Name/manual_time
        # and counts the untimed steps of its loop in its CPU time.
        figure = median("BM_Figure/manual_time", 3.0)
        figure["cpu_time"] = 9.0
        floor = median("BM_Floor", 2.0)
        floor["cpu_time"] = 2.0
        self.write("bench_A", [floor, figure])
        for options in ((), ("--time", "cpu_time")):
            code, out = self.check("bench_A BM_Figure BM_Floor 2\n", *options)
            self.assertEqual(code, 0, out)
            self.assertIn("1.50", out)

    def test_missing_figure_or_program_fails(self):
        self.write("bench_A", [median("BM_Floor", 2.0)])
        code, out = self.check("bench_A BM_Figure BM_Floor 2\n")
        self.assertEqual(code, 1, out)
        self.assertIn("NO FIGURE", out)
        code, out = self.check("bench_B BM_Figure BM_Floor 2\n")
        self.assertEqual(code, 1, out)
        self.assertIn("bench_B.json was not written", out)

    def test_unreadable_table_is_refused(self):
        self.assertEqual(self.check("bench_A BM_Figure BM_Floor\n")[0], 2)
        self.assertEqual(self.check("bench_A BM_Figure BM_Floor fast\n")[0], 2)

    def test_project_table_names_real_programs_and_benchmarks(self):
        # A typo in the table would fail every run; each row must name a
        # program of bench/ and benchmarks its source registers.
        rows = 0
        for line in FLOORS.read_text().splitlines():
            if not line.strip() or line.startswith("#"):
                continue
            rows += 1
            program, figure, floor, target = line.split()[:4]
            source = ROOT / "bench" / f"{program}.cpp"
            self.assertTrue(source.is_file(), line)
            text = source.read_text()
            float(target)
            for term in [figure] + floor.split("+"):
                name = term.split("*")[-1].split(":")[0].split("[")[0].split("/")[0]
                self.assertTrue(f"static void {name}(" in text or f'Name("{name}")' in text,
                                f"{name} is not a benchmark of {program}")
        self.assertGreater(rows, 40)


if __name__ == "__main__":
    unittest.main()
