"""Each command of CONTRIBUTING.md's table and of the code blocks of all documents works as it stands there; those of the
walk-throughs are examples.py's. What takes minutes is tried without its work: presets, targets and programs exist, a
selection of tests is not empty, a script is one for its shell. Usage: contributing.py ROOT"""
import json
import os
import re
import shlex
import subprocess
import sys
import unittest
from pathlib import Path

ROOT = Path(sys.argv.pop(1)).resolve()
ROW = re.compile(r"^\| ([^|]+) \| (.+) \|$")
# Run whole: they end within seconds.
SHORT = ("ctest --preset dev -R", "scripts/reference.sh", "QT_QPA_PLATFORM=offscreen build/dev/bin/", "scripts/figures.py", "./run.sh --help")
SHELLS = ("", "sh", "bash", "console")
COMMAND = re.compile(r"^(?:\./|scripts/|build/|cmake |ctest |kestrel |apt|dpkg|cp |sudo )")
# What a fresh checkout builds later, from its own folder.
RELEASE_PROGRAMS = {f"build/release/bin/{name}" for name in ("ptv_benchmarks", "ptv_burst_benchmarks", "ptv_control_benchmarks")}


def commands():
    """(purpose, command) of each row; a row may name several."""
    table = (ROOT / "CONTRIBUTING.md").read_text(encoding="utf-8").split("\n## ")[0]
    for line in table.splitlines():
        row = ROW.match(line)
        if row and row.group(1) not in ("To", "---"):
            for command in re.findall(r"`([^`]+)`", row.group(2)):
                if not command.startswith("docs/"):
                    yield row.group(1), command


def code_lines(text):
    """Lines of fenced blocks for a shell, and indented ones, without the walk-throughs."""
    language = None
    for line in re.sub(r"<!-- run -->\n```sh\n.*?\n```", "", text, flags=re.DOTALL).splitlines():
        if line.startswith("```"):
            language = line[3:] if language is None else None
        elif language in SHELLS or (language is None and line.startswith("    ")):
            yield line


def blocks():
    """(document, command) of each command in a code block, but those that examples.py runs."""
    for path in (ROOT / "README.md", ROOT / "CONTRIBUTING.md", *sorted((ROOT / "docs").glob("*.md"))):
        for line in code_lines(path.read_text(encoding="utf-8")):
            command = line.split("  #")[0].strip()
            if COMMAND.match(command):
                yield path.name, command


def run(command):
    environment = {name: value for name, value in os.environ.items() if name not in ("CTEST_OUTPUT_ON_FAILURE",)}
    return subprocess.run(command, shell=True, cwd=ROOT, env=environment, capture_output=True, text=True)


class ContributingTest(unittest.TestCase):
    def check_shell(self, program):
        path = ROOT / program
        self.assertTrue(os.access(path, os.X_OK), program)
        if path.suffix == ".sh":
            self.assertEqual(run(f"bash -n {program}").returncode, 0, program)

    def check_preset(self, words):
        kind = "buildPresets" if "--build" in words else "configurePresets"
        names = {preset["name"] for preset in json.loads((ROOT / "CMakePresets.json").read_text())[kind]}
        self.assertIn(words[words.index("--preset") + 1], names)
        if "--target" in words:
            target = words[words.index("--target") + 1]
            self.assertIn(f"\nbuild {target}:", (ROOT / "build/dev/build.ninja").read_text(), target)

    def check_selection(self, words):
        words[words.index("--preset") + 1] = "dev"
        listing = run(shlex.join(words) + " -N").stdout
        self.assertRegex(listing, r"Total Tests: [1-9]", listing)

    def check_program(self, program):
        if program in RELEASE_PROGRAMS:
            self.assertIn(f"add_executable({Path(program).name}", (ROOT / "benchmarks/CMakeLists.txt").read_text())
        else:
            # What is not built along with everything else has a target all the same.
            ninja = (ROOT / "build/dev/build.ninja").read_text()
            built = program.replace("build/dev/", "")
            self.assertTrue(os.access(ROOT / program, os.X_OK) or f"\nbuild {built}:" in ninja, program)

    def check_dry(self, command):
        words = [word for word in shlex.split(command) if not re.match(r"[A-Z_]+=", word)]
        if words[0] == "cmake":
            self.check_preset(words)
        elif words[0] == "ctest":
            self.check_selection(words)
        elif words[0] in ("gdb", "valgrind"):
            self.assertEqual(run(f"{words[0]} --version").returncode, 0, words[0])
            self.check_program(next(word for word in words if word.startswith("build/")))
        elif words[0] == "cp":
            self.assertTrue((ROOT / words[1]).is_file(), words[1])
        elif words[0].startswith("build/"):
            self.check_program(words[0])
        else:
            self.check_shell(words[0])

    def test_each_command_works(self):
        tried = [*commands(), *blocks()]
        self.assertGreater(len(tried), 22)
        for purpose, command in tried:
            with self.subTest(purpose=purpose, command=command):
                if command.startswith(SHORT) and command != "./run.sh --help":
                    result = run(command)
                    self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
                    self.assertNotRegex(result.stdout, r"(No tests were found|Totals: [0-2] passed)")
                    continue
                for part in command.split(" && "):
                    self.check_dry(part)

    def test_each_test_that_it_names_exists(self):
        for program, test in re.findall(r"bin/(tst_(?:\w+?)_\w+)(?: -platform xcb)? (\w+)`", (ROOT / "CONTRIBUTING.md").read_text()):
            folder, topic = program[len("tst_"):].split("_", 1)
            self.assertIn(f"void {test}()", (ROOT / "tests" / folder / f"tst_{topic}.cpp").read_text())


if __name__ == "__main__":
    unittest.main()
