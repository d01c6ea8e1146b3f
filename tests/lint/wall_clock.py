"""Nothing waits or measures by the wall clock, which can be set back. Where its time of day is meant, to
show it or to name a file, the same line says so, "// wall clock: ...". Usage: wall_clock.py ROOT"""
import re
import sys

from sources import code_lines, report, root_argument, sources

# The high resolution clock is the wall clock under another name in the GNU library.
CLOCK = re.compile(r"\b(system_clock|high_resolution_clock|CLOCK_REALTIME|gettimeofday)\b")
SCRIPT_CLOCK = re.compile(r"\btime\.time\(|\bdatetime\.now\(")


def findings_of(path, pattern, lines):
    text = path.read_text(encoding="utf-8").splitlines()
    for number, line in lines:
        match = pattern.search(line)
        if match and "wall clock:" not in text[number - 1]:
            yield path, number, f"wall clock: {match.group().strip('(')}"


def main():
    root = root_argument()
    findings = [finding for path in sources(root, "src", "host", "tests", "benchmarks")
                for finding in findings_of(path, CLOCK, code_lines(path))]
    for path in sorted((root / "tests").rglob("*.py")):
        if path.parent.name != "lint":
            findings += findings_of(path, SCRIPT_CLOCK, enumerate(path.read_text(encoding="utf-8").splitlines(), 1))
    return report(root, findings)


if __name__ == "__main__":
    sys.exit(main())
