"""Every gesture on the tree, in the real program, as an operator makes it."""

import unittest

import desktop
import listfile
from listfile import group, processor, short_id
from scene import HOVERED, SELECTED, THUMB, TIP, TREE, Scene, small_list


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


class Tips(Scene):
    SCENARIO = '{ "title": "Chiefs are shown", "steps": [ { "at": 0.2, "do": "chief-mode", "on": true } ] }'

    @staticmethod
    def LIST():
        groups, loose = small_list()
        groups[0]["processors"][0]["chief"] = 1
        return groups, loose

    def test_each_mark_has_its_tool_tip(self):
        marks = self.kestrel.mark_column()
        self.kestrel.wait_for("ChiefChanged", kind="message")
        self.expect_tip("primary", self.ALPHA, marks)
        self.expect_tip("chief", self.ALPHA, marks - 18)
        self.expect_tip("backup", self.BETA, marks)
        self.assertEqual(self.kestrel.quit(), 0)

    def expect_tip(self, name, row, column):
        """A tip comes up where there was none: to the right of the mouse, over the dock."""
        self.desktop.move(self.kestrel.x + 700, self.kestrel.y + 600)
        x, y = self.kestrel.row(row, column)
        area = (self.kestrel.x + 380, y + 8, self.kestrel.x + 640, y + 44)
        self.desktop.click(*self.kestrel.row(self.ROOT, 300))  # ends a tip that is up
        self.wait_for_hover(self.THREE)
        before = self.desktop.grab().crop(area).tobytes()
        self.desktop.move(x, y)
        desktop.wait_until(f"the tip of the {name} mark", lambda: self.desktop.grab().crop(area).tobytes() != before)
        self.desktop.shoot("tip-" + name)


class TipUnderTheMouse(Scene):
    SCENARIO = Tips.SCENARIO

    @staticmethod
    def LIST():
        """alpha's Chief mark stands where beta's Backup mark stands below it."""
        groups, loose = small_list()
        groups[0]["processors"][0].update(chief=1, failover=0)
        return groups, loose

    def test_the_mouse_goes_through_a_tip_to_the_mark_below_it(self):
        column = self.kestrel.mark_column()
        chief, backup = self.kestrel.row(self.ALPHA, column - 4), self.kestrel.row(self.BETA, column + 4)
        self.kestrel.wait_for("ChiefChanged", kind="message")
        self.wait_for_hover(self.THREE)
        self.desktop.move(*chief)
        first = desktop.wait_until("the tip of the Chief mark", lambda: self.tip_text(self.desktop.grab(), chief))
        self.desktop.move(*backup)  # lies under the tip now
        desktop.wait_until("the tip of the Backup mark",
                           lambda: self.tip_text(self.frame_with_a_lit_row(), backup) not in (None, first))
        self.desktop.shoot("tip-in-the-way")
        self.assertTrue(self.is_lit(self.desktop.grab(), self.BETA))
        self.assertEqual(self.kestrel.quit(), 0)

    def frame_with_a_lit_row(self):
        frame = self.desktop.grab()
        self.assertTrue(self.is_lit(frame, self.ALPHA) or self.is_lit(frame, self.BETA), "the row under the mouse is lit")
        return frame

    def is_lit(self, frame, row):
        return frame.getpixel(self.kestrel.row(row, 250))[:3] == HOVERED

    def tip_text(self, frame, mouse):
        """The picture of the text of a tip that belongs to this place of the mouse; None without such a tip."""
        x, y = mouse[0] + 2, mouse[1] + 20
        if frame.getpixel((x + 4, y + 4))[:3] != TIP:
            return None
        return frame.crop((x + 8, y + 4, x + 300, y + 20)).tobytes()


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


class MenuButton(Scene):
    def setUp(self):
        super().setUp()
        self.button = self.kestrel.tool_bar_button("Menu")
        self.ground = (self.button[0] - 11, self.button[1])
        self.desktop.click(*self.button)
        self.kestrel.wait_for_pixel("the button of an open menu lit", self.ground, lambda colour: colour != desktop.BAR)

    def expect_dark(self):
        self.kestrel.wait_for_pixel("the button not lit", self.ground, lambda colour: colour == desktop.BAR)
        self.assertEqual(self.kestrel.quit(), 0)

    def test_it_is_not_lit_after_escape(self):
        self.desktop.move(self.button[0] + 40, self.button[1] - 60)
        self.desktop.key("Escape")
        self.expect_dark()

    def test_it_is_not_lit_after_a_click_elsewhere(self):
        self.desktop.click(self.kestrel.x + 700, self.kestrel.y + 500)
        self.expect_dark()

    def test_it_is_not_lit_after_an_entry_was_chosen(self):
        self.desktop.move(self.kestrel.x + 700, self.kestrel.y + 500)
        self.desktop.key("Down", "Return")
        self.kestrel.wait_for_pixel("the search row", (self.kestrel.x + 100, self.button[1] - 32), lambda colour: colour != TREE)
        self.expect_dark()


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

    def test_the_menu_key_opens_the_menu_and_its_first_entry_renames(self):
        self.select(self.ALPHA)
        mark = self.kestrel.mark()
        self.desktop.key("Menu")
        self.desktop.shoot("menu-by-key")
        self.desktop.key("Down", "Return")
        self.desktop.key("ctrl+a")
        self.desktop.type("first")
        self.desktop.key("Return")
        self.kestrel.wait_for("RenameProcessor", after=mark)
        self.assertEqual(self.kestrel.commands(mark)[0], f'gui RenameProcessor({short_id("alpha")}, "first")')
        self.assertIn("  first", self.outline_after_quit())

    def test_ungroup_leaves_the_processors_at_the_root(self):
        self.select(self.STAGE)
        mark = self.kestrel.mark()
        self.desktop.click(*self.kestrel.row(self.STAGE), button=3)
        self.desktop.key("Down", "Down", "Return")
        self.kestrel.wait_for("DeleteGroup", after=mark)
        self.kestrel.wait_for("SetSelectedNodes", after=mark)
        self.assertEqual(self.kestrel.commands(mark)[:2],
                         [f"gui DeleteGroup({short_id('Stage')}, false)", "gui SetSelectedNodes([null])"])
        outline = self.outline_after_quit()
        self.assertEqual(outline[:3], ["Folded", "  delta", "Empty"])
        self.assertEqual(sorted(outline[3:]), sorted(["alpha", "beta", "gamma", "one", "two", "three"]))

    def test_move_to_group_puts_a_processor_into_the_chosen_group(self):
        self.select(self.ONE)
        mark = self.kestrel.mark()
        self.desktop.click(*self.kestrel.row(self.ONE), button=3)
        self.desktop.key("Down", "Down", "Down", "Right")
        self.desktop.shoot("move-to-group")
        self.desktop.key("Down", "Return")
        self.kestrel.wait_for("MoveProcessor", after=mark)
        self.assertEqual(self.kestrel.journal("^MoveProcessor", "command", mark),
                         [f"MoveProcessor({short_id('one')}, {short_id('Folded')})"])
        self.assertEqual(self.outline_after_quit()[4:7], ["Folded", "  delta", "  one"])


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

    def test_a_press_within_the_double_click_time_arms_no_drag(self):
        self.select(self.TWO)
        mark = self.kestrel.mark()
        self.desktop.drag(self.grip(self.TWO), self.kestrel.row(self.STAGE), click_first=True)
        self.wait_for_hover(self.ONE)  # no row is lit while a drag runs
        self.select(self.ONE)
        self.assertEqual(self.kestrel.journal("^MoveProcessor", "command", mark), [])
        self.assertEqual(len(self.kestrel.journal("^SetExpanded", "command", mark)), 1)  # the double click
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


