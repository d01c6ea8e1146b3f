"""What is done to a list while calls fail, and what the program's answers must mean on the disk."""
import re
from dataclasses import dataclass, field
from pathlib import Path

from liststore import as_list, check_sum

EXAMPLES = Path(__file__).resolve().parents[2] / "examples"
OLD = (EXAMPLES / "studio.kvtl").read_bytes()
OTHER = (EXAMPLES / "single.kvtl").read_bytes()
EMPTY = (EXAMPLES / "empty.kvtl").read_bytes()


def renamed(content, name):
    """The same list under another name of its root: a list of its own."""
    body = content.split(b"\n", 1)[1]
    return as_list(re.sub(rb'(?m)^    "name": ".*"', b'    "name": "%s"' % name.encode(), body))


DAMAGED = OLD[:-400]
GENERATIONS = {f"list.2024-05-01_12-30-{second:02}.kvtl": renamed(OTHER, f"Take {second}") for second in range(13)}
# The first of the day and the last ten stay; one comes.
OLD_GENERATIONS = set(sorted(GENERATIONS)[1:4])


# The answer to each command when nothing fails; None for a path.
DONE = {"start": "", "save": "0", "leave": "", "end": "1", "aside": None, "delete": "",
        "export": "0", "import": "0", "earlier": "1", "refused": "1"}
NOBODY = 4194305  # no process can have that number


@dataclass
class Scene:
    """files: what stands in the folder. before and tried: commands, of which the calls of the latter fail. check: takes a
    run, yields what is wrong with the answer. target: the file that the command is about. may_go: what it may remove.
    flags: whether the file system knows a rename that overwrites nothing."""
    name: str
    files: dict
    before: list
    tried: str
    check: object
    target: str = "list.kvtl"
    may_go: set = field(default_factory=set)
    flags: bool = True

    def is_done(self, answer):
        """Whether the answer says that the command did what it is for."""
        done = "7" if self.check is check_protected else DONE[self.tried.split()[0]]
        return bool(answer) if done is None else answer == done


def holds(run, content_sum, pattern=r".*\.kvtl$"):
    return any(re.match(pattern, name) and run.sum_of(name) == content_sum for name in run.after)


def target_is_old(run):
    before, after = (files.get(run.scene.target, (None,))[0] for files in (run.before, run.after))
    if before != after:
        yield f"{run.scene.target} is not as it was, though the answer was '{run.answer}'"


def target_is(run, content_sum):
    if run.sum_of(run.scene.target) != content_sum:
        yield f"{run.scene.target} is not the list, though the answer was '{run.answer}'"


def memory_is_old(run):
    if run.memory_after != run.memory_before:
        yield f"the list in memory has changed, though the answer was '{run.answer}'"


def kept_where_it_says(run):
    said = re.search(r"It is kept in \S*/(\S+\.kvtl)", run.warnings)
    if said and run.sum_of(said.group(1)) != run.memory_after:
        yield f"the list is not in {said.group(1)}"


def check_start(run):
    yield from target_is_old(run)
    if run.answer == "" and run.memory_after != check_sum(OLD):
        yield "the list was not read, and nobody says so"
    if run.memory_after not in (check_sum(OLD), check_sum(EMPTY)):
        yield "the list in memory is neither the one on the disk nor empty"


def check_save(run):
    yield from target_is(run, run.memory_after) if run.scene.is_done(run.answer) else target_is_old(run)
    yield from memory_is_old(run)
    yield from kept_where_it_says(run)


def check_protected(run):
    """Nothing may be saved there: neither the own place nor what the answer says is new."""
    yield from target_is_old(run)
    yield from memory_is_old(run)
    yield from kept_where_it_says(run)
    if run.answer == "0":
        yield "it says that the list was saved where nothing may be"


def check_export(run):
    yield from target_is(run, run.memory_after) if run.answer == "0" else target_is_old(run)
    yield from memory_is_old(run)


