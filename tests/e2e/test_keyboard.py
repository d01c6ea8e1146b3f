"""An operator without a mouse: each task by the keys alone, with the number of keys that it takes."""

import unittest

import desktop
import listfile
from listfile import group, processor, short_id
from scene import Scene


def full_house():
    """256 processors: 60 halls of four, of which every second one is folded, and 16 spares."""
    walls = lambda hall: [processor(f"Wall {hall:02}-{n}", f"10.0.{hall}.{n}", failover=n % 3) for n in range(1, 5)]
    halls = [group(f"Hall {hall:02}", walls(hall), expanded=hall % 2 == 0) for hall in range(1, 61)]
    return halls, [processor(f"Spare {n:02}", f"10.1.0.{n}") for n in range(1, 17)]


class Keyboard(Scene):
    def setUp(self):
        super().setUp()
        self.desktop.move(*(edge - 1 for edge in self.desktop.SIZE))  # out of the way, and left there
        self.keys = self.letters = 0

    def press(self, *names):
        self.keys += len(names)
        self.desktop.key(*names)

    def write(self, text):
        self.letters += len(text)
        self.desktop.type(text)

    def expect_keys(self, task, keys):
        """That many keys since the last task, letters of names apart."""
        print(f"{task}: {self.keys} keys, {self.letters} letters", flush=True)
        self.assertEqual(self.keys, keys, task)
        self.keys = self.letters = 0

    def expect(self, pattern, after):
        return self.kestrel.wait_for(pattern, after, "command")[0]

    def press_and_hear(self, pattern, *names):
        """Presses and waits until the library has heard of it."""
        mark = self.kestrel.mark()
        self.press(*names)
        return self.expect(pattern, mark)

    def selected_by(self, *names):
        return self.press_and_hear("^SetSelectedNodes", *names)

    def expect_window(self, title):
        self.desktop.wait_for_window(f"^{title}$")
        self.desktop.shoot(title.strip(".").lower().replace(" ", "-"))

    def answer(self, title, *names):
        """Answers the window of that title, which goes."""
        self.expect_window(title)
        self.press(*names)
        self.desktop.wait_for_no_window(f"^{title}$")

    def find(self, name, *steps):
        """Searches and goes to what was found; the last step selects it."""
        self.press("ctrl+f")
        self.write(name)
        self.press("Return", *steps[:-1])
        self.assertIn(short_id(name), self.selected_by(steps[-1]))


class Rows(Keyboard):
    LIST = staticmethod(full_house)

    def test_a_processor_among_256_is_found_and_reached(self):
        self.find("Wall 34-3", "End")
        self.desktop.shoot("found")
        self.expect_keys("find a processor and reach it", 3)
        self.find("Wall 33-3", "End", "Right", "End")
        self.expect_keys("find a processor in a folded group and reach it", 5)
        self.press("ctrl+f", "Escape", "Escape")
        self.assertIn(short_id("Wall 33-4"), self.selected_by("Down"))
        self.desktop.shoot("found-and-cleared")
        self.expect_keys("show all rows again and go on from there", 4)
        self.assertEqual(self.kestrel.quit(), 0)

    def test_a_processor_is_renamed(self):
        self.selected_by("End")
        self.keys = 0
        mark = self.kestrel.mark()
        self.press("F2")
        self.write("Stand-in")
        self.press("Return")
        self.assertEqual(self.expect("^Rename", mark), f'RenameProcessor({short_id("Spare 16")}, "Stand-in")')
        self.expect_keys("rename", 2)
        self.assertIn("Stand-in", self.outline_after_quit())

    def test_three_processors_are_grouped(self):
        self.selected_by("End")
        self.keys = 0
        self.selected_by("ctrl+Up")
        self.selected_by("ctrl+Up")
        mark = self.kestrel.mark()
        self.press("Menu", "g", "Return")
        self.expect("^AddGroup", mark)
        desktop.wait_until("three moves", lambda: len(self.kestrel.journal("^MoveProcessor", "command", mark)) == 3)
        self.expect_keys("group three", 5)
        self.assertEqual(self.outline_after_quit()[-17:-13], ["Group 1", "  Spare 16", "  Spare 15", "  Spare 14"])

    def test_a_processor_is_moved_to_one_of_sixty_groups(self):
        self.selected_by("End")
        self.keys = 0
        mark = self.kestrel.mark()
        self.press("shift+F10", "m")
        self.write("Hall 33")
        self.desktop.shoot("move-to-group")
        self.press("Return")
        self.assertEqual(self.expect("^MoveProcessor", mark),
                         f'MoveProcessor({short_id("Spare 16")}, {short_id("Hall 33")})')
        self.expect_keys("move to a group", 3)
        outline = self.outline_after_quit()
        self.assertEqual(outline[outline.index("Hall 33") + 5], "  Spare 16")

    def test_a_processor_is_deleted_with_the_question(self):
        self.selected_by("End")
        self.keys = 0
        mark = self.kestrel.mark()
        self.press("Menu", "d", "Return")
        self.answer("Delete processors", "alt+y")
        self.expect(r"^SetBusy\(false\)", mark)
        self.expect_keys("delete, with the question", 4)
        self.assertNotIn("Spare 16", self.outline_after_quit())


