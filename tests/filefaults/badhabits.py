"""The runs with failures notice a store that loses lists: the good one with one bad habit each.
Usage: badhabits.py LIST_STORE FILE_FAULTS BAD_HABITS"""
import sys
import unittest
from pathlib import Path

from liststore import StoreProgram, new_folder
from scenes import SCENES
from storerun import failing_runs

PROGRAM, FAULTS, HABITS = sys.argv[1:]
STEP = 11
SAVE = next(scene for scene in SCENES if scene.name == "save")


def find_faults(habit):
    with new_folder() as folder, StoreProgram(PROGRAM, HABITS, FAULTS, habit=habit) as program:
        return [f"{run}: {fault}" for run in failing_runs(program, SAVE, Path(folder), STEP) for fault in run.faults]


class BadHabitsTest(unittest.TestCase):
    def assert_noticed(self, habit, fault):
        self.assertRegex("\n".join(find_faults(habit)), fault)

    def test_a_good_store_has_no_faults(self):
        self.assertEqual(find_faults(""), [])

    def test_writing_in_place_is_noticed(self):
        self.assert_noticed("writes in place", r"\(write\).*: list\.kvtl is not as it was")

    def test_removing_the_old_list_first_is_noticed(self):
        self.assert_noticed("removes the old list first", r"\(rename\).*: list\.kvtl has gone")

    def test_a_failed_fsync_that_nobody_looks_at_is_noticed(self):
        self.assert_noticed("does not ask whether the disk has it", r"\(fsync\).*: list\.kvtl was not brought to the disk")

    def test_a_failed_close_that_nobody_looks_at_is_noticed(self):
        self.assert_noticed("does not ask whether it was closed", r"\(close\).*: list\.kvtl was not brought to the disk")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
