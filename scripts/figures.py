#!/usr/bin/env python3
"""Figures of the code: sizes of files and functions, comments, tests against code, crowded folders.

Usage: scripts/figures.py [ROOT]. A function is what clang-format lays out as one: a brace alone on its line
behind a line that ends a parameter list or an initialiser list."""
import re
import statistics
import subprocess
import sys
from pathlib import Path

PARTS = ("src", "host", "tests", "benchmarks")
CROWDED = 25  # units, a unit being a name with a header, a source or both
SMALL = 40  # lines of a unit that might live in its one user
CONTROL = re.compile(r"^\s*(if|else|for|while|switch|do|try|catch|namespace|class|struct|enum|union|extern)\b")
HEAD_END = re.compile(r"(\)|\bconst|\boverride|\bnoexcept|\bfinal|\}|\)\s*->.*)\s*$")
FIXED_WAIT = re.compile(r"\b(QTest::qWait|QTest::qSleep|qSleep|sleep_for|usleep|msleep)\s*\(")
STRING_CONNECT = re.compile(r"\bconnect\s*\([^;]*\b(SIGNAL|SLOT)\s*\(")


def files(root, part, suffix):
    return [path for path in sorted((root / part).rglob("*" + suffix)) if "build" not in path.relative_to(root).parts]


def lines_of(path):
    return path.read_text(encoding="utf-8").splitlines()


def function_lengths(lines):
    """Lines from the opening brace to the closing one, without the two."""
    for start, line in enumerate(lines):
        if line.strip() != "{" or start == 0:
            continue
        head = re.sub(r"//.*", "", lines[start - 1]).rstrip()
        if CONTROL.match(head) or not HEAD_END.search(head):
            continue
        indent = line[: len(line) - 1]
        for end in range(start + 1, len(lines)):
            if lines[end] in (indent + "}", indent + "};"):
                yield end - start - 1, start + 1
                break


def comment_lines(lines):
    inside = False
    for line in lines:
        text = line.strip()
        if inside or text.startswith(("//", "/*")) or "///<" in text:
            yield line
        inside = (inside or text.startswith("/*")) and "*/" not in text


def share(paths):
    all_lines = [line for path in paths for line in lines_of(path) if line.strip()]
    comments = sum(len(list(comment_lines(lines_of(path)))) for path in paths)
    return 100 * comments / max(1, len(all_lines))


def median_size(paths):
    return round(statistics.median([len(lines_of(path)) for path in paths])) if paths else 0


def functions_of(paths):
    return [(length, path, line) for path in paths for length, line in function_lengths(lines_of(path))]


def crowded_folders(root):
    for part in PARTS:
        for folder in sorted(path for path in (root / part).rglob("*") if path.is_dir()):
            units = {path.stem for path in folder.iterdir() if path.suffix in (".h", ".cpp")}
            if len(units) > CROWDED:
                yield folder.relative_to(root), len(units)


def small_units(root):
    """Units of src/ and host/ of few lines whose header one other unit includes."""
    code = [path for part in ("src", "host") for suffix in (".h", ".cpp") for path in files(root, part, suffix)]
    text = {path: path.read_text(encoding="utf-8") for path in code}
    for header in (path for path in code if path.suffix == ".h"):
        own = {header, header.with_suffix(".cpp")}
        size = sum(len(text[path].splitlines()) for path in own if path in text)
        name = "/".join(header.relative_to(root).parts[1:])
        users = {path.with_suffix("") for path in code if path not in own and f'"{name}"' in text[path]}
        if size < SMALL and len(users) == 1:
            yield header.relative_to(root), size, users.pop().relative_to(root)


def print_row(name, value):
    print(f"{name:<44} {value}")


def print_part(root, part):
    headers, code = files(root, part, ".h"), files(root, part, ".cpp")
    lengths = sorted(length for length, _, _ in functions_of(headers + code))
    longest = max(code, key=lambda path: len(lines_of(path)), default=None)
    print_row(f"{part}: lines, files", f"{sum(len(lines_of(path)) for path in headers + code)}, {len(headers + code)}")
    print_row(f"{part}: median lines, header / source", f"{median_size(headers)} / {median_size(code)}")
    if longest:
        print_row(f"{part}: longest source", f"{len(lines_of(longest))} {longest.relative_to(root)}")
    if lengths:
        above = 100 * sum(length > 50 for length in lengths) / len(lengths)
        ninety = lengths[int(0.9 * (len(lengths) - 1))]
        print_row(f"{part}: function median / 90 % / above 50", f"{statistics.median(lengths):g} / {ninety} / {above:.1f} %")
    print_row(f"{part}: comment share, header / source", f"{share(headers):.0f} / {share(code):.0f} %")


def total_lines(root, *parts):
    return sum(len(lines_of(path)) for part in parts for suffix in (".h", ".cpp") for path in files(root, part, suffix))


def count(root, parts, pattern):
    paths = [path for part in parts for suffix in (".h", ".cpp") for path in files(root, part, suffix)]
    return sum(bool(pattern.search(line)) and "paced:" not in line for path in paths for line in lines_of(path))


def dialects(root):
    lint = subprocess.run([sys.executable, "-B", root / "tests/lint/one_hand.py", root], capture_output=True, text=True)
    return lint.stdout.strip().splitlines()[-1]


def main():
    root = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent.parent).resolve()
    for part in PARTS:
        print_part(root, part)
    print_row("tests to code", f"{total_lines(root, 'tests') / total_lines(root, 'src', 'host'):.2f}")
    print_row("fixed waits in tests", count(root, ("tests",), FIXED_WAIT))
    print_row("string connects", count(root, PARTS, STRING_CONNECT))
    print_row("dialects, by tests/lint/one_hand.py", dialects(root))
    for folder, units in crowded_folders(root):
        print_row("crowded folder", f"{folder}: {units} units")
    for header, size, user in small_units(root):
        print_row("small unit with one user", f"{header} ({size} lines): {user}")
    long_functions = [entry for part in PARTS for entry in functions_of(files(root, part, ".cpp") + files(root, part, ".h")) if entry[0] > 50]
    for length, path, line in sorted(long_functions, key=lambda entry: -entry[0]):
        print_row("function above 50 lines", f"{length}: {path.relative_to(root)}:{line}")


if __name__ == "__main__":
    main()
