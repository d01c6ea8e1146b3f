"""The journal beside the list: what it has of a session by mouse and keyboard, with and without names."""

import json
import unittest

import desktop
import replay
import scene
from listfile import node_id
from scene import Scene


class Session(Scene):
    OPTIONS = ()

    def start(self):
        self.kestrel = desktop.Kestrel(self.desktop, scene.PROGRAM, self.list_file, options=self.OPTIONS)
        self.addCleanup(self.replay, self.kestrel)
        self.addCleanup(self.kestrel.clean)
        self.kestrel.wait_for_pixel("the root selected", self.kestrel.row(0, 250), lambda colour: colour == scene.SELECTED)

    def lines(self):
        files = sorted((self.folder / "list.kvtl.journal").glob("*.jsonl"))
        return [json.loads(line) for file in files for line in file.read_text(encoding="utf-8").splitlines()]

    def user(self, operation):
        return [line for line in self.lines() if line["kind"] == "user" and line["operation"] == operation]

    def work(self):
        """Renames a processor, opens the menu of another with its groups, and does not delete it after all."""
        self.select(self.ONE)
        self.desktop.key("F2")
        self.desktop.key("ctrl+a")
        self.desktop.type("secretive")
        mark = self.kestrel.mark()
        self.desktop.key("Return")
        self.kestrel.wait_for("RenameProcessor", after=mark)
        mark = self.kestrel.mark()
        self.desktop.click(*self.kestrel.row(self.TWO), button=3)
        self.kestrel.wait_for("SetSelectedNodes", after=mark)
        self.desktop.key("Down", "Down", "Down", "Right")  # to the names of the groups
        self.desktop.key("Escape", "Escape")
        under = self.kestrel.row(1, 150)
        empty = self.kestrel.pixel(under)
        self.desktop.key("alt+l")  # the menu with what can be undone, and its name
        self.kestrel.wait_for_pixel("the menu", under, lambda colour: colour != empty)
        self.desktop.key("Escape")
        self.kestrel.wait_for_pixel("no menu", under, lambda colour: colour == empty)
        self.desktop.click(*self.kestrel.tool_bar_button("Delete"))
        self.desktop.wait_for_window("^Delete")
        self.desktop.key("Escape")
        self.desktop.wait_for_no_window("^Delete")
        self.assertEqual(self.kestrel.quit(), 0)


class Plain(Session):
    def test_a_session_is_in_it_with_all_that_the_user_did(self):
        self.work()
        keys = [line["text"] for line in self.user("key press")]
        self.assertIn("s", keys)
        self.assertIn(node_id("one"), [line.get("row") for line in self.user("press")])
        self.assertTrue(self.user("dialog"))
        self.assertTrue(self.user("answer"))
        renames = [line for line in self.lines() if line.get("operation") == "RenameProcessor"]
        self.assertEqual([line["args"] for line in renames], [[node_id("one"), "secretive"]])
        changes = [line for line in self.lines() if line.get("operation") == "GetDiscoveredTree" and "change" in line["result"]]
        self.assertIn("secretive", json.dumps(changes))
        causes = [line["cause"] for line in self.lines() if line["kind"] == "message"]
        self.assertTrue(any(renames[0]["n"] in cause for cause in causes))
        self.assertIn("secretive", [line["text"] for line in self.user("edit")])
        self.assertEqual(self.lines()[-1]["kind"], "end")

    def test_a_session_is_played_again_on_a_desktop(self):
        self.work()
        recording, _ = replay.find_recording(self.kestrel)
        replay.play(scene.PROGRAM, recording, self.desktop.shots, self.desktop.applications(self.folder))

    def test_a_drag_is_in_it_though_it_takes_keys_and_mouse(self):
        mark = self.kestrel.mark()
        self.desktop.drag(self.kestrel.row(self.ONE), self.kestrel.row(self.EMPTY))
        self.kestrel.wait_for("MoveProcessor", after=mark)
        self.assertEqual(self.kestrel.quit(), 0)
        self.assertTrue(self.user("drag"))
        self.assertEqual([line["row"] for line in self.user("drop")], [node_id("Empty")])
        self.assertEqual(self.user("drop")[0]["formats"], ["PROCESSOR DATA"])


class Orphan(Session):
    def test_a_display_that_goes_leaves_whole_lines(self):
        self.select(self.ONE)
        self.desktop.server.terminate()
        self.assertNotEqual(self.kestrel.process.wait(desktop.DEADLINE), 0)
        selected = [line for line in self.lines() if line.get("operation") == "SetSelectedNodes"]
        self.assertEqual(selected[-1]["args"], [[node_id("one")]])


class Masked(Session):
    OPTIONS = ("--mask-journal",)

    def test_no_name_and_no_address_is_in_it(self):
        self.work()
        self.assertTrue(self.user("shortcut"))
        self.assertGreaterEqual(len(self.user("menu")), 2)  # the second with the names of the groups
        text = json.dumps(self.lines())
        for secret in ("secretive", "alpha", "delta", "Stage", "Folded", "192.168.1", str(self.folder)):
            self.assertNotIn(secret, text)
        self.assertNotIn("s", [line["text"] for line in self.user("key press")])


if __name__ == "__main__":
    unittest.main(verbosity=2)
