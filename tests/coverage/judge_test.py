"""The judge of the coverage finds what it is for, on a small project of its own."""
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))  # as a run by hand has it
import judge  # noqa: E402

SOURCE = "int Half(int n)\n{\n    if (n < 0) {\n        return 0;\n    }\n    return n / 2;\n}\n"


class JudgeTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name).resolve()
        (self.root / "src").mkdir()
        (self.root / "src/half.cpp").write_text(SOURCE)

    def faults(self, lines, branches, *reasons):
        records = [f"SF:{self.root}/tests/tst_half.cpp", "DA:1,0", f"SF:{self.root}/src/half.cpp"]
        records += [f"DA:{line},{count}" for line, count in lines]
        records += [f"BRDA:{line},0,{number},{count}" for number, (line, count) in enumerate(branches)]
        coverage = judge.read_lcov("\n".join(records + ["end_of_record"]), self.root)
        return judge.judge(self.root, coverage, list(judge.read_reasons("# a comment\n" + "\n".join(reasons))))[1]

    def test_all_covered_is_no_fault(self):
        self.assertEqual(self.faults([(1, 3), (3, 3)], [(3, 1), (3, 2)]), [])

    def test_too_few_lines_and_branches_are_faults(self):
        reasons = ("line | src/half.cpp | return 0 | never negative", "branch | src/half.cpp | n < 0 | never negative")
        self.assertEqual(self.faults([(number, 1) for number in range(1, 50)] + [(4, 0)], [(3, 1)] * 9 + [(3, 0)], *reasons), [])
        faults = self.faults([(number, 1) for number in range(1, 48)] + [(4, 0)], [(3, 1)] * 8 + [(3, "-")], *reasons)
        self.assertEqual(faults, ["only 97.92% of lines are covered, not 98%", "only 88.89% of branches are covered, not 90%"])

    def test_what_is_left_out_without_a_reason_is_a_fault(self):
        lines = [(number, 1) for number in range(1, 60)] + [(4, 0)]
        self.assertEqual(self.faults(lines, [(3, 1)]), ["src/half.cpp:4: line not covered: return 0;, and no reason for it"])
        self.assertEqual(self.faults(lines, [(3, 1)], "line | *.cpp | return 0 | never negative"), [])
        self.assertEqual(len(self.faults(lines, [(3, 1)], "branch | *.cpp | return 0 | never negative")), 2)

    def test_a_reason_that_nothing_needs_is_a_fault(self):
        self.assertEqual(self.faults([(1, 1)], [(3, 1)], "line | src/half.cpp | return 0 | never negative"),
                         ["a reason that nothing needs: line | src/half.cpp | return 0"])

    def test_a_reason_for_what_chance_decides_may_be_needed_or_not(self):
        reason = "line? | src/half.cpp | return 0 | in a race alone"
        self.assertEqual(self.faults([(number, 1) for number in range(1, 60)], [(3, 1)], reason), [])
        self.assertEqual(self.faults([(number, 1) for number in range(1, 60)] + [(4, 0)], [(3, 1)], reason), [])


if __name__ == "__main__":
    unittest.main()
