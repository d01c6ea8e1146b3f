"""The real program on a desktop with Wayland alone: a compositor in a window of an X server, by whose mouse and keyboard
the tests work. An application there does not know where its windows are: the tests find them in the picture."""

import os
import pathlib
import re
import signal
import subprocess
import tempfile
import unittest

import desktop
import listfile
from listfile import short_id
from scene import ONLINE, SHOTS, TIP, Scene

CONFIGURATION = """[core]
idle-time=0
[shell]
panel-position=none
background-color=0xff000000
animation=none
startup-animation=none
close-animation=none
"""
SOCKET = "wayland-kestrel"
FRAME, TITLE = 3, 30  # what Qt draws around a window there
CROSS = (17, 15)  # of that frame, from its top right corner
SIZE = (1040, 720)  # Kestrel's
OUTSIDE = 20  # pixels of the X screen below the compositor's


class Compositor(desktop.Desktop):
    """A black screen; what is not black is a window or the mouse."""

    def _start(self):
        self.runtime = pathlib.Path(tempfile.mkdtemp(prefix="wayland-"))
        (self.runtime / "weston.ini").write_text(CONFIGURATION)
        self.environment = dict(os.environ, DISPLAY=self._start_server(), XDG_RUNTIME_DIR=str(self.runtime))
        self.manager = subprocess.Popen(
            ["weston", "--backend=x11-backend.so", "--use-pixman", f"--width={self.SIZE[0]}", f"--height={self.SIZE[1] - OUTSIDE}",
             f"--socket={SOCKET}", f"--config={self.runtime}/weston.ini"],
            env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        socket = self.runtime / SOCKET
        started = desktop.poll(lambda: socket.exists() or self.manager.poll() is not None, desktop.START) and socket.exists()
        if not started:
            self.close()
        return started

    def applications(self, folder):
        kept = {name: value for name, value in self.environment.items() if name not in ("DISPLAY", "QT_QPA_PLATFORM")}
        return dict(kept, WAYLAND_DISPLAY=SOCKET)

    def box(self):
        """Left, top, right and bottom of all windows."""
        return self.grab().convert("RGB").getbbox()

    def wait_for_window(self, title):
        size = (SIZE[0] + 2 * FRAME, SIZE[1] + TITLE + FRAME)

        def is_there():
            # Into the compositor's screen, since it misses a mouse that was there before it, and over the window,
            # wherever that is.
            self.move(self.SIZE[0] / 2, self.SIZE[1] - OUTSIDE / 2)
            self.move(self.SIZE[0] / 2, self.SIZE[1] / 2)
            box = self.box()
            return box and (box[2] - box[0], box[3] - box[1]) == size

        try:
            desktop.wait_until(f"a window '{title}'", is_there)
        except desktop.Failure as failure:
            raise desktop.Failure(f"{failure}; see {self.shoot('failed')}") from None
        return self.box()


class Kestrel(desktop.Kestrel):
    def _find_origin(self):
        self.frame = self.window
        self.x, self.y = self.frame[0] + FRAME, self.frame[1] + TITLE
        self.width, self.height = SIZE

    def quit(self):
        """By the cross of the frame."""
        self.desktop.click(self.frame[2] - CROSS[0], self.frame[1] + CROSS[1])
        code = self.process.wait(desktop.DEADLINE)
        self.clean()
        return code


class Wayland(Scene):
    KESTREL = Kestrel

    @classmethod
    def setUpClass(cls):
        """A desktop for each test instead: its first window always stands in the same place, the others anywhere."""

    def setUp(self):
        self.desktop = Compositor(pathlib.Path(SHOTS) / type(self).__name__)
        self.addCleanup(self.desktop.close)
        super().setUp()

    def wait_for_change(self, what, area, do):
        """Does something and waits until the picture of an area is another."""
        before = self.desktop.grab().crop(area).tobytes()
        do()
        desktop.wait_until(what, lambda: self.desktop.grab().crop(area).tobytes() != before)

    def area(self, left, top, right, bottom):
        return self.kestrel.x + left, self.kestrel.y + top, self.kestrel.x + right, self.kestrel.y + bottom


class Rows(Wayland):
    def test_are_shown_and_lit_under_the_mouse(self):
        self.kestrel.wait_for_pixel("alpha online", self.kestrel.dot(self.ALPHA, 2), lambda colour: colour == ONLINE)
        self.wait_for_hover(self.TWO)
        self.desktop.shoot("hover")
        self.assertEqual(self.kestrel.quit(), 0)

    def test_a_name_is_typed(self):
        self.select(self.ONE)
        mark = self.kestrel.mark()
        self.desktop.key("F2")
        self.desktop.key("ctrl+a")
        self.desktop.type("Left wing")
        self.desktop.key("Return")
        self.kestrel.wait_for("RenameProcessor", after=mark)
        self.assertIn("Left wing", self.outline_after_quit())


class Dragging(Wayland):
    def test_a_processor_goes_into_the_group_under_the_mouse(self):
        self.select(self.ONE)
        mark = self.kestrel.mark()
        self.desktop.drag(self.kestrel.row(self.ONE, 220), self.kestrel.row(self.EMPTY))
        self.kestrel.wait_for("MoveProcessor", after=mark)
        self.assertEqual(self.kestrel.journal("^MoveProcessor", "command", mark),
                         [f"MoveProcessor({short_id('one')}, {short_id('Empty')})"])
        self.assertIn("  one", self.outline_after_quit())

    def test_its_picture_travels_with_the_mouse(self):
        self.select(self.ONE)
        x, y = self.kestrel.row(self.ONE, 220)
        self.desktop.move(x, y)
        self.desktop.xdotool("mousedown", 1)
        out_there = (self.kestrel.x + 420, y - 30, self.kestrel.x + 640, y + 30)

        def pull():
            for step in range(1, 9):
                self.desktop.move(x + 40 * step, y + step)
            return self.desktop.grab().crop(out_there).tobytes() != before

        before = self.desktop.grab().crop(out_there).tobytes()
        desktop.wait_until("the picture of the drag outside the panel", pull)
        self.desktop.shoot("drag")
        self.desktop.xdotool("mouseup", 1)
        self.wait_for_hover(self.TWO)
        self.assertEqual(self.kestrel.journal("^MoveProcessor", "command"), [])
        self.assertEqual(self.kestrel.quit(), 0)


class Popups(Wayland):
    def test_a_tool_tip_stands_below_the_mouse(self):
        point = self.kestrel.row(self.ALPHA, self.kestrel.mark_column())
        self.wait_for_hover(self.THREE)
        self.desktop.move(*point)
        self.kestrel.wait_for_pixel("the tip of the Primary mark", (point[0] + 4, point[1] + 24), lambda colour: colour == TIP)
        self.desktop.shoot("tip")
        self.assertEqual(self.kestrel.quit(), 0)

    def test_the_context_menu_stands_at_the_mouse_and_takes_keys(self):
        self.select(self.ALPHA)
        mark = self.kestrel.mark()
        x, y = self.kestrel.row(self.ALPHA)
        self.wait_for_change("a menu at the mouse", (x + 40, y + 2, x + 120, y + 90),
                             lambda: self.desktop.click(x, y, button=3))
        self.desktop.shoot("menu")
        self.desktop.key("Down", "Down", "Return")
        self.kestrel.wait_for("MoveProcessor", after=mark)
        self.assertEqual(self.kestrel.journal("^MoveProcessor", "command", mark), [f"MoveProcessor({short_id('alpha')}, null)"])
        self.assertEqual(self.kestrel.quit(), 0)


class Dialogs(Wayland):
    FRAME = re.compile(rb"(?:\xed\x81\x1d){60,}")  # of the field that has the focus; that of the list is wider
    WIDEST = 300

    def field(self):
        """Where the field begins; None when there is none."""
        top = self.kestrel.y + 70
        picture = self.desktop.grab().convert("RGB").crop((0, top, *self.desktop.SIZE))
        starts = (found.start() // 3 for found in self.FRAME.finditer(picture.tobytes())
                  if found.start() % 3 == 0 and len(found.group()) < 3 * self.WIDEST)
        return next(((pixel % picture.width, top + pixel // picture.width) for pixel in starts), None)

    def open(self):
        self.desktop.click(*self.kestrel.tool_bar_button("Add"))
        return desktop.wait_until("a dialog with a field", self.field)

    def test_a_processor_is_added(self):
        mark = self.kestrel.mark()
        self.open()
        self.desktop.shoot("dialog")
        self.desktop.key("Return")
        self.kestrel.wait_for(r"SetBusy\(false\)", after=mark)
        self.assertEqual(self.kestrel.commands(mark), [
            "gui SetBusy(true)", 'job AddProcessor("192.168.1.10")', "job SetBusy(false)"])
        self.assertEqual(self.kestrel.quit(), 0)

    def test_is_moved_by_its_title_bar(self):
        x, y = self.open()
        grip = y - 32  # in the title bar
        self.desktop.move(x, grip)
        self.desktop.xdotool("mousedown", 1)
        for step in range(1, 5):
            self.desktop.move(x - 10 * step, grip + 10 * step)
        self.desktop.xdotool("mouseup", 1)
        desktop.wait_until("the dialog elsewhere", lambda: self.field() not in (None, (x, y)))
        self.desktop.shoot("moved-dialog")
        self.desktop.key("Escape")
        desktop.wait_until("no dialog", lambda: not self.field())
        self.assertEqual(self.kestrel.quit(), 0)


class Ends(Wayland):
    def test_a_signal_in_an_editor_keeps_what_was_typed(self):
        self.select(self.ONE)
        self.desktop.key("F2")
        self.desktop.key("ctrl+a")
        self.desktop.type("Left wing")
        self.kestrel.process.send_signal(signal.SIGTERM)
        self.assertEqual(self.kestrel.process.wait(desktop.DEADLINE), 0)
        self.assertIn("Left wing", listfile.outline(self.list_file))


class CompositorEnds(Wayland):
    def test_the_list_is_as_it_was_saved_last(self):
        mark = self.kestrel.mark()
        self.desktop.click(*self.kestrel.tool_bar_button("Add group"))
        self.kestrel.wait_for("AddGroup", after=mark)
        desktop.wait_until("the list saved", lambda: "Group 1" in listfile.outline(self.list_file))
        self.desktop.manager.kill()
        self.assertEqual(self.kestrel.process.wait(desktop.DEADLINE), 1)
        self.assertRegex(self.kestrel.errors(), "Wayland connection broke")
        self.assertIn("Group 1", listfile.outline(self.list_file))


if __name__ == "__main__":
    unittest.main()
