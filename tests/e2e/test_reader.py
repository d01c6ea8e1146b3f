"""Kestrel with a screen reader listening on the accessibility bus, by the keys alone."""

import pathlib
import re

import desktop
import speech
from listfile import group, processor
from scene import SHOTS, Scene

PAGE = pathlib.Path(__file__).parents[2] / "docs" / "screen-reader.md"
TRIES = 3  # of a step that a refresh undoes
UNDONE = 5.0  # seconds after which a step has been undone


class Listening(Scene):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.desktop.environment.update(speech.HEARD)

    def start(self):
        super().start()
        self.reader = speech.Reader()
        self.reader.begin("Discovered processors")

    def said_after(self, line, *keys):
        """Presses the keys; what is said until and with that line."""
        before = len(self.reader.lines)
        if keys:
            self.desktop.key(*keys)
        self.reader.wait_for(line, before)
        return self.reader.lines[before:]

    def said_below(self, line):
        """Down; what is said until and with that line. A refresh that comes between undoes a step, which is made again."""
        before = len(self.reader.lines)
        for _ in range(TRIES):
            mark = self.kestrel.mark()
            self.desktop.key("Down")
            if desktop.poll(lambda: self.reader.listen() and line in self.reader.lines[before:], UNDONE):
                said = self.reader.lines[before:]
                self.wait_for_refresh(mark)
                return said
        raise desktop.Failure(f"'{line}' is not said; said was {self.reader.lines[before:]}")

    def wait_for_refresh(self, mark):
        """The panel has read what came of a selection behind that mark: no refresh is on its way that would undo the next step."""
        def calls():
            found = self.kestrel.journal("^(SetSelectedNodes|GetDiscoveredTree|IsSimulatorPane)", after=mark)
            return " ".join(text.split("(")[0] for text in found)
        desktop.wait_until("a refresh behind the step",
                           lambda: re.search("SetSelectedNodes.* GetDiscoveredTree.* IsSimulatorPane", calls()))

    def said_after_renaming(self, name, line):
        """The focus may be back in the list before the library has renamed: of the old name nothing counts."""
        return [said for said in self.said_after(line, "Return") if not said.startswith(f"table cell | {name},")]


def tower():
    """64 rows: the root, three groups of eighteen processors, six processors."""
    floors = [group(f"Floor {floor}", [processor(f"Wall {floor}.{n}", f"10.0.{floor}.{n}", online=n % 5 != 0)
                                       for n in range(1, 19)]) for floor in range(1, 4)]
    return floors, [processor(f"Spare {n}", f"10.1.0.{n}", project="") for n in range(1, 7)]


def tower_rows():
    names = ["All processors(60)"]
    for floor in range(1, 4):
        names.append(f"Floor {floor}, group, 18 processors")
        names += [f"Wall {floor}.{n}, {'online' if n % 5 else 'offline'}" for n in range(1, 19)]
    return names + [f"Spare {n}, online" for n in range(1, 7)]


def wall_line(floor, n, online=None):
    online = n % 5 != 0 if online is None else online
    state, project = ("online", "project Aurora, ") if online else ("offline", "")
    return f"table cell | Wall {floor}.{n}, {state} | {project}group Floor {floor}, 10.0.{floor}.{n} | selected, folded"


def floor_line(floor):
    return f"table cell | Floor {floor}, group, 18 processors | selected, unfolded"


class Rows(Listening):
    LIST = staticmethod(tower)

    def test_64_rows_are_read(self):
        tree = self.reader.tree("Discovered processors")
        self.assertEqual(speech.rows(tree), tower_rows())
        self.assertEqual(len(tower_rows()), 64)
        self.assertEqual(self.kestrel.quit(), 0)

    def test_every_row_is_said_on_the_way_down(self):
        for row in self.lines_of_tower():
            self.said_below(row)
        self.assertEqual(self.reader.lines[1:], self.lines_of_tower())
        self.assertEqual(self.kestrel.quit(), 0)

    @staticmethod
    def lines_of_tower():
        lines = []
        for floor in range(1, 4):
            lines.append(floor_line(floor))
            lines += [wall_line(floor, n) for n in range(1, 19)]
        return lines + [f"table cell | Spare {n}, online | 10.1.0.{n} | selected, folded" for n in range(1, 7)]

    def test_a_renamed_row_says_its_new_name(self):
        row = wall_line(1, 1)
        self.said_below(floor_line(1))
        self.said_below(row)
        self.said_after("text | Name of Wall 1.1", "F2")
        self.desktop.type("Door")
        renamed = row.replace("Wall 1.1", "Door")
        self.assertEqual(self.said_after_renaming("Wall 1.1", renamed), ["tree | Discovered processors", renamed])
        self.assertIn("  Door", self.outline_after_quit())


