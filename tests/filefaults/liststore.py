"""The program that runs the list's store, and the folder with its files."""
import hashlib
import os
import re
import subprocess
import tempfile
from pathlib import Path

def check_sum(content):
    return hashlib.sha256(content).hexdigest()


def as_list(body):
    return b"kvtl 1 sha256:" + check_sum(body).encode() + b"\n" + body


def new_folder():
    """In memory where that can be: nothing is asked of the disk itself."""
    return tempfile.TemporaryDirectory(dir="/dev/shm" if Path("/dev/shm").is_dir() else None)


class StoreProgram:
    """list_store, with what is preloaded; answers line by line."""

    def __init__(self, program, *libraries, habit=""):
        self.command, self.habit = program, habit
        self.libraries = " ".join(libraries)

    def __enter__(self):
        surroundings = dict(os.environ, LD_PRELOAD=self.libraries, LIST_STORE_HABIT=self.habit)
        self.process = subprocess.Popen([self.command], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                        env=surroundings)
        return self

    def __exit__(self, *_):
        self.process.communicate()

    def ask(self, *lines):
        """One line for each."""
        self.process.stdin.write("".join(line + "\n" for line in lines).encode())
        self.process.stdin.flush()
        return [self.process.stdout.readline().decode().rstrip("\n") for _ in lines]


def fill(folder, files):
    """files: name to bytes, or to the target of a link."""
    folder.mkdir(parents=True)
    for name, content in files.items():
        if isinstance(content, str):
            os.symlink(content, folder / name)
            continue
        (folder / name).write_bytes(content)
        (folder / name).chmod(0o640)


def look(folder):
    """Name to content, inode and mode."""
    found = {}
    for entry in os.scandir(folder):
        status = entry.stat(follow_symlinks=False)
        content = os.readlink(entry.path) if entry.is_symlink() else Path(entry.path).read_bytes()
        found[entry.name] = (content, status.st_ino, status.st_mode & 0o7777)
    return found


class CallLog:
    """What the library of faults has written of one run."""

    def __init__(self, text=""):
        lines = [line.split(" ") for line in text.splitlines()]
        self.calls = [line[0] for line in lines if line[0] != "lost"]
        self.failed = [line[0] for line in lines if line[-1] == "failed"]
        self.lost = {int(line[1]) for line in lines if line[0] == "lost"}


def is_temporary(name):
    """The second is the lock of the lock, which Qt takes while it breaks one."""
    return re.search(r"\.kvtl(\.[A-Za-z]{6}|\.lock\.rmlock)$", name) is not None
