"""Makes the recording that tst_kestrel_replay plays again: a short session of the real program on an X server.

    KESTREL=build/dev/bin/kestrel /usr/bin/python3 -B tests/kestrel/replay/record.py

One processor is renamed, one deleted, one dragged into a folded group, and two are grouped by the context menu. The files go to
tests/kestrel/replay/session. To be made anew when the panel calls the control library in another way, and is meant to.
"""

import os
import pathlib
import shutil
import sys
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parents[1] / "e2e"))
os.environ.setdefault("SHOTS", "/tmp/record")

import desktop  # noqa: E402
import scene  # noqa: E402


class Recording(scene.Scene):
    def start(self):
        self.kestrel = desktop.Kestrel(self.desktop, scene.PROGRAM, self.list_file)
        self.addCleanup(self.kestrel.clean)
        self.kestrel.wait_for_pixel("the root selected", self.kestrel.row(0, 250), lambda colour: colour == scene.SELECTED)

    def expect(self, pattern, mark):
        self.kestrel.wait_for(pattern, after=mark, kind="command")

    def test_session(self):
        self.rename()
        self.delete()
        self.move()
        self.group()
        outline = self.outline_after_quit()
        self.assertEqual(outline[:6], ["Stage", "  uno", "  beta", "Folded", "  delta", "  three"])
        target = HERE / "session"
        shutil.rmtree(target, ignore_errors=True)
        shutil.copytree(self.folder / "list.kvtl.journal", target)

    def rename(self):
        self.select(self.ALPHA)
        mark = self.kestrel.mark()
        self.desktop.key("F2")
        self.desktop.key("ctrl+a")
        self.desktop.type("uno")
        self.desktop.key("Return")
        self.expect("RenameProcessor", mark)

    def delete(self):
        self.select(self.GAMMA)
        mark = self.kestrel.mark()
        self.desktop.click(*self.kestrel.row(self.GAMMA), button=3)
        self.desktop.key("Up", "Return")
        self.desktop.wait_for_window("^Delete")
        self.desktop.key("alt+y")
        self.expect(r"SetBusy\(false\)", mark)
        self.kestrel.wait_for_pixel("the row behind it in its place", self.kestrel.row(self.GAMMA, 250),
                                    lambda colour: colour == scene.SELECTED)

    def move(self):
        """The rows behind the deleted one are one higher."""
        self.select(self.THREE - 1)
        mark = self.kestrel.mark()
        self.desktop.drag(self.kestrel.row(self.THREE - 1, 220), self.kestrel.row(self.FOLDED - 1))
        self.kestrel.wait_for("MoveProcessor", after=mark)
        self.kestrel.wait_for("SetExpanded", after=mark)
        self.kestrel.wait_for_pixel("the moved row selected", self.kestrel.row(self.FOLDED + 1, 250),
                                    lambda colour: colour == scene.SELECTED)

    def group(self):
        """The rows behind the group that is unfolded now are one lower again, and one more."""
        self.select(self.ONE + 1)
        self.select(self.TWO + 1, holding="ctrl")
        mark = self.kestrel.mark()
        self.desktop.click(*self.kestrel.row(self.TWO + 1), button=3)
        self.desktop.key("Down", "Return")
        self.expect("AddGroup", mark)
        self.kestrel.wait_for("SetSelectedNodes", after=mark)


if __name__ == "__main__":
    unittest.main(verbosity=2)
