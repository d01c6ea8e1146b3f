"""run.sh as somebody meets it who starts it. Usage: test_run.py ROOT, with KESTREL in the environment."""
import re
import subprocess
import unittest

from checkout import ROOT, Checkout

NOTES_ARGUMENTS = """case $1 in
--preset) mkdir -p build/release/bin; : >build/release/build.ninja ;;
*) printf '#!/bin/bash\\nprintf "%%s\\\\n" "$QT_QPA_PLATFORM" "$@"\\n' >build/release/bin/kestrel; : >build/made
   /bin/chmod +x build/release/bin/kestrel ;;
esac"""
OFFSCREEN = {"QT_QPA_PLATFORM": "offscreen", "DISPLAY": ":4711"}


class RunTest(unittest.TestCase):
    def setUp(self):
        self.checkout = Checkout()
        self.addCleanup(self.checkout.close)

    def stages(self, result):
        return re.findall(r"^run: (.*)$", result.stderr, flags=re.M)


class HelpTest(RunTest):
    def test_prints_all_options_and_touches_nothing(self):
        for word in ("--help", "-h", "-help"):
            before = self.checkout.files()
            result = self.checkout.run(word)
            self.assertEqual((result.returncode, result.stderr), (0, ""))
            self.assertEqual(self.checkout.files(), before)
            self.assertTrue(result.stdout.startswith("./run.sh [options]\n"))
            for option in re.findall(r"^  (--\w+)", (ROOT / "host/Kestrel/help.txt").read_text(), flags=re.M):
                self.assertIn(f"\n  {option}", result.stdout)

    def test_stands_among_other_options(self):
        result = self.checkout.run("--list", "a.kvtl", "--help")
        self.assertIn("--scenario", result.stdout)
        self.assertEqual(self.checkout.calls(), [])


class PathTest(RunTest):
    def setUp(self):
        super().setUp()
        (self.checkout.elsewhere / "mine.kvtl").write_bytes((ROOT / "examples/single.kvtl").read_bytes())
        (self.checkout.elsewhere / "x.json").write_text('{"steps": [{"at": 0, "do": "add-group", "name": "Night shift"}]}')

    def check_written_here(self, result):
        self.assertEqual(result.returncode, 0, result.stderr)
        here = self.checkout.elsewhere
        self.assertEqual(result.stdout, f"Wrote {here}/a.png; --shot ends Kestrel here\n")
        self.assertTrue((here / "a.png").exists())
        self.assertIn(b"Night shift", (here / "mine.kvtl").read_bytes())
        self.assertFalse((self.checkout.root / "shots").exists())

    def test_are_those_of_the_callers_folder(self):
        words = ("--list", "mine.kvtl", "--scenario", "x.json", "--shot", "a.png", "--at", "0.5")
        for display in (OFFSCREEN, {}):
            with self.subTest(display=display):
                self.check_written_here(self.checkout.run(*words, **display))
                (self.checkout.elsewhere / "a.png").unlink()

    def test_stay_as_typed_in_messages(self):
        result = self.checkout.run("--scenario", "none.json", **OFFSCREEN)
        self.assertEqual(result.returncode, 2)
        self.assertEqual(result.stderr.splitlines()[-1], "kestrel: No scenario file 'none.json'; see --help")

    def test_of_a_link_to_the_script_lead_to_its_own_tree(self):
        link = self.checkout.elsewhere / "start-kestrel"
        link.symlink_to(self.checkout.root / "run.sh")
        result = self.checkout.run("--version", program=link, **OFFSCREEN)
        self.assertRegex(result.stdout, r"^kestrel \d+\.\d+\.\d+\n$")


