"""The end of the real program: by a signal while the user is in the middle of something, and with a list that cannot be saved."""

import signal
import unittest

import desktop
import listfile
import test_dialogs
from scene import Scene
from test_gestures import looks_orange

CONTROL_OBJECTS = 7  # to which the panel attaches itself


class Ending(Scene):
    def end(self):
        self.kestrel.process.send_signal(signal.SIGTERM)
        self.assertEqual(self.kestrel.process.wait(desktop.DEADLINE), 0)

    def expect_nothing_but_the_end(self, mark):
        self.assertEqual(self.kestrel.commands(mark),
                         ["job Detach()"] * CONTROL_OBJECTS + [f'gui ExportList("{self.list_file}", 0)'])
        self.assertIn("one", listfile.outline(self.list_file))


class InTheMiddle(Ending):
    def test_what_was_typed_into_a_row_is_in_the_list(self):
        self.select(self.ONE)
        self.desktop.key("F2")
        self.desktop.key("ctrl+a")
        self.desktop.type("Left wing")
        self.desktop.shoot("ended-in-an-editor")
        self.end()
        self.assertIn("Left wing", listfile.outline(self.list_file))

    def test_a_question_from_the_context_menu_is_not_answered_with_yes(self):
        self.select(self.ONE)
        mark = self.kestrel.mark()
        self.desktop.click(*self.kestrel.row(self.ONE), button=3)
        self.desktop.key("Up", "Return")
        self.desktop.wait_for_window("Delete processors")
        self.end()
        self.expect_nothing_but_the_end(mark)

    def test_an_open_context_menu_is_closed(self):
        self.select(self.ONE)
        mark = self.kestrel.mark()
        self.desktop.click(*self.kestrel.row(self.ONE), button=3)
        self.desktop.key("Down")
        self.desktop.shoot("ended-in-a-menu")
        self.end()
        self.expect_nothing_but_the_end(mark)

    def test_a_drag_is_cancelled(self):
        self.select(self.ONE)
        mark = self.kestrel.mark()
        start, end = self.kestrel.row(self.ONE, 220), self.kestrel.row(self.EMPTY)
        self.desktop.move(*start)
        self.desktop.xdotool("mousedown", 1)
        try:
            desktop.wait_until("an orange outline around the group", lambda: self.pull(start, end) and any(
                looks_orange(self.kestrel.pixel((self.kestrel.x + 300, end[1] - 15 + offset))) for offset in range(-1, 3)))
            self.desktop.shoot("ended-in-a-drag")
            self.end()
        finally:
            self.desktop.xdotool("mouseup", 1)
        self.expect_nothing_but_the_end(mark)

    def pull(self, start, end):
        for step in range(0, 9):
            self.desktop.move(start[0] + step, start[1] + (end[1] - start[1]) * step / 8)
        return True


class UnderAFileDialog(Ending, test_dialogs.ToolBarMenu):
    def test_a_file_dialog_from_the_tool_bars_menu_is_cancelled(self):
        mark = self.kestrel.mark()
        self.choose(3)
        self.desktop.wait_for_window(r"^Save\.\.\.$")
        self.end()
        self.expect_nothing_but_the_end(mark)


class NotSaved(Scene):
    enter_file = test_dialogs.Files.enter_file
    confirm = test_dialogs.Files.confirm

    def test_a_list_that_cannot_be_saved_is_shown_asked_about_and_saved_elsewhere(self):
        self.list_file.unlink()
        self.list_file.mkdir()
        mark = self.kestrel.mark()
        self.desktop.click(*self.kestrel.tool_bar_button("Add group"))
        self.kestrel.wait_for("The list is not being saved", after=mark)
        self.desktop.shoot("not-saved")
        self.desktop.key("ctrl+q")
        self.desktop.wait_for_window("List not saved")
        self.desktop.shoot("not-saved-question")
        self.desktop.key("alt+s")
        elsewhere = self.folder / "elsewhere.kvtl"
        self.enter_file("Save the list", elsewhere)
        self.assertEqual(self.kestrel.process.wait(desktop.DEADLINE), 0)
        self.assertIn("Group 1", listfile.outline(elsewhere))


if __name__ == "__main__":
    unittest.main(verbosity=2)
