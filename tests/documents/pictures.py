"""Each picture of a document is one that scripts/pictures.py takes, as large as it was and not blank. Usage: pictures.py BUILD"""
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from PIL import Image

from walk import ONLINE, near

BUILD = sys.argv.pop(1)
ROOT = Path(__file__).resolve().parents[2]
SCRIPT = ROOT / "scripts/pictures.py"
FEWEST_COLOURS = 20
FEWEST_ONLINE_PIXELS = 60  # the dots of three rows


def shown():
    """The picture files that documents show."""
    for document in (ROOT / "README.md", ROOT / "CONTRIBUTING.md", *(ROOT / "docs").glob("*.md")):
        for target in re.findall(r"!\[[^\]]*\]\(([^)]+)\)", document.read_text(encoding="utf-8")):
            yield (document.parent / target).resolve()


class PicturesTest(unittest.TestCase):
    def test_each_picture_that_a_document_shows_is_one_of_the_script(self):
        names = subprocess.run([SCRIPT, "--names"], check=True, capture_output=True, text=True).stdout.split()
        self.assertEqual(sorted({path.name for path in shown()}), sorted(names))
        self.assertEqual(sorted(path.name for path in (ROOT / "docs/images").iterdir()), sorted(names))

    def test_the_script_takes_them_as_large_as_they_are(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([SCRIPT, "--build", BUILD, "--to", folder], check=True, stderr=subprocess.DEVNULL)
            for path in set(shown()):
                with self.subTest(path.name), Image.open(path) as old, Image.open(Path(folder) / path.name) as new:
                    self.assertEqual(new.size, old.size)
                    colours = new.convert("RGB").getcolors(1 << 24)
                    self.assertGreater(len(colours), FEWEST_COLOURS)
                    self.assertGreater(sum(count for count, colour in colours if near(colour, ONLINE)), FEWEST_ONLINE_PIXELS)


if __name__ == "__main__":
    unittest.main()
