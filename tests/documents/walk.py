"""The files and commands of the walk-throughs in docs/, a reader's folder in which they are followed, and runs of what comes out of
it."""
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "e2e"))

from desktop import DEADLINE, wait_until  # noqa: E402

DOCUMENTS = ("embedding", "writing-a-control-library")
FILE = re.compile(r"<!-- file: (\S+) -->\n```\w+\n(.*?\n)```", re.DOTALL)
COMMANDS = re.compile(r"<!-- run -->\n```sh\n(.*?)\n```", re.DOTALL)
ONLINE = (56, 252, 76)  # the dot of a processor that answers
LIBRARY = "library/build/libMyControl.so"


def text(name):
    return (ROOT / "docs" / f"{name}.md").read_text(encoding="utf-8")


def files():
    return {name: body for document in DOCUMENTS for name, body in FILE.findall(text(document))}


class Walk:
    """A reader's folder, with both packages installed for him alone."""

    def __init__(self, build):
        self.folder = Path(tempfile.mkdtemp(prefix="walk-"))
        self.prefix = self.folder / "usr"
        home = self.folder / "home"
        home.mkdir(mode=0o700)
        self.environment = dict(os.environ, CMAKE_PREFIX_PATH=str(self.prefix), LD_LIBRARY_PATH=str(self.prefix / "lib"),
                                PATH=f"{self.prefix}/bin:{os.environ['PATH']}", HOME=str(home), XDG_RUNTIME_DIR=str(home),
                                XDG_CONFIG_HOME=str(home / "config"), LANG="C.UTF-8", LANGUAGE="en")
        self.run(f"cmake --install {build} --prefix {self.prefix}")
        for name, body in files().items():
            path = self.folder / name
            path.parent.mkdir(exist_ok=True)
            path.write_text(body, encoding="utf-8")
        self.programs = [self.build(document) for document in DOCUMENTS]

    def build(self, document):
        """Runs the document's commands but the last, which starts a program; that one is returned."""
        *steps, program = COMMANDS.search(text(document)).group(1).replace("/usr/share", f"{self.prefix}/share").split("\n")
        for step in steps:
            self.run(step)
        return program

    def run(self, command):
        done = subprocess.run(command, shell=True, cwd=self.folder, env=self.environment, capture_output=True, text=True)
        if done.returncode != 0:
            raise AssertionError(f"{command}\n{done.stdout}{done.stderr}")

    def close(self):
        shutil.rmtree(self.folder, ignore_errors=True)


class Program:
    """A run of one of the programs on a desktop, with what it says."""

    def __init__(self, walk, desktop, command):
        self.desktop = desktop
        self.errors_file = open(walk.folder / "errors", "w+", encoding="utf-8")
        environment = dict(walk.environment, DISPLAY=desktop.environment["DISPLAY"], QT_QPA_PLATFORM="xcb")
        self.process = subprocess.Popen(command.split(), cwd=walk.folder, env=environment, stderr=self.errors_file)

    def wait_for_window(self, title):
        wait_until(f"a window '{title}'", lambda: self.desktop.windows(title) or self.process.poll() is not None)
        if self.process.poll() is not None:
            raise AssertionError(f"{self.process.args} ended with {self.process.returncode}: {self.errors()}")
        self.window = self.desktop.wait_for_window(title)

    def online_pixels(self):
        return sum(count for count, colour in self.desktop.grab().getcolors(1 << 24) if near(colour[:3], ONLINE))

    def first_online_pixel(self):
        """From the top; None while there is none."""
        image = self.desktop.grab().convert("RGB")
        width = image.size[0]
        return next(((n % width, n // width) for n, colour in enumerate(image.getdata()) if near(colour, ONLINE)), None)

    def wait_for_rows(self):
        """Rows with the dots of devices that answer, three at least of 7 by 7 pixels."""
        return wait_until("rows with their dots", lambda: self.online_pixels() > 60 and self.online_pixels())

    def close(self):
        """As the user does, by the window's own button; the exit code."""
        self.desktop.xdotool("windowactivate", "--sync", self.window)
        self.desktop.key("alt+F4")
        return self.process.wait(DEADLINE)

    def errors(self):
        return Path(self.errors_file.name).read_text(encoding="utf-8")

    def clean(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.errors_file.close()


def near(colour, wanted):
    return all(abs(a - b) < 24 for a, b in zip(colour, wanted))
