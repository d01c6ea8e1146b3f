"""What the documents name exists: files, folders, classes, programs of the tests. Usage: names.py ROOT"""
import re
import sys
from pathlib import Path

FOLDERS = ("src", "host", "tests", "benchmarks", "docs", "examples", "scripts", "cmake")
PATH = re.compile(r"^(?:%s)/[\w./-]*$" % "|".join(FOLDERS))
CLASS = re.compile(r"^(?:[CSI]|En)[A-Z][a-z]\w*$")
PROGRAM = re.compile(r"^tst_([a-z]+)_([a-z]+)$")


def documents(root):
    return [root / "README.md", root / "CONTRIBUTING.md", *sorted((root / "docs").glob("*.md"))]


def code_words(root):
    words = set()
    for folder in ("src", "host", "tests", "benchmarks"):
        for suffix in ("*.h", "*.cpp"):
            for path in (root / folder).rglob(suffix):
                words.update(re.findall(r"\w+", path.read_text(encoding="utf-8")))
    return words


def is_there(root, name, words):
    program = PROGRAM.match(name)
    if program:
        return (root / "tests" / program.group(1) / f"tst_{program.group(2)}.cpp").is_file()
    if PATH.match(name):
        return (root / name).exists()
    return not CLASS.match(name) or name in words


def main():
    root = Path(sys.argv[1]).resolve()
    words = code_words(root)
    names = [(path, number, name) for path in documents(root)
             for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1)
             for name in re.findall(r"`([^`\s]+)`", line)]
    missing = [entry for entry in names if not is_there(root, entry[2], words)]
    for path, number, name in missing:
        print(f"{path.relative_to(root)}:{number}: there is no {name}")
    print(f"{len(names)} names, {len(missing)} missing")
    return 1 if missing or len(names) < 100 else 0


if __name__ == "__main__":
    sys.exit(main())
