"""Kestrel with a screen reader listening on the accessibility bus, by the keys alone."""

import pathlib
import re
import unittest

import speech
from listfile import group, processor, short_id
from scene import SHOTS, Scene

PAGE = pathlib.Path(__file__).parents[2] / "docs" / "screen-reader.md"


class Listening(Scene):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.reader = speech.reader()
        cls.desktop.environment.update(speech.heard())

    def start(self):
        """The first application on a new accessibility bus comes too early for its registry, and is started again."""
        self.reader.forget()
        super().start()
        if not self.reader.has_application(3):
            self.kestrel.clean()
            super().start()
        self.reader.begin("Discovered processors")

    def said_after(self, line, *keys):
        """Presses the keys; what is said until and with that line."""
        before = len(self.reader.lines)
        if keys:
            self.desktop.key(*keys)
        self.reader.wait_for(line, before)
        return self.reader.lines[before:]


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


class Rows(Listening):
    LIST = staticmethod(tower)

    def test_64_rows_are_read(self):
        tree = self.reader.tree("Discovered processors")
        self.assertEqual(speech.rows(tree), tower_rows())
        self.assertEqual(len(tower_rows()), 64)
        self.assertEqual(self.kestrel.quit(), 0)

    def test_every_row_is_said_on_the_way_down(self):
        walked = []
        for name in tower_rows()[1:]:
            before = len(self.reader.lines)
            self.desktop.key("Down")
            speech.desktop.wait_until(f"'{name}' to be said", lambda: self.reader.listen() and len(self.reader.lines) > before)
            walked.append(self.reader.lines[-1].split(" | ")[1])
        self.assertEqual(walked, tower_rows()[1:])
        self.assertEqual(self.kestrel.quit(), 0)

    def test_a_renamed_row_says_its_new_name(self):
        row = "table cell | Wall 1.1, online | project Aurora, group Floor 1, 10.0.1.1 | selected, folded"
        self.said_after(row, "Down", "Down")
        self.said_after("text | Name of Wall 1.1", "F2")
        self.desktop.type("Door")
        renamed = row.replace("Wall 1.1", "Door", 1)
        said = self.said_after(renamed, "Return")
        self.assertEqual(said[0], "tree | Discovered processors")
        between = [line for line in said[1:-1] if "Wall 1.1, online" not in line]
        self.assertEqual(between, [], "the row may say its old name until it has the new one, and nothing else")
        self.assertIn("  Door", self.outline_after_quit())


class DroppingOut(Listening):
    LIST = staticmethod(tower)
    SCENARIO = """{ "title": "One after the other", "steps": [
        { "at": 5.0, "do": "offline", "node": "Wall 1.2" }, { "at": 6.0, "do": "offline", "node": "Wall 1.1" } ] }"""

    def test_only_the_row_with_the_focus_says_that_it_has_dropped_out(self):
        row = "table cell | Wall 1.1, online | project Aurora, group Floor 1, 10.0.1.1 | selected, folded"
        self.said_after(row, "Down", "Down")
        self.assertEqual(self.kestrel.journal("^offline", "note"), [], "the walk was over before")
        offline = "table cell | Wall 1.1, offline | group Floor 1, 10.0.1.1 | selected, folded"
        self.assertEqual(self.said_after(offline), [offline])
        below = self.said_after("table cell | Wall 1.2, offline | group Floor 1, 10.0.1.2 | selected, folded", "Down")
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
    SCENARIO = """{ "title": "One drops out", "steps": [ { "at": 6.0, "do": "offline", "node": "Wall left" } ] }"""
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
        self.step("Down", self.GROUP, "Down")
        self.step("Down", self.LEFT, "Down")
        self.step("Wall left drops out", self.LEFT_OFF)
        self.step("Down", self.RIGHT, "Down")
        self.step("Down", self.LOBBY, "Down")
        self.step("Down", self.SPARE, "Down")

    def rename(self):
        self.step("F2", "text | Name of Spare", "F2")
        self.desktop.type("Foyer")
        said = self.said_after(self.FOYER, "Return")  # in between the old name, if the new one takes its time
        self.story += ["-- Foyer, Return", said[0], said[-1]]

    def command(self):
        self.step("Ctrl+F", "text | Search", "ctrl+f")
        self.desktop.type("main")
        self.step("main, Return", "tree | Discovered processors", "Return")
        self.step("End", self.LOBBY, "End")
        self.step("F6, F6", "push button | Menu", "F6", "F6")
        self.step("Tab", "push button | Add group", "Tab")
        self.step("Escape, Shift+Tab", "push button | Refresh", "Escape", "shift+Tab")
        self.step("Shift+Tab", "radio button | Simulator", "shift+Tab")
        self.step("Left", "radio button | Discovered | checked", "Left")


if __name__ == "__main__":
    speech.on_own_bus()
    unittest.main(verbosity=2)
