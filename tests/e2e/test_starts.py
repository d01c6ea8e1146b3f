"""What a user finds at the first start, and what is remembered until the next one."""

import unittest

import desktop
from scene import PROGRAM, SELECTED, Scene

VIEW_MENU = 136  # from the left edge of the window
LINE = (0x55, 0x5A, 0x62)  # around a menu of the dark theme
ENTRY = 28  # the height of an entry, and of the menu bar
THEME_ENTRY = 2  # in the View menu, counted from 0
BLACK = (0, 0, 0)


class Starts(Scene):
    class KESTREL(desktop.Kestrel):
        def _open_dock(self):
            """Shut, as the user finds it."""

    def start(self):
        self.kestrel = self.KESTREL(self.desktop, PROGRAM, self.list_file, config=self.folder / "config")
        self.addCleanup(self.kestrel.clean)

    def start_again(self):
        self.assertEqual(self.kestrel.quit(), 0)
        self.start()

    def bar(self, column):
        """A point of the panel's header."""
        return self.kestrel.x + column, self.kestrel.y + desktop.MENU_BAR + 4

    def lines(self, y):
        """Where lines around menus cross that height."""
        picture = self.desktop.grab()
        return [x for x in range(picture.width) if picture.getpixel((x, int(y)))[:3] == LINE]

    def choose_high_contrast(self):
        x, y = self.kestrel.x + VIEW_MENU, self.kestrel.y
        below = y + ENTRY + 4 + ENTRY * (THEME_ENTRY + 1) + ENTRY // 2  # the second entry of the sub-menu
        self.desktop.click(x, y + ENTRY // 2)
        menu = desktop.wait_until("the View menu", lambda: self.lines(below))
        self.desktop.click(x + 20, below - ENTRY)
        right = desktop.wait_until("the themes", lambda: [x for x in self.lines(below) if x > menu[-1] + ENTRY])[-1]
        self.desktop.shoot("themes")
        self.desktop.click(right - ENTRY, below)

    def test_the_journal_is_shut_at_the_first_start(self):
        edge = self.kestrel.row(0, self.kestrel.width - 60)
        self.kestrel.wait_for_pixel("the root's row, which reaches to the other edge", edge, lambda colour: colour == SELECTED)
        self.desktop.shoot("first-start")
        self.assertEqual(self.kestrel.quit(), 0)

    def test_the_window_is_remembered(self):
        self.desktop.xdotool("windowsize", "--sync", self.kestrel.window, 700, 500)
        self.desktop.xdotool("windowmove", "--sync", self.kestrel.window, 60, 80)
        self.kestrel._find_origin()
        before = self.kestrel.x, self.kestrel.y, self.kestrel.width, self.kestrel.height
        self.start_again()
        self.desktop.shoot("second-start")
        after = self.kestrel.x, self.kestrel.y, self.kestrel.width, self.kestrel.height
        self.assertEqual(after, before)
        self.assertEqual(after[2:], (700, 500))
        self.assertEqual(self.kestrel.quit(), 0)

    def test_a_theme_is_chosen_by_the_mouse_and_is_there_at_the_next_start(self):
        self.kestrel.wait_for_pixel("the dark theme", self.bar(4), lambda colour: colour == desktop.BAR)
        self.choose_high_contrast()
        self.kestrel.wait_for_pixel("the theme of high contrast", self.bar(4), lambda colour: colour == BLACK)
        self.desktop.shoot("contrast")
        self.start_again()
        self.kestrel.wait_for_pixel("the same theme", self.bar(4), lambda colour: colour == BLACK)
        self.desktop.shoot("contrast-again")
        self.assertEqual(self.kestrel.quit(), 0)


if __name__ == "__main__":
    unittest.main()
