"""The lint tests find what they are for: each rule is broken once in a small project of its own."""
import contextlib
import io
import runpy
import sys
import tempfile
import unittest
import unittest.mock
from pathlib import Path

LINT = Path(__file__).resolve().parent
sys.path.insert(0, str(LINT))  # as a run by hand has it


class LintTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.root = Path(self.folder.name)
        for folder in ("src", "host", "tests", "benchmarks"):
            (self.root / folder).mkdir()
        for header in ("src/interfaces/host/I.h", "src/data/nodes/SNode.h", "src/data/CStore.h", "src/tree/CProcessorTree.h",
                       "src/dialogs/CDialog.h", "src/model/CModel.h",
                       "src/toolbar/CBar.h", "host/Kestrel/CWindow.h", "host/journal/CJournal.h"):
            self.write(header, "#pragma once\n")

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def lint(self, script):
        """Exit code and output, as of a run by hand, but without a new interpreter."""
        output = io.StringIO()
        with unittest.mock.patch.object(sys, "argv", [script, str(self.root)]), contextlib.redirect_stdout(output):
            try:
                runpy.run_path(str(LINT / script), run_name="__main__")
            except SystemExit as end:
                return end.code, output.getvalue()
        return 0, output.getvalue()

    def assert_fault(self, script, place):
        code, output = self.lint(script)
        self.assertEqual(code, 1, output)
        self.assertIn(place, output)

    def assert_clean(self, script):
        code, output = self.lint(script)
        self.assertEqual(code, 0, output)

    def test_include_that_goes_down_passes(self):
        self.write("src/tree/CProcessorTree.cpp", '#include "data/CStore.h"\n#include "interfaces/host/I.h"\n#include <QTreeView>\n')
        self.assert_clean("include_rules.py")

    def test_include_that_goes_up_is_found(self):
        self.write("src/data/CStore.cpp", '#include "data/CStore.h"\n\n#include "tree/CProcessorTree.h"\n')
        self.assert_fault("include_rules.py", "src/data/CStore.cpp:3:")

    def test_include_between_siblings_is_found(self):
        self.write("src/tree/CProcessorTree.cpp", '#include "toolbar/CBar.h"\n')
        self.assert_fault("include_rules.py", "src/tree/CProcessorTree.cpp:1:")

    def test_tree_in_the_models_source_passes_and_in_its_header_not(self):
        self.write("src/model/CModel.cpp", '#include "tree/CProcessorTree.h"\n')
        self.assert_clean("include_rules.py")
        self.write("src/model/CModel.h", '#include "tree/CProcessorTree.h"\n')
        self.assert_fault("include_rules.py", "src/model/CModel.h:1:")

    def test_constants_of_look_are_read_below_and_include_nothing_themselves(self):
        self.write("src/delegate/RowLook.h", "#include <QColor>\n")
        self.write("src/model/CItem.cpp", '#include "delegate/RowLook.h"\n')
        self.assert_clean("include_rules.py")
        self.write("src/delegate/RowLook.h", '#include "data/CStore.h"\n')
        self.assert_fault("include_rules.py", "src/delegate/RowLook.h:1:")

    def test_interface_with_more_than_node_records_is_found(self):
        self.write("src/interfaces/control/IList.h", '#include "nodes/SNode.h"\n')
        self.assert_clean("include_rules.py")
        self.write("src/interfaces/control/IList.h", '#include "data/CStore.h"\n')
        self.assert_fault("include_rules.py", "src/interfaces/control/IList.h:1:")

    def test_node_record_that_includes_more_is_found(self):
        self.write("src/data/nodes/SGroup.h", '#include "nodes/SNode.h"\n#include <QUuid>\n')
        self.assert_clean("include_rules.py")
        self.write("src/data/nodes/SGroup.h", '#include "interfaces/host/I.h"\n')
        self.assert_fault("include_rules.py", "src/data/nodes/SGroup.h:1:")

    def test_command_that_knows_tree_or_view_is_found(self):
        self.write("src/shell/commands/CAdd.cpp", '#include "dialogs/CDialog.h"\n')
        self.write("src/tree/commands/CDelete.cpp", '#include "model/CModel.h"\n')
        self.assert_clean("include_rules.py")
        for folder in ("shell", "tree"):
            self.write(f"src/{folder}/commands/CKnow.cpp", '#include "tree/CProcessorTree.h"\n')
            self.assert_fault("include_rules.py", f"src/{folder}/commands/CKnow.cpp:1:")
            self.write(f"src/{folder}/commands/CKnow.cpp", "")

    def test_panel_that_includes_the_host_is_found(self):
        self.write("src/tree/CProcessorTree.cpp", '#include "Kestrel/CWindow.h"\n')
        self.assert_fault("include_rules.py", "src/tree/CProcessorTree.cpp:1:")

    def test_host_that_includes_the_panels_inside_is_found(self):
        self.write("host/Kestrel/CWindow.cpp", '#include "journal/CJournal.h"\n#include "nodes/SNode.h"\n')
        self.assert_clean("include_rules.py")
        self.write("host/Kestrel/CWindow.cpp", '#include "data/CStore.h"\n')
        self.assert_fault("include_rules.py", "host/Kestrel/CWindow.cpp:1:")

    def test_include_in_a_comment_does_not_count(self):
        self.write("src/data/CStore.cpp", '// #include "tree/CProcessorTree.h"\n/*\n#include "tree/CProcessorTree.h"\n*/\n')
        self.assert_clean("include_rules.py")

    def test_fixed_wait_is_found(self):
        for line in ("QTest::qWait(100);", "std::this_thread::sleep_for(10ms);", "QThread::msleep(5);", "usleep(5);",
                     "spy.wait(50);", "signal->wait( 50 );"):
            self.write("tests/tree/t.cpp", "int a;\n" + line + "\n")
            self.assert_fault("fixed_waits.py", "tests/tree/t.cpp:2:")

    def test_wait_for_a_condition_and_a_paced_gesture_pass(self):
        self.write("tests/tree/t.cpp", "QTest::qWaitFor(fn);\nQTest::qWait(30); // paced: a drag starts after a rest\n")
        self.assert_clean("fixed_waits.py")

    def test_wait_for_a_signal_with_its_answer_asserted_passes(self):
        self.write("tests/tree/t.cpp", "QVERIFY(spy.wait(5000));\nif (!spy.wait(50)) {\nthread.wait();\nreturn thread.wait(10);\n")
        self.assert_clean("fixed_waits.py")

    def test_sleep_in_a_script_is_found(self):
        self.write("tests/e2e/drive.sh", "xdotool click 1\nsleep 0.5\n")
        self.assert_fault("fixed_waits.py", "tests/e2e/drive.sh:2:")

    def test_wall_clock_is_found(self):
        for folder in ("src", "host", "tests", "benchmarks"):
            for clock in ("std::chrono::system_clock", "std::chrono::high_resolution_clock"):
                self.write(f"{folder}/t.cpp", f"int a;\nauto end = {clock}::now() + 1s;\n")
                self.assert_fault("wall_clock.py", f"{folder}/t.cpp:2:")
            self.write(f"{folder}/t.cpp", "")

    def test_steady_clock_and_a_time_of_day_with_its_reason_pass(self):
        self.write("host/Kestrel/t.cpp", "std::chrono::steady_clock::now();\n"
                   "std::chrono::system_clock::now(); // wall clock: shown to the user\n")
        self.assert_clean("wall_clock.py")

    def test_wall_clock_in_a_script_is_found(self):
        self.write("tests/e2e/drive.py", "import time\nend = time.time() + 5\n")
        self.assert_fault("wall_clock.py", "tests/e2e/drive.py:2:")

    def test_bad_habits_are_found(self):
        for line in ("connect(a, SIGNAL(b()), c, SLOT(d()));", "for (const auto node : list) {", "int n; // TODO later"):
            self.write("src/data/CStore.cpp", line + "\n")
            self.assert_fault("habits.py", "src/data/CStore.cpp:1:")

    def test_long_source_and_header_without_guard_are_found(self):
        self.write("src/data/CStore.cpp", "int n;\n" * 401)
        self.assert_fault("habits.py", "src/data/CStore.cpp:401:")
        self.write("src/data/CStore.cpp", "")
        self.write("src/data/CStore.h", "int n;\n")
        self.assert_fault("habits.py", "src/data/CStore.h:1:")

    def assert_hand(self, path, text, line):
        self.write(path, text)
        self.assert_fault("one_hand.py", f"{path}:{line}:")
        self.write(path, "")
        self.assert_clean("one_hand.py")

    def test_namespace_of_another_form_is_found(self):
        self.assert_hand("src/data/CStore.cpp", "namespace\n{\n\nint n;\n\n} // namespace\n", 1)
        self.assert_hand("src/data/Store.h", "#pragma once\nnamespace Store {\nint n;\n\n} // namespace Store\n", 2)
        self.assert_hand("src/data/CStore.cpp", "namespace {\n\nint n;\n} // namespace\n", 4)

    def test_function_of_a_namespace_defined_inside_it_is_found(self):
        self.assert_hand("src/data/Store.cpp", "namespace Store {\n\nvoid Read()\n{\n}\n\n} // namespace Store\n", 1)

    def test_constant_of_another_form_is_found(self):
        for constant in ("constexpr int ROW_HEIGHT = 32;", "constexpr int g_nHeight = 32;", "const QSize c_size(1, 2);",
                         "constexpr char kIcon[] = \"a\";", "static constexpr int MARGIN{ 3 };", "constexpr int t_n = 1;"):
            self.assert_hand("host/Kestrel/CWindow.cpp", constant + "\n", 1)

    def test_constant_in_small_camel_and_a_prescribed_global_pass(self):
        self.write("src/data/CStore.cpp", "constexpr int nRowHeight = 32;\nconst CStore* const g_pStore = nullptr;\n")
        self.assert_clean("one_hand.py")

    def test_override_with_another_parameter_is_found(self):
        for override in ("void keyPressEvent(QKeyEvent* pEvent) override;", "bool event(QEvent* e) override;",
                         "bool eventFilter(QObject* object, QEvent* event) override;",
                         "QVariant data(const QModelIndex& index, int nRole) const override;"):
            self.assert_hand("src/tree/CProcessorTree.h", "#pragma once\n    " + override + "\n", 2)

    def test_override_with_qts_names_or_without_passes(self):
        self.write("src/tree/CProcessorTree.h", "#pragma once\n    bool eventFilter(QObject* watched, QEvent*) override;\n")
        self.assert_clean("one_hand.py")

    def test_constructors_parameter_of_another_form_is_found(self):
        self.assert_hand("src/data/CStore.cpp", "CStore::CStore(int nNew)\n    : node(nodeNew), list(std::move(listIn))\n", 2)
        self.assert_hand("src/data/CStore.cpp", "CStore::CStore(int nSizeOf) : nSize(nSizeOf) { }\n", 1)

    def test_include_by_neighbourhood_is_found(self):
        self.write("src/data/CStore.cpp", '#include "data/CStore.h"\n#include "nodes/SNode.h"\n')
        self.assert_clean("one_hand.py")
        self.assert_hand("src/data/CStore.cpp", '#include "CStore.h"\n', 1)

    def test_test_program_of_another_form_is_found(self):
        slot = "class {}\n{{\n    void {}()\n    {{\n    }}\n}};\n"
        self.write("tests/tree/tst_keys.cpp", slot.format("CKeysTest", "deleteAsksNothing"))
        self.assert_clean("one_hand.py")
        self.assert_hand("tests/tree/CKeysTest.cpp", slot.format("CKeysTest", "deleteAsksNothing"), 1)
        self.assert_hand("tests/tree/tst_keys.cpp", slot.format("CTreeKeysTest", "deleteAsksNothing"), 1)
        self.assert_hand("tests/tree/tst_keys.cpp", slot.format("CKeysTest", "a" * 61), 3)
        self.assert_hand("tests/tree/tst_keys.cpp", "class CKeysTest\n{\n};\nvoid CKeysTest::a()\n{\n}\n", 4)


if __name__ == "__main__":
    unittest.main()
