"""Each call to the system that the list's store makes at a start, a save, an export, an import fails once, and for good; after
each failure the list on the disk is a whole one, old or new, nothing good has gone, and what the store answers is true.
Usage: faults.py LIST_STORE FILE_FAULTS [STEP], of all failures every STEP-th"""
import collections
import sys
import unittest
from pathlib import Path

from liststore import StoreProgram, new_folder
from scenes import SCENES
from storerun import failing_runs

PROGRAM, FAULTS = sys.argv[1:3]
STEP = int(sys.argv[3]) if len(sys.argv) > 3 else 1


class FaultsTest(unittest.TestCase):
    def test_a_call_that_fails_costs_no_list(self):
        count = collections.Counter()
        with new_folder() as folder, StoreProgram(PROGRAM, FAULTS) as program:
            for scene in SCENES:
                with self.subTest(scene.name):
                    runs = list(failing_runs(program, scene, Path(folder), STEP))
                    self.assertEqual([f"{run}: {fault}" for run in runs for fault in run.faults], [])
                    count.update(call for run in runs for call in run.log.failed[:1])
        print(f"{sum(count.values())} failures:", ", ".join(f"{call} {number}" for call, number in sorted(count.items())))
        if STEP == 1:
            self.assertGreater(len(count), 20)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
