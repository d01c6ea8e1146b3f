"""A typist at work on a day on which the devices change all the time, in the real program."""

import unittest

import desktop
import listfile
from listfile import group, processor, short_id
from scene import COLUMNS, SELECTED, Scene

GROUPS = ("Stage", "Hall", "Foyer")
NAMES = ("Balcony", "Pit", "Grid", "Booth", "Rig A", "Rig B", "Pulpit", "Choir", "Organ", "Cloak", "Bar", "Steps",
         "Attic", "Vault", "Yard", "Gate", "Tower", "Nave", "Crypt", "Crane")


def house():
    """Rows 0 to 15: All processors, three groups of three processors, three processors."""
    members = lambda name: [processor(f"{name} {n}", f"10.0.{GROUPS.index(name)}.{n}", failover=n % 3) for n in (1, 2, 3)]
    loose = [processor(f"loose {n}", f"10.0.9.{n}") for n in (1, 2, 3)]
    return [group(name, members(name)) for name in GROUPS], loose


class BusyDay(Scene):
    """The quiet day at ten times its pace: about four changes a second."""

    PACE = 10
    LIST = staticmethod(house)

    def changes(self, after):
        """What the devices did behind the mark."""
        return len(self.kestrel.journal(".", "note", after))

    def reach(self, row):
        """Clicks a row, to go on with the keys, and clicks it again where a refresh that was on its way has undone that."""
        for column in COLUMNS:
            self.desktop.click(*self.kestrel.row(row, column))
            self.desktop.change_hands()
            if self.kestrel.pixel(self.kestrel.row(row, 250)) == SELECTED:
                return
        raise desktop.Failure(f"row {row} is not selected by {len(COLUMNS)} clicks; see {self.desktop.shoot('failed')}")

    def deletions(self, after):
        return self.kestrel.journal("^Delete(Processor|Group)", "command", after)


class Renaming(BusyDay):
    def test_twenty_of_twenty_renames_arrive(self):
        self.names = [line.strip() for line in listfile.outline(self.list_file)]
        outline = listfile.outline(self.list_file)
        mark = self.kestrel.mark()
        lost = [name for turn, name in enumerate(NAMES) if not self.rename(turn * 7 % 15 + 1, name, outline)]
        self.assertEqual(lost, [])
        self.assertGreater(self.changes(mark), 60)
        self.assertEqual(self.deletions(mark), [])
        self.reach(0)
        self.desktop.shoot("renamed")
        shown = self.names_on_screen()
        self.assertEqual(self.outline_after_quit(), outline)
        self.PACE = None
        self.start()
        desktop.wait_until("the same rows from the list file", lambda: self.names_on_screen() == shown)
        self.assertEqual(self.kestrel.quit(), 0)

    def rename(self, row, name, outline):
        """Renames the node of a row. False when the library got something else, or nothing, or the row is not selected."""
        mark = self.kestrel.mark()
        self.reach(row)
        self.desktop.key_as_typist("F2", "ctrl+a")
        self.desktop.type_as_typist(name)
        self.desktop.key("Return")
        old = outline[row - 1]
        outline[row - 1] = old[:len(old) - len(old.lstrip())] + name
        operation = "RenameProcessor" if self.is_processor(row) else "RenameGroup"
        call = f'{operation}({short_id(self.names[row - 1])}, "{name}")'
        came = desktop.poll(lambda: self.kestrel.journal("^Rename", "command", mark), 5)
        return came == [call] and desktop.poll(lambda: self.kestrel.pixel(self.kestrel.row(row, 250)) == SELECTED, 5)

    def names_on_screen(self):
        """What the rows under the root show as names."""
        picture = self.desktop.grab()
        boxes = [(self.kestrel.row(row, 46 if row % 4 == 1 or row > 12 else 61), self.kestrel.row(row, 240)) for row in range(1, 16)]
        return [picture.crop((*start, end[0], end[1] + 8)).tobytes() for start, end in boxes]

    def is_processor(self, row):
        return row % 4 != 1 or row > 12


class DeleteInAnEditor(BusyDay):
    LONG_NAME = "x" * 40 + "the rest"

    @classmethod
    def LIST(cls):
        groups, loose = house()
        return groups, loose + [processor(cls.LONG_NAME, "10.0.9.4")]

    ROW = 16

    def open_editor(self):
        self.reach(self.ROW)
        self.desktop.key_as_typist("F2", "Home")

    def test_forty_deletes_take_forty_characters_and_nothing_else(self):
        mark = self.kestrel.mark()
        self.open_editor()
        self.desktop.key_as_typist(*["Delete"] * 40)
        self.desktop.shoot("forty-deletes")
        self.desktop.key("Return")
        self.kestrel.wait_for("^Rename", after=mark)
        self.assertEqual(self.kestrel.journal("^Rename", "command", mark),
                         [f'RenameProcessor({short_id(self.LONG_NAME)}, "the rest")'])
        self.assertGreater(self.changes(mark), 20)
        self.assertEqual(self.deletions(mark), [])
        self.assertIn("the rest", self.outline_after_quit())

    def test_deletes_go_nowhere_once_the_editor_was_taken_away(self):
        outline = listfile.outline(self.list_file)
        mark = self.kestrel.mark()
        self.open_editor()
        self.desktop.xdotool("key", "--delay", 300, *["Delete"] * 40)  # longer than any editor stays open on a live list
        self.kestrel.wait_for("GetDiscoveredTree", after=mark)
        self.reach(self.ROW)
        self.desktop.key_as_typist("F2", "End", "y", "Return")
        self.kestrel.wait_for("^Rename", after=mark)
        self.assertEqual(self.kestrel.journal("^Rename", "command", mark),
                         [f'RenameProcessor({short_id(self.LONG_NAME)}, "{self.LONG_NAME}y")'])
        self.assertEqual(self.deletions(mark), [])
        self.assertEqual(self.outline_after_quit(), outline[:-1] + [outline[-1] + "y"])


if __name__ == "__main__":
    unittest.main(verbosity=2)
