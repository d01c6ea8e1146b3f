"""Every gesture on the tree, in the real program, as an operator makes it."""

import unittest

import desktop
import listfile
from listfile import short_id
from scene import SELECTED, TREE, Scene


def looks_orange(colour):
    """The accent, or its antialiased half over the tree's background."""
    return colour[0] > 110 and colour[0] > colour[2] + 60


def ids(*names):
    return "[" + ", ".join(short_id(name) for name in names) + "]"


class Selecting(Scene):
    def test_click_ctrl_and_shift_select_and_the_library_hears_each(self):
        mark = self.kestrel.mark()
        self.select(self.ALPHA)
        self.select(self.GAMMA, holding="ctrl")
        self.select(self.ONE, holding="shift")
        self.desktop.shoot("selected")
        self.assertEqual(self.kestrel.commands(mark)[:2], [
            f"gui SetSelectedNodes({ids('alpha')})",
            f"gui SetSelectedNodes({ids('alpha', 'gamma')})",
        ])
        desktop.wait_until("a range of rows", lambda: self.kestrel.journal(r"SetSelectedNodes\(.*more\]", "command", mark))
        self.assertEqual(self.kestrel.quit(), 0)

    def test_hover_lights_the_row_under_the_mouse_and_goes_with_it(self):
        self.wait_for_hover(self.TWO)
        self.desktop.shoot("hover")
        self.desktop.move(self.kestrel.x + 700, self.kestrel.y + 500)
        self.kestrel.wait_for_pixel("no row lit", self.kestrel.row(self.TWO, 250), lambda colour: colour == TREE)
        self.assertEqual(self.kestrel.quit(), 0)

    def test_each_mark_has_its_tool_tip(self):
        self.desktop.move(*self.kestrel.row(self.ALPHA, 300))
        self.desktop.move(*self.kestrel.row(self.ALPHA, self.kestrel.mark_column()))
        before = self.kestrel.pixel(self.tip_point(self.ALPHA))
        self.kestrel.wait_for_pixel("a tip beside the mouse", self.tip_point(self.ALPHA), lambda colour: colour != before)
        self.desktop.shoot("tip-primary")
        self.desktop.move(*self.kestrel.row(self.BETA, self.kestrel.mark_column()))
        self.kestrel.wait_for_pixel("the tip follows", self.tip_point(self.BETA), lambda colour: colour != TREE)
        self.desktop.shoot("tip-backup")
        self.assertEqual(self.kestrel.quit(), 0)

    def tip_point(self, row):
        x, y = self.kestrel.row(row, self.kestrel.mark_column())
        return x + 40, y + 26


class Renaming(Scene):
    def test_f2_and_typing_rename_a_processor(self):
        self.select(self.ONE)
        mark = self.kestrel.mark()
        self.desktop.key("F2")
        self.desktop.key("ctrl+a")
        self.desktop.type("Left wing")
        self.desktop.shoot("editor")
        self.desktop.key("Return")
        self.kestrel.wait_for("RenameProcessor", after=mark)
        self.assertEqual(self.kestrel.commands(mark)[0], f'gui RenameProcessor({short_id("one")}, "Left wing")')
        self.kestrel.wait_for("ListChanged|Names|Renamed", after=mark, kind="message")
        self.assertIn("Left wing", self.outline_after_quit())

    def test_cjk_text_comes_in_by_paste_and_a_refused_character_does_not(self):
        self.select(self.STAGE)
        mark = self.kestrel.mark()
        self.desktop.copy("主舞台")
        self.desktop.key("F2")
        self.desktop.key("ctrl+a")
        self.desktop.key("ctrl+v")
        self.desktop.type("+1")
        self.desktop.shoot("editor-cjk")
        self.desktop.key("Return")
        self.kestrel.wait_for("RenameGroup", after=mark)
        self.assertEqual(self.kestrel.commands(mark)[0], f'gui RenameGroup({short_id("Stage")}, "主舞台1")')
        self.assertIn("主舞台1", self.outline_after_quit())

    def test_a_name_stops_at_64_bytes(self):
        self.select(self.TWO)
        mark = self.kestrel.mark()
        self.desktop.key("F2")
        self.desktop.key("ctrl+a")
        self.desktop.type("x" * 66)
        self.desktop.key("Return")
        self.kestrel.wait_for("RenameProcessor", after=mark)
        self.assertEqual(self.kestrel.commands(mark)[0], f'gui RenameProcessor({short_id("two")}, "{"x" * 64}")')
        self.assertIn("x" * 64, self.outline_after_quit())


class Menus(Scene):
    def test_right_click_opens_the_menu_and_group_makes_one(self):
        self.select(self.ONE)
        self.select(self.TWO, holding="ctrl")
        mark = self.kestrel.mark()
        self.desktop.click(*self.kestrel.row(self.TWO), button=3)
        self.desktop.shoot("menu")
        self.desktop.key("Down", "Return")
        self.kestrel.wait_for("MoveProcessor", after=mark)
        self.kestrel.wait_for("SetSelectedNodes", after=mark)
        texts = [command.split("(")[0] for command in self.kestrel.commands(mark)]
        self.assertEqual(texts[:4], ["gui AddGroup", "gui MoveProcessor", "gui MoveProcessor", "gui SetSelectedNodes"])
        outline = self.outline_after_quit()
        self.assertEqual(outline[outline.index("  one") - 1], "Group 1")
        self.assertIn("  two", outline)

    def test_the_menu_key_opens_the_menu_too(self):
        self.select(self.ALPHA)
        mark = self.kestrel.mark()
        self.desktop.move(*self.kestrel.row(self.ALPHA))
        self.desktop.key("Menu")
        self.desktop.shoot("menu-by-key")
        self.desktop.key("Escape")
        self.assertEqual(self.kestrel.commands(mark), [])
        self.assertEqual(self.kestrel.quit(), 0)


