"""An operator's day by mouse: fourteen tasks in one run of the real program. Each prints its gestures and leaves a picture."""

import re
import subprocess
import unittest

import desktop
from listfile import short_id
from scene import SELECTED, TREE, Scene

ACCENT = (0xED, 0x81, 0x1D)
MENU_EDGE = 5  # border and padding of a menu
INDENT = 15
TAB_HEIGHT = 16
LIST_MENU = 92
FIRST_ENTRY = 20  # below the top of the menu
BUTTONS = 56  # the lowest part of a dialog
CLOSE_SEARCH = 24  # from the right edge of the panel


class Hand:
    """What the mouse does, written down."""

    def __init__(self, desk):
        self.desk = desk
        self.gestures = []

    def click(self, point, button=1, holding=None):
        self.gestures.append((f"{holding}+" if holding else "") + ("right click" if button == 3 else "click"))
        self.desk.click(*point, button=button, holding=holding)

    def drag(self, start, end):
        self.gestures.append("drag")
        self.desk.drag(start, end)

    def type(self, text):
        self.gestures.append(f'type "{text}"')
        self.desk.key("ctrl+a")
        self.desk.type(text)

    def press(self, key):
        self.gestures.append(key)
        self.desk.key(key)


class Area:
    """A window's place on the screen."""

    def __init__(self, desk, window):
        said = subprocess.run(["xwininfo", "-id", window], env=desk.environment, capture_output=True, text=True, check=True).stdout
        keys = ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")
        self.x, self.y, self.width, self.height = (int(re.search(rf"{key}: +(-?\d+)", said).group(1)) for key in keys)

    def entry(self, number, count):
        """A point on an entry of a menu without separators."""
        height = (self.height - 2 * MENU_EDGE) / count
        return self.x + self.width // 3, self.y + MENU_EDGE + (number + 0.5) * height

    def default_button(self, image):
        """The left edge and the middle of the accented button; None while there is none."""
        points = [(x, y) for x in range(self.x, self.x + self.width, 2) for y in range(self.y + self.height - BUTTONS, self.y + self.height, 2)
                  if image.getpixel((x, y))[:3] == ACCENT]
        if len(points) < 100:
            return None
        left, right = min(x for x, _ in points), max(x for x, _ in points)
        return left, ((left + right) // 2, sum(y for _, y in points) // len(points))


class MouseDay(Scene):
    """Rows at first: All processors, Stage (alpha, beta, gamma), Folded, Empty, one, two, three."""

    def setUp(self):
        super().setUp()
        self.hand = Hand(self.desktop)
        self.tasks = 0

    def done(self, task):
        self.tasks += 1
        print(f"{self.tasks:2} {task}: {', '.join(self.hand.gestures)}", flush=True)
        self.hand.gestures.clear()
        self.desktop.shoot(f"{self.tasks:02}-{task.replace(' ', '-')}")

    def popups(self):
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--class", "kestrel"], env=self.desktop.environment,
                               capture_output=True, text=True).stdout.split()
        return [window for window in found if window != self.kestrel.window]

    def new_popup(self, before):
        """The place of the window that is new."""
        return Area(self.desktop, desktop.wait_until("a menu", lambda: [w for w in self.popups() if w not in before])[0])

    def open_menu(self, point, button=1):
        before = self.popups()
        self.hand.click(point, button)
        return self.new_popup(before)

    def choose(self, row, entry, count, pattern):
        """The entry of the menu of a row, and the command that follows."""
        mark = self.kestrel.mark()
        self.hand.click(self.open_menu(self.kestrel.row(row), 3).entry(entry, count))
        self.kestrel.wait_for(pattern, after=mark, kind="command")
        return mark

    def answer(self, title, steps_left=0):
        """Clicks the default button of a dialog, or one so many places to the left of it."""
        area = Area(self.desktop, self.desktop.wait_for_window(title))
        left, middle = desktop.wait_until("the default button", lambda: area.default_button(self.desktop.grab()))
        self.hand.click((middle[0] - steps_left * 2 * (middle[0] - left + 6), middle[1]))
        self.desktop.wait_for_no_window(title)

    def pick(self, row, holding=None):
        self.hand.click(self.kestrel.row(row), holding=holding)
        self.wait_for_selected(row)

    def tool(self, name):
        self.hand.click(self.kestrel.tool_bar_button(name))

    def wait_for_selected(self, row):
        self.kestrel.wait_for_pixel(f"row {row} selected", self.kestrel.row(row, 250), lambda colour: colour == SELECTED)

    def test_fourteen_tasks(self):
        for task in (self.read, self.select_several, self.search, self.rename, self.group_three, self.move_by_menu, self.drag_in,
                     self.drag_out, self.ungroup, self.add_processor, self.add_simulators, self.delete, self.export_and_import,
                     self.undo):
            task()
        self.assertEqual(self.tasks, 14)
        outline = self.outline_after_quit()
        self.assertEqual(outline[:8], ["Stage", "  alpha", "  beta", "  gamma", "  two", "Folded", "  delta", "Group 1"])
        self.assertEqual(outline[8:10], ["three", "Left wing"])

    def read(self):
        x, y = self.kestrel.row(self.ONE)
        arrow = (self.kestrel.x + INDENT + INDENT // 2, y)
        for expanded in ("true", "false"):
            mark = self.kestrel.mark()
            self.hand.click(arrow)
            self.kestrel.wait_for(rf"SetExpanded\({short_id('one')}, {expanded}\)", after=mark)
            self.pick(self.ONE if expanded == "true" else self.TWO)  # two clicks on the arrow in a row would be a double click
        self.done("read about a processor")

    def select_several(self):
        self.pick(self.ONE)
        self.pick(self.THREE, holding="shift")
        self.hand.click(self.kestrel.row(self.TWO), holding="ctrl")
        self.kestrel.wait_for_pixel("two left out", self.kestrel.row(self.TWO, 250), lambda colour: colour != SELECTED)
        self.done("select several")

    def search(self):
        panel = self.kestrel.x + self.kestrel.panel_width()
        y = self.kestrel.y + self.kestrel.height - self.kestrel.status_bar() - desktop.ROW - desktop.ROW // 2
        self.choose_in_tool_bar(0)
        self.hand.click((self.kestrel.x + 120, y))
        self.hand.type("alpha")
        self.kestrel.wait_for_pixel("the other rows gone", self.kestrel.row(self.BETA, 40), lambda colour: colour == TREE)
        self.hand.click((panel - CLOSE_SEARCH, y))
        self.kestrel.wait_for_pixel("the rows back", self.kestrel.row(self.THREE, 250), lambda colour: colour == SELECTED)
        self.done("find one among many")

    def rename(self):
        self.pick(self.ONE)
        mark = self.kestrel.mark()
        self.hand.click(self.open_menu(self.kestrel.row(self.ONE), 3).entry(0, 4))
        self.hand.type("Left wing")
        self.hand.press("Return")
        self.kestrel.wait_for("RenameProcessor", after=mark)
        self.done("rename")

    def group_three(self):
        self.pick(self.ONE)
        self.pick(self.THREE, holding="shift")
        mark = self.choose(self.TWO, 0, 3, "AddGroup")
        desktop.wait_until("three moves", lambda: len(self.kestrel.journal("^MoveProcessor", "command", mark)) == 3)
        self.wait_for_selected(7)  # the new group
        self.done("group three")

    def move_by_menu(self):
        """From Group 1 (rows 7 to 10) into Empty."""
        self.pick(8)
        mark = self.kestrel.mark()
        menu = self.open_menu(self.kestrel.row(8), 3)
        self.hand.click(self.open_menu(menu.entry(2, 4)).entry(2, 3))
        self.kestrel.wait_for(rf"MoveProcessor\({short_id('one')}, {short_id('Empty')}\)", after=mark)
        self.wait_for_selected(7)
        self.done("move to a group by the menu")

    def drag_in(self):
        self.pick(9)
        mark = self.kestrel.mark()
        self.hand.drag(self.kestrel.row(9, 220), self.kestrel.row(self.STAGE))
        self.kestrel.wait_for(rf"MoveProcessor\({short_id('two')}, {short_id('Stage')}\)", after=mark)
        self.wait_for_selected(5)
        self.done("drag into a group")

    def drag_out(self):
        self.pick(10)
        mark = self.kestrel.mark()
        self.hand.drag(self.kestrel.row(10, 220), self.kestrel.row(self.ROOT))
        self.kestrel.wait_for(rf"MoveProcessor\({short_id('three')}, null\)", after=mark)
        self.done("drag out of a group")

    def ungroup(self):
        """Empty, which holds one: it goes to the end of the root."""
        self.pick(7)
        self.choose(7, 1, 3, rf"DeleteGroup\({short_id('Empty')}, false\)")
        self.kestrel.wait_for_pixel("the group gone", self.kestrel.row(10, 250), lambda colour: colour == TREE)
        self.done("ungroup")

    def add_processor(self):
        mark = self.kestrel.mark()
        self.tool("Add")
        self.answer("Add a processor")
        self.kestrel.wait_for(r"SetBusy\(false\)", after=mark)
        self.done("add a processor")

    def add_simulators(self):
        for column, simulator in ((136, "true"), (48, "false")):
            mark = self.kestrel.mark()
            self.hand.click((self.kestrel.x + column, self.kestrel.y + desktop.MENU_BAR + TAB_HEIGHT))
            self.kestrel.wait_for(rf"SetSimulatorPane\({simulator}\)", after=mark)
            if simulator == "true":
                self.tool("Add")
                self.answer("Add simulators")
                self.kestrel.wait_for("AddSimulators", after=mark)
        self.done("add simulators")

    def delete(self):
        """Left wing, behind three."""
        self.pick(9)
        mark = self.kestrel.mark()
        self.hand.click(self.open_menu(self.kestrel.row(9), 3).entry(3, 4))
        self.answer("Delete processors", steps_left=1)
        self.kestrel.wait_for(rf"DeleteProcessor\({short_id('one')}, false\)", after=mark)
        self.kestrel.wait_for(r"SetBusy\(false\)", after=mark)
        self.done("delete with the question")

    def export_and_import(self):
        exported = self.folder / "mine"
        self.choose_in_tool_bar(2)
        self.enter_file("Save...", exported)
        self.answer("^Export$")
        mark = self.kestrel.mark()
        self.choose_in_tool_bar(1)
        self.answer("Overwrite confirmation", steps_left=1)
        self.enter_file("Import...", exported)
        self.answer("^Import$")
        self.kestrel.wait_for(r"SetBusy\(false\)", after=mark)
        self.done("export and import")

    def undo(self):
        """The import, which has changed nothing, then the deletion."""
        mark = self.kestrel.mark()
        for _ in range(2):
            menu = self.open_menu((self.kestrel.x + LIST_MENU, self.kestrel.y + desktop.MENU_BAR // 2))
            self.desktop.shoot("undo-in-the-menu")
            self.hand.click((menu.x + menu.width // 3, menu.y + FIRST_ENTRY))
        self.kestrel.wait_for("ListChanged", after=mark, kind="message")
        self.done("take two steps back")

    def choose_in_tool_bar(self, entry):
        """0 Search, 1 Import, 2 Export."""
        self.hand.click(self.open_menu(self.kestrel.tool_bar_button("Menu")).entry(entry, 3))

    def enter_file(self, title, path):
        pattern = "^" + re.escape(title) + "$"
        self.desktop.wait_for_window(pattern)
        self.hand.type(str(path))
        self.hand.press("Return")
        if not desktop.poll(lambda: not self.desktop.windows(pattern), 3):
            self.hand.press("Return")  # a list of proposals has taken the first
            self.desktop.wait_for_no_window(pattern)


if __name__ == "__main__":
    unittest.main(verbosity=2)
