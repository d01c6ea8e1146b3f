"""The page for operators quotes the texts of the program as they stand on the screen, and names each mark of the rows. Usage:
operators.py ROOT"""
import re
import sys
import unittest
from pathlib import Path

ROOT = Path(sys.argv.pop(1)).resolve()
PAGE = (ROOT / "docs/operators.md").read_text(encoding="utf-8")
LITERAL = re.compile(r'\btr\("((?:[^"\\]|\\.)*)"|translate\("\w+", "((?:[^"\\]|\\.)*)"|GetText\w*\("((?:[^"\\]|\\.)*)"')
MADE_UP = {"Undo: Delete 3 processors"}  # from a pattern, with a name and a number
MARKS = {"online": "green dot", "offline": "grey ring", "primary": "front one full", "backup": "both in outline", "chief": "crown",
         "group_hasChief": "folder with a crown"}


def texts():
    """All texts that the program shows, without mnemonics."""
    found = set()
    for folder in ("src", "host"):
        for path in (ROOT / folder).rglob("*.cpp"):
            for groups in LITERAL.findall(path.read_text(encoding="utf-8")):
                found.add(next(filter(None, groups), "").replace("&", ""))
    return found


class OperatorsTest(unittest.TestCase):
    def test_each_quoted_text_is_one_of_the_program(self):
        quoted = set(re.findall(r'"([^"]+)"', PAGE)) - MADE_UP
        self.assertGreater(len(quoted), 15)
        self.assertEqual(sorted(quoted - texts()), [])

    def test_each_mark_of_a_row_is_explained(self):
        for icon, words in MARKS.items():
            with self.subTest(icon):
                self.assertTrue(list((ROOT / "host/Kestrel/icons").rglob(f"{icon}.svg")))
                self.assertIn(words, PAGE)


if __name__ == "__main__":
    unittest.main()
