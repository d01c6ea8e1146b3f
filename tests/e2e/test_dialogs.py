"""The tool bar's commands and their dialogs, in the real program, as an operator uses them."""

import re
import unittest

import desktop
import listfile
from listfile import processor, short_id
from scene import ONLINE, TREE, Scene


class Adding(Scene):
    def add(self):
        self.desktop.click(*self.kestrel.tool_bar_button("Add"))

    def test_the_proposed_address_is_added_off_the_gui_thread(self):
        mark = self.kestrel.mark()
        self.add()
        self.desktop.wait_for_window("Add a processor")
        self.desktop.shoot("add-processor")
        self.desktop.key("Return")
        self.kestrel.wait_for(r"SetBusy\(false\)", after=mark)
        self.assertEqual(self.kestrel.commands(mark), [
            "gui SetBusy(true)", 'job AddProcessor("192.168.1.10")', "job SetBusy(false)"])
        self.assertEqual(self.kestrel.quit(), 0)

    def test_a_taken_address_switches_the_button_off(self):
        mark = self.kestrel.mark()
        self.add()
        self.desktop.wait_for_window("Add a processor")
        self.desktop.copy("192.168.1.11")
        self.desktop.key("ctrl+v")
        self.desktop.shoot("address-taken")
        self.desktop.key("Return")
        self.assertTrue(self.desktop.windows("Add a processor"), "the dialog stays")
        self.desktop.key("Escape")
        self.desktop.wait_for_no_window("Add a processor")
        self.assertEqual(self.kestrel.commands(mark), [])
        self.assertEqual(self.kestrel.quit(), 0)

    def test_simulators_are_added_up_to_their_limit(self):
        self.desktop.click(self.kestrel.x + 136, self.kestrel.y + desktop.MENU_BAR + 16)
        self.kestrel.wait_for(r"SetSimulatorPane\(true\)")
        mark = self.kestrel.mark()
        self.add()
        self.desktop.wait_for_window("Add simulators")
        self.desktop.shoot("add-simulators")
        self.desktop.key("Return")
        self.kestrel.wait_for("AddSimulators", after=mark)
        self.add()
        self.desktop.wait_for_window("Add simulators")
        self.desktop.shoot("add-second-simulator")
        self.desktop.key("Return")
        desktop.wait_until("two calls", lambda: len(self.kestrel.journal("AddSimulators", "command", mark)) == 2)
        self.desktop.wait_for_no_window("Add simulators")
        second = self.kestrel.dot(2, 1)  # below the first one's open information row
        self.kestrel.wait_for_pixel("two rows", (second[0], second[1] + desktop.INFO), lambda colour: colour == ONLINE)
        self.desktop.shoot("two-simulators")
        self.add()
        self.wait_for_hover(1)  # the panel takes input: no dialog has come up
        self.assertEqual(self.desktop.windows("Add simulators"), [])
        self.assertEqual(self.kestrel.quit(), 0)

    def test_add_group_selects_the_group_that_it_makes(self):
        mark = self.kestrel.mark()
        self.desktop.click(*self.kestrel.tool_bar_button("Add group"))
        self.kestrel.wait_for("SetSelectedNodes", after=mark)
        self.assertEqual([text.split("(")[0] for text in self.kestrel.commands(mark)][:2],
                         ["gui AddGroup", "gui SetSelectedNodes"])
        self.assertIn("Group 1", self.outline_after_quit())


class ToolBarMenu(Scene):
    def choose(self, entry):
        """Opens the tool bar's menu and takes an entry by its place: 1 Search, 2 Import, 3 Export."""
        self.desktop.click(*self.kestrel.tool_bar_button("Menu"))
        self.desktop.key(*["Down"] * entry)
        self.desktop.shoot("tool-bar-menu")
        self.desktop.key("Return")


