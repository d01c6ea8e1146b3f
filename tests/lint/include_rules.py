"""Who may include whom; see "Folders" in docs/architecture.md. Usage: include_rules.py ROOT"""
import re
import sys

from sources import code_lines, report, root_argument, sources

# Folders of src/ from the bottom; an include goes down, never sideways between tree, toolbar, dialogs.
LEVEL = {
    "data/nodes": 0,
    "interfaces": 1,
    "data": 2,
    "model": 3,
    "delegate": 4,
    "tree/commands": 5,
    "dialogs": 6,
    "toolbar": 6,
    "tree": 6,
    "shell/commands": 7,
    "shell": 8,
}
# Commands are told by callback what they have to announce.
NOT_BELOW = {"shell/commands": {"tree", "tree/commands", "toolbar"}}
# Names and numbers only, which every folder of src/ may read: it includes nothing of src/ itself.
FREE = {"delegate/RowLook.h"}
# What the host shares with the panel.
SHARED = {"data/nodes", "interfaces"}
ROOTS = ("src", "src/data", "host")  # where includes are named from; of src/data only the node records
# The one arrow that runs back: rows are expanded and filtered in the view. In the source, not the header.
BACK_ARROWS = {("model", ".cpp", "tree/CProcessorTree.h")}
HOST_FOLDERS = {"CommonComponent", "CorvidControl", "contract", "controlhost", "journal", "Kestrel"}
# What a folder of host/ may use of the others.
HOST_USES = {
    "CommonComponent": set(),
    "CorvidControl": {"controlhost"},
    "contract": {"controlhost"},
    "controlhost": set(),
    "journal": {"controlhost"},
    "Kestrel": {"controlhost", "journal", "CommonComponent"},
}
INCLUDE = re.compile(r'^\s*#\s*include\s+(["<])([^">]+)[">]')


def quoted_includes(path):
    for number, line in code_lines(path):
        match = INCLUDE.match(line)
        if match and (match.group(1) == '"' or "/" in match.group(2)) and not match.group(2).endswith(".moc"):
            yield number, match.group(1), match.group(2)


def target_of(root, path, name):
    """The project's file that an include means, relative to the root; None for foreign ones."""
    for base in (path.parent, *(root / base for base in ROOTS)):
        candidate = (base / name).resolve()
        if candidate.is_file() and candidate.is_relative_to(root):
            return candidate.relative_to(root)
    return None


def folder_of(path):
    """The subsystem of src/ that a file belongs to: the deepest one that the levels name."""
    parts = path.parts[1:-1]
    names = ["/".join(parts[:count]) for count in range(len(parts), 0, -1)]
    return next((name for name in names if name in LEVEL), parts[0])


def fault_in_src(path, target):
    if target.parts[0] != "src":
        return f"src/ includes {target}"
    name = "/".join(target.parts[1:])
    folder, to_folder = folder_of(path), folder_of(target)
    if "/".join(path.parts[1:]) in FREE:
        return f"{path.name} is read by every folder, so it includes nothing of src/"
    if name in FREE:
        return None
    if (folder, path.suffix, name) in BACK_ARROWS or to_folder == folder:
        return None
    if LEVEL[to_folder] < LEVEL[folder] and to_folder not in NOT_BELOW.get(folder, set()):
        return None
    return f"{folder} includes {name}, which is not below it"


def fault_in_host(path, target):
    folder = path.parts[1]
    name = "/".join(target.parts[1:])
    if target.parts[0] == "src":
        return None if folder_of(target) in SHARED else f"the host includes {name} of the panel"
    if target.parts[0] != "host":
        return f"host/ includes {target}"
    to_folder = target.parts[1]
    allowed = to_folder == folder or to_folder not in HOST_FOLDERS or to_folder in HOST_USES.get(folder, set())
    return None if allowed else f"{folder} includes {name} of another library"


def findings_of(root, path):
    relative = path.relative_to(root)
    for number, kind, name in quoted_includes(path):
        target = target_of(root, path, name)
        if target is None:
            if kind == '"':
                yield path, number, f'"{name}" is no file of this project; foreign headers take angle brackets'
            continue
        fault = fault_in_src(relative, target) if relative.parts[0] == "src" else fault_in_host(relative, target)
        if fault:
            yield path, number, fault


def main():
    root = root_argument()
    return report(root, [finding for path in sources(root, "src", "host") for finding in findings_of(root, path)])


if __name__ == "__main__":
    sys.exit(main())