def check_import(run):
    if not run.scene.is_done(run.answer):
        yield from target_is_old(run)
        yield from memory_is_old(run)
        return
    yield from target_is(run, run.memory_after)
    if run.memory_before == run.memory_after:
        yield "nothing was imported"
    if not holds(run, run.memory_before) and run.memory_before != check_sum(EMPTY):
        yield "the list before was not kept"


def check_refused(run):
    if run.answer != "1":
        yield from target_is_old(run)
        yield from memory_is_old(run)
        return
    yield from target_is(run, run.memory_after)
    if not holds(run, check_sum(DAMAGED), r"list\.refused-"):
        yield "what was refused was not kept"


def check_aside(run):
    yield from target_is_old(run)
    if run.answer and run.sum_of(Path(run.answer).name) != run.memory_after:
        yield f"{run.answer} is not the list"


def check_delete(run):
    if "could not be kept" not in run.warnings and not holds(run, run.memory_before):
        yield "the list before the deletion was not kept"


def check_end(run):
    if not run.warnings and run.sum_of(run.scene.target) != run.memory_before:
        yield "the list was not saved, and nobody says so"


CHANGED = ["start", "rename Ours"]
SCENES = [
    Scene("start", {"list.kvtl": OLD}, [], "start", check_start),
    Scene("start through a link", {"list.kvtl": "real.kvtl", "real.kvtl": OLD}, [], "start", check_start, "real.kvtl"),
    Scene("start after a crash", {"list.kvtl": OLD, "list.kvtl.lock": b"%d\nlist_store\n\n" % NOBODY}, [], "start",
          check_start),
    Scene("save", {"list.kvtl": OLD}, CHANGED, "save", check_save),
    Scene("save with old generations", {"list.kvtl": OLD, **GENERATIONS}, CHANGED, "save", check_save, may_go=OLD_GENERATIONS),
    Scene("save through a link", {"list.kvtl": "real.kvtl", "real.kvtl": OLD}, CHANGED, "save", check_save, "real.kvtl"),
    Scene("first save", {}, ["start", "add Ours"], "save", check_save),
    Scene("first save without flags", {}, ["start", "add Ours"], "save", check_save, flags=False),
    Scene("save over a damaged list", {"list.kvtl": DAMAGED}, ["start", "add Ours"], "save", check_protected),
    Scene("leave", {"list.kvtl": OLD}, CHANGED, "leave", check_save),
    Scene("end", {"list.kvtl": OLD}, CHANGED, "end", check_end),
    Scene("aside", {"list.kvtl": OLD}, CHANGED, "aside", check_aside),
    Scene("delete", {"list.kvtl": OLD}, ["start"], "delete", check_delete),
    Scene("export", {"list.kvtl": OLD}, CHANGED, "export FOLDER/out.kvtl", check_export, "out.kvtl"),
    Scene("export over a file", {"list.kvtl": OLD, "out.kvtl": OTHER}, CHANGED, "export FOLDER/out.kvtl", check_export, "out.kvtl"),
    Scene("export through a link", {"list.kvtl": OLD, "out.kvtl": "far.kvtl", "far.kvtl": OTHER}, CHANGED,
          "export FOLDER/out.kvtl", check_export, "far.kvtl"),
    Scene("export over a damaged own list", {"list.kvtl": DAMAGED, "way.kvtl": "list.kvtl"}, ["start", "add Ours"],
          "export FOLDER/way.kvtl", check_protected),
    Scene("import", {"list.kvtl": OLD, "other.kvtl": OTHER}, CHANGED, "import FOLDER/other.kvtl", check_import),
    Scene("import with old generations", {"list.kvtl": OLD, "other.kvtl": OTHER, **GENERATIONS}, CHANGED,
          "import FOLDER/other.kvtl", check_import, may_go=OLD_GENERATIONS),
    Scene("first import", {"other.kvtl": OTHER}, ["start"], "import FOLDER/other.kvtl", check_import),
    Scene("earlier", {"list.kvtl": OLD, **dict(list(GENERATIONS.items())[:3])}, ["start"], "earlier", check_import),
    Scene("refused", {"list.kvtl": DAMAGED}, ["start", "add Ours"], "refused", check_refused),
]
