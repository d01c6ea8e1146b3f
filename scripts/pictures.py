#!/usr/bin/python3
"""Takes the pictures of the documents anew with the programs of a build: Kestrel in the middle of examples/day.json, and what comes
out of the walk-throughs. Run it after a change that can be seen.

    scripts/pictures.py [--build FOLDER] [--to FOLDER]     all pictures; default: build/dev, docs/images
    scripts/pictures.py --names                            their names

Needs xvfb, openbox, xdotool and python3-pil, as the tests do (scripts/setup.sh test)."""
import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from PIL import Image

ROOT = Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "documents"))

from walk import Program, Walk  # noqa: E402

from desktop import Desktop  # noqa: E402

KESTREL_SIZE = (1040, 560)  # the upper part of the window
MOMENT = "10"  # of the scenario, in seconds: Chief-Member mode is on, a fail-over has been


def save(image, path):
    image.convert("RGB").save(path, optimize=True)


def take_kestrel(build, path):
    """Kestrel with the example list, in the middle of the example scenario."""
    with tempfile.TemporaryDirectory() as folder:
        shutil.copy(ROOT / "examples/studio.kvtl", folder)
        os.chmod(folder, 0o700)
        shot = Path(folder) / "shot.png"
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", XDG_RUNTIME_DIR=folder, HOME=folder)
        subprocess.run([build / "bin/kestrel", "--list", Path(folder) / "studio.kvtl", "--scenario", ROOT / "examples/day.json",
                        "--lang", "en", "--shot", shot, "--at", MOMENT], env=environment, check=True, capture_output=True)
        save(Image.open(shot).crop((0, 0, *KESTREL_SIZE)), path)


def take_program(walk, command, title, path):
    """The window of a program of the walk-throughs as soon as it shows rows."""
    with tempfile.TemporaryDirectory() as folder:
        desktop = Desktop(folder)
        program = Program(walk, desktop, command)
        try:
            program.wait_for_window(title)
            program.wait_for_rows()
            save(desktop.grab().crop(area(desktop, program.window)), path)
            program.close()
        finally:
            program.clean()
            desktop.close()


def area(desktop, window):
    said = subprocess.run(["xwininfo", "-id", window], env=desktop.environment, capture_output=True, text=True, check=True).stdout
    keys = ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")
    x, y, width, height = (int(re.search(rf"{key}: +(-?\d+)", said).group(1)) for key in keys)
    return x, y, x + width, y + height


def take_all(build, folder):
    walk = Walk(build)
    try:
        take_kestrel(build, folder / "kestrel.png")
        take_program(walk, walk.programs[0], "My host$", folder / "host.png")
        take_program(walk, f"{walk.programs[1]} --lang en", "Kestrel$", folder / "library.png")
    finally:
        walk.close()


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", type=Path, default=ROOT / "build/dev")
    parser.add_argument("--to", type=Path, default=ROOT / "docs/images")
    parser.add_argument("--names", action="store_true")
    options = parser.parse_args()
    if options.names:
        print("kestrel.png\nhost.png\nlibrary.png")
    else:
        take_all(options.build.resolve(), options.to)


if __name__ == "__main__":
    main()
