"""What a screen reader hears of the application over the accessibility bus, and what it would say of it.

Needs a session bus of its own: on_own_bus() starts the running script anew on one. The application says nothing unless
its environment names that bus, see heard().
"""

import functools
import os
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

import desktop  # noqa: E402

EVENTS = ("object:state-changed:focused", "object:property-change:accessible-name",
          "object:property-change:accessible-description",
          "object:children-changed")  # by which it hears of the application
_OWN_BUS = "SPEECH_OWN_BUS"


def on_own_bus():
    """Runs this script on a session bus that ends with it."""
    if _OWN_BUS not in os.environ:
        os.environ[_OWN_BUS] = "1"
        os.execvp("dbus-run-session", ["dbus-run-session", "--", sys.executable, *sys.argv])


def heard():
    """The environment of an application that talks to the reader from its start on."""
    session = Gio.bus_get_sync(Gio.BusType.SESSION)
    answer = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None,
                               Gio.DBusCallFlags.NONE, -1, None)
    return {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "AT_SPI_BUS_ADDRESS": answer.unpack()[0]}


@functools.cache
def reader():
    """The one of this process: a client that registers again does not hear of all applications."""
    return Reader()


class Reader:
    """Listens from its making on. A line is said of what has got the focus, and of a change of what has it."""

    def __init__(self):
        self.lines = []
        self.focused = None
        self.application = None
        self.listener = Atspi.EventListener.new(self._hear)
        for event in EVENTS:
            if not self.listener.register(event):
                raise desktop.Failure(f"no accessibility bus takes the wish to hear {event}; install at-spi2-core")
        desktop.wait_until("the registry of applications", lambda: self.listen() and Atspi.get_desktop(0).get_name())

    def forget(self):
        """Before another application starts."""
        self.listen()
        self.lines = []
        self.application = None

    def _hear(self, event):
        try:
            if event.type.startswith("object:children-changed"):
                self._note_application(event)
                return
            line = self._line(event)
        except GLib.Error:  # what it is about has gone meanwhile
            return
        if line and line not in self.lines[-1:]:
            self.lines.append(line)

    def _note_application(self, event):
        if event.type.endswith("add") and event.source.get_role() == Atspi.Role.DESKTOP_FRAME:
            self.application = event.any_data

    def _line(self, event):
        if event.type.startswith("object:state-changed"):
            self.focused = event.source if event.detail1 else self.focused
            return describe(event.source) if event.detail1 else None
        if event.source != self.focused:  # as a screen reader, which knows the object that it has said
            return None
        if event.type.endswith("name"):
            return "now " + event.source.get_name()
        return "now " + event.source.get_description()

    def listen(self):
        """Takes what has come."""
        context = GLib.MainContext.default()
        while context.iteration(False):
            pass
        return True

    def wait_for(self, line, after=0):
        """Listens until that line is said, behind so many lines."""
        try:
            desktop.wait_until(f"'{line}' to be said", lambda: self.listen() and line in self.lines[after:])
        except desktop.Failure as failure:
            raise desktop.Failure(f"{failure}; said was {self.lines[after:]}") from None

    def has_application(self, deadline):
        """Whether an application has come to the bus."""
        return desktop.poll(lambda: self.listen() and self._application(), deadline) is not None

    def begin(self, name):
        """Says the tree of that name once it is there and has the focus, as on coming into a window: the application tells
        nothing of what was before it knew that somebody listens."""
        tree = self.tree(name)
        desktop.wait_until("the focus", lambda: self.listen() and self._has_focus(tree))
        self.lines = [describe(tree)]

    @staticmethod
    def _has_focus(tree):
        return tree.get_state_set().contains(Atspi.StateType.FOCUSED) or any(
            tree.get_child_at_index(i).get_state_set().contains(Atspi.StateType.FOCUSED) for i in range(tree.get_child_count()))

    def tree(self, name):
        """The tree of that name in Kestrel."""
        return desktop.wait_until(f"a tree '{name}'", lambda: self.listen() and self._find(self._application(), name))

    def _application(self):
        """The first one may have come before the client hears of any."""
        return self.application or Atspi.get_desktop(0).get_child_at_index(0)

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
