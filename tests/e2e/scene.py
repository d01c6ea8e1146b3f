"""What every end-to-end test starts from: a desktop, the application with a small list, and its end."""

import itertools
import os
import pathlib
import shutil
import tempfile
import unittest

import desktop
import listfile
import replay
from listfile import group, processor

PROGRAM = os.environ["KESTREL"]
SHOTS = os.environ["SHOTS"]


def small_list():
    """Rows 0 to 9: All processors, Stage (alpha, beta, gamma), Folded (delta), Empty, one, two, three."""
    stage = group("Stage", [processor("alpha", "192.168.1.11", failover=1), processor("beta", "192.168.1.12", failover=2),
                            processor("gamma", "192.168.1.13", online=False)])
    folded = group("Folded", [processor("delta", "192.168.1.14")], expanded=False)
    loose = [processor("one", "192.168.1.21"), processor("two", "192.168.1.22"), processor("three", "192.168.1.23")]
    return [stage, folded, group("Empty", [])], loose


class Scene(unittest.TestCase):
    """One desktop for all tests of a class, one application for each test."""

    ROOT, STAGE, ALPHA, BETA, GAMMA, FOLDED, EMPTY, ONE, TWO, THREE = range(10)
    SCENARIO = None
    PACE = None
    LIST = staticmethod(small_list)
    KESTREL = desktop.Kestrel

    @classmethod
    def setUpClass(cls):
        cls.desktop = desktop.Desktop(pathlib.Path(SHOTS) / cls.__name__)
        cls.addClassCleanup(cls.desktop.close)

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="scene-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.list_file = self.folder / "list.kvtl"
        listfile.write(self.list_file, *self.LIST())
        self.start()

    def start(self):
        self.kestrel = self.KESTREL(self.desktop, PROGRAM, self.list_file, scenario=self.SCENARIO, pace=self.PACE)
        self.addCleanup(self.replay, self.kestrel)
        self.addCleanup(self.kestrel.clean)
        self.kestrel.wait_for_pixel("the root selected", self.kestrel.row(0, 250), lambda colour: colour == SELECTED)

    def replay(self, run):
        """Plays what was done once more."""
        replay.check(PROGRAM, run, self.desktop.shots)

    def outline_after_quit(self):
        self.assertEqual(self.kestrel.quit(), 0)
        return listfile.outline(self.list_file)

    def select(self, row, holding=None, column=90):
        """Clicks a row and waits until the library has heard of it."""
        mark = self.kestrel.mark()
        self.desktop.click(*self.kestrel.row(row, column), holding=holding)
        self.kestrel.wait_for("SetSelectedNodes", after=mark)

    def wait_for_hover(self, row):
        """Moves the mouse on a row that is not selected until it is lit: a move may come while a drag still ends."""
        columns = itertools.cycle((200, 201))

        def is_lit():
            self.desktop.move(*self.kestrel.row(row, next(columns)))
            return self.kestrel.pixel(self.kestrel.row(row, 250)) == HOVERED

        desktop.wait_until("the row under the mouse lit", is_lit)

    def expect_commands(self, expected, after):
        """The commands behind the mark are exactly these, in this order."""
        desktop.wait_until(f"{len(expected)} commands, not {self.kestrel.commands(after)}",
                           lambda: len(self.kestrel.commands(after)) >= len(expected))
        self.assertEqual(self.kestrel.commands(after), expected)


COLUMNS = (90, 130, 170)  # of clicks on a row: two at one place would make a double click
SELECTED = (0x5F, 0x64, 0x6D)
HOVERED = (0x42, 0x46, 0x4D)
TREE = (0x1C, 0x1E, 0x21)
TIP = (0x2F, 0x32, 0x37)
THUMB = (0xB8, 0xBC, 0xC2)
ONLINE = (0x38, 0xFC, 0x4C)
