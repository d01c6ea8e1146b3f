#!/usr/bin/env python3
"""Plants small changes in src/ at random, one at a time, and counts what the quick tests notice: a comparison turned, a
constant moved by one, a call left out, two calls in the other order, a lock dropped or of the other kind. Works on a copy
of the checkout, in build/changes. One line a change; the unnoticed ones once more at the end.

A change that is known to change no behaviour (same_behaviour.txt, with its reason) is drawn again, as is one that does not
build. The exit code is 0 when enough is noticed."""
import argparse
import fnmatch
import random
import re
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))  # as a run by hand has it
import mutations  # noqa: E402
import workshop  # noqa: E402

ROOT = Path(__file__).resolve().parents[2]
TESTS = "^tst_(data|model|tree|delegate|toolbar|dialogs|shell)_"
# How many of a hundred changes are of which kind, about.
SHARES = {"comparison": 32, "constant": 25, "call": 30, "order": 8, "lock": 5}
ENOUGH = 0.97
FUNCTION = re.compile(r"^(?=[^\s#/}])(?:.*?[ *&])??([\w:~]+)\(", re.M)


def all_changes(root):
    """Of all sources of the panel; what the interfaces declare are the host's and the library's words."""
    for path in sorted((root / "src").rglob("*")):
        name = path.relative_to(root).as_posix()
        if path.suffix in (".h", ".cpp") and not name.startswith("src/interfaces/"):
            yield from mutations.changes_of(name, path.read_text(encoding="utf-8"))


class Known:
    """Changes of which it is known that they change no behaviour: lines "file | change | reason", in which the change is as
    the report has it, with or without its function, and * stands for anything."""

    def __init__(self, text):
        self.entries = []
        for line in text.splitlines():
            if line.strip() and not line.startswith("#"):
                file, change, reason = (part.strip() for part in line.split(" | "))
                if not reason:
                    raise ValueError(f"no reason: {line}")
                self.entries.append((file, change.replace("[", "[[]")))

    def has(self, change, text):
        stories = (full_story(change, text), f"{full_story(change, text)} in {function_of(change, text)}")
        return any(fnmatch.fnmatchcase(change.path, file) and any(fnmatch.fnmatchcase(story, known) for story in stories)
                   for file, known in self.entries)


def full_story(change, text):
    """The change with the line that it is in, where the change alone does not say."""
    if change.kind in ("call", "order") or change.new == ";":
        return change.story()
    line = text.splitlines()[change.line - 1].strip()
    return f"{change.story()} in: {line}"


def function_of(change, text):
    """The name of the function that it is in, with its class; empty outside of all."""
    names = FUNCTION.findall(text, 0, change.start)
    return names[-1] if names else ""


def draw(changes, generator):
    """All changes in a random order, the kinds mixed by their shares."""
    left = {kind: [change for change in changes if change.kind == kind] for kind in SHARES}
    for of_kind in left.values():
        generator.shuffle(of_kind)
    while any(left.values()):
        kinds = [kind for kind in SHARES if left[kind]]
        yield left[generator.choices(kinds, [SHARES[kind] for kind in kinds])[0]].pop()


class Report:
    def __init__(self):
        self.verdicts, self.unnoticed, self.start = [], [], time.monotonic()

    def add(self, change, text, verdict, reason, seconds):
        self.verdicts.append(verdict)
        line = f"{change.path}:{change.line}: {full_story(change, text)}"
        if verdict == "unnoticed":
            self.unnoticed.append(line)
        print(f"{self.planted():4} {verdict:14} {line}{': ' if reason else ''}{reason}  ({seconds:.0f} s)", flush=True)

    def planted(self):
        return len(self.verdicts) - self.verdicts.count("does not build")

    def close(self):
        """Returns whether enough was noticed."""
        noticed = self.verdicts.count("noticed")
        print(f"\n{noticed} of {self.planted()} noticed, {self.verdicts.count('does not build')} did not build; "
              f"{(time.monotonic() - self.start) / 60:.0f} minutes")
        for line in self.unnoticed:
            print(f"unnoticed: {line}")
        return noticed >= ENOUGH * self.planted()


def plant(shop, changes, count, known):
    """Tries changes until count of them have built; returns whether enough was noticed."""
    report = Report()
    for change in changes:
        if report.planted() == count:
            break
        text = (shop.root / change.path).read_text(encoding="utf-8")
        if known.has(change, text):
            continue
        start = time.monotonic()
        report.add(change, text, *shop.try_change(change), time.monotonic() - start)
    return report.close()


def arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--seed", type=int, help="of the drawing; a fresh one by default")
    parser.add_argument("--count", type=int, default=100, help="how many changes that build")
    parser.add_argument("--tests", default=TESTS, help="regular expression of the quick tests")
    parser.add_argument("--at", action="append", help="FILE:LINE, FILE or folder: changes of it alone")
    parser.add_argument("--kind", choices=SHARES, help="changes of this kind alone")
    parser.add_argument("--jobs", type=int, default=2, help="compilers and tests at a time")
    parser.add_argument("--list", action="store_true", help="prints the changes that would be tried, tries none")
    return parser.parse_args()


def is_at(change, places):
    place = f"{change.path}:{change.line}"
    return not places or any(place == wanted or place.startswith((f"{wanted}:", f"{wanted.rstrip('/')}/")) for wanted in places)


def chosen(options):
    """The changes to try, in their order."""
    changes = [change for change in all_changes(ROOT) if options.kind in (None, change.kind) and is_at(change, options.at)]
    seed = options.seed if options.seed is not None else random.SystemRandom().randrange(1, 1000000)
    print(f"seed {seed}", flush=True)
    return draw(changes, random.Random(seed))


def main():
    options = arguments()
    known = Known((Path(__file__).parent / "same_behaviour.txt").read_text(encoding="utf-8"))
    changes = chosen(options)
    if options.list:
        for change in changes:
            text = (ROOT / change.path).read_text(encoding="utf-8")
            note = "same behaviour" if known.has(change, text) else ""
            print(f"{note:14} {change.path}:{change.line}: {full_story(change, text)}")
        return 0
    shop = workshop.open_workshop(ROOT, ROOT / "build/changes", options.tests, options.jobs)
    failure = shop.measure()
    if failure:
        print(f"without a change already: {failure}")
        return 2
    return 0 if plant(shop, changes, options.count, known) else 1


if __name__ == "__main__":
    sys.exit(main())
