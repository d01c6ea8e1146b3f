"""Every gesture on the tree in a storm of device changes, compared with the rows that were selected on the screen."""

import unittest

import desktop
from listfile import processor
from rows import ROOT
from scene import TREE
from storm import BY_CHANCE, KEPT, NEW, Storm, is_report_of, report_of, storm, storm_list


class Gestures(Storm):
    """What a user does, each with the commands that it has to give."""

    # Selecting

    def press(self, node, holding=None, button=1):
        self.desktop.click(*self.point(node, next(self.columns)), button=button, holding=holding)

    def click(self, node):
        self.gesture(f"click on {node}", lambda: self.press(node), lambda: [report_of([node])] if self.begun != [node] else [])

    def ctrl_click(self, node):
        self.gesture(f"Ctrl and a click on {node}", lambda: self.press(node, "ctrl"),
                     lambda: [report_of(set(self.begun) ^ {node})])

    def shift_click(self, node, start, *kept):
        """A range; what was chosen before its start was clicked with Ctrl is kept."""
        self.gesture(f"Shift and a click on {node}", lambda: self.press(node, "shift"),
                     lambda: [report_of({*self.rows.between(start, node), *kept})])

    def choose(self, *nodes):
        self.click(nodes[0])
        for node in nodes[1:]:
            self.ctrl_click(node)

    # Keys

    def key(self, name, *commands):
        self.gesture(name, lambda: self.desktop.key(name), lambda: list(commands))

    def key_to(self, name, node):
        self.key(name, report_of([node]))

    def step(self, name):
        """Up or Down from the one selected row."""
        self.gesture(name, lambda: self.desktop.key(name),
                     lambda: [report_of([self.rows.beside(self.begun[0], 1 if name == "Down" else -1)])])

    def fold(self, name):
        """Left or Right where it folds or unfolds the one selected row."""
        self.gesture(name, lambda: self.desktop.key(name),
                     lambda: [f"gui SetExpanded({self.begun[0]}, {'true' if name == 'Right' else 'false'})"])

    def rename_with_f2(self, name):
        def act():
            self.open_editor()
            self.type_name(name)
        self.gesture("F2 and a name", act, lambda: [self.renaming(name)])

    def open_editor(self):
        """Clicks the selected row and presses F2. Without the click, a refresh that is on its way may take the editor."""
        self.press(self.begun[0])
        self.desktop.change_hands()
        self.desktop.key("F2")

    def type_name(self, name):
        self.desktop.key("ctrl+a")
        self.desktop.type(name)
        self.desktop.key("Return")

    def renaming(self, name):
        return f'gui Rename{self.kind(self.begun[0])}({self.begun[0]}, "{name}")'

    def kind(self, node):
        return "Group" if self.rows.group(node) else "Processor"

    def delete_key(self, act=None):
        self.gesture("Delete", act or (lambda: self.desktop.key("Delete")), lambda: self.deletion("true"))

    def deletion(self, with_processors):
        """The job that deletes the selected rows."""
        options = {"Group": with_processors, "Processor": "false"}
        nodes = sorted(node for node in self.begun if node != ROOT)
        calls = [f"job Delete{self.kind(node)}({node}, {options[self.kind(node)]})" for node in nodes]
        return ["gui SetBusy(true)", *calls, f"job SetSelectedNodes([{self.rows.above(self.begun)}])",
                "job PostMessage(14)", "job SetBusy(false)"]

    # The menu

    def entries(self, node):
        """The entries of the menu over a selected row."""
        row = self.rows.row(node)
        rename = ["Rename"] if self.begun == [node] else []
        if row.kind == "group":
            return rename + ["Ungroup", "Delete"]
        move = ["Move to group"] if self.targets(node) else []
        return rename + ["Remove from group" if row.group else "Group", *move, "Delete"]

    def targets(self, node):
        """The groups that "Move to group" offers for a row."""
        return [group["node"] for group in self.rows.groups if group["node"] != self.rows.row(node).group]

    def take(self, node, entry, *keys):
        """Opens the menu over a row and takes an entry; further keys go to what it opens."""
        self.press(node, button=3)
        self.desktop.change_hands()
        self.desktop.key(*["Down"] * (self.entries(node).index(entry) + 1), "Right" if entry == "Move to group" else "Return", *keys)

    def entry(self, node, entry, expected, then=lambda: None):
        def act():
            self.take(node, entry)
            then()
        self.gesture(f"{entry} from the menu over {node}", act, expected)

    def rename_from_menu(self, node, name):
        self.entry(node, "Rename", lambda: [self.renaming(name)], lambda: self.type_name(name))

    def moves(self, target, nodes=None):
        """A move of each selected processor."""
        nodes = self.begun if nodes is None else nodes
        return [f"gui MoveProcessor({node}, {target})" for node in nodes if node != ROOT and not self.rows.group(node)]

    def group_from_menu(self, node):
        self.entry(node, "Group", lambda: [f'gui AddGroup("{self.rows.next_group_name()}", false)', *self.moves(NEW), report_of([NEW])])

    def ungroup_from_menu(self, node):
        self.entry(node, "Ungroup", lambda: [
            *[f"gui DeleteGroup({node}, false)" for node in self.begun if self.rows.group(node)],
            report_of([self.rows.above(self.begun)])])

    def remove_from_menu(self, node):
        self.entry(node, "Remove from group", lambda: self.moves(ROOT, [node for node in self.begun if self.is_member(node)]))

    def is_member(self, node):
        return node != ROOT and self.rows.row(node).group

    def move_from_menu(self, node, target):
        def act():
            self.take(node, "Move to group", *["Down"] * self.targets(node).index(target), "Return")
        self.gesture(f"Move to group from the menu over {node}", act, lambda: self.moves(target) + self.unfolding(target))

    def unfolding(self, target):
        return [] if target == ROOT or self.rows.group(target)["expanded"] else [f"gui SetExpanded({target}, true)"]

    def delete_from_menu(self, node, *answer, with_processors=None):
        """Delete, and the user's answer where there is a question. with_processors is what groups go by; None: nothing goes."""
        self.entry(node, "Delete", lambda: self.deletion(with_processors) if with_processors else [],
                   self.answer(*answer) if answer else lambda: None)

    def answer(self, title, *keys):
        """What the user answers in a dialog."""
        def act():
            self.desktop.wait_for_window(title)
            self.desktop.key(*keys)
            self.desktop.wait_for_no_window(title)
        return act

    # Dragging

    def drag(self, name, node, end, expected):
        self.gesture(f"drag {name}", lambda: self.desktop.drag(self.point(node, next(self.columns) + 60), end()), expected)

    def drag_onto(self, node, row):
        """Drags the selection by one of its rows onto another row, which is in its target or is the target."""
        target = self.rows.row(row).group or (row if self.rows.group(row) else ROOT)
        self.drag(f"onto {row}", node, lambda: self.point(row, 200), lambda: self.unfolding(target) + self.moves(target))

    def drag_in_vain(self, name, node, end):
        self.drag(name, node, end, lambda: [])

    def space_below(self):
        x, y = self.kestrel.row(0, 200)
        return x, y + self.rows.bottom() + 24


