"""What a screen reader hears of the application over the accessibility bus, and what it would say of it.

Each test has a session bus and an accessibility bus of its own, see main(), and the second one starts after the application:
Qt sets itself up for a bus that it finds at its start before it is connected to it, and then is on no bus for good.
"""

import os
import subprocess
import sys
import tempfile
import time
import unittest

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

import desktop  # noqa: E402

EVENTS = ("object:state-changed:focused", "object:property-change:accessible-name",
          "object:property-change:accessible-description")
HEARD = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}  # the environment of an application that talks as soon as there is a bus
_OWN_BUS = "SPEECH_OWN_BUS"
_BUS = ("org.a11y.Bus", "/org/a11y/bus")
_REGISTRY = ("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
_ACCESSIBLE = "org.a11y.atspi.Accessible"


def main():
    """Runs each test of this script, or those that are named, as a process on buses of its own."""
    if has_own_bus():
        unittest.main(verbosity=2)
    failed = [name for name in _tests() if run_on_own_bus(name) != 0]
    sys.exit(f"failed: {' '.join(failed)}" if failed else 0)


def has_own_bus():
    return _OWN_BUS in os.environ


def run_on_own_bus(*arguments):
    """Runs this script with those arguments as a process on buses of its own; its exit code."""
    with tempfile.TemporaryDirectory(prefix="speech-") as runtime:  # without it all buses of a user share one socket
        environment = dict(os.environ, **{_OWN_BUS: "1", "XDG_RUNTIME_DIR": runtime})
        return subprocess.run(["dbus-run-session", "--", sys.executable, sys.argv[0], *arguments], env=environment).returncode


def _tests():
    loader = unittest.defaultTestLoader
    script = sys.modules["__main__"]
    named = loader.loadTestsFromNames(sys.argv[1:], script) if sys.argv[1:] else loader.loadTestsFromModule(script)
    return [test.id().removeprefix("__main__.") for test in _flat(named)]


def _flat(suite):
    return [suite] if isinstance(suite, unittest.TestCase) else [test for part in suite for test in _flat(part)]


def _ask(connection, service, path, interface, method, arguments=None):
    return connection.call_sync(service, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, -1, None).unpack()


def _start_bus():
    """A connection to the accessibility bus, which starts with the first question."""
    session = Gio.bus_get_sync(Gio.BusType.SESSION)
    for name in ("IsEnabled", "ScreenReaderEnabled"):
        wish = GLib.Variant("(ssv)", ("org.a11y.Status", name, GLib.Variant("b", True)))
        _ask(session, *_BUS, "org.freedesktop.DBus.Properties", "Set", wish)
    address = _ask(session, *_BUS, "org.a11y.Bus", "GetAddress")[0]
    flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
    return Gio.DBusConnection.new_for_address_sync(address, flags, None, None)


class Reader:
    """To be made once the one application of this process runs. A line is said of what has got the focus, and of a change of
    what has it."""

    def __init__(self):
        self.lines = []
        self.focus = None  # the path of what has told last that it has got the focus
        self.bus = _start_bus()
        desktop.wait_until("Kestrel on the accessibility bus", self._applications)
        self.listener = Atspi.EventListener.new(self._hear)
        for event in EVENTS:
            if not self.listener.register(event):
                raise desktop.Failure(f"no accessibility bus takes the wish to hear {event}; install at-spi2-core")
        self._settle()

    def _applications(self):
        return _ask(self.bus, *_REGISTRY, _ACCESSIBLE, "GetChildren")[0]

    def _settle(self):
        """The application knows of the listener: it has dealt with the news of it, the registry with its question who listens,
        and it with the answer."""
        for _ in range(2):
            for application in self._applications():
                _ask(self.bus, *application, _ACCESSIBLE, "GetRoleName")

    def _hear(self, event):
        try:
            if event.type.startswith("object:state-changed"):
                if event.detail1:
                    self._say_focus(event.source)
            elif event.source.path == self.focus:
                self.lines.append(f"now {event.source.get_name() if event.type.endswith('name') else event.source.get_description()}")
        except GLib.Error:  # what it is about has gone meanwhile
            pass

    def _say_focus(self, node):
        """What has the focus already is not said again, only better: its state may follow its focus. A row that is rebuilt before
        it answers has no name any more and is not even enabled."""
        if node.get_role() == Atspi.Role.TABLE_CELL and not node.get_name() and "disabled" in states(node):
            return
        line = describe(node)
        if node.path == self.focus and not self.lines[-1].startswith("now "):
            self.lines.pop()
        self.focus = node.path
        self.lines.append(line)

    def listen(self):
        """Takes what has come."""
        context = GLib.MainContext.default()
        while context.iteration(False):
            pass
        return True

    def hears_row(self, name, deadline):
        """Whether the row of that name is said last within those seconds; without a pause between two looks."""
        end = time.monotonic() + deadline
        is_said = lambda: self.lines[-1].startswith(f"table cell | {name}")
        while not is_said() and time.monotonic() < end:
            GLib.MainContext.default().iteration(False)
        return is_said()

    def wait_for(self, line, after=0):
        """Listens until that line is said, behind so many lines."""
        try:
            desktop.wait_until(f"'{line}' to be said", lambda: self.listen() and line in self.lines[after:])
        except desktop.Failure as failure:
            raise desktop.Failure(f"{failure}; said was {self.lines[after:]}") from None

    def begin(self, name):
        """Says the tree of that name once it is there and has the focus, as on coming into a window: the application tells
        nothing of what was before it knew that somebody listens."""
        tree = self.tree(name)
        desktop.wait_until("the focus", lambda: self.listen() and self._has_focus(tree))
        self.focus, self.lines = tree.path, [describe(tree)]

    @staticmethod
    def _has_focus(tree):
        return tree.get_state_set().contains(Atspi.StateType.FOCUSED) or any(
            tree.get_child_at_index(i).get_state_set().contains(Atspi.StateType.FOCUSED) for i in range(tree.get_child_count()))

    def tree(self, name):
        """The tree of that name in Kestrel."""
        return desktop.wait_until(f"a tree '{name}'", lambda: self.listen() and self._find(Atspi.get_desktop(0).get_child_at_index(0), name))

    def _find(self, node, name):
        if node is None or node.get_role() == Atspi.Role.TREE and node.get_name() == name:
            return node
        if node.get_role() == Atspi.Role.TREE:
            return None
        found = (self._find(node.get_child_at_index(i), name) for i in range(node.get_child_count()))
        return next((part for part in found if part), None)


def rows(tree):
    """The names of the rows that are shown."""
    children = [tree.get_child_at_index(i) for i in range(tree.get_child_count())]
    return [child.get_name() for child in children if child.get_role() == Atspi.Role.TABLE_CELL]


def describe(node):
    """Role, name, description and state, as far as they are there."""
    parts = [node.get_role_name(), node.get_name().replace("\n", " / "), description(node), ", ".join(states(node))]
    return " | ".join(part for part in parts if part)


def description(node):
    """A tool tip that repeats the name is said once."""
    return "" if node.get_description() == node.get_name() else node.get_description()


def states(node):
    found = node.get_state_set()
    has = lambda state: found.contains(state)
    words = {"selected": has(Atspi.StateType.SELECTED), "checked": has(Atspi.StateType.CHECKED),
             "unfolded": has(Atspi.StateType.EXPANDABLE) and has(Atspi.StateType.EXPANDED),
             "folded": has(Atspi.StateType.EXPANDABLE) and not has(Atspi.StateType.EXPANDED),
             "disabled": not has(Atspi.StateType.ENABLED)}
    return [word for word, here in words.items() if here]
