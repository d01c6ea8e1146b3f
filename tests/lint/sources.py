"""What the lint tests share: finding the sources, taking comments out, reporting."""
import re
import sys
from pathlib import Path

SUFFIXES = {".h", ".cpp"}


def sources(root, *folders):
    """All headers and sources under the folders, without generated ones."""
    for folder in folders:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix in SUFFIXES and "build" not in path.relative_to(root).parts:
                yield path


def code_lines(path):
    """(number, line) with comments and the contents of strings blanked; includes keep their name."""
    text = path.read_text(encoding="utf-8")
    text = re.sub(r"/\*.*?\*/", lambda match: "\n" * match.group().count("\n"), text, flags=re.S)
    for number, line in enumerate(text.splitlines(), 1):
        if not line.lstrip().startswith("#"):
            line = re.sub(r'"(\\.|[^"\\])*"', '""', line)
        yield number, line.split("//")[0]


def report(root, findings):
    """Prints the findings, (path, line, text), as a compiler does; returns the exit code."""
    for path, line, text in findings:
        print(f"{path.relative_to(root)}:{line}: {text}")
    print(f"{len(findings)} findings")
    return 1 if findings else 0


def root_argument():
    return Path(sys.argv[1]).resolve()
