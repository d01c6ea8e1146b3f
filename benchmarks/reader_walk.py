#!/usr/bin/env python3
"""Down over 256 groups with a processor each in a running Kestrel while a screen reader listens: the milliseconds from
the key to the last answer about the row that has got the focus, and the memory that the steps cost.

Usage: KESTREL=build/release/bin/kestrel benchmarks/reader_walk.py [STEPS]. Without STEPS one walk, of 512. The start of
the program that presses the key counts in. Fails when a row takes as long as an operator notices.
"""
import os
import pathlib
import re
import shutil
import statistics
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "tests" / "e2e"))

import desktop  # noqa: E402
import listfile  # noqa: E402
import speech  # noqa: E402

GROUPS = 256
ROWS = 2 * GROUPS  # below the root
NOTICED = 50.0  # milliseconds
TRIES = 3  # of a step that a refresh undoes
UNDONE = 5.0  # seconds after which a step has been undone


def full_list():
    return [listfile.group(f"Hall {n}", [listfile.processor(f"Wall {n}", f"10.0.{n // 200}.{n % 200 + 1}")])
            for n in range(1, GROUPS + 1)], []


def resident(process):
    """Kibibytes of the process that are in memory."""
    return int(re.search(r"VmRSS:\s+(\d+)", pathlib.Path(f"/proc/{process.pid}/status").read_text()).group(1))


class Walk:
    """Steps from row to row, from the last one to the root again."""

    def __init__(self, screen, kestrel):
        self.screen = screen
        self.kestrel = kestrel
        self.reader = speech.Reader()
        self.reader.begin("Discovered processors")
        self.times = []
        self.undone = 0

    def step(self, key, name):
        """The milliseconds until all of the row of that name is known. A refresh that comes between undoes a step, which is
        made again."""
        for _ in range(TRIES):
            start = time.monotonic()
            press = self.screen.start_key(key)
            said = self.reader.hears_row(name, UNDONE)
            taken = (time.monotonic() - start) * 1000
            press.wait()
            if said:
                return taken
            self.undone += 1
        raise desktop.Failure(f"{name} is not said; said was {self.reader.lines[-1]}")

    def run(self, steps):
        for number in range(steps):
            row = number % ROWS
            if number and row == 0:
                self.step("Home", "All processors")
            self.times.append(self.step("Down", f"{'Wall' if row % 2 else 'Hall'} {row // 2 + 1},"))

    def report(self):
        print(f"{len(self.times)} rows: median {statistics.median(self.times):.1f} ms, largest {max(self.times):.1f} ms, "
              f"{self.undone} undone by a refresh", flush=True)


def measure_memory(walk, steps):
    before = resident(walk.kestrel.process)
    walk.run(steps)
    after = resident(walk.kestrel.process)
    print(f"memory: {before} KiB before, {after} KiB after, {(after - before) * 1024 / steps:.0f} bytes a step", flush=True)
    rebuild(walk)
    print(f"memory: {resident(walk.kestrel.process)} KiB after a rebuild", flush=True)


def rebuild(walk):
    """A new name builds the rows anew."""
    mark = walk.kestrel.mark()
    walk.screen.key("F2")
    walk.screen.type("Renamed")
    walk.screen.key("Return")
    walk.kestrel.wait_for("^Rename", mark, "command")
    desktop.wait_until("the new name to be said",
                       lambda: walk.reader.listen() and "Renamed" in walk.reader.lines[-1])


def main(steps):
    folder = pathlib.Path(tempfile.mkdtemp(prefix="walk-"))
    screen = desktop.Desktop(folder / "shots")
    screen.environment.update(speech.HEARD)
    listfile.write(folder / "list.kvtl", *full_list())
    kestrel = desktop.Kestrel(screen, os.environ["KESTREL"], folder / "list.kvtl")
    try:
        walk = Walk(screen, kestrel)
        measure_memory(walk, steps)
        walk.report()
        kestrel.quit()
    finally:
        kestrel.clean()
        screen.close()
        shutil.rmtree(folder)
    return f"a row takes {NOTICED:.0f} ms or more" if statistics.median(walk.times) >= NOTICED else 0


if __name__ == "__main__":
    sys.exit(main(int(sys.argv[1]) if sys.argv[1:] else ROWS) if speech.has_own_bus() else speech.run_on_own_bus(*sys.argv[1:]))
