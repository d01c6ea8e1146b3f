"""docs/style-hooks.md and the sources name the same images, object names and dynamic properties. Usage: stylehooks.py ROOT"""
import re
import sys
import unittest
from pathlib import Path

ROOT = Path(sys.argv.pop(1)).resolve()
PAGE = (ROOT / "docs/style-hooks.md").read_text(encoding="utf-8")
# The part of the page, the images that belong to it, and the folder whose widgets they dress.
PARTS = (("The panel", "Images of the panel", "src"), ("The widget library", "Images of the widget library", "host/CommonComponent"))
IMAGE = re.compile(r":/image/[\w/.]+\.svg")
LITERAL = r'(?:QStringLiteral\()?"(\w+)"'
# The calls that set a name or a property: with a literal, or in a function that gets it as an argument.
NAME = re.compile(r"setObjectName\((?:%s|(\w+))" % LITERAL)
PROPERTY = re.compile(r"(?:setProperty|SetStyleProperty)\((?:(?:\w+|this), )?(?:%s|(\w+))" % LITERAL)
# What hands a name to a function that sets it, one pattern for each of these functions.
HANDED_ON = {
    "src": (r"DressIconButton\(\w+, %s" % LITERAL,),
    "host/CommonComponent": (r"AddButton\(\w+, \w+, %s" % LITERAL, r'\{ CMessageBox::Button\w+, "(\w+)"'),
}


def section(title):
    return re.search(r"^## %s\n(.*?)(?=^## |\Z)" % re.escape(title), PAGE, re.DOTALL | re.MULTILINE).group(1)


def code(folder):
    return "\n".join(path.read_text(encoding="utf-8") for suffix in ("*.h", "*.cpp") for path in sorted((ROOT / folder).rglob(suffix)))


def table(text):
    return "\n".join(line for line in text.splitlines() if line.startswith("|"))


class StyleHooksTest(unittest.TestCase):
    def test_the_images_are_those_of_the_sources(self):
        for _, images, folder in PARTS:
            with self.subTest(folder):
                self.assertEqual(set(IMAGE.findall(table(section(images)))), set(IMAGE.findall(code(folder))))

    def test_kestrel_has_each_image(self):
        listed = set(re.findall(r"<file>(.*?)</file>", (ROOT / "host/Kestrel/icons/icons.qrc").read_text(encoding="utf-8")))
        self.assertEqual({path[len(":/image/"):] for path in IMAGE.findall(PAGE)} - listed, set())

    def test_the_object_names_are_those_of_the_sources(self):
        for part, _, folder in PARTS:
            with self.subTest(folder):
                documented = set(re.findall(r"#([A-Z]\w+)", table(section(part))))
                self.assertEqual(documented, self.names(folder))

    def test_the_properties_are_those_of_the_sources(self):
        for part, _, folder in PARTS:
            with self.subTest(folder):
                documented = set(re.findall(r"\[(\w+)=", table(section(part))))
                self.assertEqual(documented, {literal for literal, _ in PROPERTY.findall(code(folder)) if literal})

    def test_the_values_of_properties_stand_in_the_sources(self):
        for part, _, folder in PARTS:
            for value in set(re.findall(r'\[\w+="(\w+)"\]', table(section(part)))) - {"true", "false"}:
                self.assertIn(f'"{value}"', code(folder))

    def names(self, folder):
        found = NAME.findall(code(folder))
        patterns = HANDED_ON[folder]
        self.assertEqual(len([name for _, name in found if name]), len(patterns), "a further function that sets names")
        handed = {name for pattern in patterns for name in re.findall(pattern, code(folder))}
        return {literal for literal, _ in found if literal} | handed


if __name__ == "__main__":
    unittest.main()
