"""One run of a scene with one failure, and what is wrong afterwards."""
import re
from pathlib import Path

from errors import ALL_CALLS
from liststore import CallLog, ListFolder, check_sum, is_temporary

LOCK = "list.kvtl.lock"
DATED = re.compile(r"\w+\.(unsaved-|refused-|)\d{4}-\d\d-\d\d_\d\d-\d\d-\d\d(-\d+)?\.kvtl$")


class StoreRun:
    def __init__(self, program, scene, folder, number=0, error=0, length=0):
        self.program, self.scene = program, scene
        self.number, self.error, self.length = number, error, length
        self.folder = ListFolder(Path(folder) / "lists", scene.files)
        self.log_file = Path(folder) / "calls"
        self.ends = scene.tried == "end"

    def __str__(self):
        call = self.log.failed[0] if self.log.failed else "none"
        return f"{self.scene.name}: call {self.number} ({call}), error {self.error}, length {self.length}"

    def ask(self, start, *commands):
        """The answers; none where the process has ended instead, and how."""
        line = "\t".join([*start, *commands]).replace("FOLDER", str(self.folder.path))
        answer = self.program.ask(line)
        if not answer.startswith(":"):
            self.status = answer
            return None
        return answer[1:].split("\t")

    def run(self):
        self.status = None
        self.folder.fill()
        self.before = self.folder.look()
        done = self.fail() and self.recover()
        if self.status is None:
            self.status = self.program.ask("quit")
        self.log = CallLog(self.log_file.read_text())
        self.faults = list(self.find_faults()) if done else []
        if self.status != "0":
            self.faults.append(f"it ended with {self.status}")
        return self

    def fail(self):
        """The commands under failures, and what the disk has then."""
        plan = f"begin {self.folder.path} {self.log_file} {self.number} {self.error} {self.length} {int(self.scene.flags)}"
        before = [*self.scene.before, "list"] if self.scene.before else []
        after = [] if self.ends else ["list"]
        answers = self.ask([f"run {self.folder.path}/list.kvtl"], *before, plan, self.scene.tried, "over", "warnings", *after)
        self.after = self.folder.look()
        if answers is None:
            return False
        self.memory_before = answers[len(before) - 1] if before else None
        self.answer, self.warnings = answers[len(before) + 1], answers[len(before) + 3]
        self.memory_after = self.memory_before if self.ends else answers[-1]
        return True

    def recover(self):
        """The disk is well again, and the list is saved once more."""
        answers = None if self.ends else self.ask([], "add After", "save", "list", "end")
        self.recovered = self.folder.look()
        if answers:
            self.saved, self.memory_saved = answers[1:3]
        return self.ends or answers is not None

    def find_faults(self):
        yield from self.scene.check(self)
        yield from self.folder_faults()
        if not self.ends:
            yield from self.recovery_faults()
        yield from self.lock_faults()
        yield from self.content_faults()

    def scene_success(self):
        return "0" if self.scene.tried.startswith("import") else "1"

    def sum_of(self, name):
        content = self.after.get(name, (None,))[0]
        return check_sum(content) if isinstance(content, bytes) else None

    def folder_faults(self):
        """Nothing good has gone, and nothing but whole files has come."""
        allowed = {self.memory_before, self.memory_after, *(check_sum(content) for content in self.scene.files.values() if isinstance(content, bytes))}
        for name, (content, _, mode) in self.before.items():
            yield from self.old_file_faults(name, content, mode, allowed)
        left_over = "unlink" in self.log.failed
        for name in self.after.keys() - self.before.keys() - {LOCK, "real.kvtl.lock", self.scene.target}:
            if is_temporary(name) and not left_over:
                yield f"{name} was left over"
            elif not is_temporary(name) and (not DATED.match(name) or self.sum_of(name) not in allowed):
                yield f"{name} has come, which is no list that there was"
        for name, (_, inode, _) in self.after.items():
            if inode in self.log.lost and not is_temporary(name) and not name.endswith(".lock"):
                yield f"{name} was not brought to the disk"

    def old_file_faults(self, name, content, mode, allowed):
        if name.endswith(".lock"):
            return
        if name not in self.after:
            if name not in self.scene.may_go or self.sum_of(self.scene.target) != self.memory_after:
                yield f"{name} has gone"
        elif name != self.scene.target and self.after[name][0] != content:
            yield f"{name} was changed"
        elif self.after[name][2] != mode:
            yield f"{name} has another mode"
        elif isinstance(content, bytes) and self.sum_of(name) not in allowed:
            yield f"{name} is neither the old list nor the new one"

    def recovery_faults(self):
        """The list goes to its place, or beside one that is not to be written."""
        sums = {name: check_sum(content) for name, (content, _, _) in self.recovered.items() if isinstance(content, bytes)}
        own = "real.kvtl" if "real.kvtl" in self.before else "list.kvtl"
        if self.saved == "0" and sums.get(own) != self.memory_saved:
            yield "the next save says that it saved, and has not"
        if self.memory_saved not in sums.values():
            yield f"the next save answers {self.saved}, and the list is nowhere"
        if self.saved != "0" and not self.may_stay_unsaved():
            yield f"the next save answers {self.saved}, though the disk is well again"

    def lock_faults(self):
        locks = [name for name in self.recovered if name.endswith(".lock")]
        if locks and not (self.ends and "unlink" in self.log.failed):
            yield f"{locks[0]} was left over"

    def may_stay_unsaved(self):
        """What could not be read at the start is not replaced; nor is what was refused."""
        return (not self.scene.before and self.log.failed) or "damaged" in self.scene.name or self.scene.name == "refused"

    def content_faults(self):
        known = {content for content in self.scene.files.values() if isinstance(content, bytes)}
        for name, (content, _, _) in self.recovered.items():
            if name.endswith(".kvtl") and isinstance(content, bytes) and content not in known and content not in GOOD:
                reason = self.program.ask(f"read {self.folder.path / name}")
                if reason:
                    yield f"{name} cannot be read: {reason}"
                else:
                    GOOD.add(content)


GOOD = set()  # contents that the library's reader took


def failing_runs(program, scene, folder, step=1, first=0):
    """Each call of the scene fails in each way, until a run meets no failure; of these every step-th."""
    calls = StoreRun(program, scene, folder).run()
    yield calls
    from errors import ways_to_fail
    ways = [(number, error, length) for number, call in enumerate(calls.log.calls, 1) for error, length in ways_to_fail(call)]
    for number, error, length in ways[first::step]:
        yield StoreRun(program, scene, folder, number, error, length).run()
    last = StoreRun(program, scene, folder, len(calls.log.calls) + 1, 5, ALL_CALLS).run()
    if last.log.failed:
        last.faults.append("there is one more call than there was")
    yield last
