"""Who may include whom; see "Folders" in docs/architecture.md. Usage: include_rules.py ROOT"""
import re
import sys

from sources import code_lines, report, root_argument, sources

# Folders of src/ from the bottom; an include goes down, never sideways between tree, toolbar, dialogs.
LEVEL = {"interfaces": 0, "data": 1, "model": 2, "delegate": 3, "tree": 4, "toolbar": 4, "dialogs": 4, "shell": 5}
NODE_RECORDS = {f"data/{name}.h" for name in ("EnNodeType", "SNode", "SProcessorAllNode", "SProcessorGroupNode", "SProcessorNode")}
# The one arrow that runs back: rows are expanded and filtered in the view. In the source, not the header.
BACK_ARROWS = {("model", ".cpp", "tree/CProcessorTree.h")}
HOST_FOLDERS = {"CommonComponent", "CorvidControl", "journal", "Kestrel"}
# What a folder of host/ may use of the others.
HOST_USES = {"CommonComponent": set(), "CorvidControl": set(), "journal": set(), "Kestrel": {"CorvidControl", "journal", "CommonComponent"}}
INCLUDE = re.compile(r'^\s*#\s*include\s+(["<])([^">]+)[">]')


def quoted_includes(path):
    for number, line in code_lines(path):
        match = INCLUDE.match(line)
        if match and (match.group(1) == '"' or "/" in match.group(2)) and not match.group(2).endswith(".moc"):
            yield number, match.group(1), match.group(2)


def target_of(root, path, name):
    """The project's file that an include means, relative to src/ or host/; None for foreign ones."""
    for base in (path.parent, root / "src", root / "host"):
        candidate = (base / name).resolve()
        if candidate.is_file() and candidate.is_relative_to(root):
            return candidate.relative_to(root)
    return None


def fault_in_src(folder, suffix, target):
    if target.parts[0] != "src":
        return f"src/ includes {target}"
    name = "/".join(target.parts[1:])
    to_folder = target.parts[1]
    if folder == "interfaces":
        return None if to_folder == "interfaces" or name in NODE_RECORDS else f"an interface includes {name}"
    if (folder, suffix, name) in BACK_ARROWS or to_folder == folder or LEVEL[to_folder] < LEVEL[folder]:
        return None
    return f"{folder} includes {name}, which is not below it"


def fault_in_host(folder, target):
    name = "/".join(target.parts[1:])
    if target.parts[0] == "src":
        return None if target.parts[1] == "interfaces" or name in NODE_RECORDS else f"the host includes {name} of the panel"
    if target.parts[0] != "host":
        return f"host/ includes {target}"
    to_folder = target.parts[1]
    allowed = to_folder == folder or to_folder not in HOST_FOLDERS or to_folder in HOST_USES.get(folder, set())
    return None if allowed else f"{folder} includes {name} of another library"


def findings_of(root, path):
    part, folder = path.relative_to(root).parts[:2]
    for number, kind, name in quoted_includes(path):
        target = target_of(root, path, name)
        if target is None:
            if kind == '"':
                yield path, number, f'"{name}" is no file of this project; foreign headers take angle brackets'
            continue
        fault = fault_in_src(folder, path.suffix, target) if part == "src" else fault_in_host(folder, target)
        if fault:
            yield path, number, fault
        record = part == "src" and "/".join(path.relative_to(root).parts[1:])
        if record in NODE_RECORDS and "/".join(target.parts[1:]) not in NODE_RECORDS:
            yield path, number, "a node record includes more than node records"


def main():
    root = root_argument()
    return report(root, [finding for path in sources(root, "src", "host") for finding in findings_of(root, path)])


if __name__ == "__main__":
    sys.exit(main())
