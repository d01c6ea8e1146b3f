"""What CONTRIBUTING.md and the scripts start, setup.sh installs. Each program there is looked up in the packages of this
machine; its package must be one of setup.sh's, or belong to every Debian. Usage: test_tools.py ROOT"""
import re
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

ROOT = Path(sys.argv.pop(1)).resolve()
SCRIPTS = [ROOT / "run.sh", ROOT / "test.sh", *sorted((ROOT / "scripts").glob("*.sh"))]
# Where a script names a program: where a command begins, or behind a word that starts what follows.
COMMAND = re.compile(r"(?:^|[|;&`]|\$\(|\b(?:then|do|else|if|while|exec|command -v|as_root|step \"[^\"]*\"|xargs)\s|! )\s*"
                     r"(?:-\S+ (?:\"?\$?\w+\"? )?)*(?:\w+=[^\s\"]* )*([A-Za-z][\w+.-]*)", flags=re.M)
SYSTEM = "/usr/bin:/bin:/usr/sbin:/sbin"
OPTIONAL = {"sudo"}  # setup.sh looks for it, and says what to do without it
BUILT_IN = set(subprocess.run(["bash", "-c", "compgen -b; compgen -k"], capture_output=True, text=True).stdout.split())


def words_of_contributing():
    """The programs of the table's commands."""
    table = (ROOT / "CONTRIBUTING.md").read_text(encoding="utf-8").split("\n## ")[0]
    for line in table.splitlines():
        for command in re.findall(r"`([^`]+)`", line.split(" | ", 1)[-1]) if line.startswith("|") else []:
            for part in command.split(" && "):
                yield next(word for word in part.split() if not re.match(r"[A-Z_]+=", word))


def code_of(script):
    """Without comments, messages and what other languages say in it."""
    text = re.sub(r"<<'PY'\n.*?\nPY\n", "\n", script.read_text(encoding="utf-8"), flags=re.S)
    text = re.sub(r"(\bawk [^'|]*)'[^']*'", r"\1", text)
    text = re.sub(r'\b(die|echo|printf) "[^"]*"', r"\1", text)
    return re.sub(r"(^|\s)#.*", r"\1", text, flags=re.M)


def words_of_scripts():
    for script in SCRIPTS:
        code = code_of(script)
        functions = set(re.findall(r"^(\w+)\(\) ", code, flags=re.M))
        yield from (word for word in COMMAND.findall(code) if word not in functions)


def programs():
    words = {word for word in (*words_of_contributing(), *words_of_scripts()) if "/" not in word}
    return sorted(word for word in words - BUILT_IN - OPTIONAL if shutil.which(word, path=SYSTEM))


def installed_by_setup():
    text = (ROOT / "scripts/setup.sh").read_text(encoding="utf-8")
    lists = re.findall(r"^(?:run|test)_packages=\((.*?)^\)", text, flags=re.S | re.M)
    return set(re.sub(r"#.*", "", " ".join(line for entry in lists for line in re.sub(r"#.*", "", entry).split("\n"))).split())


def query(*words):
    return subprocess.run(["dpkg-query", *words], capture_output=True, text=True).stdout


def owners(found):
    """Packages by program."""
    places = {}
    for program in found:
        path = Path(shutil.which(program, path=SYSTEM))
        for place in (path, Path("/bin") / path.name, Path("/sbin") / path.name, path.resolve()):
            places.setdefault(str(place), program)
    lines = query("-S", *places).splitlines()
    packages = {line.split(": ")[1]: line.split(":")[0] for line in lines}
    return {places[place]: packages[place] for place in reversed(places) if place in packages}  # the first place counts


def everywhere():
    """Packages that no Debian is without."""
    lines = query("-W", "-f", "${Package} ${Essential} ${Priority}\n").splitlines()
    return {line.split()[0] for line in lines if line.split()[1:] in (["yes", "required"], ["no", "required"])}


@unittest.skipUnless(shutil.which("dpkg-query"), "the packages are Debian's")
class ToolsTest(unittest.TestCase):
    def test_each_program_comes_with_setup_or_with_the_system(self):
        installed = installed_by_setup()
        found = programs()
        for expected in ("cmake", "ctest", "gdb", "valgrind", "clang-format-19", "clang++", "debootstrap", "git", "python3"):
            self.assertIn(expected, found)
        at_hand = installed | everywhere()
        depends = query("-W", "-f", "${Depends} ${Pre-Depends} ", *sorted(installed))  # clang brings clang-14 along
        strange = {program: package for program, package in dict(dict.fromkeys(found), **owners(found)).items()
                   if not package or package not in at_hand and not re.search(rf"(?:^|[ ,]){re.escape(package)}[ ,(]", depends)}
        self.assertEqual(strange, {}, "scripts/setup.sh does not install these programs and their packages")


if __name__ == "__main__":
    unittest.main()