class Commands(Keyboard):
    def test_a_processor_is_added(self):
        mark = self.kestrel.mark()
        self.press("F6", "Tab", "Tab", "Return")
        self.answer("Add a processor", "Return")
        self.expect(r"^AddProcessor\(", mark)
        self.expect(r"^SetBusy\(false\)", mark)
        self.expect_keys("add a processor", 5)
        self.assertIn("192.168.1.10", self.list_file_text())

    def list_file_text(self):
        self.assertEqual(self.kestrel.quit(), 0)
        return self.list_file.read_text()

    def test_a_list_is_exported_and_imported(self):
        file = self.folder / "mine.kvtl"
        self.press("F6", "Return", "e", "Return")
        self.enter("Save...", file)
        self.answer("Export", "Return")
        self.expect_keys("export", 6)
        listfile.write(file, [], [processor("newcomer", "10.9.0.1")])
        mark = self.kestrel.mark()
        self.press("Return", "i", "Return")
        self.answer("Overwrite confirmation", "alt+y")
        self.enter("Import...", file)
        self.answer("Import", "Return")
        self.expect(r"^SetBusy\(false\)", mark)
        self.expect_keys("import, from the tool bar", 6)
        self.assertEqual(self.outline_after_quit(), ["newcomer"])

    def enter(self, title, path):
        self.expect_window(title)
        self.write(str(path))
        self.press("Return")
        self.desktop.wait_for_no_window(f"^{title}$")

    def test_panes_are_switched_there_and_back(self):
        self.press_and_hear(r"SetSimulatorPane\(true\)", "shift+Tab", "shift+Tab", "space")
        self.press("F6")
        self.expect_keys("switch panes", 4)
        self.press_and_hear(r"SetSimulatorPane\(false\)", "shift+Tab", "shift+Tab", "Left")
        self.press("F6")
        self.assertIn(short_id("Stage"), self.selected_by("Down"))
        self.expect_keys("switch back and go on", 5)
        self.assertEqual(self.kestrel.quit(), 0)


