"""The shipped library: exports its one function, and what it leaves open belongs to Qt, CommonComponent,
CorvidControl or the system's C and C++ runtime. Usage: exported_symbols.py LIBRARY [PROGRAM...]; the
programs must not be linked against the library."""
import re
import subprocess
import sys
from pathlib import Path

EXPORT = "_Z23CProcessorTreeView_InitPP13ICorvidWidgetP13IUIManagement"
ALLOWED = re.compile(r"^(libQt5\w+|libCommonComponent|libCorvidControl|libstdc\+\+|libgcc_s|libc|libm|ld-linux-[\w-]+)\.so")


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def dynamic_symbols(library, which):
    """Names without their version."""
    return {line.split()[-1].split("@")[0]: line.split()[-2] for line in run("nm", "-D", which, library).splitlines()}


def needed(binary):
    return re.findall(r"\(NEEDED\).*\[(.*)\]", run("readelf", "-d", binary))


def needed_paths(library):
    """Where the loader finds the libraries that are asked for by name."""
    found = dict(re.findall(r"^\s*(\S+) => (\S+)", run("ldd", library), flags=re.M))
    return {name: found.get(name, name) for name in needed(library)}


def main():
    library, programs = sys.argv[1], sys.argv[2:]
    faults = []
    exports = set(dynamic_symbols(library, "--defined-only"))
    if exports != {EXPORT}:
        faults.append(f"exports {sorted(exports)}, not {EXPORT} alone")
    faults += [f"asks for {name}" for name in needed(library) if not ALLOWED.match(name)]
    provided = set()
    for path in needed_paths(library).values():
        if Path(path).exists():
            provided |= set(dynamic_symbols(path, "--defined-only"))
    undefined = dynamic_symbols(library, "--undefined-only")
    faults += [f"leaves {name} open" for name, kind in undefined.items() if kind == "U" and name not in provided and not name.startswith("__tls")]
    faults += [f"{program} is linked against the panel" for program in programs if any("ProcessorTreeView" in name for name in needed(program))]
    print("\n".join(faults) or f"{len(undefined)} symbols left open, all of allowed libraries")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
