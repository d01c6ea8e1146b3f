"""No test waits a fixed time: it waits for its condition. A gesture whose pace is part of it says so in
the same line, "// paced: ...". Usage: fixed_waits.py ROOT"""
import re
import sys

from sources import code_lines, report, root_argument, sources

WAIT = re.compile(r"\b(QTest::qWait|QTest::qSleep|qWait|qSleep|sleep_for|sleep_until|usleep|nanosleep|msleep|QThread::sleep)\s*\(")
# A wait for a signal or a thread whose answer nobody looks at.
UNUSED_WAIT = re.compile(r"^\s*\w+(?:\.|->)wait\(\s*\d\w*\s*\);")
SCRIPT_WAIT = re.compile(r"(^|[;&|({\s])sleep\s+[\d.$]|time\.sleep\(")


def is_paced(path, number):
    return "paced:" in path.read_text(encoding="utf-8").splitlines()[number - 1]


def findings_of(path, pattern, lines):
    for number, line in lines:
        match = pattern.search(line) or (pattern is WAIT and UNUSED_WAIT.search(line))
        if match and not is_paced(path, number):
            yield path, number, f"fixed wait: {match.group().strip()}"


def main():
    root = root_argument()
    findings = [finding for path in sources(root, "tests") for finding in findings_of(path, WAIT, code_lines(path))]
    for suffix in ("*.sh", "*.py"):
        for path in sorted((root / "tests").rglob(suffix)):
            if path.parent.name != "lint":
                lines = enumerate(path.read_text(encoding="utf-8").splitlines(), 1)
                findings += findings_of(path, SCRIPT_WAIT, lines)
    return report(root, findings)


if __name__ == "__main__":
    sys.exit(main())
