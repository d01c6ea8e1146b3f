"""Where changes are planted: a copy of the checkout with a build of its own, and the test programs that look at it."""
import concurrent.futures
import filecmp
import json
import os
import re
import resource
import shutil
import signal
import subprocess
import threading
import time
from dataclasses import dataclass, field, replace

LEFT_OUT = ("build", ".git", "shots", "__pycache__")
# What a change makes of a variable or of brackets is no fault of its own.
LENIENT = "".join(f'_Pragma("GCC diagnostic ignored \\"-W{name}\\"") ' for name in (
    "unused-parameter", "unused-variable", "unused-but-set-variable", "unused-function", "unused-value", "parentheses",
    "type-limits", "bool-compare", "sign-compare", "overflow", "narrowing", "unused-const-variable", "unused-but-set-parameter"))
PATIENCE = 600  # seconds for a test of the unchanged copy, on a machine that may have more to do
MOST_MEMORY = 6 << 30  # a loop without an end must not take the machine along
FAILURE = re.compile(r"^(?:FAIL!|QFATAL)\s*:?\s*(.*)$")


@dataclass
class Test:
    name: str
    command: list
    environment: dict = field(default_factory=dict)
    folder: str = "."
    limit: float = PATIENCE  # seconds


def synchronise(source, target):
    """Makes the target the source's copy; files that are the same keep their time."""
    def left_out(folder, names):
        return [name for name in names if name in LEFT_OUT]

    def copy(one, other):
        if not os.path.exists(other) or not filecmp.cmp(one, other, shallow=False):
            shutil.copy2(one, other)
            os.utime(other)

    shutil.copytree(source, target, ignore=left_out, copy_function=copy, dirs_exist_ok=True)
    for folder, names, files in os.walk(target):
        names[:] = [name for name in names if name not in LEFT_OUT]
        for name in files:
            path = os.path.join(folder, name)
            if not os.path.exists(os.path.join(source, os.path.relpath(path, target))):
                os.remove(path)


class Workshop:
    """The copy at root; tests are programs that a build makes anew when they need it."""

    def __init__(self, root, build, tests, jobs=1):
        self.root, self.build_command, self.tests, self.jobs = root, build, tests, jobs

    def build(self, tests):
        """None, or the compiler's first error."""
        command = [*self.build_command, *(test.name for test in tests)]
        done = subprocess.run(command, cwd=self.root, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        if done.returncode == 0:
            return None
        errors = [line for line in done.stdout.splitlines() if "error" in line]
        return errors[0] if errors else done.stdout[-300:].strip() or "no word of the build"

    def measure(self):
        """Runs each test on the unchanged copy, which sets its limit. Returns the first failure, None for none."""
        for test in self.tests:
            test.limit = PATIENCE
            begin = time.monotonic()
            reason = self.run_one(test, threading.Event())
            if reason:
                return f"{test.name}: {reason}"
            test.limit = 10 + 5 * (time.monotonic() - begin)
        return None

    def run_one(self, test, stop):
        """None when it passes or was stopped, else why it fails; it ends with its first failure."""
        process = start(test)
        late, done = threading.Event(), threading.Event()
        watcher = threading.Thread(target=watch, args=(process, test.limit, stop, late, done))
        watcher.start()
        reason = first_fault(process)
        code = process.wait()
        done.set()
        watcher.join()
        if reason or stop.is_set():
            return reason
        if late.is_set():
            return f"not done after {test.limit:.0f} s"
        return None if code == 0 else f"exit code {code}"

    def first_failure(self, tests):
        """"test: reason" of one that fails, twice; None when all pass."""
        while tests:
            failure = self.failure_among(tests)
            if not failure:
                return None
            test, reason = failure
            if self.run_one(replace(test, limit=4 * test.limit), threading.Event()):
                return f"{test.name}: {reason}"
            tests = [other for other in tests if other is not test]  # it was the load
        return None

    def failure_among(self, tests):
        stop = threading.Event()
        found = []

        def run(test):
            reason = None if stop.is_set() else self.run_one(test, stop)
            if reason and not stop.is_set():
                stop.set()
                found.append((test, reason))

        with concurrent.futures.ThreadPoolExecutor(self.jobs) as pool:
            list(pool.map(run, tests))
        return found[0] if found else None

    def try_change(self, change):
        """("noticed" | "unnoticed" | "does not build", by what). The copy is as before afterwards."""
        path = self.root / change.path
        text = path.read_text(encoding="utf-8")
        path.write_text(f"{LENIENT}\n#line 1\n{change.apply(text)}", encoding="utf-8")
        try:
            return self.judge(change.path.split("/")[1])
        finally:
            path.write_text(text, encoding="utf-8")

    def judge(self, folder):
        """The tests of the changed folder come first: most changes are noticed there, and the rest is not even linked."""
        near = [test for test in self.tests if test.name.startswith(f"tst_{folder}_")]
        for tests in (near, [test for test in self.tests if test not in near]):
            error = self.build(tests)
            if error:
                return "does not build", error
            reason = self.first_failure(tests)
            if reason:
                return "noticed", reason
        return "unnoticed", ""


def start(test):
    def limit():
        resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, MOST_MEMORY))

    return subprocess.Popen(test.command, cwd=test.folder, env={**os.environ, **test.environment}, text=True, errors="replace",
                            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                            start_new_session=True, preexec_fn=limit)


def first_fault(process):
    """Ends the process with the first line that says so; None when no line does."""
    reason = None
    for line in process.stdout:
        failure = FAILURE.match(line)
        if failure:
            reason = failure.group(1).strip()
            end_group(process)
            break
    process.stdout.close()
    return reason


def watch(process, limit, stop, late, done):
    end = time.monotonic() + limit
    while not done.wait(0.05):
        if time.monotonic() > end:
            late.set()
        if late.is_set() or stop.is_set():
            end_group(process)
            return


def end_group(process):
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        return  # it has ended by itself


def tests_of(folder, pattern):
    """The quick tests of a build whose names match."""
    listing = json.loads(subprocess.run(["ctest", "--show-only=json-v1", "-L", "^quick$", "-R", pattern], cwd=folder, check=True,
                                        stdout=subprocess.PIPE, text=True).stdout)
    for test in listing["tests"]:
        properties = {entry["name"]: entry["value"] for entry in test["properties"]}
        environment = dict(entry.split("=", 1) for entry in properties.get("ENVIRONMENT", ()))
        if "command" not in test:  # not built yet
            continue
        yield Test(test["name"], test["command"], environment, properties["WORKING_DIRECTORY"])


def open_workshop(root, place, pattern, jobs):
    """A workshop with a copy of the checkout, built."""
    synchronise(root, place)
    environment = os.environ
    environment["CCACHE_BASEDIR"] = str(place)
    subprocess.run(["cmake", "--preset", "dev"], cwd=place, check=True, stdout=subprocess.DEVNULL)
    names = quick_names(place / "build/dev", pattern)
    build = ["cmake", "--build", "--preset", "dev", f"-j{jobs}", "--target"]
    subprocess.run([*build, *names], cwd=place, check=True, stdout=subprocess.DEVNULL)
    return Workshop(place, build, list(tests_of(place / "build/dev", pattern)), jobs)


def quick_names(folder, pattern):
    listing = subprocess.run(["ctest", "-N", "-L", "^quick$", "-R", pattern], cwd=folder, check=True, stdout=subprocess.PIPE,
                             stderr=subprocess.DEVNULL, text=True).stdout
    return re.findall(r"Test +#\d+: (\S+)", listing)
