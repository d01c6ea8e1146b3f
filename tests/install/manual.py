"""The manual page of a program names the options that its help names, with the same values, and no others.
Usage: manual.py ROOT PROGRAM"""
import re
import subprocess
import sys
import unittest
from pathlib import Path

PROGRAM = Path(sys.argv.pop())
PAGE = Path(sys.argv.pop()) / f"packaging/{PROGRAM.name}.1"
LEAST = 7  # options


class ManualTest(unittest.TestCase):
    def test_the_page_has_the_options_of_the_help(self):
        text = subprocess.run([PROGRAM, "--help"], capture_output=True, text=True, check=True).stdout
        described = re.findall(r"^  (--[\w-]+)(?: ([A-Z][\w.]*))? {2,}\S", text, re.M)
        page = PAGE.read_text(encoding="utf-8").replace("\\-", "-")
        options = re.findall(r'^\.TP\n\.BI? (--[\w-]+)(?: " ([A-Z][\w.]*)")?$', page, re.M)
        self.assertGreater(len(described), LEAST)
        self.assertEqual(sorted(options), sorted(described))

    def test_the_page_has_no_fault_in_its_form(self):
        result = subprocess.run(["groff", "-man", "-ww", "-z", "-Tutf8", PAGE], capture_output=True, text=True)
        self.assertEqual((result.returncode, result.stderr), (0, ""))


if __name__ == "__main__":
    unittest.main()