class DraggingOverTheBar(Scene):
    @staticmethod
    def LIST():
        """More rows than fit: Stage is empty, below it stand p0, p1, ..."""
        return [group("Stage", [])], [processor(f"p{n}", f"10.0.0.{n + 1}") for n in range(40)]

    def test_a_drop_on_the_scroll_bar_is_a_drop_on_the_row_under_it(self):
        stage, p0 = 1, 2
        bar = self.kestrel.row(stage, self.kestrel.panel_width() - 5)
        self.select(p0)
        self.desktop.shoot("bar")
        self.assertEqual(self.kestrel.pixel(bar), THUMB)
        mark = self.kestrel.mark()
        self.desktop.drag(self.kestrel.row(p0, 220), bar)
        self.kestrel.wait_for("^MoveProcessor", after=mark, kind="command")
        self.assertEqual(self.kestrel.journal("^MoveProcessor", "command", mark),
                         [f"MoveProcessor({short_id('p0')}, {short_id('Stage')})"])
        self.assertEqual(self.outline_after_quit()[:2], ["Stage", "  p0"])


class Deleting(Scene):
    def deletion(self, mark):
        """What the deletion itself commanded. The panel reports the selection that the library hands over,
        at any moment between the job's last calls."""
        return [command for command in self.kestrel.commands(mark)
                if "PostMessage" not in command and not command.startswith("gui SetSelectedNodes")]

    def test_the_delete_key_removes_a_group_with_its_processors_without_asking(self):
        self.select(self.STAGE)
        mark = self.kestrel.mark()
        self.desktop.key("Delete")
        self.kestrel.wait_for(r"SetBusy\(false\)", after=mark)
        self.assertEqual(self.deletion(mark), [
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

    def test_the_menus_delete_with_a_yes_removes_the_processor(self):
        self.select(self.ONE)
        mark = self.kestrel.mark()
        self.desktop.click(*self.kestrel.row(self.ONE), button=3)
        self.desktop.key("Up", "Return")
        self.desktop.wait_for_window("Delete processors")
        self.desktop.key("alt+y")
        self.kestrel.wait_for(r"SetBusy\(false\)", after=mark)
        self.assertEqual(self.deletion(mark), [
            "gui SetBusy(true)",
            f"job DeleteProcessor({short_id('one')}, false)",
            f"job SetSelectedNodes({ids('Empty')})",
            "job SetBusy(false)",
        ])
        self.assertNotIn("one", self.outline_after_quit())

    def test_the_tool_bars_delete_offers_to_keep_the_processors(self):
        self.select(self.STAGE)
        mark = self.kestrel.mark()
        self.desktop.click(*self.kestrel.tool_bar_button("Delete"))
        self.desktop.wait_for_window("^Delete$")
        self.desktop.shoot("options")
        self.desktop.key("Tab", "Tab", "space")
        self.desktop.wait_for_no_window("^Delete$")
        self.kestrel.wait_for(r"SetBusy\(false\)", after=mark)
        self.assertIn(f"job DeleteGroup({short_id('Stage')}, false)", self.kestrel.commands(mark))
        outline = self.outline_after_quit()
        self.assertNotIn("Stage", outline)
        self.assertIn("alpha", outline)

    def test_a_return_in_a_hurry_cancels_the_tool_bars_delete(self):
        self.select(self.STAGE)
        mark = self.kestrel.mark()
        self.desktop.click(*self.kestrel.tool_bar_button("Delete"))
        self.desktop.wait_for_window("^Delete$")
        self.desktop.key("Return")
        self.desktop.wait_for_no_window("^Delete$")
        self.assertEqual(self.kestrel.commands(mark), [])
        self.assertIn("Stage", self.outline_after_quit())


if __name__ == "__main__":
    unittest.main(verbosity=2)
