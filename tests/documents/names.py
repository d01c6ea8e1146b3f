"""What the documents name exists: files, folders, classes, programs of the tests, and what their links lead to.
Usage: names.py ROOT"""
import re
import sys
from pathlib import Path

FOLDERS = ("src", "host", "tests", "benchmarks", "docs", "examples", "scripts", "cmake", "packaging")
PATH = re.compile(r"^(?:%s)/[\w./-]*$" % "|".join(FOLDERS))
# Paths below the include root and the data folder of an installation, and where they come from.
INSTALLED = {"interfaces": "src", "nodes": "src/data", "journal": "host", "controlhost": "host", "icons": "host/Kestrel"}
INSTALLED_PATH = re.compile(r"^(?:%s)/[\w./-]*$" % "|".join(INSTALLED))
FILE = re.compile(r"^(?:\./)?([\w-]+\.(?:h|cpp|py|sh|md|qrc|qss|kvtl|txt|cmake))$")
CLASS = re.compile(r"^(?:[CSI]|En)[A-Z][a-z]\w*$")
PROGRAM = re.compile(r"^tst_([a-z]+)_([a-z]+)$")
LINK = re.compile(r"\]\(([^)\s]+)\)")
OWN_FILE = re.compile(r"<!-- file: (\S+) -->")
FENCE = re.compile(r"^```.*?^```$", re.DOTALL | re.MULTILINE)
# Names of files that only come about: a user's list, what a user calls it.
MADE_LATER = {"processors.kvtl", "New.kvtl", "studio.kvtl.lock"}


def documents(root):
    return [root / "README.md", root / "CONTRIBUTING.md", root / "CHANGELOG.md", *sorted((root / "docs").glob("*.md"))]


def sources(root):
    return [path for folder in FOLDERS for path in (root / folder).rglob("*") if path.is_file()]


class Known:
    """All that a document may name."""

    def __init__(self, root):
        self.root = root
        texts = [path.read_text(encoding="utf-8") for path in documents(root)]
        code = [path.read_text(encoding="utf-8") for path in sources(root) if path.suffix in (".h", ".cpp")]
        self.own_files = {name for text in texts for name in OWN_FILE.findall(text)}
        self.words = {word for text in code for word in re.findall(r"\w+", text)}
        self.words |= {word for text in texts for block in FENCE.findall(text) for word in re.findall(r"\w+", block)}
        self.file_names = {path.name for path in (*sources(root), *root.iterdir())} | MADE_LATER

    def has(self, name):
        program = PROGRAM.match(name)
        if program:
            return (self.root / "tests" / program.group(1) / f"tst_{program.group(2)}.cpp").is_file()
        if PATH.match(name):
            return name in self.own_files or (self.root / name).exists()
        if INSTALLED_PATH.match(name):
            return (self.root / INSTALLED[name.split("/")[0]] / name).exists()
        if FILE.match(name):
            return FILE.match(name).group(1) in self.file_names
        return not CLASS.match(name) or name in self.words


def anchors(document):
    """Of the headings, as the places that show these documents make them."""
    text = FENCE.sub("", document.read_text(encoding="utf-8"))
    return {re.sub(r"[^\w -]", "", title.lower()).replace(" ", "-") for title in re.findall(r"^#+ (.+)$", text, re.MULTILINE)}


def leads_somewhere(document, link):
    if re.match(r"^[a-z]+:", link):
        return True
    path, _, anchor = link.partition("#")
    target = (document.parent / path).resolve() if path else document
    return target.exists() and (not anchor or anchor in anchors(target))


def entries(root, pattern):
    return [(path, number, found) for path in documents(root)
            for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1) for found in pattern.findall(line)]


def main():
    root = Path(sys.argv[1]).resolve()
    known = Known(root)
    names = entries(root, re.compile(r"`([^`\s]+)`"))
    links = entries(root, LINK)
    wrong = [(*entry, "there is no") for entry in names if not known.has(entry[2])]
    wrong += [(*entry, "nothing is at") for entry in links if not leads_somewhere(entry[0], entry[2])]
    for path, number, name, fault in wrong:
        print(f"{path.relative_to(root)}:{number}: {fault} {name}")
    print(f"{len(names)} names, {len(links)} links, {len(wrong)} wrong")
    return 1 if wrong or len(names) < 100 or len(links) < 10 else 0


if __name__ == "__main__":
    sys.exit(main())