class DroppingOut(Listening):
    LIST = staticmethod(tower)
    SCENARIO = """{ "title": "One after the other", "steps": [
        { "at": 12.0, "do": "offline", "node": "Wall 1.2" }, { "at": 13.0, "do": "offline", "node": "Wall 1.1" } ] }"""

    def test_only_the_row_with_the_focus_says_that_it_has_dropped_out(self):
        self.said_below(floor_line(1))
        self.said_below(wall_line(1, 1))
        self.assertEqual(self.kestrel.journal("^offline", "note"), [], "the walk was over before")
        off = wall_line(1, 1, online=False)
        self.assertEqual(self.said_after(off), [off])
        below = self.said_below(wall_line(1, 2, online=False))
        self.assertEqual(len(below), 1)
        self.assertEqual(self.kestrel.quit(), 0)


def stage():
    members = [processor("Wall left", "192.168.1.11", failover=1, chief=1), processor("Wall right", "192.168.1.12", failover=2),
               processor("Lobby", "192.168.1.13", online=False)]
    main = dict(group("Main stage", members), chief=members[0]["id"])
    return [main], [processor("Spare", "192.168.1.21", project="")]


class Day(Listening):
    """All that is said from start to quit is what the page about it shows."""

    LIST = staticmethod(stage)
    SCENARIO = """{ "title": "One drops out", "steps": [ { "at": 12.0, "do": "offline", "node": "Wall left" } ] }"""
    GROUP = "table cell | Main stage, group, 3 processors | selected, unfolded"
    LEFT = "table cell | Wall left, online, Primary | project Aurora, group Main stage, 192.168.1.11 | selected, folded"
    LEFT_OFF = "table cell | Wall left, offline | group Main stage, 192.168.1.11 | selected, folded"
    RIGHT = "table cell | Wall right, online, Backup | project Aurora, group Main stage, 192.168.1.12 | selected, folded"
    LOBBY = "table cell | Lobby, offline | group Main stage, 192.168.1.13 | selected, folded"
    SPARE = "table cell | Spare, online | 192.168.1.21 | selected, folded"
    FOYER = "table cell | Foyer, online | 192.168.1.21 | selected, folded"

    def step(self, title, line, *keys):
        self.story += [f"-- {title}", *self.said_after(line, *keys)]

    def test_the_page_shows_what_is_said_from_start_to_quit(self):
        self.story = ["-- Kestrel starts", *self.reader.lines]
        self.walk()
        self.rename()
        self.command()
        self.assertEqual(self.kestrel.quit(), 0)
        actual = pathlib.Path(SHOTS) / "screen-reader.txt"
        actual.write_text("\n".join(self.story) + "\n")
        shown = re.search(r"```text\n(.*?)```", PAGE.read_text(), re.DOTALL).group(1)
        self.assertEqual(self.story, shown.splitlines(), f"what was said stands in {actual}; the page shows something else")

    def walk(self):
        self.story += ["-- Down", *self.said_below(self.GROUP)]
        self.story += ["-- Down", *self.said_below(self.LEFT)]
        self.step("Wall left drops out", self.LEFT_OFF)
        self.story += ["-- Down", *self.said_below(self.RIGHT)]
        self.story += ["-- Down", *self.said_below(self.LOBBY)]
        self.story += ["-- Down", *self.said_below(self.SPARE)]

    def rename(self):
        self.step("F2", "text | Name of Spare", "F2")
        self.desktop.type("Foyer")
        self.story += ["-- Foyer, Return", *self.said_after_renaming("Spare", self.FOYER)]

    def command(self):
        self.step("Ctrl+F", "text | Search", "ctrl+f")
        self.desktop.type("main")
        self.step("main, Return", "tree | Discovered processors", "Return")
        self.step("End", self.LOBBY, "End")
        self.step("F6, F6", "push button | Menu", "F6", "F6")
        self.step("Tab", "push button | Add group", "Tab")
        self.step("Escape", self.LOBBY, "Escape")
        self.step("Shift+Tab", "push button | Refresh", "shift+Tab")
        self.step("Shift+Tab", "radio button | Simulator", "shift+Tab")
        self.step("Left", "radio button | Discovered | checked", "Left")


if __name__ == "__main__":
    speech.main()