class Dragging(Scene):
    def test_three_processors_go_into_a_folded_group_and_out_again(self):
        self.select(self.ONE)
        self.select(self.THREE, holding="shift")
        mark = self.kestrel.mark()
        self.desktop.drag(self.grip(self.TWO), self.kestrel.row(self.FOLDED))
        self.kestrel.wait_for("SetExpanded", after=mark)
        desktop.wait_until("three moves", lambda: len(self.kestrel.journal("^MoveProcessor", "command", mark)) == 3)
        self.assertEqual(self.kestrel.journal("^MoveProcessor", "command", mark),
                         [f"MoveProcessor({short_id(name)}, {short_id('Folded')})" for name in ("one", "two", "three")])
        self.kestrel.wait_for_pixel("the moved rows selected", self.kestrel.row(self.FOLDED + 2, 250),
                                    lambda colour: colour == SELECTED)
        self.desktop.shoot("moved-in")
        mark = self.kestrel.mark()
        self.desktop.drag(self.grip(self.FOLDED + 3), self.kestrel.row(self.ROOT))
        desktop.wait_until("three moves out", lambda: len(self.kestrel.journal("^MoveProcessor", "command", mark)) == 3)
        self.assertEqual(self.kestrel.journal("^MoveProcessor", "command", mark),
                         [f"MoveProcessor({short_id(name)}, null)" for name in ("one", "two", "three")])
        self.assertEqual(self.outline_after_quit()[-3:], ["one", "two", "three"])

    def test_a_drag_with_a_group_in_the_selection_moves_nothing(self):
        self.select(self.EMPTY)
        self.select(self.ONE, holding="ctrl")
        mark = self.kestrel.mark()
        self.desktop.drag(self.grip(self.ONE), self.kestrel.row(self.STAGE))
        self.wait_for_hover(self.TWO)  # no row is lit while the refused drag runs
        self.select(self.TWO)
        self.assertEqual(self.kestrel.journal("^MoveProcessor", "command", mark), [])
        self.assertEqual(self.kestrel.quit(), 0)

    def test_the_drop_target_is_marked_while_the_drag_runs(self):
        self.select(self.ONE)
        start, end = self.grip(self.ONE), self.kestrel.row(self.EMPTY)
        self.desktop.move(*start)
        self.desktop.xdotool("mousedown", 1)
        try:
            desktop.wait_until("an orange outline around the group", lambda: self.wiggle(start, end) and any(
                looks_orange(self.kestrel.pixel((self.kestrel.x + 300, end[1] - 15 + offset))) for offset in range(-1, 3)))
            self.desktop.shoot("drop-mark")
        finally:
            self.desktop.xdotool("mouseup", 1)
        self.assertEqual(self.kestrel.quit(), 0)


    def grip(self, row):
        """Where to take a row: away from the last click, so that the press is no double click."""
        return self.kestrel.row(row, 220)

    def wiggle(self, start, end):
        """Pulls the drag free and on to its end, as a hand that is never quite still."""
        for step in range(0, 9):
            self.desktop.move(start[0] + step, start[1] + (end[1] - start[1]) * step / 8)
        return True


class Deleting(Scene):
    def test_the_delete_key_removes_a_group_with_its_processors_without_asking(self):
        self.select(self.STAGE)
        mark = self.kestrel.mark()
        self.desktop.key("Delete")
        self.kestrel.wait_for(r"SetBusy\(false\)", after=mark)
        self.assertEqual([command for command in self.kestrel.commands(mark) if "PostMessage" not in command], [
            "gui SetBusy(true)",
            f"job DeleteGroup({short_id('Stage')}, true)",
            "job SetSelectedNodes([null])",
            "job SetBusy(false)",
        ])
        self.assertEqual(self.outline_after_quit(), ["Folded", "  delta", "Empty", "one", "two", "three"])

    def test_the_menus_delete_asks_and_no_keeps_all(self):
        self.select(self.ONE)
        mark = self.kestrel.mark()
        self.desktop.click(*self.kestrel.row(self.ONE), button=3)
        self.desktop.key("Up", "Return")
        self.desktop.wait_for_window("Delete processors")
        self.desktop.shoot("question")
        self.desktop.key("Return")
        self.desktop.wait_for_no_window("Delete processors")
        self.assertEqual(self.kestrel.commands(mark), [])
        self.assertIn("one", self.outline_after_quit())

    def test_the_tool_bars_delete_offers_to_keep_the_processors(self):
        self.select(self.STAGE)
        mark = self.kestrel.mark()
        self.desktop.click(*self.kestrel.tool_bar_button("Delete"))
        self.desktop.wait_for_window("^Delete$")
        self.desktop.shoot("options")
        self.desktop.key("Tab", "space")
        self.desktop.wait_for_no_window("^Delete$")
        self.kestrel.wait_for(r"SetBusy\(false\)", after=mark)
        self.assertIn(f"job DeleteGroup({short_id('Stage')}, false)", self.kestrel.commands(mark))
        outline = self.outline_after_quit()
        self.assertNotIn("Stage", outline)
        self.assertIn("alpha", outline)


if __name__ == "__main__":
    unittest.main(verbosity=2)
