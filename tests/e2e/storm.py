"""A storm of device changes, and a user in it: each gesture is compared with the rows that were selected on the
screen when it began."""

import itertools
import json
import re

import desktop
from listfile import processor, short_id
from rows import Rows, outline_of
from scene import COLUMNS, HOVERED, SELECTED, Scene, small_list

RATE = 20  # changes a second
SECONDS = 240  # longer than any script takes
TRIES = 3  # of a click that a refresh undoes
MISSING = 5.0  # seconds after which a command will not come any more

# Where a command may differ from what the screen shows. All are on purpose.
KEPT = (
    "Delete takes selected rows that the filter hides, and the walks land on hidden rows",
    "Delete with nothing selected, or after the last row was Ctrl-clicked away",
    "Down in an open editor, then Delete",
    "F2 on the root or an information row, then anything",
    "a click undone by a racing refresh",
    "a library's selection or a tab click during a refresh",
    "a folded group goes with what it holds",
    "a drop from a second window moves the target's own selection",
    "a press within the double-click time arms no drag",
    "no hover after a rebuild until the mouse moves",
    "Delete after a click on the tool bar acts on the list",
)

# Those that take a coincidence, a second program or rows that nothing rebuilds: between the two presses of a double click a
# rebuild arms the drag, and so that one is tried where no device changes (test_gestures.py). A click that was undone is made again.
BY_CHANCE = (
    "a click undone by a racing refresh",
    "a press within the double-click time arms no drag",
    "a library's selection or a tab click during a refresh",
    "a drop from a second window moves the target's own selection",
)

NOISE = ("noise 1", "noise 2", "noise 3")
QUIET = ("alpha", "beta", "delta", "one", "two", "three")


def storm(quiet=QUIET):
    """A scenario in which each change rebuilds all rows and none changes what the gestures meet: the noise drops out
    and comes back, the quiet ones change their project."""
    changes = itertools.cycle(
        [{"do": do, "node": node} for do in ("offline", "online") for node in NOISE]
        + [{"do": "project", "node": node, "project": project} for project in ("Aurora", "Borealis") for node in quiet])
    steps = [dict(next(changes), at=round(0.5 + number / RATE, 3)) for number in range(RATE * SECONDS)]
    return json.dumps({"title": f"{RATE} changes a second", "steps": steps})


def storm_list():
    """The small list with the noise under it, rows 10 to 12."""
    groups, loose = small_list()
    return groups, loose + [processor(name, f"192.168.2.{number}") for number, name in enumerate(NOISE, 1)]


NEW = "new"
ID = re.compile(r"\b[0-9a-f]{8}\b")
GIVEN = re.compile(r"GetSelectedNodes\(false\) = \[(.*)\]")
REPORT = re.compile(r"((?:gui|job) SetSelectedNodes)\(\[(.*)\]\)")


def split_report(command):
    """("gui SetSelectedNodes", [ids]) of the report of a selection; of another command its text and None."""
    found = REPORT.fullmatch(command)
    return (found.group(1), found.group(2).split(", ")) if found else (command, None)


def report_of(nodes):
    """The report of a selection. The order of the ids does not count."""
    return f"gui SetSelectedNodes([{', '.join(sorted(nodes))}])"


def is_report_of(reported, selected):
    """Whether the journal's words stand for this selection. It writes the first three ids and how many more there are."""
    more = reported[-1].endswith(" more") and int(reported[-1].split()[0])
    listed = reported[:-1] if more else reported
    return set(listed) <= set(selected) and len(listed) + (more or 0) == len(selected)


def sort_moves(commands):
    """Calls of one kind that the user's own thread makes in a row, one for each selected row, in one order."""
    kinds = itertools.groupby(commands, lambda command: command.split("(")[0])
    return [command for kind, calls in kinds for command in (sorted(calls) if kind.startswith("gui") else calls)]


