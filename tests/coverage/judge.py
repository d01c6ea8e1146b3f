#!/usr/bin/env python3
"""Judges the coverage of src/: enough lines and branches, and a reason for each that is left out.
Usage: judge.py LCOV REASONS UNCOVERED    from the root of the checkout
LCOV is llvm-cov's export, UNCOVERED a file to write what is left out to. REASONS has lines "what | file | text | reason": what
is "line" or "branch", the file a pattern, the text a part of the source's line. A reason that nothing needs is a fault, too,
unless "line?" or "branch?" says that chance decides."""
import fnmatch
import sys
from dataclasses import dataclass, field
from pathlib import Path

LIMITS = {"line": 0.98, "branch": 0.90}
JUDGED = "src/"
PLURAL = {"line": "lines", "branch": "branches"}


@dataclass
class Coverage:
    found: dict = field(default_factory=lambda: {"line": 0, "branch": 0})
    missed: list = field(default_factory=list)  # (what, file, line number), each once

    def add(self, what, file, line, count):
        self.found[what] += 1
        if not count:
            self.missed.append((what, file, line))

    def share(self, what):
        missed = sum(1 for entry in self.missed if entry[0] == what)
        return 1 - missed / self.found[what] if self.found[what] else 0


def read_lcov(text, root):
    coverage, file = Coverage(), None
    for line in text.splitlines():
        key, _, value = line.partition(":")
        if key == "SF":
            file = Path(value).resolve().relative_to(root).as_posix()
        elif file and not file.startswith(JUDGED):
            continue  # what moc makes, the test program itself
        elif key == "DA":
            number, count = value.split(",")[:2]
            coverage.add("line", file, int(number), int(count))
        elif key == "BRDA":
            number, _, _, count = value.split(",")
            coverage.add("branch", file, int(number), 0 if count == "-" else int(count))
    return coverage


@dataclass
class Reason:
    what: str
    file: str
    text: str
    reason: str
    used: bool = False

    def holds(self, what, file, text):
        return self.what.rstrip("?") == what and fnmatch.fnmatchcase(file, self.file) and self.text in text


def read_reasons(text):
    for line in text.splitlines():
        if line.strip() and not line.startswith("#"):
            yield Reason(*(part.strip() for part in line.split(" | ")))


def source_line(root, file, number):
    return (root / file).read_text(encoding="utf-8").splitlines()[number - 1].strip()


def judge(root, coverage, reasons):
    """(listing, faults) as lines of text."""
    listing, faults = [], []
    for what, file, number in sorted(set(coverage.missed)):
        text = source_line(root, file, number)
        found = [reason for reason in reasons if reason.holds(what, file, text)]
        for reason in found:
            reason.used = True
        entry = f"{file}:{number}: {what} not covered: {text}"
        listing.append(f"{entry}  [{found[0].reason if found else 'no reason'}]")
        if not found:
            faults.append(f"{entry}, and no reason for it")
    for what, limit in LIMITS.items():
        if coverage.share(what) < limit:
            faults.append(f"only {coverage.share(what):.2%} of {PLURAL[what]} are covered, not {limit:.0%}")
    unused = [reason for reason in reasons if not reason.used and not reason.what.endswith("?")]
    faults += [f"a reason that nothing needs: {reason.what} | {reason.file} | {reason.text}" for reason in unused]
    return listing, faults


def main():
    root = Path.cwd()
    lcov, reasons, uncovered = (Path(word) for word in sys.argv[1:])
    coverage = read_lcov(lcov.read_text(encoding="utf-8"), root)
    listing, faults = judge(root, coverage, list(read_reasons(reasons.read_text(encoding="utf-8"))))
    uncovered.write_text("".join(f"{line}\n" for line in listing), encoding="utf-8")
    print("\n".join(faults + [f"coverage of src/: {coverage.share('line'):.2%} of {coverage.found['line']} lines, "
                              f"{coverage.share('branch'):.2%} of {coverage.found['branch']} branches"]))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
