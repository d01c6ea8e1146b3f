"""Installs a build, moves the installation and builds an outside project against it.
Usage: package.py ROOT BUILD_FOLDER"""
import os
import re
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

from PIL import Image

BUILD = Path(sys.argv.pop()).resolve()
ROOT = Path(sys.argv.pop()).resolve()
WORK = BUILD / "install-test"
PREFIX = WORK / "moved"
CONSUMER = Path(__file__).resolve().parent / "consumer"
ENTRY_POINT = "_Z23CProcessorTreeView_InitPP13ICorvidWidgetP13IUIManagement"
HEADERS = "include/ProcessorTreeView"
DATA = "share/ProcessorTreeView"

STAND_INS = ("CommonComponent", "ControlHost", "CorvidControl")

# What each folder of the sources becomes, all of it.
FOLDERS = (
    ("src/interfaces", ("*.h",), f"{HEADERS}/interfaces"),
    ("src/data/nodes", ("*.h",), f"{HEADERS}/nodes"),
    ("host/journal", ("*.h",), f"{HEADERS}/journal"),
    ("host/controlhost", ("*.h",), f"{HEADERS}/controlhost"),
    ("host/Kestrel/icons", ("*.svg", "*.qrc"), f"{DATA}/icons"),
    ("examples", ("*.kvtl", "*.json"), f"{DATA}/examples"),
    ("docs", ("*.md", "*.png"), "share/doc/ProcessorTreeView"),
)


def run(*command, **options):
    """What the command prints; fails with it."""
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options)
    if result.returncode != 0:
        raise AssertionError(f"{' '.join(map(str, command))} returned {result.returncode}:\n{result.stdout[-4000:]}")
    return result.stdout


def cache(name):
    """A value of the build's CMakeCache.txt."""
    return re.search(rf"^{name}:\w+=(.*)$", (BUILD / "CMakeCache.txt").read_text(), re.M).group(1)