class StageTest(RunTest):
    def test_each_has_a_line(self):
        result = self.checkout.run("--version", **OFFSCREEN)
        self.assertEqual(self.stages(result), ["1 of 4, packages", "2 of 4, configure", "3 of 4, build", "4 of 4, start"])
        self.assertEqual(self.checkout.calls()[-2:], ["cmake --preset release -DPTV_BUILD_BENCHMARKS=OFF",
                                                      "cmake --build --preset release --target kestrel"])

    def test_a_tree_that_is_configured_is_not_configured_again(self):
        self.checkout.run("--version", **OFFSCREEN)
        before = self.checkout.calls()
        self.checkout.run("--version", **OFFSCREEN)
        self.assertNotIn("cmake --preset", "\n".join(self.checkout.calls()[len(before):]))

    def test_a_terminal_sees_the_build_count_in_one_line(self):
        seen = self.checkout.run_on_terminal("--version", **OFFSCREEN)
        self.assertIn("run: 3 of 4, build\r\n\r  1 of 3\r  2 of 3\r  3 of 3\r\x1b[Krun: 4 of 4, start\r\n", seen)

    def test_others_get_a_line_now_and_then(self):
        command = f'. {ROOT}/scripts/progress.sh; printf "[1/3] one\\nnoise\\n[3/3] two\\n" | show_progress log "$0"'
        for pause, expected in (("0", "  1 of 3\n  3 of 3\n"), ("50", "")):
            done = subprocess.run(["bash", "-c", command, pause], cwd=self.checkout.elsewhere, capture_output=True, text=True)
            self.assertEqual((done.stdout, done.stderr), (expected, ""))
        self.assertEqual((self.checkout.elsewhere / "log").read_text(), "[1/3] one\nnoise\n[3/3] two\n" * 2)

    def test_a_build_that_fails_ends_with_what_to_do(self):
        self.checkout.put("cmake", "echo 'main.cpp:1: error: no such thing'; exit 1")
        result = self.checkout.run()
        lines = result.stderr.splitlines()
        self.assertEqual(result.returncode, 1)
        self.assertEqual(lines[-2], "main.cpp:1: error: no such thing")
        self.assertRegex(lines[-1], r"^run: the build failed; .* try again, all of them are in .*/build/run\.log$")


class DisplayTest(RunTest):
    def test_a_dead_one_gets_one_sentence(self):
        for display in ({"DISPLAY": ":4711"}, {"WAYLAND_DISPLAY": "nothing"}):
            with self.subTest(display=display):
                result = self.checkout.run(XDG_RUNTIME_DIR=str(self.checkout.folder), **display)
                told = [line for line in result.stderr.splitlines() if not line.startswith("run: ")]
                self.assertEqual(result.returncode, 4, result.stderr)
                self.assertEqual(len(told), 1, result.stderr)
                self.assertRegex(told[0], r"^kestrel: No display answers .*; start Kestrel on a desktop, ")

    def arguments(self, *words, **more):
        self.checkout.put("cmake", NOTES_ARGUMENTS)
        return self.checkout.run(*words, **more).stdout.splitlines()

    def test_on_one_the_list_begins_as_the_example_and_stays(self):
        own = self.checkout.folder / "home/.local/share/Kestrel/processors.kvtl"
        self.assertEqual(self.arguments(**OFFSCREEN), ["offscreen", "--list", str(own)])
        self.assertEqual(own.read_bytes(), (ROOT / "examples/studio.kvtl").read_bytes())
        own.write_text("changed")
        self.assertEqual(self.arguments("--lang", "de", **OFFSCREEN), ["offscreen", "--list", str(own), "--lang", "de"])
        self.assertEqual(own.read_text(), "changed")

    def test_without_one_the_examples_are_played_into_pictures(self):
        words = self.arguments()
        tree = self.checkout.root
        runs = [words[n:n + 7] for n in range(0, len(words), 7)]
        played = [("day", "shots"), ("row-flickers", "shots/row-flickers"), ("two-rows-in-one", "shots/two-rows-in-one")]
        self.assertEqual([run[:2] + run[3:] for run in runs],
                         [["offscreen", "--list", "--scenario", f"{tree}/examples/{name}.json", "--shots", f"{tree}/{folder}"]
                          for name, folder in played])
        self.assertEqual(len({run[2] for run in runs}), 3)
        self.assertEqual(list((self.checkout.folder / "tmp").iterdir()), [])

    def test_without_one_own_options_replace_those_of_the_example(self):
        words = self.arguments("--shot=a.png", "-list", "mine.kvtl")
        self.assertEqual(words, ["offscreen", "--shot=a.png", "-list", "mine.kvtl"])
        words = self.arguments("--scenario", "x.json")
        self.assertEqual(words[3:], ["--shots", f"{self.checkout.root}/shots", "--scenario", "x.json"])


if __name__ == "__main__":
    unittest.main()
