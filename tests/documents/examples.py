"""The walk-throughs of docs/embedding.md and docs/writing-a-control-library.md, followed as a reader does: the build is
installed into an empty folder, the files are taken from the documents, built by the commands that stand there, and run on an X
server of their own. Usage: examples.py BUILD SHOTS"""
import re
import subprocess
import sys
import unittest
from pathlib import Path

import walk
from walk import LIBRARY, Program, Walk

from desktop import Desktop, poll, wait_until

SHOTS = Path(sys.argv.pop(2))
BUILD = Path(sys.argv.pop(1)).resolve()
COUNT = re.compile(r"`(\S+)` \((\d+) lines\)")
CONTRACT = re.compile(r"<!-- contract -->\n```sh\n(.*)\n```")
DEVICE = 25.0  # seconds: the device of the example reports every ten
RENAME = 3.0  # seconds


class DocumentTest(unittest.TestCase):
    def test_it_has_as_many_lines_as_it_says(self):
        said = [entry for document in walk.DOCUMENTS for entry in COUNT.findall(walk.text(document))]
        self.assertEqual({name: body.count("\n") for name, body in walk.files().items()}, {name: int(n) for name, n in said})


class WalkTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.walk = Walk(BUILD)
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
        x, y = wait_until("a dot", program.first_online_pixel)
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

    def test_the_contract_kit_says_of_the_library_what_its_document_says(self):
        document = walk.text("writing-a-control-library")
        command = CONTRACT.search(document).group(1)
        done = subprocess.run(command, shell=True, cwd=self.walk.folder, env=self.walk.environment, capture_output=True, text=True)
        broken = re.findall(r"^broken +(\S+)", done.stdout, re.M)
        self.assertEqual(broken, re.findall(r"^\| `(C-\w+-\d+)` \|", document, re.M), done.stdout + done.stderr)
        said = re.search(r"It says (\d+ kept), (\d+ broken), (\d+ not tried)", document).groups()
        self.assertEqual([sum for sum in done.stdout.splitlines()[-1].split(", ") if not sum.startswith("0") and "testable" not in sum],
                         list(said))

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
