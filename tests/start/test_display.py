"""What the program says where no display answers. Usage: test_display.py ROOT, with KESTREL in the environment."""
import os
import subprocess
import sys
import tempfile
import unittest


def run(*words, **more):
    kept = {name: value for name, value in os.environ.items()
            if name not in ("DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET", "QT_QPA_PLATFORM")}
    return subprocess.run([os.environ["KESTREL"], *words], env=dict(kept, **more), capture_output=True, text=True, timeout=50)


class DisplayTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def test_one_sentence_and_code_4(self):
        for given, named in (
                ({}, "(no DISPLAY, no WAYLAND_DISPLAY)"),
                ({"DISPLAY": ":4711"}, "(DISPLAY=:4711, no WAYLAND_DISPLAY)"),
                ({"DISPLAY": "nonsense"}, "(DISPLAY=nonsense, no WAYLAND_DISPLAY)"),
                ({"WAYLAND_DISPLAY": "wayland-7"}, "(no DISPLAY, WAYLAND_DISPLAY=wayland-7)"),
                ({"DISPLAY": ":4711", "WAYLAND_DISPLAY": "wayland-7"}, "(DISPLAY=:4711, WAYLAND_DISPLAY=wayland-7)"),
                ({"DISPLAY": ":4711", "QT_QPA_PLATFORM": "xcb"}, "(DISPLAY=:4711, no WAYLAND_DISPLAY)"),
                ({"QT_QPA_PLATFORM": "wayland-egl"}, "(no DISPLAY, no WAYLAND_DISPLAY)"),
                ({"QT_QPA_PLATFORM": "wayland;xcb"}, "(no DISPLAY, no WAYLAND_DISPLAY)")):
            with self.subTest(given=given):
                result = run("--list", f"{self.folder.name}/a.kvtl", XDG_RUNTIME_DIR=self.folder.name, **given)
                self.assertEqual((result.returncode, result.stdout), (4, ""), result.stderr)
                self.assertEqual(result.stderr, f"kestrel: No display answers {named}; start Kestrel on a desktop, or "
                                                "without one with QT_QPA_PLATFORM=offscreen\n")
                self.assertEqual(os.listdir(self.folder.name), [])

    def test_the_questions_that_need_none_are_answered(self):
        for option in ("--help", "--version"):
            self.assertEqual(run(option, DISPLAY=":4711").returncode, 0)

    def test_a_bad_option_comes_first(self):
        result = run("--list", "", DISPLAY=":4711")
        self.assertEqual((result.returncode, result.stderr), (2, "kestrel: --list is empty; see --help\n"))

    def test_a_platform_without_a_display_is_kept(self):
        for platform in ("offscreen", "xcb;offscreen"):
            picture = f"{self.folder.name}/{len(platform)}.png"
            result = run("--list", f"{self.folder.name}/a.kvtl", "--shot", picture, "--at", "0", DISPLAY=":4711",
                         QT_QPA_PLATFORM=platform)
            self.assertEqual(result.returncode, 0, result.stderr)
            self.assertTrue(os.path.exists(picture))


if __name__ == "__main__":
    sys.argv[1:2] = []
    unittest.main()
