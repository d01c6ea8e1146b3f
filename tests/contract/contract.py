"""A library keeps all promises of the contract but those that are named, and the report has a story for each of them.
Usage: contract.py PTV_CONTRACT SEQUENCES LIBRARY [PROMISE]..."""
import re
import subprocess
import sys
import time
import unittest

SECONDS = 40  # for a whole run, on a machine that has other things to do
PROGRAM, SEQUENCES, LIBRARY, *BROKEN = sys.argv[1:]
LINE = re.compile(r"^(kept|broken|recommended and not kept|not tried|not testable) +(C-\w+-\d+) ", re.MULTILINE)


class ContractTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        start = time.monotonic()
        done = subprocess.run([PROGRAM, "--control", LIBRARY, "--sequences", SEQUENCES], capture_output=True, text=True)
        cls.seconds = time.monotonic() - start
        cls.report, cls.errors, cls.code = done.stdout, done.stderr, done.returncode
        cls.states = {promise: state for state, promise in LINE.findall(done.stdout)}

    def promises(self, *states):
        return sorted(promise for promise, state in self.states.items() if state in states)

    def test_each_promise_has_one_line(self):
        done = subprocess.run([PROGRAM, "--promises"], capture_output=True, text=True, check=True)
        self.assertEqual([promise for _, promise in LINE.findall(self.report)],
                         [line.split("\t")[0] for line in done.stdout.splitlines()])

    def test_it_breaks_these_promises_and_no_other(self):
        self.assertEqual(self.promises("broken", "recommended and not kept"), sorted(BROKEN), self.report + self.errors)

    def test_all_others_are_tried(self):
        self.assertEqual(self.promises("not tried"), [], self.report)
        self.assertGreater(len(self.promises("kept")), 40)

    def test_each_broken_promise_has_its_story(self):
        for promise in BROKEN:
            story = re.search(rf"{promise} .*\n((?:    .*\n)+)", self.report).group(1)
            self.assertRegex(story, r"    then: .+\.\n$")

    def test_the_exit_code_says_whether_a_required_one_is_broken(self):
        self.assertEqual(self.code, 1 if self.promises("broken") else 0)

    def test_it_takes_little_time(self):
        self.assertLess(self.seconds, SECONDS)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
