"""Plays the recording of a run again, offscreen and as fast as it goes, and compares what came of it.

    replay.check(program, run, shots)

run is a desktop.Kestrel that has ended. A run that was cut off is played as far as it goes.
"""

import json
import os
import pathlib
import subprocess

from PIL import Image, ImageChops

DEADLINE = 240  # seconds that a replay may take


def check(program, run, shots):
    """Fails when a call differs, or the rows do not look as they did when the run was left."""
    recording, header = find_recording(run)
    if recording is None:
        return
    picture = pathlib.Path(shots) / f"replay-{run.process.pid}.png"
    seen = run.last_rows and not header["masked"]  # with the names
    options = ["--at", run.last_time, "--shot", picture] if seen else []
    play(program, recording, shots, dict(os.environ, QT_QPA_PLATFORM="offscreen"), options)
    if seen:
        compare(run, picture, shots, recording)


def play(program, recording, shots, environment, options=()):
    """Fails when it differs, and keeps the recording then."""
    done = subprocess.run([program, "--replay", recording, *options], capture_output=True, text=True, timeout=DEADLINE,
                          env=dict(environment, QT_HASH_SEED="0", LANG="C.UTF-8", LANGUAGE="en"))
    if done.returncode != 0:
        kept = keep(recording, shots)
        raise AssertionError(f"the replay of {kept} ends with {done.returncode}:\n{done.stdout}{done.stderr}")


def find_recording(run):
    """The first file of the run's journal and its header; None when the run has left none."""
    folder = pathlib.Path(f"{run.list_file}.journal")
    for file in sorted(folder.glob("*.jsonl")):
        with open(file, encoding="utf-8") as lines:
            header = json.loads(lines.readline() or "{}")
        if header.get("process") == run.process.pid:
            return file, header
    return None, {}


def compare(run, picture, shots, recording):
    """The rows in the picture of the replay are those of the run."""
    with Image.open(picture) as image:
        rows = image.convert("RGB").crop(run.rows_in_window())
    box = ImageChops.difference(rows, run.last_rows).getbbox()
    if box:
        seen = pathlib.Path(shots) / f"replay-{run.process.pid}-recorded.png"
        run.last_rows.save(seen)
        raise AssertionError(f"the rows of the replay differ in {box}: {picture} and {seen}, of {keep(recording, shots)}")


def keep(recording, shots):
    """A copy of the recording's folder to look at."""
    kept = pathlib.Path(shots) / f"recording-{recording.parent.parent.name}"
    subprocess.run(["cp", "-rT", recording.parent, kept], check=True)
    return kept
