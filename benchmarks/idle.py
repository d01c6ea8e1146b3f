#!/usr/bin/env python3
"""What a running Kestrel with 256 processors in 256 groups takes of one core, on an X server of its own: while nothing happens, in
the devices' quiet day, and with 20 changes a second.

Usage: KESTREL=build/release/bin/kestrel benchmarks/idle.py [SECONDS]. Each of the three is watched for so many seconds, 60 without.
Fails when one of them is above its limit."""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "tests" / "e2e"))

import desktop  # noqa: E402
import listfile  # noqa: E402

LIMIT = 256
START = 5.0  # seconds until the program has come to rest
RATE = 20  # changes a second


def scenario(steps):
    return json.dumps({"title": "A run that is watched", "steps": steps})


STORM = [{"at": 0.0, "do": "storm", "rate": RATE, "for": 3600}]
RUNS = [  # name, scenario (none: the quiet day), largest part of a core in per cent
    ("nothing", scenario([]), 1.0),
    ("the quiet day", None, 2.0),
    (f"{RATE} changes a second", scenario(STORM), 10.0),
]


def processor_seconds(process):
    """Of all threads of the process and the kernel's work for it."""
    fields = pathlib.Path(f"/proc/{process.pid}/stat").read_text().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


class Run:
    """A Kestrel on a screen, with a list and a home of its own."""

    def __init__(self, screen, script):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="idle-"))
        os.chmod(self.folder, 0o700)
        listfile.write(self.folder / "list.kvtl", [
            listfile.group(f"Hall {n}", [listfile.processor(f"Wall {n}", f"10.0.{n // 200}.{n % 200 + 1}")])
            for n in range(1, LIMIT + 1)], [])
        life = []
        if script:
            (self.folder / "scenario.json").write_text(script)
            life = ["--scenario", self.folder / "scenario.json"]
        environment = dict(screen.applications(self.folder), HOME=str(self.folder), XDG_CONFIG_HOME=str(self.folder / "config"),
                           LANG="C.UTF-8", LANGUAGE="en")
        self.process = subprocess.Popen([os.environ["KESTREL"], "--list", self.folder / "list.kvtl", *life], env=environment)
        screen.wait_for_window("Kestrel$")

    def part_of_a_core(self, seconds):
        """In per cent, over so many seconds."""
        time.sleep(START)  # paced: the start of the program is not watched
        begin, before = time.monotonic(), processor_seconds(self.process)
        time.sleep(seconds)  # paced: the time that is watched
        return 100 * (processor_seconds(self.process) - before) / (time.monotonic() - begin)

    def close(self):
        self.process.terminate()
        self.process.wait()
        shutil.rmtree(self.folder)


def main(seconds):
    failed = 0
    shots = tempfile.mkdtemp(prefix="idle-")
    screen = desktop.Desktop(shots)
    try:
        for name, script, limit in RUNS:
            run = Run(screen, script)
            try:
                part = run.part_of_a_core(seconds)
            finally:
                run.close()
            failed += part > limit
            print(f"{'ABOVE ' if part > limit else ''}{name}: {part:.2f} % of a core (at most {limit:g})", flush=True)
    finally:
        screen.close()
        shutil.rmtree(shots)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(float(sys.argv[1]) if sys.argv[1:] else 60.0))
