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

from desktop import Desktop, Kestrel, wait_until  # noqa: E402

KESTREL_SIZE = (1040, 560)  # the upper part of the window
MENU_SIZE = (480, 440)
MARKS = (0, 120, 720, 692)  # the first rows, at scale 2
OFFLINE_ROW = (0, 248, 720, 316)
MOMENT_OFFLINE = "5.5"
MOMENT = "10"  # of the scenario, in seconds: Chief-Member mode is on, a fail-over has been


def save(image, path):
    image.convert("RGB").save(path, optimize=True)


def shoot(build, *options, moment=MOMENT):
    """Kestrel with the example list at a moment of the example scenario, as an image."""
    with tempfile.TemporaryDirectory() as folder:
        shutil.copy(ROOT / "examples/studio.kvtl", folder)
        os.chmod(folder, 0o700)
        shot = Path(folder) / "shot.png"
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", XDG_RUNTIME_DIR=folder, XDG_CONFIG_HOME=folder, HOME=folder)
        subprocess.run([build / "bin/kestrel", "--list", Path(folder) / "studio.kvtl", "--scenario", ROOT / "examples/day.json",
                        "--lang", "en", "--shot", shot, "--at", moment, *options], env=environment, check=True, capture_output=True)
        return Image.open(shot).convert("RGB")


def take_kestrel(build, path):
    save(shoot(build).crop((0, 0, *KESTREL_SIZE)), path)


def take_marks(build, path):
    """The rows with their marks, twice as large; below them that of a processor that has dropped out."""
    rows = shoot(build, "--scale", "2").crop(MARKS)
    offline = shoot(build, "--scale", "2", moment=MOMENT_OFFLINE).crop(OFFLINE_ROW)
    picture = Image.new("RGB", (rows.width, rows.height + offline.height))
    picture.paste(rows, (0, 0))
    picture.paste(offline, (0, rows.height))
    save(picture, path)


def take_menus(build, menu_path, undo_path):
    """The menu of two selected rows; then, after a rename, that of the list with the step that can be taken back."""
    with tempfile.TemporaryDirectory() as folder:
        shutil.copy(ROOT / "examples/studio.kvtl", folder)
        desktop = Desktop(folder)
        kestrel = Kestrel(desktop, build / "bin/kestrel", Path(folder) / "studio.kvtl")
        try:
            desktop.click(*kestrel.row(2))
            desktop.click(*kestrel.row(3), holding="ctrl")
            desktop.click(*kestrel.row(3), button=3)
            desktop.key("Down", "Down")
            save(settled(desktop).crop((kestrel.x, kestrel.y, kestrel.x + MENU_SIZE[0], kestrel.y + MENU_SIZE[1])), menu_path)
            desktop.key("Escape")
            desktop.click(*kestrel.row(2))
            desktop.key("F2", "ctrl+a")
            desktop.type("Left wing")
            desktop.key("Return", "alt+l")
            save(settled(desktop).crop((kestrel.x, kestrel.y, kestrel.x + MENU_SIZE[0], kestrel.y + MENU_SIZE[1])), undo_path)
            desktop.key("Escape")
            kestrel.quit()
        finally:
            kestrel.clean()
            desktop.close()


def settled(desktop):
    """The screen as soon as two looks at it are the same."""
    looks = [desktop.grab(), desktop.grab()]
    wait_until("a screen that stands still", lambda: looks.append(desktop.grab()) or looks[-1].tobytes() == looks[-2].tobytes())
    return looks[-1]


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
        take_marks(build, folder / "marks.png")
        take_menus(build, folder / "menu.png", folder / "undo.png")
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
        print("kestrel.png\nmarks.png\nmenu.png\nundo.png\nhost.png\nlibrary.png")
    else:
        take_all(options.build.resolve(), options.to)


if __name__ == "__main__":
    main()
