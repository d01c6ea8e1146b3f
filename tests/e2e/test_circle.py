"""From a message of the control library to changed pixels, in the real program."""

import json
import unittest

import desktop
from scene import ONLINE, Scene


def looks_green(colour):
    return colour[1] > 200 and colour[1] > colour[0] + 100


class DeviceCircle(Scene):
    SCENARIO = json.dumps({
        "title": "One device drops out and comes back, a project opens",
        "steps": [
            {"at": 3.0, "do": "offline", "node": "alpha"},
            {"at": 4.5, "do": "open-project", "project": "Alpha"},
            {"at": 6.0, "do": "online", "node": "alpha"},
        ]})

    def test_a_device_that_drops_out_loses_its_mark_and_gets_it_back(self):
        dot = self.kestrel.dot(self.ALPHA, 2)
        self.kestrel.wait_for_pixel("alpha online", dot, lambda colour: colour == ONLINE)
        self.desktop.shoot("1-online")
        self.kestrel.wait_for_pixel("alpha offline", dot, lambda colour: not looks_green(colour))
        self.desktop.shoot("2-offline")
        self.desktop.wait_for_window("^Alpha - Kestrel$")
        self.kestrel.wait_for_pixel("alpha online again", dot, lambda colour: colour == ONLINE)
        self.assertEqual(self.kestrel.quit(), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