def version():
    return re.search(r"project\(ProcessorTreeView VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text()).group(1)


def shared_library(name):
    """The file and its name for the loader."""
    return {f"lib/lib{name}.so.{version()}", f"lib/lib{name}.so.{version().split('.')[0]}"}


def install(component):
    """Installs one component; the paths of its files below the prefix."""
    first = WORK / component
    run("cmake", "--install", BUILD, "--prefix", first, "--component", component)
    return {str(path.relative_to(first)) for path in first.rglob("*") if not path.is_dir() or path.is_symlink()}


def setUpModule():
    shutil.rmtree(WORK, ignore_errors=True)
    InstallTest.runtime = install("Runtime")
    InstallTest.development = install("Development")
    shutil.copytree(WORK / "Runtime", PREFIX, symlinks=True)
    shutil.copytree(WORK / "Development", PREFIX, symlinks=True, dirs_exist_ok=True)
    shutil.rmtree(WORK / "Runtime")
    shutil.rmtree(WORK / "Development")


class InstallTest(unittest.TestCase):
    maxDiff = None

    def expected_development(self):
        config = cache("CMAKE_BUILD_TYPE").lower()
        package = "lib/cmake/ProcessorTreeView/ProcessorTreeView"
        files = {"bin/kestrel", "bin/ptv-contract", "lib/libNodeRecords.a", "lib/libControlJournal.a", "lib/pkgconfig/processortreeview.pc",
                 f"{package}Config.cmake", f"{package}ConfigVersion.cmake", f"{package}Targets.cmake",
                 f"{package}Targets-{config}.cmake", "share/applications/kestrel.desktop", "share/man/man1/kestrel.1",
                 "share/man/man1/ptv-contract.1",
                 "share/icons/hicolor/scalable/apps/kestrel.svg"}
        files |= {f"lib/lib{name}.so" for name in ("ProcessorTreeView", *STAND_INS)}
        files = files.union(*map(shared_library, STAND_INS))
        for source, patterns, target in FOLDERS:
            paths = [path for pattern in patterns for path in (ROOT / source).rglob(pattern)]
            files |= {f"{target}/{path.relative_to(ROOT / source)}" for path in paths}
        return files

    def test_the_runtime_component_is_the_panel_alone(self):
        self.assertEqual(self.runtime, shared_library("ProcessorTreeView"))

    def test_the_development_component_is_everything_else(self):
        self.assertEqual(sorted(self.development), sorted(self.expected_development()))

    def test_the_libraries_are_asked_for_with_a_number(self):
        for name in ("ProcessorTreeView", *STAND_INS):
            dynamic = run("readelf", "--dynamic", PREFIX / f"lib/lib{name}.so")
            self.assertIn(f"[lib{name}.so.{version().split('.')[0]}]", re.search(r"\(SONAME\).*", dynamic).group())
            self.assertRegex(dynamic, r"\(RUNPATH\).*\[\$ORIGIN\]")

    def test_the_panel_exports_one_symbol(self):
        symbols = run("nm", "--dynamic", "--defined-only", "--format=posix", PREFIX / "lib/libProcessorTreeView.so")
        self.assertEqual([line.split()[0] for line in symbols.splitlines()], [ENTRY_POINT])

    def test_no_file_says_where_it_was_made(self):
        for path in PREFIX.rglob("*"):
            if path.suffix in (".cmake", ".pc", ".desktop", ".qrc"):
                text = path.read_text(encoding="utf-8")
                for place in (ROOT, BUILD, WORK, Path(cache("CMAKE_INSTALL_PREFIX"))):
                    self.assertNotIn(str(place), text, path)

    def configure(self, wanted):
        """The exit code and what was printed."""
        shutil.rmtree(WORK / "consumer", ignore_errors=True)
        command = ["cmake", "-G", "Ninja", "-S", CONSUMER, "-B", WORK / "consumer", f"-DCMAKE_PREFIX_PATH={PREFIX}",
                   f"-DWANTED_VERSION={wanted}"]
        result = subprocess.run(command, capture_output=True, text=True)
        return result.returncode, result.stdout + result.stderr

    def test_an_outside_project_builds_and_runs_against_it(self):
        code, output = self.configure(".".join(version().split(".")[:2]))
        self.assertEqual(code, 0, output)
        run("cmake", "--build", WORK / "consumer")
        summary = run("ctest", "--test-dir", WORK / "consumer", "--output-on-failure")
        self.assertIn("100% tests passed, 0 tests failed out of 8", summary)
        objects = list((WORK / "consumer/CMakeFiles/HeadersAlone.dir").rglob("*.o"))
        self.assertEqual(len(objects), len(list((PREFIX / HEADERS).rglob("*.h"))))

    def test_another_version_is_refused(self):
        major, minor = map(int, version().split(".")[:2])
        for wanted in (f"{major}.{minor + 1}", f"{major + 1}.0"):
            code, output = self.configure(wanted)
            self.assertNotEqual(code, 0, wanted)
            self.assertIn(f'compatible with requested version "{wanted}"', output)

    def pkg_config(self, *arguments):
        environment = dict(os.environ, PKG_CONFIG_PATH=str(PREFIX / "lib/pkgconfig"))
        return run("pkg-config", *arguments, "processortreeview", env=environment).split()

    def test_a_project_without_cmake_builds_and_runs_against_it(self):
        headers = sorted(path.relative_to(PREFIX / HEADERS) for path in (PREFIX / HEADERS).rglob("*.h"))
        source = WORK / "everything.cpp"
        source.write_text("".join(f'#include "{header}"\n' for header in headers) + (CONSUMER / "NodeRecords.cpp").read_text())
        self.assertEqual(self.pkg_config("--modversion"), [version()])
        run("g++", "-std=c++17", "-fPIC", *self.pkg_config("--cflags"), source, "-o", WORK / "everything", *self.pkg_config("--libs"))
        run(WORK / "everything")

    def menu_entry(self, key):
        entry = (PREFIX / "share/applications/kestrel.desktop").read_text(encoding="utf-8")
        return re.search(rf"^{key}=(\S+)$", entry, re.M).group(1)

    def test_the_menu_entry_has_its_icon(self):
        self.assertTrue((PREFIX / f"share/icons/hicolor/scalable/apps/{self.menu_entry('Icon')}.svg").is_file())

    def kestrel(self, *arguments):
        """Kestrel as the menu starts it, but without a screen and with nothing of this build in its way."""
        environment = {"PATH": f"{PREFIX}/bin:/usr/bin:/bin", "HOME": str(WORK), "XDG_RUNTIME_DIR": str(WORK),
                       "QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8"}
        return run(shutil.which(self.menu_entry("Exec"), path=environment["PATH"]), *arguments, env=environment, cwd=WORK)

    def test_kestrel_says_its_version(self):
        self.assertIn(version(), self.kestrel("--version"))

    def test_the_contract_kit_tries_the_installed_library(self):
        report = run(PREFIX / "bin/ptv-contract", "--control", PREFIX / "lib/libCorvidControl.so", "--only", "C-list-17")
        self.assertRegex(report, r"(?m)^kept +C-list-17 ")

    def test_kestrel_shows_an_example_list(self):
        pictures = {}
        for name in ("studio", "empty"):
            shutil.copy(PREFIX / DATA / f"examples/{name}.kvtl", WORK)
            self.kestrel("--list", WORK / f"{name}.kvtl", "--shot", WORK / f"{name}.png")
            pictures[name] = Image.open(WORK / f"{name}.png").convert("RGB")
        online = (0x38, 0xFC, 0x4C)
        colours = {name: {colour for _, colour in picture.getcolors(1 << 24)} for name, picture in pictures.items()}
        self.assertIn(online, colours["studio"])
        self.assertNotIn(online, colours["empty"])


if __name__ == "__main__":
    unittest.main()
