"""Habits that no compiler checks. Usage: habits.py ROOT"""
import re
import sys

from sources import code_lines, report, root_argument, sources

MAX_SOURCE = 400  # of src/ and host/; a test program may list more cases than that
PATTERNS = [
    (re.compile(r"\bconnect\s*\([^;]*\b(SIGNAL|SLOT)\s*\("), "string connect; use pointers to members"),
    (re.compile(r"\bfor\s*\(\s*const\s+auto\s+\w+\s*:"), "copies each element; use const auto&"),
    (re.compile(r"\b(TODO|FIXME|XXX)\b"), "left open"),
    (re.compile(r"\bQ_FOREACH\b|\bforeach\s*\("), "use a range-based for"),
    (re.compile(r"\bQ_ASSERT\s*\(\s*false\s*\)"), "use Q_UNREACHABLE or handle the case"),
]
LEFT_OPEN = re.compile(r"\b(TODO|FIXME)\b")


def findings_of(root, path):
    text = path.read_text(encoding="utf-8")
    lines = text.splitlines()
    if path.suffix == ".h" and "#pragma once" not in lines:
        yield path, 1, "no #pragma once"
    if len(lines) > MAX_SOURCE and path.relative_to(root).parts[0] in ("src", "host"):
        yield path, len(lines), f"longer than {MAX_SOURCE} lines"
    if "\t" in text or "\r" in text:
        yield path, 1, "tab or carriage return"
    for number, line in code_lines(path):
        for pattern, fault in PATTERNS:
            if pattern.search(line):
                yield path, number, fault
    for number, line in enumerate(lines, 1):
        if LEFT_OPEN.search(line):
            yield path, number, "left open"


def main():
    root = root_argument()
    return report(root, [finding for path in sources(root, "src", "host", "tests", "benchmarks") for finding in findings_of(root, path)])


if __name__ == "__main__":
    sys.exit(main())
