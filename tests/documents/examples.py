"""The walk-throughs of docs/embedding.md and docs/writing-a-control-library.md, followed as a reader does: the build is
installed into an empty folder, the files are taken from the documents, built by the commands that stand there, and run on an X
server of their own. Usage: examples.py ROOT BUILD SHOTS"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SHOTS = Path(sys.argv.pop(3))
BUILD = Path(sys.argv.pop(2)).resolve()
ROOT = Path(sys.argv.pop(1)).resolve()
sys.path.insert(0, str(ROOT / "tests" / "e2e"))

from desktop import DEADLINE, Desktop, poll, wait_until  # noqa: E402

DOCUMENTS = ("embedding", "writing-a-control-library")
FILE = re.compile(r"<!-- file: (\S+) -->\n```\w+\n(.*?\n)```", re.DOTALL)
COMMANDS = re.compile(r"<!-- run -->\n```sh\n(.*?)\n```", re.DOTALL)
COUNT = re.compile(r"`(\S+)` \((\d+) lines\)")
ONLINE = (56, 252, 76)  # the dot of a processor that answers
DEVICE = 25.0  # seconds: the device of the example reports every ten
RENAME = 3.0  # seconds
LIBRARY = "library/build/libMyControl.so"


def text(name):
    return (ROOT / "docs" / f"{name}.md").read_text(encoding="utf-8")


def files():
    return {name: body for document in DOCUMENTS for name, body in FILE.findall(text(document))}


class Walk:
    """A reader's folder, with both packages installed for him alone."""

    def __init__(self):
        self.folder = Path(tempfile.mkdtemp(prefix="walk-"))
        self.prefix = self.folder / "usr"
        home = self.folder / "home"
        home.mkdir(mode=0o700)
        self.environment = dict(os.environ, CMAKE_PREFIX_PATH=str(self.prefix), LD_LIBRARY_PATH=str(self.prefix / "lib"),
                                PATH=f"{self.prefix}/bin:{os.environ['PATH']}", HOME=str(home), XDG_RUNTIME_DIR=str(home),
                                LANG="C.UTF-8", LANGUAGE="en")
        self.run(f"cmake --install {BUILD} --prefix {self.prefix}")
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
        """From the top."""
        image = self.desktop.grab().convert("RGB")
        width = image.size[0]
        return next((n % width, n // width) for n, colour in enumerate(image.getdata()) if near(colour, ONLINE))

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


class DocumentTest(unittest.TestCase):
    def test_it_has_as_many_lines_as_it_says(self):
        said = [entry for document in DOCUMENTS for entry in COUNT.findall(text(document))]
        self.assertEqual({name: body.count("\n") for name, body in files().items()}, {name: int(n) for name, n in said})


class WalkTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.walk = Walk()
        cls.addClassCleanup(cls.walk.close)
        cls.desktop = Desktop(SHOTS)
        cls.addClassCleanup(cls.desktop.close)

    def start(self, command, title="My host$"):
        program = Program(self.walk, self.desktop, command)
        self.addCleanup(program.clean)
        program.wait_for_window(title)
        return program

    def rename_first(self, program, journal):
        """Once more where the device has taken the editor away."""
        x, y = program.first_online_pixel()
        self.desktop.click(x + 30, y)
        self.desktop.key("F2", "ctrl+a")
        self.desktop.type("Renamed")
        self.desktop.key("Return")
        return poll(lambda: re.search(r"Rename\w+\(.*Renamed", journal.read_text(encoding="utf-8")), RENAME)

    def end(self, program):
        self.assertEqual(program.close(), 0, program.errors())
        self.assertEqual(program.errors(), "")

    def test_the_host_shows_the_example_list_and_ends_in_order(self):
        program = self.start(self.walk.programs[0])
        program.wait_for_rows()
        self.desktop.shoot("example-host")
        self.end(program)
        self.assertGreater((self.walk.folder / "studio.kvtl").stat().st_size, 1000)

    def test_the_host_runs_on_the_library_of_the_other_document(self):
        program = self.start(f"host/build/myhost ./{LIBRARY}")
        before = program.wait_for_rows()
        wait_until("the device goes off", lambda: program.online_pixels() < before * 0.8, DEVICE)
        wait_until("the device comes back", lambda: program.online_pixels() >= before * 0.95, DEVICE)
        self.end(program)

    def test_kestrel_runs_on_the_library(self):
        journal = self.walk.folder / "journal"
        program = self.start(f"{self.walk.programs[1]} --journal {journal} --lang en", "Kestrel$")
        program.wait_for_rows()
        self.desktop.shoot("example-library")
        wait_until("the new name in the journal", lambda: self.rename_first(program, journal))
        self.end(program)
        self.assertIn("SetSelectedNodes", journal.read_text(encoding="utf-8"))


if __name__ == "__main__":
    unittest.main()
