"""The binary surface is that of the last release, and what breaks it is noticed. Usage: surface.py ROOT LIBRARIES"""
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

LIBRARIES = Path(sys.argv.pop()).resolve()
ROOT = Path(sys.argv.pop()).resolve()
sys.path.insert(0, str(ROOT / "scripts"))

from surface import HEADERS  # noqa: E402


def check(root, libraries=LIBRARIES):
    command = [ROOT / "scripts/surface.py", "--headers", root, "check", libraries]
    return subprocess.run(command, capture_output=True, text=True)


class SurfaceTest(unittest.TestCase):
    def headers_with(self, name, old, new):
        """A copy of the headers in which one of them is different."""
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        for part in HEADERS:
            shutil.copytree(ROOT / part, Path(folder.name) / part)
        header = Path(folder.name) / name
        text = header.read_text(encoding="utf-8")
        self.assertIn(old, text)
        header.write_text(text.replace(old, new, 1), encoding="utf-8")
        return folder.name

    def test_the_surface_is_that_of_the_last_release(self):
        result = check(ROOT)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)

    def test_an_operation_in_the_middle_of_an_interface_is_noticed(self):
        old = "    virtual void Detach("
        result = check(self.headers_with("src/interfaces/control/IPrcListControl.h", old, f"    virtual void Planted() {{ }}\n{old}"))
        self.assertEqual(result.returncode, 1, result.stdout + result.stderr)
        self.assertIn("IPrcListControl::Detach", result.stdout)

    def test_another_field_of_a_record_is_noticed(self):
        result = check(self.headers_with("src/data/nodes/SProcessorNode.h", "    quint32 nPortA", "    quint64 nPortA"))
        self.assertEqual(result.returncode, 1, result.stdout + result.stderr)
        self.assertIn("SProcessorNode", result.stdout)

    def test_a_line_more_is_no_change(self):
        old = "    virtual void Detach("
        result = check(self.headers_with("src/interfaces/control/IPrcListControl.h", old, f"    /// A comment.\n\n{old}"))
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)

    def test_an_operation_that_a_library_has_no_more_is_noticed(self):
        with tempfile.TemporaryDirectory() as folder:
            for name in ("ProcessorTreeView", "ControlHost", "CorvidControl"):
                shutil.copy(LIBRARIES / f"lib{name}.so", folder)
            shutil.copy(LIBRARIES / "libControlHost.so", Path(folder) / "libCommonComponent.so")
            result = check(ROOT, folder)
        self.assertEqual(result.returncode, 1)
        self.assertIn("gone: libCommonComponent.so _ZN10CSearchBox9ClearTextEv", result.stdout)


if __name__ == "__main__":
    unittest.main()