class Storm(Scene):
    SCENARIO = storm()
    LIST = staticmethod(storm_list)

    STAGE, ALPHA, BETA, GAMMA, FOLDED, DELTA, EMPTY, ONE, TWO, THREE, NOISE_1, NOISE_2, NOISE_3 = (
        short_id(name) for name in ("Stage", "alpha", "beta", "gamma", "Folded", "delta", "Empty", "one", "two", "three", *NOISE))

    def setUp(self):
        super().setUp()
        self.rows = Rows(*self.LIST())
        self.disagreements, self.met = [], set()
        self.columns = itertools.cycle(COLUMNS)
        self.restless = itertools.cycle((300, 304))  # where in its row the mouse is
        self.behind = self.followed = self.kestrel.mark()
        self.begun = self.steady()

    # What is on the screen

    def point(self, node, column):
        x, y = self.kestrel.row(0, column)
        return x, y + self.rows.row(node).top

    def selected(self):
        """The nodes whose rows have the colour of selected ones, from the top."""
        picture, bottom = self.desktop.grab(), self.kestrel.tool_bar_button("Menu")[1] - desktop.ROW
        points = {node: self.point(node, 250) for node in self.rows.nodes()}
        return [node for node, point in points.items() if point[1] < bottom and picture.getpixel(point)[:3] == SELECTED]

    def reported(self):
        """The last selection that the library was given."""
        records = [record for record in self.kestrel.records()
                   if record["kind"] == "command" and record["text"].startswith("SetSelectedNodes")]
        return records[-1]["text"][len("SetSelectedNodes(["):-2].split(", ")

    def rebuilt(self):
        """Whether a change of a device has rebuilt the rows since the last gesture."""
        changes = [int(record["number"]) for record in self.kestrel.records()
                   if record["text"].endswith("DevicesChanged") and int(record["number"]) > self.behind]
        return changes and self.kestrel.journal("^GetDiscoveredTree", "read", changes[0])

    def pass_fence(self):
        """Returns when the application has handled all input so far: a row that the mouse reaches after it is lit."""
        dark = [number for number, colour in enumerate(self.first_rows()) if colour not in (HOVERED, SELECTED)]
        tries = (number for number in itertools.cycle(dark) for _ in range(8))
        desktop.wait_until("a row lit under the mouse", lambda: self.light(next(tries)))

    def light(self, number):
        """Moves the mouse within a row. True when the row is lit; each rebuild takes the light away until the next move."""
        self.desktop.move(*self.kestrel.row(number, next(self.restless)))
        return self.first_rows()[number] == HOVERED

    def first_rows(self):
        """The colours of the first places for rows, whatever a gesture has put there."""
        picture = self.desktop.grab()
        return [picture.getpixel(self.kestrel.row(number, 250))[:3] for number in range(16)]

    def steady(self):
        """The selected nodes, once rows were rebuilt since the last gesture and screen and library agree."""
        desktop.wait_until("a rebuild of the rows", self.rebuilt)

        def agree():
            self.pass_fence()
            self.follow()
            selected = self.selected()
            return is_report_of(self.reported(), selected) and selected
        begun = desktop.poll(agree, desktop.DEADLINE)
        if not begun:
            raise desktop.Failure(f"the screen shows {self.selected()}, the library has {self.reported()}; "
                                  f"see {self.desktop.shoot('failed')}")
        return begun

    # Gestures

    def gesture(self, name, act, expected, may_miss=False):
        """Makes one gesture; expected() gives its commands from the nodes selected when it begins, self.begun. may_miss: one
        that a rebuild in its middle makes nothing of, which is made again."""
        for _ in range(TRIES):
            turn = Turn(self.begun, expected(), self.followed, self.rows.known())
            act()
            got = self.settle(turn)
            if not (turn.was_undone(got) or may_miss and not got):
                break
            self.meet("a click undone by a racing refresh")
        fault = turn.find_fault(got, self.begun)
        if fault:
            self.disagreements.append(f"{name}, begun with {turn.begun}: {fault}")

    def settle(self, turn):
        """The commands of the gesture when no more will come. self.begun is then what the next one begins with; what the
        library gets in between counts to the next one."""
        def heard():
            return turn.without_echoes(self.kestrel.commands(turn.mark, with_reads=r"^GetSelectedNodes\(false"))
        desktop.poll(lambda: len(heard()) >= len(turn.wanted), MISSING)  # when too few come, the comparison says which
        desktop.wait_until("the end of the job", lambda: self.is_idle(turn.mark))
        self.behind = self.kestrel.mark()
        self.begun = self.steady()
        return heard()

    def follow(self):
        """Takes over what the commands of the gestures have changed."""
        after, self.followed = self.followed, self.kestrel.mark()
        for command in self.kestrel.commands(after):
            self.rows.follow(command)

    def deviate(self, kept, act, pattern, wanted):
        """Makes a gesture that deviates on purpose: the commands of that pattern are these."""
        self.meet(kept)
        mark = self.kestrel.mark()
        act()
        self.pass_fence()
        desktop.wait_until("the end of the job", lambda: self.is_idle(mark))
        self.assertEqual([command for command in self.kestrel.commands(mark) if re.search(pattern, command)], wanted)
        self.behind = self.kestrel.mark()
        self.begun = self.steady()

    def is_idle(self, mark):
        return len(self.kestrel.journal(r"^SetBusy\(true", "command", mark)) \
            == len(self.kestrel.journal(r"^SetBusy\(false", "command", mark))

    def meet(self, kept):
        """A deviation that is kept on purpose was met."""
        self.assertIn(kept, KEPT)
        self.met.add(kept)

    def finish(self):
        """All gestures agreed, and the list file holds what their commands have made."""
        self.assertEqual(self.disagreements, [])
        self.assertEqual(self.kestrel.quit(), 0)
        self.assertEqual(outline_of(self.list_file), self.rows.outline())


class Turn:
    """One gesture: what was selected before it, which commands it has to give, and what came of it."""

    def __init__(self, begun, wanted, mark, known):
        self.begun, self.wanted, self.mark, self.known = begun, sort_moves(wanted), mark, known

    def clean(self, command):
        """Ids of a report sorted; the id of a node that the gesture has made becomes NEW."""
        operation, nodes = split_report(command)
        if nodes is not None:
            command = f"{operation}([{', '.join(sorted(nodes))}])"
        return ID.sub(lambda found: found.group() if found.group() in self.known else NEW, command)

    def without_echoes(self, commands):
        """Without the reports that only repeat, row by row, what is selected anyway or what a refresh has just read."""
        kept, rest, selected, given = [], list(self.wanted), set(self.begun), set()
        for command in map(self.clean, commands):
            nodes, read = split_report(command)[1], GIVEN.search(command)
            if read:
                given = set(read.group(1).split(", "))
                continue
            if command in rest:
                rest.remove(command)
            elif nodes is not None and (set(nodes) <= selected or set(nodes) <= given):
                continue
            kept.append(command)
            selected = set(nodes or selected)
        return sort_moves(kept)

    def was_undone(self, got):
        """The report of a click came, and then the one of the selection before it."""
        is_click = len(self.wanted) == 1 and split_report(self.wanted[0])[1]
        return is_click and got == self.wanted + [report_of(self.begun)]

    def find_fault(self, got, selected):
        if got != self.wanted:
            return f"wanted {self.wanted}, got {got}"
        reports = [split_report(command)[1] for command in self.wanted]
        end = next((nodes for nodes in reversed(reports) if nodes), sorted(self.begun))
        shown = split_report(self.clean(report_of(selected)))[1]
        return f"selected afterwards {shown}, not {end}" if shown != end else None
