#!/usr/bin/env python3
"""The panel beside plain Qt: a ratio a task, by instructions, which what else the machine does leaves alone, or by time.

Usage: benchmarks/ratios.py [--times] [BENCHMARK...]

Counts the instructions of each task with callgrind, the median of nine pairs. With --times the program runs as it is, with 51
pairs on the processor's clock, for a machine at rest. BENCHMARKS names the program, build/release/bin/ptv_benchmarks without it.
Fails when a figure is above its limit. KEEP=FOLDER keeps callgrind's files there, one a measured task, for callgrind_annotate."""
import collections
import json
import os
import pathlib
import re
import statistics
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).parents[1]
PROGRAM = os.environ.get("BENCHMARKS", str(ROOT / "build/release/bin/ptv_benchmarks"))
COUNTED = {  # by instructions: the largest quotient of the two samples
    "BM_RepaintInThemeFont": [("panel", "plain", 1.45)],
    "BM_RepaintInPlatformFont": [("panel", "plain", 1.45)],
    "BM_MessageToPixels": [("panel", "plain", 1.25), ("nothing", "panel", 0.005)],
    "BM_HoverMove": [("panel", "plain", 1.5)],
    "BM_SearchKey": [("panel", "plain", 1.5)],
    "BM_DragStart": [("panel", "plain", 1.5)],
    "BM_SelectionOverRebuild": [("all", "one", None)],
    "BM_RebuildGrowth": [("16384", "256", 64.0)],  # an exponent of 1
}
TIMED = {  # by time: the largest value of a counter
    "BM_RepaintInThemeFont": [("ratio", 1.4)],
    "BM_RepaintInPlatformFont": [("ratio", 1.5)],
    "BM_MessageToPixels": [("ratio", 1.25), ("nothing_percent", 0.5)],
    "BM_HoverMove": [("ratio", 1.5)],
    "BM_SearchKey": [("ratio", 1.5)],
    "BM_DragStart": [("ratio", 1.5)],
    "BM_SelectionOverRebuild": [("selected_ms", 1.0)],
    "BM_RebuildGrowth": [("exponent", 1.0), ("ms_16384", 48.0)],
}
NAME = re.compile(r"^desc: Trigger: Client Request: (\S+)", re.MULTILINE)
SUM = re.compile(r"^(?:summary|totals): (\d+)", re.MULTILINE)
HEAD = 4096  # bytes of a dump in which both stand


def run(command, name):
    filter_argument = f"--benchmark_filter=^{name}(/|$)"
    environment = {**os.environ, "QT_HASH_SEED": "0"}
    return subprocess.run([*command, PROGRAM, filter_argument, "--benchmark_format=json"], env=environment,
                          capture_output=True, text=True, check=True).stdout


def count(name, folder):
    """The median of the instructions of each sample of a benchmark."""
    run(["valgrind", "--tool=callgrind", f"--callgrind-out-file={folder}/{name}"], name)
    samples = collections.defaultdict(list)
    for dump in pathlib.Path(folder).glob(f"{name}.*"):
        with dump.open(encoding="utf-8", errors="replace") as lines:
            head = lines.read(HEAD)
        if NAME.search(head):
            samples[NAME.search(head)[1]].append(int(SUM.search(head)[1]))
    return {sample: statistics.median(counts) for sample, counts in samples.items()}


def counted(name, folder):
    medians = count(name, folder)
    for above, below, limit in COUNTED[name]:
        yield f"{above} / {below}", medians[above] / medians[below], limit, f"{medians[above]:.0f} / {medians[below]:.0f} instructions"


def timed(name, _):
    measured = json.loads(run([], name))["benchmarks"][0]
    for counter, limit in TIMED[name]:
        yield counter, measured[counter], limit, f"{measured['real_time']:.3f} {measured['time_unit']}"


def main(arguments):
    by_time = "--times" in arguments
    names = [name for name in arguments if name != "--times"] or list(TIMED)
    failed = 0
    with tempfile.TemporaryDirectory(prefix="ratios-") as folder:
        for name in names:
            for what, value, limit, details in (timed if by_time else counted)(name, os.environ.get("KEEP", folder)):
                bad = limit is not None and value > limit
                failed += bad
                allowed = "" if limit is None else f"  (at most {limit:g})"
                print(f"{'ABOVE ' if bad else ''}{name}: {what} {value:.4g}{allowed}  {details}", flush=True)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
