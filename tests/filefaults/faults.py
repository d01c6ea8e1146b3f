"""Each call to the system that the list's store makes at a start, a save, an export, an import fails: once and for good.
Usage: faults.py LIST_STORE FILE_FAULTS [sample|SCENE...]"""
import sys
import tempfile
import collections

from liststore import StoreProgram
from scenes import SCENES
from storerun import failing_runs

def main():
    names = sys.argv[3:]
    runs = 0
    found = collections.defaultdict(list)
    import time
    with tempfile.TemporaryDirectory() as folder, StoreProgram(*sys.argv[1:3]) as program:
        for scene in SCENES:
            if names and scene.name not in names and names != ["sample"]: continue
            t=time.monotonic(); n=0
            for run in failing_runs(program, scene, folder, int(__import__('os').environ.get('STEP','41'))):
                n+=1
                for f in run.faults:
                    found[scene.name + ": "+ (run.log.failed or ["-"])[0] + ": " + f].append(str(run))
            print(scene.name, n, round(time.monotonic()-t,1), flush=True)
    for k, v in found.items(): print(len(v), k[:150], "\n       ", v[0][:80])
main()
