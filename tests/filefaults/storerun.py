"""One run of a scene with one failure, and what is wrong afterwards."""
import re
import shutil
from errno import EIO
from pathlib import Path

from errors import ALL_CALLS, ONCE, ways_to_fail
from liststore import CallLog, check_sum, fill, is_temporary, look

LOCKS = {"list.kvtl.lock", "real.kvtl.lock"}
AT_A_TIME = 40
DATED = re.compile(r"\w+\.(unsaved-|refused-|)\d{4}-\d\d-\d\d_\d\d-\d\d-\d\d(-\d+)?\.kvtl$")


class StoreRun:
    """folder: a new one. line() goes to the program, whose answer comes to finish()."""

    def __init__(self, scene, folder, number=0, error=0, length=ONCE):
        self.scene, self.number, self.error, self.length = scene, number, error, length
        self.folder, self.log_file = folder / "lists", folder / "calls"
        self.after_folder, self.recovered_folder = folder / "after", folder / "recovered"
        self.ends = scene.tried == "end"
        self.log, self.faults = CallLog(), []

    def __str__(self):
        call = self.log.failed[0] if self.log.failed else "none"
        return f"{self.scene.name}: call {self.number} ({call}), {self.error}, {self.length}"

    def line(self):
        fill(self.folder, self.scene.files)
        self.before = look(self.folder)
        plan = f"begin {self.folder} {self.log_file} {self.number} {self.error} {self.length} {int(self.scene.flags)}"
        commands = [*self.scene.before, *(["list"] if self.scene.before else []), plan, self.scene.tried, "over", "warnings",
                    f"look {self.folder} {self.after_folder}"]
        if not self.ends:
            commands += ["list", "add After", "save", "list"]
        commands.append(f"look {self.folder} {self.recovered_folder}")
        return "\t".join([f"run {self.folder}/list.kvtl", *commands]).replace("FOLDER", str(self.folder))

    def finish(self, answer, program):
        self.log = CallLog(self.log_file.read_text())
        *answers, status = answer.split("\t")
        if status != "0":
            self.faults = [f"it ended with {status}"]
            return
        self.take(answers)
        self.after, self.recovered = look(self.after_folder), look(self.recovered_folder)
        self.faults = list(self.find_faults(program))

    def take(self, answers):
        """The answers to the commands of line(), in their order."""
        answers = iter(answers[len(self.scene.before):])
        self.memory_before = next(answers) if self.scene.before else None
        _, self.answer, _, self.warnings, _ = (next(answers) for _ in range(5))
        if self.ends:
            self.memory_after = self.memory_before
        else:
            self.memory_after, _, self.saved, self.memory_saved = (next(answers) for _ in range(4))

    def find_faults(self, program):
        yield from self.scene.check(self)
        yield from self.folder_faults()
        if not self.ends:
            yield from self.recovery_faults()
        yield from self.lock_faults()
        yield from self.content_faults(program)

    def whole_files(self):
        return [content for content in self.scene.files.values() if isinstance(content, bytes)]

    def sum_of(self, name):
        content = self.after.get(name, (None,))[0]
        return check_sum(content) if isinstance(content, bytes) else None

    def folder_faults(self):
        """Nothing good has gone, and nothing but whole files has come."""
        allowed = {self.memory_before, self.memory_after, *(check_sum(content) for content in self.whole_files())}
        for name, (content, _, mode) in self.before.items():
            yield from self.old_file_faults(name, content, mode, allowed)
        left_over = "unlink" in self.log.failed
        for name in self.after.keys() - self.before.keys() - LOCKS - {self.scene.target}:
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
        elif self.after[name][2] != mode and not ("fchown" in self.log.failed and self.after[name][2] & ~mode == 0):
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
        locks = [name for name in self.after if name.endswith(".lock")]
        if self.ends and locks and "unlink" not in self.log.failed:
            yield f"{locks[0]} was left over"

    def may_stay_unsaved(self):
        """What could not be read at the start is not replaced; nor is what was refused."""
        return (not self.scene.before and self.log.failed) or "damaged" in self.scene.name or self.scene.name == "refused"

    def content_faults(self, program):
        known = set(self.whole_files())
        for name, (content, _, _) in self.recovered.items():
            if name.endswith(".kvtl") and isinstance(content, bytes) and content not in known and content not in GOOD:
                reason, = program.ask(f"read {self.recovered_folder / name}")
                if reason:
                    yield f"{name} cannot be read: {reason}"
                else:
                    GOOD.add(content)


GOOD = set()  # contents that the library's reader took


def run_all(program, runs):
    """Several at a time: on a busy machine each answer is waited for."""
    runs = list(runs)
    for start in range(0, len(runs), AT_A_TIME):
        part = runs[start:start + AT_A_TIME]
        for run, answer in zip(part, program.ask(*(run.line() for run in part))):
            run.finish(answer, program)
            shutil.rmtree(run.folder.parent)
            yield run


def failing_runs(program, scene, folder, step=1):
    """Each call of the scene fails in each way, until a run meets no failure; of these every step-th."""
    folder = Path(folder)
    sound, = run_all(program, [StoreRun(scene, folder / "sound")])
    if not scene.is_done(sound.answer):
        sound.faults.append(f"without a failure the answer is '{sound.answer}'")
    calls = sound.log.calls
    ways = [(number, *way) for number, call in enumerate(calls, 1) for way in ways_to_fail(call)]
    chosen = [*ways[::step], (len(calls) + 1, EIO, ALL_CALLS)]
    runs = [StoreRun(scene, folder / str(number), *way) for number, way in enumerate(chosen)]
    yield sound
    yield from run_all(program, runs)
    if runs[-1].log.failed:
        raise AssertionError(f"{scene.name}: there is one more call than there was")
