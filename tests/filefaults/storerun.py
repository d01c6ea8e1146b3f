"""One run of a scene with one failure, and what is wrong afterwards."""
import re
import time
from pathlib import Path

from errors import ALL_CALLS
from liststore import CallLog, ListFolder, check_sum, is_temporary

LOCK = "list.kvtl.lock"
SLOW = 0.8  # seconds after which the library saves by itself
DATED = re.compile(r"\w+\.(unsaved-|refused-|)\d{4}-\d\d-\d\d_\d\d-\d\d-\d\d(-\d+)?\.kvtl$")


class StoreRun:
    def __init__(self, program, scene, folder, number=0, error=0, length=0):
        self.program, self.scene = program, scene
        self.number, self.error, self.length = number, error, length
        self.folder = ListFolder(Path(folder) / "lists", scene.files)
        self.log_file = Path(folder) / "calls"
        self.faults = []

    def __str__(self):
        call = self.log.failed[0] if self.log.failed else "none"
        return f"{self.scene.name}: call {self.number} ({call}), error {self.error}, length {self.length}"

    def run(self):
        """As often as it takes until the library has had no time to save by itself in between."""
        start = time.monotonic()
        self.faults = list(self.find_faults())
        if time.monotonic() - start > SLOW and None not in self.answers:
            return self.run()
        return self

    def ask(self, line):
        answer = self.program.ask(line.replace("FOLDER", str(self.folder.path)))
        self.answers.append(answer)
        return answer

    def find_faults(self):
        self.answers = []
        self.folder.fill()
        self.before = self.folder.look()
        self.program.send(f"run {self.folder.path}/list.kvtl")
        for command in self.scene.before:
            self.ask(command)
        self.fail()
        if None in self.answers:
            self.log = CallLog(self.log_file.read_text())
            self.program.restart()
            yield "it hangs, or has ended"
            return
        yield from self.scene.check(self)
        yield from self.folder_faults()
        yield from self.recovery_faults()
        yield from self.content_faults()

    def fail(self):
        """The commands under failures, and what the disk has then."""
        started = bool(self.scene.before)
        self.memory_before = self.ask("list") if started else None
        self.ask(f"begin {self.folder.path} {self.log_file} {self.number} {self.error} {self.length} {int(self.scene.flags)}")
        self.answer = self.ask(self.scene.tried)
        self.ask("over")
        self.ended = self.scene.tried == "end"
        self.memory_after = self.memory_before if self.ended else self.ask("list")
        self.warnings = self.ask("warnings")
        self.after = self.folder.look()
        self.log = CallLog(self.log_file.read_text())

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
        """The disk is well again: the list goes to its place, or beside one that is not to be written."""
        if not self.ended:
            self.ask("add After")
            saved = self.ask("save")
            memory = self.ask("list")
            self.after = self.folder.look()
            target = "real.kvtl" if "real.kvtl" in self.before else "list.kvtl"
            if saved == "0" and self.sum_of(target) != memory:
                yield "the next save says that it saved, and has not"
            if not any(self.sum_of(name) == memory for name in self.after):
                yield f"the next save answers {saved}, and the list is nowhere"
            if saved != "0" and not self.may_stay_unsaved():
                yield f"the next save answers {saved}, though the disk is well again"
            self.ask("end")
        status = self.ask("quit")
        if status != "0":
            self.program.restart()
            yield f"it ended with {status}"
        self.after = self.folder.look()
        locks = [name for name in self.after if name.endswith(".lock")]
        if locks and not (self.ended and "unlink" in self.log.failed):
            yield f"{locks[0]} was left over"

    def may_stay_unsaved(self):
        """What could not be read at the start is not replaced; nor is what was refused."""
        return (not self.scene.before and self.log.failed) or "damaged" in self.scene.name or self.scene.name == "refused"

    def content_faults(self):
        known = {content for content in self.scene.files.values() if isinstance(content, bytes)}
        for name, (content, _, _) in self.after.items():
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
