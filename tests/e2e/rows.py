"""The rows of the panel's tree, followed from command to command, so that a test knows which row stands where.

Nodes go by their ids as the journal shows them; ROOT stands for the row "All processors".
"""

import re
from collections import namedtuple

import desktop
import listfile

ROOT = "null"

Row = namedtuple("Row", "kind node group top")  # group: that of a member; top: pixels below the first row's


class Rows:
    def __init__(self, groups, processors):
        self.groups = [self._read_group(entry) for entry in groups]
        self.loose = [entry["id"][:8] for entry in processors]
        self.open = set()  # processors whose information row is open

    @staticmethod
    def _read_group(entry):
        return {"node": entry["id"][:8], "name": entry["name"], "expanded": entry["expanded"],
                "members": [member["id"][:8] for member in entry["processors"]]}

    def visible(self):
        """The rows of root, groups and processors, from the top."""
        rows, top = [Row("root", ROOT, None, 0)], desktop.ROW
        for kind, node, group in self._walk():
            rows.append(Row(kind, node, group, top))
            top += desktop.ROW + (desktop.INFO if node in self.open else 0)
        return rows

    def _walk(self):
        for group in self.groups:
            yield "group", group["node"], None
            if group["expanded"]:
                yield from (("processor", member, group["node"]) for member in group["members"])
        yield from (("processor", node, None) for node in self.loose)

    def row(self, node):
        return next(row for row in self.visible() if row.node == node)

    def nodes(self):
        return [row.node for row in self.visible()]

    def bottom(self):
        """Where the space under the last row begins."""
        last = self.visible()[-1]
        return last.top + desktop.ROW + (desktop.INFO if last.node in self.open else 0)

    def between(self, first, last):
        """The nodes of a range."""
        nodes = self.nodes()
        start, end = sorted((nodes.index(first), nodes.index(last)))
        return nodes[start:end + 1]

    def above(self, selected):
        """What is to be selected when these rows go away."""
        nodes = self.nodes()
        marked = [place for place, node in enumerate(nodes) if node in selected and node != ROOT]
        return nodes[(marked[0] if marked else len(nodes)) - 1]

    def beside(self, node, step):
        """The node above (-1) or below (1); the root follows on the last one."""
        nodes = self.nodes()
        return nodes[(nodes.index(node) + step) % len(nodes)]

    def group(self, node):
        return next((group for group in self.groups if group["node"] == node), None)

    def next_group_name(self):
        taken = {group["name"] for group in self.groups}
        return next(name for name in (f"Group {number}" for number in range(1, 1000)) if name not in taken)

    def follow(self, command):
        """Takes over what a command of the journal changes."""
        operation, arguments = re.fullmatch(r"(?:gui |job )?(\w+)\((.*)\)", command).groups()
        words = arguments.strip("[]").split(", ")
        change = getattr(self, "_" + operation, None)
        if change:
            change(*words)

    def _AddGroup(self, name, _empty):
        self.groups.append({"node": None, "name": name.strip('"'), "expanded": True, "members": []})

    def _SetSelectedNodes(self, *nodes):
        self._meet(nodes[0])

    def _MoveProcessor(self, node, target):
        self._meet(target)
        if node not in self._list(target):
            self._take(node)
            self._list(target).append(node)

    def _RenameGroup(self, node, name):
        self.group(node)["name"] = name.strip('"')

    def _DeleteProcessor(self, node, _option):
        self._take(node)

    def _DeleteGroup(self, node, with_processors):
        group = self.group(node)
        self.groups.remove(group)
        if with_processors == "false":
            self.loose += group["members"]

    def _SetExpanded(self, node, expanded):
        if node == ROOT:
            return  # each rebuild unfolds it again
        group = self.group(node)
        if group:
            group["expanded"] = expanded == "true"
        elif expanded == "true":
            self.open.add(node)
        else:
            self.open.discard(node)

    def _meet(self, node):
        """The first id that nobody knows is that of the group which was just added."""
        new = self.group(None)
        if new and node not in self.known():
            new["node"] = node

    def known(self):
        """All nodes, those in folded groups too."""
        members = [member for group in self.groups for member in group["members"]]
        return [ROOT] + [group["node"] for group in self.groups] + members + self.loose

    def _list(self, target):
        return self.loose if target == ROOT else self.group(target)["members"]

    def _take(self, node):
        for nodes in [group["members"] for group in self.groups] + [self.loose]:
            if node in nodes:
                nodes.remove(node)

    def outline(self):
        """The ids in the order of the list, members indented, as outline_of() reads them from a file."""
        lines = []
        for group in self.groups:
            lines += [group["node"]] + ["  " + member for member in group["members"]]
        return lines + self.loose


def outline_of(path):
    tree = listfile.read(path)
    return Rows(tree["groups"], tree["processors"]).outline()
