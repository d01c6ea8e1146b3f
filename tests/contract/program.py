"""ptv-contract as a program: its options, exit codes and reports.
Usage: program.py PTV_CONTRACT CORVIDCONTROL FORGETFUL_FOLD FOREIGN_LIST CRASH_ON_GROUP EMPTY_CONTROL IDLE_CONTROL
END_PROCESS_GROUP CRASH_ON_ATTACH CRASH_ON_LOAD EAGER_IMPORT CRASH_AFTER_POST"""
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree
from pathlib import Path

PROGRAM, SOUND, BROKEN, FOREIGN, CRASHING, EMPTY, IDLE, ENDING, ATTACHING, LOADING, EAGER, CRASHING_LATER = sys.argv[1:]
FOLD, COUNT, TYPE_NAME = "C-list-15", "C-list-17", "C-basic-7"
NEED_AN_EFFECT = ("C-library-3", "C-basic-3", "C-list-2", "C-list-5", "C-runtime-5", "C-runtime-6", "C-observer-1")


def run(*arguments):
    # In a session of its own: one of the libraries ends all of its process group.
    return subprocess.run([PROGRAM, *arguments], capture_output=True, text=True, start_new_session=True)


def story(report):
    """The indented lines, without their numbers."""
    return [re.sub(r"^    (\d+\. )?", "", line) for line in report.splitlines() if line.startswith("    ")]


class ProgramTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.junit = Path(folder.name) / "report.xml"

    def assert_refused(self, reason, *arguments):
        done = run(*arguments)
        self.assertEqual((done.returncode, done.stdout), (2, ""))
        self.assertRegex(done.stderr, rf"^ptv-contract: .*{reason}.*\n$")

    def test_a_kept_promise_is_one_line_and_exit_code_0(self):
        done = run("--control", SOUND, "--only", COUNT)
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertRegex(done.stdout, rf"(?m)^kept +{COUNT} +GetSimulatorCount is .*\.$")
        self.assertEqual(story(done.stdout), [])
        self.assertEqual(done.stderr, "")

    def test_a_broken_promise_has_the_shortest_story_and_exit_code_1(self):
        done = run("--control", BROKEN, "--only", FOLD)
        self.assertEqual(done.returncode, 1, done.stdout)
        lines = story(done.stdout)
        self.assertEqual([line.split("(")[0] for line in lines[1:-1]], ["SetExpanded"], done.stdout)
        self.assertRegex(lines[-1], r'^then: ".+" is (un)?folded in the next tree\.$')

    def test_the_same_seed_gives_the_same_report(self):
        first, second = (run("--control", BROKEN, "--only", FOLD, "--seed", "7").stdout for _ in range(2))
        self.assertIn("seed 7", first)
        self.assertEqual(first, second)

    def test_only_takes_several_promises(self):
        done = run("--control", BROKEN, "--only", COUNT, "--only", TYPE_NAME)
        self.assertEqual(re.findall(r"^kept +(\S+)", done.stdout, re.M), [TYPE_NAME, COUNT])
        self.assertEqual(done.returncode, 0)

    def test_junit_has_a_case_for_each_promise_and_the_story_in_its_failure(self):
        run("--control", BROKEN, "--only", FOLD, "--only", COUNT, "--only", "C-list-6", "--seed", "3", "--junit", self.junit)
        suite = xml.etree.ElementTree.parse(self.junit).getroot()
        self.assertEqual({name: suite.get(name) for name in ("tests", "failures", "errors", "skipped")},
                         {"tests": "3", "failures": "1", "errors": "0", "skipped": "1"})
        self.assertEqual(suite.find("properties/property[@name='seed']").get("value"), "3")
        cases = {case.get("name").split()[0]: case for case in suite.iter("testcase")}
        self.assertEqual(cases[FOLD].get("classname"), "contract.list")
        self.assertEqual(cases[FOLD].find("failure").get("type"), "required")
        self.assertIn("SetExpanded(", cases[FOLD].find("failure").text)
        self.assertEqual(list(cases[COUNT]), [])
        self.assertEqual(cases["C-list-6"].find("skipped").get("message"), "not testable")

    def test_a_library_that_cannot_be_loaded_breaks_the_first_promise(self):
        for library, reason in (("/nowhere.so", "cannot open shared object file"), (EMPTY, "has set no g_pConfigControl")):
            done = run("--control", library)
            self.assertEqual(done.returncode, 1)
            self.assertRegex(done.stdout, rf"(?m)^broken +C-library-1 .*\n    then: .*{reason}")
            self.assertNotIn("\nkept", done.stdout)

    def test_a_call_that_makes_no_list_breaks_its_own_promise(self):
        done = run("--control", CRASHING, "--only", "C-list-8", "--only", FOLD, "--only", TYPE_NAME)
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stdout, r'(?m)^broken +C-list-8 .*\n(    .*\n)*    \d+\. AddGroup\(.*\n    then: the process ended .*Segmentation')
        self.assertRegex(done.stdout, rf"(?m)^not tried +{FOLD} .*\n    there is no list to try it on, see C-list-8\.$")
        self.assertRegex(done.stdout, rf"(?m)^kept +{TYPE_NAME} ")

    def test_what_nothing_has_put_to_the_test_is_not_kept(self):
        done = run("--control", IDLE, "--sequences", "1", *(word for promise in NEED_AN_EFFECT for word in ("--only", promise)))
        self.assertEqual(re.findall(r"^not tried +(\S+)", done.stdout, re.M), list(NEED_AN_EFFECT), done.stdout)

    def test_a_library_that_ends_its_process_group_does_not_end_the_report(self):
        done = run("--control", ENDING, "--only", "C-list-8", "--only", TYPE_NAME)
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stdout, r'(?m)^broken +C-list-8 .*\n(    .*\n)*    then: the process ended in the last call: Killed\.$')
        self.assertRegex(done.stdout, rf"(?m)^kept +{TYPE_NAME} ")

    def test_of_several_files_the_story_has_the_one_that_breaks_the_promise(self):
        lines = story(run("--control", EAGER, "--only", "C-list-4").stdout)
        self.assertEqual(lines[1:], ['ImportList("text.kvtl") -> 0', "then: the answer is not 2."])

    def test_a_story_ends_with_the_call_that_has_not_returned(self):
        for library, promise, call in ((ATTACHING, "C-library-3", "Attach of an observer to all seven objects"),
                                       (LOADING, "C-library-1", "loading the library")):
            lines = story(run("--control", library, "--only", promise).stdout)
            self.assertEqual(lines[-2:], [call, "then: the process ended in the last call: Segmentation fault."])

    def test_a_process_that_ends_between_two_calls_is_not_blamed_on_one_under_way(self):
        lines = story(run("--control", CRASHING_LATER, "--only", "C-runtime-1").stdout)
        self.assertEqual(lines[-2:], ["PostMessage(14)", "then: the process ended after the last call: Segmentation fault."])

    def test_a_list_of_the_user_is_left_alone_until_he_allows_it(self):
        self.assert_refused("/nowhere/list.kvtl.*--list-may-change", "--control", FOREIGN)
        done = run("--control", FOREIGN, "--only", COUNT, "--list-may-change")
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)

    def test_what_makes_no_sense_is_refused(self):
        self.assert_refused("--control FILE is missing")
        self.assert_refused("no promise 'C-list-99'", "--control", SOUND, "--only", "C-list-99")
        self.assert_refused("--seed takes a number", "--control", SOUND, "--seed", "x")
        self.assert_refused("--sequences takes a number from 1", "--control", SOUND, "--sequences", "0")
        self.assert_refused("Unknown option 'nonsense'", "--nonsense")
        self.assert_refused("/nowhere/report.xml", "--control", SOUND, "--only", COUNT, "--junit", "/nowhere/report.xml")

    def test_help_and_version_are_printed(self):
        self.assertIn("--list-may-change", run("--help").stdout)
        self.assertRegex(run("--version").stdout, r"^ptv-contract \d+\.\d+\.\d+\n$")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
