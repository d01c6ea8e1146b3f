#!/usr/bin/env python3
"""The binary surface between the panel and its host: the records, and the tables of virtual operations, that the
public headers declare, and the symbols that the libraries export. It must be that of the last release:
  scripts/surface.py check [FOLDER]   fails for what was removed or changed; what was added to a library is let pass
  scripts/surface.py renew [FOLDER]   writes the surface down as that of a release, into packaging/abi; before a tag
FOLDER has the libraries, build/dev/bin by default. Another checkout's headers: --headers ROOT before the word.
Needs abigail-tools."""
import gzip
import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
HEADERS = ("src/interfaces", "src/data/nodes", "host/controlhost", "host/journal")
INCLUDE_ROOTS = ("src", "src/data", "host")
LIBRARIES = ("ProcessorTreeView", "CommonComponent", "ControlHost", "CorvidControl")
RELEASE = ROOT / "packaging/abi"
# Every class of the headers whole, whether something uses it or not.
OPTIONS = ("-std=c++17", "-O0", "-g", "-fPIC", "-shared", "-fno-eliminate-unused-debug-types", "-femit-class-debug-always")
# Without places, so that a line more in a header is no change; without what Qt keeps to itself.
FORM = ("--no-show-locs", "--no-comp-dir-path", "--no-corpus-path", "--drop-private-types", "--exported-interfaces-only")
TYPE = re.compile(r"^(?:class|struct|enum)(?: \w+_EXPORT)? (\w+)(?: final)?(?: :[^;{]*)?\n\{", re.M)
OBJECTS = ("Config", "PrcBasic", "PrcList", "PrcRuntime", "Preference", "ProjectManage", "Protocal", "Runtime")


def run(*command):
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if result.returncode != 0:
        sys.exit(f"surface: {command[0]} failed:\n{result.stdout}")
    return result.stdout


def public_headers(root):
    return [path for folder in HEADERS for path in sorted((root / folder).rglob("*.h"))]


def public_types(root):
    """The names of the classes, records and enumerations of the public headers."""
    return [name for path in public_headers(root) for name in TYPE.findall(path.read_text(encoding="utf-8"))]


def source(root):
    """A source that has each type of the headers in a symbol, so that the dump has it."""
    lines = [f'#include "{path}"' for path in public_headers(root)]
    lines += [f"I{name}Control* g_p{name}Control;" for name in OBJECTS]
    lines += [f"{name}* surface_{name};" for name in public_types(root)]
    return "\n".join(lines) + "\n"


def dump(root, folder):
    """The records and tables of the headers, as abigail's file in the folder."""
    (folder / "surface.cpp").write_text(source(root), encoding="utf-8")
    flags = run("pkg-config", "--cflags", "Qt5Core", "Qt5Network", "Qt5Widgets").split()
    named = f"-fdebug-prefix-map={folder}=."  # the same surface is the same file
    run("g++", *OPTIONS, *(f"-I{root / place}" for place in INCLUDE_ROOTS), *flags, named, folder / "surface.cpp", "-o",
        folder / "surface.so")
    directories = [word for name in HEADERS for word in ("--headers-dir", root / name)]
    run("abidw", *FORM, *directories, "--out-file", folder / "surface.abi", folder / "surface.so")
    return folder / "surface.abi"


def symbols(root, libraries):
    """What the libraries export of the public headers, without what the compiler makes of their inline functions."""
    types = "|".join(f"{len(name)}{name}" for name in public_types(root))
    public = re.compile(rf"[^_]|_Z\d|_Z(?:NK?|T[ISV])(?:{types})")
    found = set()
    for name in LIBRARIES:
        listing = run("nm", "--dynamic", "--defined-only", "--format=posix", libraries / f"lib{name}.so")
        entries = [line.split()[:2] for line in listing.splitlines()]
        found |= {f"lib{name}.so {symbol}" for symbol, kind in entries if kind in "TDBR" and public.match(symbol)}
    return sorted(found)


def check(root, libraries, folder):
    released = folder / "released.abi"
    released.write_bytes(gzip.decompress((RELEASE / "surface.abi.gz").read_bytes()))
    difference = subprocess.run(("abidiff", "--no-added-syms", released, dump(root, folder)), stdout=subprocess.PIPE, text=True)
    print(difference.stdout, end="")
    expected = (RELEASE / "symbols.txt").read_text().splitlines()
    gone = sorted(set(expected) - set(symbols(root, libraries)))
    print("".join(f"gone: {symbol}\n" for symbol in gone) + f"{len(expected)} symbols")
    return 1 if difference.returncode or gone else 0


def renew(root, libraries, folder):
    RELEASE.mkdir(exist_ok=True)
    content = dump(root, folder).read_bytes()
    (RELEASE / "surface.abi.gz").write_bytes(gzip.compress(content, mtime=0))
    (RELEASE / "symbols.txt").write_text("\n".join(symbols(root, libraries)) + "\n")
    return 0


def main():
    tasks = {"check": check, "renew": renew}
    words = sys.argv[1:]
    root = ROOT
    if words[:1] == ["--headers"]:
        root, words = Path(words[1]).resolve(), words[2:]
    if not words or words[0] not in tasks or len(words) > 2:
        sys.exit(__doc__)
    libraries = Path(words[1]) if len(words) == 2 else ROOT / "build/dev/bin"
    with tempfile.TemporaryDirectory() as folder:
        return tasks[words[0]](root, libraries, Path(folder))


if __name__ == "__main__":
    sys.exit(main())
