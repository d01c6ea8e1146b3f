"""The planter finds changes, plants them one at a time and sees what is noticed, on a small sample: its build only looks for
a word, and its tests read the source."""
import contextlib
import io
import random
import sys
import tempfile
import unittest
import unittest.mock
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))  # as a run by hand has it
import mutations  # noqa: E402
import plant  # noqa: E402
import workshop  # noqa: E402

watch = workshop.watch
SAMPLE = """// Sizes: 3 == 3; Open();
void CSample::Close(int nOpen)
{
    Q_ASSERT(nOpen > 0);
    const QReadLocker locker(&lock);
    if (nOpen == 1 && bKept) {
        pWindow->Save("a == b", 12);
        pWindow->Hide();
    }
    connect(pWindow, &CWindow::Done, this, [this] { Stop(true); });
    QList<int> list;
    return list.size();
}
"""


def changes(kind, text=SAMPLE, path="src/sample/Sample.cpp"):
    return [change for change in mutations.changes_of(path, text) if change.kind == kind]


def planted(kind, text=SAMPLE):
    """(old, new) of each line that a change of this kind has changed."""
    for change in changes(kind, text):
        old, new = text.splitlines(), change.apply(text).splitlines()
        yield [(one.strip(), other.strip()) for one, other in zip(old, new) if one != other]


class ChangesTest(unittest.TestCase):
    def test_a_comparison_is_turned_but_none_in_a_comment_a_text_or_an_assertion(self):
        lines = [line for (_, line), in planted("comparison")]
        self.assertEqual(lines, ["if (nOpen != 1 && bKept) {", "if (nOpen == 1 || bKept) {"])

    def test_a_boundary_is_moved(self):
        self.assertEqual([change.new for change in changes("comparison", "    if (a < b) {\n")], ["<=", ">="])

    def test_a_constant_is_moved_by_one(self):
        lines = [line for (_, line), in planted("constant")]
        self.assertIn("if (nOpen == 2 && bKept) {", lines)
        self.assertIn('pWindow->Save("a == b", 11);', lines)
        self.assertIn("connect(pWindow, &CWindow::Done, this, [this] { Stop(false); });", lines)
        self.assertEqual(len(lines), 5)
        self.assertEqual([change.new for change in changes("constant", "int n = 0xFF;")], ["0x100", "0xFE"])
        self.assertEqual([change.new for change in changes("constant", "qreal f = 0.5F;")], ["1.5", "-0.5"])

    def test_a_call_is_left_out(self):
        lines = [line for (line, rest), in planted("call")]
        self.assertEqual(lines, ['pWindow->Save("a == b", 12);', "pWindow->Hide();",
                                 "connect(pWindow, &CWindow::Done, this, [this] { Stop(true); });"])

    def test_two_calls_are_swapped(self):
        self.assertEqual(list(planted("order")), [[('pWindow->Save("a == b", 12);', "pWindow->Hide();"),
                                                   ("pWindow->Hide();", 'pWindow->Save("a == b", 12);')]])

    def test_a_lock_is_dropped_or_of_the_other_kind(self):
        self.assertEqual([line for (line, rest), in planted("lock")], ["const QReadLocker locker(&lock);"])
        other = list(planted("lock", "    const CReadLocker locker(*this);\n"))
        self.assertIn([("const CReadLocker locker(*this);", "const CWriteLocker locker(*this);")], other)

    def test_a_header_loses_no_calls(self):
        kinds = {change.kind for change in mutations.changes_of("src/sample/Sample.h", SAMPLE)}
        self.assertEqual(kinds, {"comparison", "constant", "lock"})


class DrawingTest(unittest.TestCase):
    def test_the_same_seed_draws_the_same_changes_each_once(self):
        every = list(mutations.changes_of("src/sample/Sample.cpp", SAMPLE))
        first, second = (list(plant.draw(every, random.Random(7))) for _ in range(2))
        self.assertEqual(first, second)
        self.assertCountEqual(first, every)
        self.assertNotEqual(first, list(plant.draw(every, random.Random(8))))

    def test_a_place_is_a_line_a_file_or_a_folder(self):
        change = changes("call")[0]
        for places in (None, ["src/sample/Sample.cpp:7"], ["src/sample/Sample.cpp"], ["src/other", "src/sample/"], ["src"]):
            self.assertTrue(plant.is_at(change, places), places)
        for place in ("src/sample/Sample.cpp:70", "src/sample/Sample.cpp:8", "src/sam", "src/sample/Sample.h"):
            self.assertFalse(plant.is_at(change, [place]), place)

    def test_what_is_known_to_change_nothing_has_its_reason(self):
        known = plant.Known("# a comment\nsrc/*.cpp | call left out: pWindow->Hide(); | it is hidden\n"
                            "src/* | constant: 12 becomes * in: *Save* | any size will do\n")
        self.assertTrue(known.has(changes("call")[1], SAMPLE))
        self.assertFalse(known.has(changes("call")[0], SAMPLE))
        self.assertEqual([change.old for change in changes("constant") if known.has(change, SAMPLE)], ["12", "12"])
        in_function = plant.Known("src/* | call left out: * in CSample::Close | for the sample\nsrc/* | * in CSample::Open | another\n")
        self.assertEqual([in_function.has(change, SAMPLE) for change in changes("call")], [True, True, True])
        self.assertFalse(in_function.has(changes("comparison")[0], SAMPLE))
        with self.assertRaises(ValueError):
            plant.Known("src/*.cpp | call left out: Hide(); | ")


class PlantingTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        self.source = self.root / "src/sample/Sample.cpp"
        self.source.parent.mkdir(parents=True)
        self.source.write_text(SAMPLE)

    def shop(self, *conditions):
        """Tests that pass while the condition of the shell holds, a build that fails without a "QReadLocker"."""
        tests = [workshop.Test(f"tst_sample_{number}", ["sh", "-c", condition], {}, self.root, 20)
                 for number, condition in enumerate(conditions)]
        script = "echo $* >>built; grep -q QReadLocker src/sample/Sample.cpp || { echo 'error: no lock'; exit 1; }"
        build = ["sh", "-c", script, "build"]
        return workshop.Workshop(self.root, build, tests, 2)

    def verdict(self, change, *conditions):
        verdict = self.shop(*conditions).try_change(change)
        self.assertEqual(self.source.read_text(), SAMPLE)
        return verdict

    def test_a_change_that_a_test_sees_is_noticed_with_its_name(self):
        condition = "grep -q 'nOpen == 1' src/sample/Sample.cpp || { echo 'FAIL!  : opens'; exec tail -f /dev/null; }"
        self.assertEqual(self.verdict(changes("comparison")[0], "true", condition), ("noticed", "tst_sample_1: opens"))

    def test_a_program_that_ends_badly_or_never_has_noticed(self):
        self.assertEqual(self.verdict(changes("call")[0], "false"), ("noticed", "tst_sample_0: exit code 1"))
        shop = self.shop("exec tail -f /dev/null")
        shop.tests[0].limit = 0.1
        self.assertEqual(shop.try_change(changes("call")[0]), ("noticed", "tst_sample_0: not done after 0 s"))

    def test_a_test_that_fails_once_by_chance_has_not_noticed(self):
        verdict = self.verdict(changes("call")[0], "[ -e once ] || { touch once; exit 1; }")
        self.assertEqual(verdict, ("unnoticed", ""))

    def test_the_tests_of_another_folder_are_not_built_for_what_is_noticed_in_its_own(self):
        shop = self.shop("exit 1", "true")
        shop.tests[1].name = "tst_other"
        self.assertEqual(shop.try_change(changes("call")[0])[0], "noticed")
        self.assertEqual((self.root / "built").read_text(), "tst_sample_0\n")
        shop.tests[0].command = ["true"]
        self.assertEqual(shop.try_change(changes("call")[0])[0], "unnoticed")
        self.assertEqual((self.root / "built").read_text(), "tst_sample_0\ntst_sample_0\ntst_other\n")

    def test_a_test_that_the_load_makes_late_has_not_noticed(self):
        shop = self.shop("[ -e once ] || { touch once; exec tail -f /dev/null; }")
        shop.tests[0].limit = 5
        limits = []

        def impatient(process, limit, *events):
            limits.append(limit)
            watch(process, 0.1 if len(limits) == 1 else limit, *events)

        with unittest.mock.patch.object(workshop, "watch", impatient):
            self.assertEqual(shop.try_change(changes("call")[0]), ("unnoticed", ""))
        self.assertEqual(limits, [5, 20])

    def test_a_change_that_no_test_sees_is_unnoticed(self):
        self.assertEqual(self.verdict(changes("call")[1], "true"), ("unnoticed", ""))

    def test_a_change_that_does_not_build_says_why(self):
        self.assertEqual(self.verdict(changes("lock")[0], "true"), ("does not build", "error: no lock"))

    def test_the_report_counts_what_built_and_names_the_unnoticed(self):
        known = plant.Known("src/* | call left out: connect* | for the sample")
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            enough = plant.plant(self.shop("grep -q 'Hide' src/sample/Sample.cpp"), changes("lock") + changes("call"), 2, known)
        self.assertFalse(enough)
        self.assertRegex(output.getvalue(), r"(?m)^1 of 2 noticed, 1 did not build; 0 minutes$")
        self.assertRegex(output.getvalue(), r"(?m)^unnoticed: src/sample/Sample\.cpp:7: call left out: pWindow->Save")

    def test_the_copy_follows_the_checkout_and_keeps_the_time_of_what_is_the_same(self):
        copy = self.root / "build/changes"
        workshop.synchronise(self.root, copy)
        other = copy / "src/sample/Sample.cpp"
        (copy / "src/old.cpp").write_text("")
        time = other.stat().st_mtime_ns
        workshop.synchronise(self.root, copy)
        self.assertEqual(other.stat().st_mtime_ns, time)
        self.assertFalse((copy / "src/old.cpp").exists())
        other.write_text("left over by a run that was ended")
        workshop.synchronise(self.root, copy)
        self.assertEqual(other.read_text(), SAMPLE)


if __name__ == "__main__":
    unittest.main()
