"""Drives the real application on a real X server, as a user does: by mouse and keyboard.

Nothing here waits for a fixed time; whoever needs something to have happened waits for the journal, for
a pixel or for a window. The pauses between the steps of a drag are the drag's own pace.
"""

import datetime
import os
import pathlib
import re
import select
import shutil
import signal
import subprocess
import tempfile
import time

from PIL import ImageChops, ImageGrab

DEADLINE = 20.0  # seconds that anything may take
POLL = 0.03
START = 20.0  # seconds that a server or a window manager may take
RESTING = 2.0  # seconds that the rows may take to come to rest at the end of a run
REST = 0.2  # seconds without a change: they have
GAP = 0.1  # seconds from look to look at most
TYPIST = 180  # milliseconds from key to key

ROW = 32
INFO = 92
MENU_BAR = 28
BAR = (0x26, 0x28, 0x2C)
HEADER = 34  # the panel's header and the gap under it


class Failure(AssertionError):
    pass


def poll(condition, deadline):
    """The first true result of condition(), or its last one when time is over."""
    end = time.monotonic() + deadline
    while True:
        result = condition()
        if result or time.monotonic() > end:
            return result
        time.sleep(POLL)  # paced: between two looks at the condition


def wait_until(what, condition, deadline=DEADLINE):
    """The first true result of condition()."""
    result = poll(condition, deadline)
    if not result:
        raise Failure(f"not within {deadline} s: {what}")
    return result


class Desktop:
    """An X server of its own with a window manager, and what a user does on it."""

    SIZE = (1280, 900)

    def __init__(self, shots):
        self.shots = pathlib.Path(shots)
        self.shots.mkdir(parents=True, exist_ok=True)
        wait_until("an X server with a window manager", self._start, 3 * START)

    def _start(self):
        """False when nothing came of it: of two servers that look for a display at the same time one is left without."""
        self.environment = dict(os.environ, DISPLAY=self._start_server(), QT_QPA_PLATFORM="xcb")
        self.manager = subprocess.Popen(["openbox"], env=self.environment, stderr=subprocess.DEVNULL)
        started = poll(lambda: self._has_manager() or self.manager.poll() is not None, START) and self.manager.poll() is None
        if not started:
            self.close()
        return started

    def _start_server(self):
        """The display of a new server; an empty text for one that does not say it."""
        read_end, write_end = os.pipe()
        geometry = f"{self.SIZE[0]}x{self.SIZE[1]}x24"
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0", geometry, "-nolisten", "tcp"],
            pass_fds=[write_end], stderr=subprocess.DEVNULL)
        os.close(write_end)
        with os.fdopen(read_end) as display:
            return ":" + display.readline().strip() if select.select([display], [], [], START)[0] else ""

    def _has_manager(self):
        check = subprocess.run(["xdotool", "get_num_desktops"], env=self.environment, capture_output=True)
        return check.returncode == 0

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()

    def applications(self, folder):
        """The environment of an application with that folder for its sockets."""
        return dict(self.environment, XDG_RUNTIME_DIR=str(folder))

    def xdotool(self, *words):
        done = subprocess.run(["xdotool", *map(str, words)], env=self.environment, capture_output=True, text=True)
        if done.returncode != 0:
            raise Failure(f"xdotool {' '.join(map(str, words))}: {done.stderr.strip()}")
        return done.stdout.strip()

    def move(self, x, y):
        self.xdotool("mousemove", int(x), int(y))

    def click(self, x, y, button=1, holding=None):
        self.move(x, y)
        if holding:
            self.xdotool("keydown", holding)
        self.xdotool("click", button)
        if holding:
            self.xdotool("keyup", holding)

    def double_click(self, x, y):
        self.move(x, y)
        self.xdotool("click", "--repeat", 2, "--delay", 20, 1)

    def drag(self, start, end, click_first=False):
        """Press, pull free, travel in steps, let go. click_first: the press makes a double click with one just before it, as
        near as the server takes them."""
        self.move(*start)
        self.xdotool(*(("click", 1) if click_first else ()), "mousedown", 1)
        for offset in (3, 9):
            self.move(start[0], start[1] + offset)
        time.sleep(0.3)  # paced: a drag starts after a rest
        for step in range(1, 5):
            self.move(start[0] + (end[0] - start[0]) * step / 4, start[1] + (end[1] - start[1]) * step / 4)
            time.sleep(0.1)  # paced: and travels in steps
        self.xdotool("mouseup", 1)

    def key(self, *names):
        self.xdotool("key", *names)

    def start_key(self, name):
        """The process that presses the key, which may take effect before its end."""
        return subprocess.Popen(["xdotool", "key", name], env=self.environment)

    def hold_key(self, name, seconds):
        """Holds a key down; the server repeats it after a while."""
        self.xdotool("keydown", name)
        time.sleep(seconds)  # paced: the key is held
        self.xdotool("keyup", name)

    def type(self, text):
        self.xdotool("type", "--delay", 15, text)

    def change_hands(self):
        """From the mouse to the keys."""
        time.sleep(TYPIST / 1000)  # paced: the hand's own time

    def key_as_typist(self, *names):
        self.xdotool("key", "--delay", TYPIST, *names)

    def type_as_typist(self, text):
        self.xdotool("type", "--delay", TYPIST, text)

    def copy(self, text):
        """Puts text on the clipboard."""
        subprocess.run(["xclip", "-selection", "clipboard"], input=text.encode(), env=self.environment, check=True)

    def grab(self):
        return ImageGrab.grab(xdisplay=self.environment["DISPLAY"])

    def shoot(self, name):
        """Keeps a picture of the whole screen to look at."""
        path = self.shots / f"{name}.png"
        self.grab().save(path)
        return path

    def windows(self, title):
        """Visible windows whose title matches the pattern."""
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", title], env=self.environment,
                               capture_output=True, text=True)
        return found.stdout.split()

    def wait_for_window(self, title):
        try:
            window = wait_until(f"a window '{title}'", lambda: self.windows(title))[0]
        except Failure as failure:
            raise Failure(f"{failure}; see {self.shoot('failed')}") from None
        self.xdotool("windowactivate", "--sync", window)
        return window

    def wait_for_no_window(self, title, deadline=DEADLINE):
        wait_until(f"no window '{title}'", lambda: not self.windows(title), deadline)


