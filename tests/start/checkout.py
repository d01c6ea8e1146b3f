"""A copy of what run.sh needs, with programs of its own choice: none but plain tools and the stand-ins that a test
writes. So nothing is installed, built or fetched."""
import os
import pty
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(sys.argv.pop(1)).resolve()
TOOLS = ("awk", "bash", "cat", "comm", "cp", "dirname", "env", "grep", "ln", "mkdir", "mktemp", "readlink", "rm", "sed",
         "sort", "tail", "tr", "true")
ALL_INSTALLED = 'for word in "$@"; do case $word in -*) ;; *) echo "$word install ok installed" ;; esac; done'
NOTHING_INSTALLED = "exit 1"
BUILDS = """case $1 in
--preset) mkdir -p build/release/bin; : >build/release/build.ninja ;;
*) echo '[1/3] one'; echo '[2/3] two'; echo '[3/3] three'; ln -sf "$KESTREL" build/release/bin/kestrel ;;
esac"""


class Checkout:
    def __init__(self):
        self.folder = Path(tempfile.mkdtemp(prefix="checkout-")).resolve()
        self.root = self.folder / "tree"
        self.elsewhere = self.folder / "elsewhere"
        self.programs = self.folder / "programs"
        for folder in (self.root / "host/Kestrel", self.elsewhere, self.programs, self.folder / "home", self.folder / "tmp"):
            folder.mkdir(parents=True)
        shutil.copy2(ROOT / "run.sh", self.root)
        shutil.copy2(ROOT / "host/Kestrel/help.txt", self.root / "host/Kestrel")
        for name in ("scripts", "examples"):
            shutil.copytree(ROOT / name, self.root / name)
        for name in TOOLS:
            (self.programs / name).symlink_to(shutil.which(name))
        self.put("dpkg-query", ALL_INSTALLED)
        self.put("apt-get", "exit 1")
        self.put("id", "echo 0")
        self.put("cmake", BUILDS)

    def close(self):
        shutil.rmtree(self.folder)

    def put(self, name, script):
        """A program that notes its arguments and does that."""
        path = self.programs / name
        path.write_text(f'#!/bin/bash\necho "{name} $*" >>"{self.folder}/calls"\n{script}\n')
        path.chmod(0o755)

    def calls(self):
        path = self.folder / "calls"
        return path.read_text().splitlines() if path.exists() else []

    def files(self):
        """Everything there is, with the time of its last change."""
        return {str(path.relative_to(self.folder)): path.lstat().st_mtime_ns for path in self.folder.rglob("*")}

    def environment(self, **more):
        kept = {name: os.environ[name] for name in ("KESTREL", "ASAN_OPTIONS") if name in os.environ}
        return dict(kept, PATH=str(self.programs), HOME=str(self.folder / "home"), TMPDIR=str(self.folder / "tmp"),
                    LC_ALL="C.UTF-8", **more)

    def run(self, *words, folder=None, program=None, **more):
        return subprocess.run([program or self.root / "run.sh", *words], cwd=folder or self.elsewhere,
                              env=self.environment(**more), capture_output=True, text=True, timeout=50)

    def run_on_terminal(self, *words, **more):
        """What a terminal gets to see."""
        ours, theirs = pty.openpty()
        process = subprocess.Popen([self.root / "run.sh", *words], cwd=self.elsewhere, env=self.environment(**more),
                                   stdin=theirs, stdout=theirs, stderr=theirs)
        os.close(theirs)
        seen = b""
        try:
            while data := os.read(ours, 4096):
                seen += data
        except OSError:
            pass  # the other side is closed
        os.close(ours)
        process.wait()
        return seen.decode()