class Clicks(Gestures):
    def test_each_click_selects_the_row_under_the_mouse(self):
        self.click(self.ONE)
        self.ctrl_click(self.ALPHA)
        self.ctrl_click(self.FOLDED)
        self.ctrl_click(self.ALPHA)
        self.click(self.ONE)
        self.shift_click(self.THREE, self.ONE)
        self.shift_click(self.TWO, self.ONE)
        self.shift_click(self.FOLDED, self.ONE)
        self.ctrl_click(self.EMPTY)
        self.shift_click(self.ONE, self.EMPTY, self.FOLDED)
        self.gesture("right click on another row", self.right_click(self.GAMMA), lambda: [report_of([self.GAMMA])])
        self.gesture("right click on the root", self.right_click(ROOT), lambda: [report_of([ROOT])])
        self.gesture("click below the rows", lambda: self.desktop.click(*self.space_below()), lambda: [])
        self.click(self.STAGE)
        self.gesture("double click", lambda: self.desktop.double_click(*self.point(self.STAGE, 200)),
                     lambda: [f"gui SetExpanded({self.STAGE}, false)"], may_miss=True)
        self.finish()

    def right_click(self, node):
        def act():
            self.press(node, button=3)
            if node != ROOT:
                self.desktop.key("Escape")
        return act