class Kestrel:
    """One run of the application. Positions are those of the screen."""

    def __init__(self, desktop, program, list_file, options=(), scenario=None, pace=None, config=None):
        """With a pace the devices live their quiet day, that many times as fast; without one the scenario is played. config
        is the folder of the user's settings; without one nobody has started it before."""
        self.desktop = desktop
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="kestrel-"))
        self.list_file = pathlib.Path(list_file)
        self.journal_file = self.folder / "journal"
        self.journal_records = []
        self.journal_read = 0  # bytes
        self.last_rows = None
        self.last_time = None
        script = self.folder / "scenario.json"
        script.write_text(scenario or '{ "title": "Nothing happens by itself", "steps": [] }')
        life = ["--pace", str(pace)] if pace else ["--scenario", script]
        self.error_file = open(self.folder / "errors", "w+")
        environment = dict(desktop.applications(self.folder), HOME=str(self.folder), XDG_CONFIG_HOME=str(config or self.folder / "config"),
                           QT_HASH_SEED="0", LANG="C.UTF-8", LANGUAGE="en")
        os.chmod(self.folder, 0o700)
        self.process = subprocess.Popen(
            [program, "--list", self.list_file, *life, "--journal", self.journal_file, "--lang", "en", *options],
            env=environment, stderr=self.error_file)
        self.window = desktop.wait_for_window("Kestrel$")
        self._find_origin()
        wait_until("the first rows", lambda: self.journal("Attach", kind="command"))
        self._open_dock()

    def _open_dock(self):
        """The journal beside the panel, which then has the width that the tests count with."""
        self.desktop.key("ctrl+j")
        wait_until("the journal", lambda: self.pixel((self.x + 1000, self.y + MENU_BAR + HEADER + 8)) == BAR)

    def _find_origin(self):
        # xwininfo, since xdotool counts the window manager's frame twice.
        done = subprocess.run(["xwininfo", "-id", self.window], env=self.desktop.environment, capture_output=True, text=True,
                              check=True)
        keys = {"x": "Absolute upper-left X", "y": "Absolute upper-left Y", "width": "Width", "height": "Height"}
        for name, key in keys.items():
            setattr(self, name, int(re.search(rf"{key}: +(-?\d+)", done.stdout).group(1)))

    def quit(self):
        """Closes the window as its menu does and waits for the end; the exit code."""
        if self.process.poll() is None:
            self._remember_rows()
            self.desktop.xdotool("windowactivate", "--sync", self.window)
            self.desktop.key("ctrl+q")
        code = self.process.wait(DEADLINE)
        self.clean()
        return code

    def _remember_rows(self):
        """What the rows look like at the end, and when, unless they do not come to rest. Who looked too seldom would take a device
        that drops out and comes back for one at rest."""
        self.desktop.move(self.desktop.SIZE[0] - 2, self.desktop.SIZE[1] - 2)
        former = None
        begun = seen = time.monotonic()
        end = seen + RESTING
        while seen < end:
            rows = self.desktop.grab().convert("RGB").crop(self._rows_on_screen())
            before, seen = seen, time.monotonic()
            if former is None or seen - before > GAP or ImageChops.difference(rows, former).getbbox():
                former, begun, moment = rows, seen, datetime.datetime.now()  # wall clock: as the recording counts
            elif seen - begun > REST:
                self.last_rows, self.last_time = former, moment.strftime("%H:%M:%S.%f")[:-3]
                return
            time.sleep(POLL)  # paced: between two looks at the rows

    def rows_in_window(self):
        """The rows of the panel: left, top, right, bottom."""
        return 2, MENU_BAR + HEADER, self.panel_width() - 2, self.height - self.status_bar() - 36

    def _rows_on_screen(self):
        left, top, right, bottom = self.rows_in_window()
        return self.x + left, self.y + top, self.x + right, self.y + bottom

    def clean(self):
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGKILL)
            self.process.wait()
        self.error_file.close()
        shutil.rmtree(self.folder, ignore_errors=True)

    def errors(self):
        self.error_file.flush()
        return (self.folder / "errors").read_text()

    # The journal

    def records(self):
        """All records so far; only what is new is read from the file."""
        if not self.journal_file.exists():
            return []
        with open(self.journal_file, "rb") as file:
            file.seek(self.journal_read)
            lines = file.read().split(b"\n")[:-1]
        for line in lines:
            self.journal_read += len(line) + 1
            fields = line.decode().split("\t")
            self.journal_records.append(dict(zip(("number", "time", "kind", "thread", "object", "text"), fields)))
        return self.journal_records

    def mark(self):
        """The number of the newest record, to look behind it later."""
        records = self.records()
        return int(records[-1]["number"]) if records else 0

    def journal(self, pattern, kind=None, after=0):
        """Texts of the records behind a mark that match."""
        return [record["text"] for record in self.records()
                if int(record["number"]) > after and re.search(pattern, record["text"]) and kind in (None, record["kind"])]

    def commands(self, after=0, with_reads=None):
        """The commands behind a mark, with gui or job in front for the thread; also the reading calls of that pattern."""
        def counts(record):
            if record["kind"] == "read":
                return with_reads and re.search(with_reads, record["text"])
            return record["kind"] == "command" and "came back after" not in record["text"]
        return [("gui " if record["thread"] == "gui" else "job ") + record["text"] for record in self.records()
                if int(record["number"]) > after and counts(record)]

    def wait_for(self, pattern, after=0, kind=None):
        return wait_until(f"'{pattern}' in the journal; it holds {self.commands(after)}",
                          lambda: self.journal(pattern, kind, after))

    # The panel

    def row(self, number, column=90):
        """A point on the row of that number, counted from 0, while no information row above it is open."""
        return self.x + column, self.y + MENU_BAR + HEADER + number * ROW + ROW // 2

    def pixel(self, point):
        return self.desktop.grab().getpixel((int(point[0]), int(point[1])))[:3]

    def wait_for_pixel(self, what, point, test):
        try:
            wait_until(what, lambda: test(self.pixel(point)))
        except Failure as failure:
            picture = self.desktop.shoot("failed")
            raise Failure(f"{failure}; at {point} is {self.pixel(point)}, see {picture}") from None

    def dot(self, number, depth):
        """The centre of the state mark of a processor's row, depth being 1 in the root and 2 in a group."""
        return self.row(number, 15 * (depth + 1) + 1 + 3)

    def tool_bar_button(self, name):
        """Menu, Add group, Add, Delete."""
        right = self.panel_width() - 2 - 14
        offsets = {"Menu": 16, "Add group": right - 64, "Add": right - 32, "Delete": right}
        return self.x + offsets[name], self.y + self.height - self.status_bar() - 16

    def mark_column(self):
        """Where a processor's Primary or Backup mark stands."""
        return self.panel_width() - 16

    def panel_width(self):
        return 358

    def status_bar(self):
        return 28