class Files(ToolBarMenu):
    def enter_file(self, title, path):
        pattern = "^" + re.escape(title) + "$"
        self.desktop.wait_for_window(pattern)
        self.desktop.key("ctrl+a")
        self.desktop.type(str(path))
        self.desktop.shoot(title.strip(".").lower())
        desktop.wait_until(f"no window '{title}'", lambda: self.confirm(pattern))

    def confirm(self, pattern):
        """Return; true when the dialog has gone, false when a list of proposals has taken the key."""
        self.desktop.key("Return")
        try:
            self.desktop.wait_for_no_window(pattern, deadline=3)
        except desktop.Failure:
            return False
        return True

    def import_over(self, path):
        self.choose(2)
        self.desktop.wait_for_window("Overwrite confirmation")
        self.desktop.shoot("overwrite")
        self.desktop.key("alt+y")
        self.enter_file("Import...", path)

    def test_an_exported_list_comes_back_by_import_after_a_yes(self):
        exported = self.folder / "mine"
        self.choose(3)
        self.enter_file("Save...", exported)
        self.desktop.wait_for_window("^Export$")
        self.desktop.shoot("exported")
        self.desktop.key("Return")
        self.desktop.wait_for_no_window("^Export$")
        before = exported.read_bytes()
        self.select(self.STAGE)
        self.desktop.key("Delete")
        self.kestrel.wait_for(r"SetBusy\(false\)")
        mark = self.kestrel.mark()
        self.import_over(exported)
        self.desktop.wait_for_window("^Import$")
        self.desktop.shoot("imported")
        self.desktop.key("Return")
        self.kestrel.wait_for(r"SetBusy\(false\)", after=mark)
        commands = [text.split("(")[0] for text in self.kestrel.commands(mark)]
        self.assertEqual([text for text in commands if text != "gui SetSelectedNodes"], [
            "gui ImportList", "gui SetBusy", "job SetSelectedNodes", "job RefreshProcessors", "job SetBusy"])
        self.assertIn("Stage", self.outline_after_quit())
        self.assertEqual(exported.read_bytes(), before)

    def test_a_no_to_the_question_leaves_everything(self):
        mark = self.kestrel.mark()
        self.choose(2)
        self.desktop.wait_for_window("Overwrite confirmation")
        self.desktop.key("Return")
        self.desktop.wait_for_no_window("Overwrite confirmation")
        self.wait_for_hover(self.TWO)
        self.assertEqual(self.desktop.windows(r"^Import\.\.\.$"), [])
        self.assertEqual(self.kestrel.commands(mark), [])
        self.assertEqual(self.kestrel.quit(), 0)

    def test_a_broken_file_is_refused_and_the_list_stays(self):
        broken = self.folder / "broken.kvtl"
        broken.write_bytes(self.list_file.read_bytes()[:-40])
        self.import_over(broken)
        self.desktop.wait_for_window("Cannot import file")
        self.desktop.shoot("broken")
        self.desktop.key("Return")
        self.assertIn("Stage", self.outline_after_quit())

    def test_a_file_over_the_limit_is_refused_and_the_list_stays(self):
        large = self.folder / "large.kvtl"
        listfile.write(large, [], [processor(f"p{n}", f"10.0.{n // 200}.{n % 200 + 1}") for n in range(257)])
        self.import_over(large)
        self.desktop.wait_for_window("Cannot import file")
        self.desktop.shoot("over-the-limit")
        self.desktop.key("Return")
        self.assertIn("Stage", self.outline_after_quit())


class Searching(ToolBarMenu):
    SCENARIO = """{ "title": "Devices change all the time", "steps": [ { "at": 1.0, "do": "storm", "rate": 20, "for": 20 } ] }"""

    def test_the_search_stays_on_while_devices_change_and_ends_with_its_row(self):
        self.choose(1)
        search = (self.kestrel.x + 120, self.kestrel.y + self.kestrel.height - self.kestrel.status_bar() - 32 - 16)
        self.desktop.click(*search)
        self.desktop.type("delta")
        empty = self.kestrel.row(self.ONE, 40)
        self.kestrel.wait_for_pixel("the other rows gone", empty, lambda colour: colour == TREE)
        mark = self.kestrel.mark()
        self.kestrel.wait_for("DevicesChanged", after=mark, kind="message")
        self.kestrel.wait_for("DevicesChanged", after=self.kestrel.mark(), kind="message")
        self.assertEqual(self.kestrel.pixel(empty), TREE)
        self.desktop.shoot("search")
        self.desktop.click(self.kestrel.x + self.kestrel.panel_width() - 8 - 16, search[1])
        mark = self.kestrel.mark()
        self.select(self.TWO)  # is back in its place
        self.assertIn(short_id("two"), self.kestrel.commands(mark)[0])
        self.desktop.shoot("search-closed")
        self.assertEqual(self.kestrel.quit(), 0)




if __name__ == "__main__":
    unittest.main(verbosity=2)