class Undo(Keyboard):
    """Rows are Stage (alpha, beta, gamma), Folded (delta), Empty, one, two, three."""

    BEFORE = ["Stage", "  alpha", "  beta", "  gamma", "Folded", "  delta", "Empty", "one", "two", "three"]
    RENAMED = [*BEFORE[:-1], "Door"]

    def press_and_save(self, outline, *names):
        self.press(*names)
        self.expect_saved(outline)

    def expect_saved(self, outline):
        desktop.wait_until(f"{outline} in the file, not {listfile.outline(self.list_file)}",
                           lambda: listfile.outline(self.list_file) == outline)

    def rename(self):
        self.selected_by("End")
        self.press("F2")
        self.write("Door")
        self.press_and_save(self.RENAMED, "Return")
        self.keys = self.letters = 0

    def test_a_renaming_is_taken_back_and_done_again(self):
        self.rename()
        self.press_and_save(self.BEFORE, "ctrl+z")
        self.expect_keys("undo a renaming", 1)
        self.press_and_save(self.RENAMED, "ctrl+shift+z")
        self.expect_keys("redo it", 1)
        self.press_and_save(self.BEFORE, "ctrl+z")
        self.press_and_save(self.RENAMED, "ctrl+y")
        self.assertEqual(self.outline_after_quit(), self.RENAMED)

    def test_a_deletion_of_three_is_one_step(self):
        self.selected_by("End")
        self.selected_by("ctrl+Up")
        self.selected_by("ctrl+Up")
        self.press("Menu", "d", "Return")
        self.answer("Delete processors", "alt+y")
        self.expect_saved(self.BEFORE[:-3])
        self.keys = 0
        self.press_and_save(self.BEFORE, "ctrl+z")
        self.expect_keys("undo a deletion of three", 1)
        self.press_and_save(self.BEFORE[:-3], "ctrl+shift+z")
        self.expect_keys("redo it", 1)
        self.assertEqual(self.outline_after_quit(), self.BEFORE[:-3])

    def test_in_an_open_editor_the_keys_are_the_editors(self):
        self.rename()
        self.press("F2", "End")
        self.write("bell")
        self.assertEqual(self.press_and_hear("^Rename", "ctrl+z", "Return"), f'RenameProcessor({short_id("three")}, "Door")')
        self.press_and_save(self.BEFORE, "ctrl+z")
        self.press_and_hear("^Rename", "F2", "ctrl+y", "ctrl+shift+z", "Return")
        self.assertEqual(self.outline_after_quit(), self.BEFORE)

    def test_in_the_search_the_keys_are_the_searchs(self):
        self.rename()
        self.press_and_save(self.BEFORE, "ctrl+z")
        self.press("ctrl+f")
        self.write("alpha")
        self.press("Return")
        self.assertIn(short_id("alpha"), self.selected_by("End"))
        self.press("ctrl+f", "End", "ctrl+z", "ctrl+z", "ctrl+y", "Return")
        self.assertIn(short_id("three"), self.selected_by("End"), "all rows are shown again")
        self.assertEqual(self.outline_after_quit(), self.BEFORE)


class Ways(Keyboard):
    """Where the keys are shows in what Down does there: it selects in the list alone."""

    def in_list(self):
        mark = self.kestrel.mark()
        self.desktop.key("Down")
        return bool(desktop.poll(lambda: self.kestrel.journal("^SetSelectedNodes", "command", mark), 0.5))

    def round(self, way):
        """How many steps lead from the list round to it."""
        for steps in range(1, 6):
            self.press(way)
            if self.in_list():
                return steps
        return None

    def test_f6_goes_round_the_parts_that_are_shown_either_way(self):
        self.press("ctrl+f", "Escape")
        rounds = [(self.round("F6"), self.round("shift+F6"))]
        self.press("ctrl+j")
        rounds.append((self.round("F6"), self.round("shift+F6")))
        self.assertEqual(sorted(rounds), [(3, 3), (4, 4)], "without the journal and with it")
        self.assertEqual(self.kestrel.quit(), 0)

    def test_escape_leads_back_to_the_list_from_everywhere(self):
        for keys in (("Tab",), ("Tab", "Tab"), ("shift+Tab",), ("ctrl+f",), ("F6", "F6"), ("shift+F6",)):
            self.press(*keys, "Escape")
            self.assertTrue(self.in_list(), keys)
        self.assertEqual(self.kestrel.quit(), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