class Keys(Gestures):
    def test_f2_and_the_arrows_act_on_the_selected_row(self):
        self.click(self.TWO)
        self.rename_with_f2("Deck two")
        self.step("Down")
        self.step("Up")
        self.step("Up")
        self.rename_with_f2("Deck one")
        self.choose(self.ONE, self.TWO)
        for name in ("F2", "Up", "Down", "Left", "Right"):
            self.key(name)
        self.click(self.STAGE)
        for name in ("Left", "Right"):
            self.fold(name)
            self.key(name)
        self.rename_with_f2("Front")
        self.click(self.ALPHA)
        for name in ("Right", "Left"):
            self.fold(name)
            self.key(name)
        self.key("Left")
        self.click(self.EMPTY)
        self.fold("Left")
        self.key_to("Left", ROOT)
        self.key("Up")
        self.step("Down")
        self.finish()

    def test_home_end_and_page_keys_move_from_the_selected_row(self):
        self.click(self.TWO)
        self.key_to("End", self.NOISE_3)
        self.step("Down")
        self.click(self.BETA)
        self.key_to("Home", ROOT)
        self.click(self.TWO)
        self.key_to("Prior", ROOT)
        self.click(self.BETA)
        self.key_to("Next", self.NOISE_3)
        self.choose(self.ALPHA, self.TWO)
        self.key_to("Home", ROOT)
        self.finish()

    def test_delete_takes_the_selected_rows(self):
        self.click(self.THREE)
        self.delete_key()
        self.choose(self.ALPHA, self.EMPTY)
        self.delete_key()
        self.choose(ROOT, self.ONE)
        self.delete_key()
        self.click(ROOT)
        self.key("Delete")
        self.click(self.TWO)
        self.delete_key(lambda: self.desktop.hold_key("Delete", 1.5))
        self.click(self.STAGE)
        self.delete_key()
        self.finish()


class Menus(Gestures):
    def test_the_entries_that_name_and_group_act_on_the_selected_rows(self):
        self.click(self.ONE)
        self.rename_from_menu(self.ONE, "Left wing")
        self.group_from_menu(self.ONE)
        new = self.begun[0]
        self.rename_from_menu(new, "Wings")
        self.choose(self.BETA, self.TWO, self.EMPTY)
        self.group_from_menu(self.TWO)
        self.choose(self.ALPHA, self.THREE)
        self.remove_from_menu(self.ALPHA)
        self.move_from_menu(self.THREE, self.FOLDED)
        self.click(self.DELTA)
        self.move_from_menu(self.DELTA, self.STAGE)
        self.choose(self.EMPTY, self.STAGE, self.NOISE_1)
        self.ungroup_from_menu(self.STAGE)
        self.click(new)
        self.ungroup_from_menu(new)
        self.finish()

    def test_delete_asks_and_takes_the_selected_rows(self):
        question = "Delete processors"
        self.click(self.TWO)
        self.delete_from_menu(self.TWO, question, "Return")
        self.delete_from_menu(self.TWO, question, "alt+y", with_processors="false")
        self.choose(self.ONE, self.THREE)
        self.delete_from_menu(self.THREE, question, "alt+y", with_processors="false")
        self.choose(self.FOLDED, self.ALPHA)
        self.delete_from_menu(self.ALPHA, "Delete groups and processors", "alt+y", with_processors="true")
        self.click(self.EMPTY)
        self.delete_from_menu(self.EMPTY, with_processors="false")
        self.click(self.STAGE)
        self.delete_from_menu(self.STAGE, "^Delete$", "Escape")
        self.delete_from_menu(self.STAGE, "^Delete$", "Tab", "Tab", "space", with_processors="false")
        self.finish()


