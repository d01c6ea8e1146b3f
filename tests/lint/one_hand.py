"""One hand in all folders: namespaces, constants, parameters, includes, tests. Braces are clang-format's
(InsertBraces). Usage: one_hand.py ROOT"""
import re
import sys

from sources import code_lines, report, root_argument, sources

MOST_LETTERS = 60  # of a test's name
# Parameters of what Qt has overridden, by its own declarations; None for a function that has several forms.
OVERRIDES = {
    "eventFilter": ["watched", "event"],
    "notify": ["receiver", "event"],
    "paint": ["painter", "option", "index"],
    "drawRow": ["painter", "options", "index"],
    "sizeHint": ["option", "index"],
    "createEditor": ["parent", "option", "index"],
    "setEditorData": ["editor", "index"],
    "setModelData": ["editor", "model", "index"],
    "updateEditorGeometry": ["editor", "option", "index"],
    "closeEditor": ["editor", "hint"],
    "selectionChanged": ["selected", "deselected"],
    "verticalScrollbarValueChanged": ["value"],
    "headerData": ["section", "orientation", "role"],
    "filterAcceptsRow": ["sourceRow", "sourceParent"],
    "rowCount": ["parent"],
    "columnCount": ["parent"],
    "translate": ["context", "sourceText", "disambiguation", "n"],
}
FUNCTION = re.compile(r"(?:\b[CS]\w+::)?\b(\w+)\(([^()]*)\)(?: const)?(?: noexcept)?( override)?")
CONSTANT = re.compile(r"\b(?:constexpr|const)\b[^=(;{]*?[ *&](\w+)(?:\[\w*\])?\s*(?:[={(]|$)")
CAPITALS = re.compile(r"[A-Z][A-Z0-9_]+$")
PREFIXED = re.compile(r"([gctk]_\w+|k[A-Z]\w*)$")
INITIALISER = re.compile(r"\b([a-z]\w*)[({]\s*(?:std::move\()?\1([A-Z]\w*)\)?\s*[)}]")
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"')
TEST_SLOT = re.compile(r"^    void ((?!init|cleanup)[a-z]\w*?)(_data)?\(\)$")
TEST_CLASS = re.compile(r"^class (C\w+Test)\b")
SLOT_OUTSIDE = re.compile(r"^[\w:<>&*, ]*\b(C\w+Test)::\w+\(")


def namespace_faults(lines):
    for number, line in enumerate(lines, 1):
        if re.match(r"namespace\b[^;=]*$", line):
            if not line.endswith("{"):
                yield number, "the brace of a namespace stands in its line"
            elif number < len(lines) and lines[number] != "":
                yield number, "a blank line follows the start of a namespace"
        if re.match(r"\} // namespace", line) and number > 1 and lines[number - 2] != "":
            yield number, "a blank line stands before the end of a namespace"


def definition_faults(path, lines):
    """A source defines what its header has declared: Namespace::Function, as for a class."""
    for number, line in enumerate(lines, 1):
        if path.suffix == ".cpp" and re.match(r"namespace [A-Z]", line):
            yield number, "functions of a namespace are defined as Namespace::Function"


def constant_faults(line):
    match = CONSTANT.search(line)
    if match and match.group(1) and not match.group(1).startswith("g_p"):
        if CAPITALS.match(match.group(1)):
            yield f"constant {match.group(1)}: small camel with the prefix of its type"
        elif PREFIXED.match(match.group(1)):
            yield f"constant {match.group(1)}: the prefix says the type, nothing else"


def parameter_name(parameter):
    match = re.match(r"^.*[ &*](\w+)(?: *=.*)?$", parameter.strip())
    return match.group(1) if match else None


def expected_parameters(name, count):
    if re.match(r"^(\w+Event|event)$", name) and count == 1:
        return ["event"]
    if name == "data":
        return {1: ["role"], 2: ["index", "role"]}.get(count)
    if name == "setData":
        return {2: ["value", "role"], 3: ["index", "value", "role"]}.get(count)
    return OVERRIDES.get(name)


def override_faults(line):
    for match in FUNCTION.finditer(line):
        parameters = match.group(2).split(",") if match.group(2).strip() else []
        expected = expected_parameters(match.group(1), len(parameters))
        if not match.group(3) or not expected:
            continue
        for parameter, name in zip(parameters, expected):
            given = parameter_name(parameter)
            if given and given != name and not re.match(r"^(const )?[\w:]+ ?[*&]?$", parameter.strip()):
                yield f"{match.group(1)}: parameter {given} is called {name} in Qt"


def initialiser_faults(line):
    if re.match(r"^\s+[:,] |.*\) : ", line):
        for match in INITIALISER.finditer(line):
            if match.group(2) != "In":
                yield f"constructor's parameter {match.group(1)}{match.group(2)}: the field's name with In"


def include_faults(root, path, number, raw):
    match = INCLUDE.match(raw)
    part = path.relative_to(root).parts[0]
    if match and part in ("src", "host") and not match.group(1).endswith(".moc"):
        bases = ("src/data",) if match.group(1).startswith("nodes/") else ("src", "host")
        if not any((root / base / match.group(1)).is_file() for base in bases):
            yield path, number, f'"{match.group(1)}" is not named from the root of src/ or host/'


def test_faults(path, lines):
    """Names of a test program's file and class, and where its tests stand."""
    classes = [(number, match.group(1)) for number, line in enumerate(lines, 1) if (match := TEST_CLASS.match(line))]
    if not classes and not path.name.startswith("tst_"):
        return
    topic = path.stem[len("tst_"):]
    if not path.name.startswith("tst_"):
        yield 1, "a test program is tst_<topic>.cpp"
    for number, name in classes:
        if path.name.startswith("tst_") and name.lower() != f"c{topic}test":
            yield number, f"class {name} in tst_{topic}.cpp: C<Topic>Test"
    for number, line in enumerate(lines, 1):
        slot, outside = TEST_SLOT.match(line), SLOT_OUTSIDE.match(line)
        if slot and len(slot.group(1)) > MOST_LETTERS:
            yield number, f"{slot.group(1)}: {len(slot.group(1))} letters, {MOST_LETTERS} at most"
        if outside and any(name == outside.group(1) for _, name in classes):
            yield number, "the slots of a test stand in its class"


def findings_of(root, path):
    lines = path.read_text(encoding="utf-8").splitlines()
    code = list(code_lines(path))
    for number, fault in (*namespace_faults(lines), *definition_faults(path, lines)):
        yield path, number, fault
    for number, line in code:
        for fault in (*constant_faults(line), *override_faults(line), *initialiser_faults(line)):
            yield path, number, fault
    for number, raw in enumerate(lines, 1):
        yield from include_faults(root, path, number, raw)
    if path.relative_to(root).parts[0] == "tests" and path.suffix == ".cpp":
        for number, fault in test_faults(path, lines):
            yield path, number, fault


def main():
    root = root_argument()
    paths = sources(root, "src", "host", "tests", "benchmarks")
    return report(root, [finding for path in paths for finding in findings_of(root, path)])


if __name__ == "__main__":
    sys.exit(main())
