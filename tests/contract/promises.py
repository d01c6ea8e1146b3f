"""Every promise of the contract has its number where it is made, in a comment of src/interfaces or of the node records, and its
line in the program's report, with the same class. Usage: promises.py ROOT PTV_CONTRACT"""
import re
import subprocess
import sys
import unittest
from pathlib import Path

PROGRAM = sys.argv.pop()
ROOT = Path(sys.argv.pop())
FOLDERS = ("src/interfaces", "src/data/nodes")
TAG = re.compile(r"\[(C-[a-z]+-\d+) (required|recommended|not testable)\]")
LOOSE = re.compile(r"C-[a-z]+-\d+")


def comments():
    """(place, comment) of each line that has one."""
    for folder in FOLDERS:
        for path in sorted((ROOT / folder).rglob("*.h")):
            for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
                if "///" in line:
                    yield f"{path.relative_to(ROOT)}:{number}", line.split("///", 1)[1]


def printed():
    """(id, class, sentence) of each line, in the order of the report."""
    done = subprocess.run([PROGRAM, "--promises"], capture_output=True, text=True, check=True)
    return [tuple(line.split("\t")) for line in done.stdout.splitlines()]


class PromisesTest(unittest.TestCase):
    def test_each_promise_has_a_line_and_each_line_a_promise(self):
        promised = {tag for _, comment in comments() for tag in TAG.findall(comment)}
        self.assertEqual(promised, {(promise, kind) for promise, kind, _ in printed()})

    def test_each_number_says_its_class(self):
        for place, comment in comments():
            self.assertEqual([promise for promise, _ in TAG.findall(comment)], LOOSE.findall(comment), place)

    def test_the_numbers_of_an_object_have_no_gap(self):
        counts = {}
        for promise, _, _ in printed():
            counts.setdefault(promise.rsplit("-", 1)[0], []).append(int(promise.rsplit("-", 1)[1]))
        self.assertEqual({name: numbers for name, numbers in counts.items() if numbers != list(range(1, len(numbers) + 1))}, {})

    def test_each_line_is_one_sentence(self):
        for promise, _, sentence in printed():
            self.assertRegex(sentence, r"^[A-Z].*[^.]\.$", promise)


if __name__ == "__main__":
    unittest.main()