class Drags(Gestures):
    def test_drops_move_the_selected_processors(self):
        self.choose(self.ONE, self.THREE)
        self.drag_onto(self.THREE, self.FOLDED)
        self.drag_onto(self.ONE, self.ALPHA)
        self.click(self.ALPHA)
        self.drag_onto(self.ALPHA, self.EMPTY)
        self.choose(self.ALPHA, self.TWO)
        self.drag_onto(self.TWO, self.NOISE_2)
        self.click(self.DELTA)
        self.drag_onto(self.DELTA, ROOT)
        self.finish()

    def test_drops_that_have_no_target_move_nothing(self):
        self.choose(self.ONE, self.TWO)
        self.drag_in_vain("below the rows", self.TWO, self.space_below)
        self.drag_in_vain("out of the panel", self.ONE, lambda: (self.kestrel.x + 700, self.kestrel.y + 500))
        self.click(self.BETA)
        self.fold("Right")
        self.drag_in_vain("onto its information", self.BETA, lambda: self.below(self.BETA))
        self.choose(self.EMPTY, self.ONE)
        self.drag_in_vain("with a group", self.ONE, lambda: self.point(self.STAGE, 200))
        self.choose(ROOT, self.ONE)
        self.drag_in_vain("with the root", self.ONE, lambda: self.point(self.STAGE, 200))
        self.finish()

    def below(self, node):
        """On the information row of a processor."""
        x, y = self.point(node, 200)
        return x, y + desktop.ROW / 2 + desktop.INFO / 2


class Ranges(Gestures):
    def test_fifty_rebuilds_leave_the_start_of_a_range(self):
        self.click(self.ONE)
        self.endure(50)
        self.shift_click(self.THREE, self.ONE)
        self.endure(50)
        self.shift_click(self.TWO, self.ONE)
        self.endure(50)
        self.shift_click(self.FOLDED, self.ONE)
        self.delete_key()
        self.finish()

    def endure(self, rebuilds):
        """Leaves the application alone while changes of other devices rebuild the rows so many times."""
        mark = self.kestrel.mark()
        desktop.wait_until(f"{rebuilds} rebuilds", lambda: len(self.kestrel.journal("DevicesChanged", "message", mark)) > rebuilds)
        self.pass_fence()


class Pages(Storm):
    """More rows than the panel shows."""

    SCENARIO = storm(quiet=())

    @staticmethod
    def LIST():
        loose = [processor(f"deck {number}", f"10.0.1.{number}") for number in range(1, 61)]
        return [], loose + storm_list()[1][-3:]

    def test_page_down_moves_from_the_selected_row(self):
        ends = [self.page_down_from(number) for number in (2, 5)]
        self.assertGreater(ends[0], 12)
        self.assertEqual(ends[1] - ends[0], 3)
        self.assertEqual(self.kestrel.quit(), 0)

    def page_down_from(self, number):
        """The row that the key reaches from one of the first rows. The list is back at its top afterwards."""
        self.select_and_wait(self.rows.nodes()[number], lambda: self.desktop.click(*self.kestrel.row(number, next(self.columns))))
        mark = self.kestrel.mark()
        self.desktop.key("Next")
        end = self.rows.nodes().index(self.kestrel.wait_for("SetSelectedNodes", after=mark)[0][len("SetSelectedNodes(["):-2])
        self.select_and_wait(ROOT, lambda: self.desktop.key("Home"))
        return end

    def select_and_wait(self, node, act):
        """Acts again where a refresh that had read the library before has undone it."""
        def is_selected():
            self.behind = self.kestrel.mark()
            act()
            desktop.wait_until("a rebuild of the rows", self.rebuilt)
            self.pass_fence()
            return self.selected() == [node] and is_report_of(self.reported(), [node])

        desktop.wait_until(f"{node} selected", is_selected)


class Kept(Gestures):
    def test_deviations_that_are_kept(self):
        self.click(self.FOLDED)
        self.meet("a folded group goes with what it holds")
        self.delete_key()
        self.meet("Delete after a click on the tool bar acts on the list")
        self.click(self.EMPTY)
        self.delete_key(self.delete_after_tool_bar)
        self.click(self.THREE)
        self.deviate("Delete with nothing selected, or after the last row was Ctrl-clicked away", self.delete_nothing,
                     " Delete", [f"job DeleteProcessor({self.THREE}, false)"])
        self.click(self.TWO)
        self.deviate("Down in an open editor, then Delete", self.delete_from_editor,
                     " Delete", [f"job DeleteProcessor({self.TWO}, false)"])
        hidden = "Delete takes selected rows that the filter hides, and the walks land on hidden rows"
        self.choose(self.ALPHA, self.BETA)
        self.deviate(hidden, lambda: self.type_under_filter("alpha", "Delete"), " Delete",
                     [f"job DeleteProcessor({node}, false)" for node in sorted((self.ALPHA, self.BETA))])
        self.click(self.NOISE_1)
        self.deviate(hidden, lambda: self.type_under_filter("noise 1", "Down", "Delete"), " Delete",
                     [f"job DeleteProcessor({self.NOISE_1}, false)"])
        self.meet("no hover after a rebuild until the mouse moves")
        self.expect_darkness()
        self.click(ROOT)
        self.deviate("F2 on the root or an information row, then anything", self.delete_unreported, " SetSelected| Delete", [])
        self.assertEqual(self.met, set(KEPT) - set(BY_CHANCE))
        self.finish()

    def delete_after_tool_bar(self):
        x, y = self.kestrel.tool_bar_button("Menu")
        self.desktop.click(x + 120, y)
        self.desktop.key("Delete")

    def delete_nothing(self):
        self.press(self.THREE, "ctrl")
        self.desktop.key("Delete")

    def delete_from_editor(self):
        self.open_editor()
        self.desktop.key("Down", "Delete")

    def type_under_filter(self, text, *keys):
        """Filters the rows, types in the tree and ends the filter."""
        self.desktop.click(*self.kestrel.tool_bar_button("Menu"))
        self.desktop.key("Down", "Return")
        x, y = self.kestrel.tool_bar_button("Menu")
        self.kestrel.wait_for_pixel("the search row", (x + 100, y - desktop.ROW), lambda colour: colour != TREE)
        self.desktop.click(x + 100, y - desktop.ROW)
        self.desktop.type(text)
        self.kestrel.wait_for_pixel("the other rows gone", self.point(self.ONE, 34), lambda colour: colour == TREE)
        self.desktop.click(*self.kestrel.row(8))  # the keys go to the tree
        mark = self.kestrel.mark()
        self.desktop.key(*keys)
        self.kestrel.wait_for(r"SetBusy\(false", after=mark)
        self.desktop.click(self.kestrel.x + self.kestrel.panel_width() - 24, y - desktop.ROW)

    def expect_darkness(self):
        """The light goes out under a mouse that rests."""
        desktop.wait_until("a row lit under the mouse", lambda: self.light(1))
        self.kestrel.wait_for_pixel("no row lit", self.kestrel.row(1, 250), lambda colour: colour == TREE)

    def delete_unreported(self):
        self.desktop.key("F2")
        self.press(self.ONE)
        self.desktop.key("Delete")


if __name__ == "__main__":
    unittest.main(verbosity=2)
