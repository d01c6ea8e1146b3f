"""Small changes that can be planted in a C++ source. A source is read by its tokens only; that is enough for sources
that clang-format has laid out: operators stand between blanks, brackets of templates do not."""
import re
from dataclasses import dataclass

COMPARISONS = {
    "==": ("!=",), "!=": ("==",), "&&": ("||",), "||": ("&&",),
    "<": ("<=", ">="), ">": (">=", "<="), "<=": ("<", ">"), ">=": (">", "<"),
}
COMPARISON = re.compile(r"(?<=\s)(==|!=|<=|>=|<|>|&&|\|\|)(?= )")
NUMBER = re.compile(r"(?<![\w.])(?:0[xX][0-9A-Fa-f]+|\d+(?:\.\d+)?)(?=[FU]?\b)(?!\w*\.)")
TRUTH = re.compile(r"\b(true|false)\b")
LOCK = re.compile(r"^ +(?:const )?(?:std::)?\w*(?:lock_guard|unique_lock|Locker)\b[^;=()]*\([^;]*\);"
                  r"|^ +[\w.>-]*(?:lockFor(?:Read|Write)|lock|unlock)\(\);", re.M)
KIND_OF_LOCK = re.compile(r"(?<=const C)(Read|Write)(?=Locker \w+\()")
# A line that can hold a statement, and the start of a call: an object's path without a blank in it.
START = re.compile(r"^ +(?=(?:emit )?[A-Za-z_*(])", re.M)
CALL = re.compile(r"(?:emit )?(?:static_cast<[^;]*?>\([^;]*?\)->)?"
                  r"[A-Za-z_][\w:]*(?:<[\w:*, ]+>)?(?:(?:\.|->)[\w:]+|\[[^\]]*\])*\(")
CHAIN = re.compile(r"\s*(?:\.|->)\w+(?=\()")
NO_CALL = re.compile(r"(?:if|while|for|switch|return|catch|sizeof|Q_[A-Z_]+)\b")
CLOSING = {"(": ")", "{": "}", "[": "]"}


@dataclass(frozen=True)
class Change:
    """The text from start to end is replaced."""
    path: str
    line: int
    kind: str
    start: int
    end: int
    old: str
    new: str

    def apply(self, text):
        assert text[self.start:self.end] == self.old
        return text[:self.start] + self.new + text[self.end:]

    def story(self):
        if self.new == ";":
            return f"{self.kind} left out: {one_line(self.old)}"
        if self.kind == "order":
            return f"order turned: {one_line(self.old)}"
        return f"{self.kind}: {self.old} becomes {self.new}"


def one_line(text):
    return re.sub(r"\s+", " ", text).strip()


def blank(match):
    return re.sub(r"[^\n]", " ", match.group())


def code_of(text):
    """The text with comments, literals of text, directives and assertions blanked, of the same length."""
    text = re.sub(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])\'', blank, text, flags=re.S)
    text = re.sub(r"^[ ]*#[^\n]*", blank, text, flags=re.M)
    return re.sub(r"\b(?:Q_ASSERT|static_assert)\(.*?\);", blank, text, flags=re.S)


def end_of_brackets(code, start):
    """The place behind the bracket that closes the one at start; None when it is not closed."""
    stack = []
    for place in range(start, len(code)):
        if code[place] in CLOSING:
            stack.append(CLOSING[code[place]])
        elif stack and code[place] == stack[-1]:
            stack.pop()
            if not stack:
                return place + 1
    return None


def end_of_call(code, start):
    """The place behind the semicolon of the call that starts here; None for another statement."""
    match = CALL.match(code, start)
    if not match or NO_CALL.match(code, start):
        return None
    end = end_of_brackets(code, match.end() - 1)
    while end and (chain := CHAIN.match(code, end)):
        end = end_of_brackets(code, chain.end())
    return end + 1 if end and code[end:end + 1] == ";" else None


def starts_statement(code, place):
    before = code[:place].rstrip()
    return before.endswith((";", "{", "}", ":")) and not before.endswith("::")


def calls(code):
    """(start, end) of each statement that is a call."""
    for match in START.finditer(code):
        end = end_of_call(code, match.end())
        if end and starts_statement(code, match.end()):
            yield match.end(), end


def moved(number):
    """The number one more and one less, in the form in which it stands."""
    if number.startswith(("0x", "0X")):
        return [f"0x{int(number, 16) + step:X}" for step in (1, -1)]
    if "." in number:
        return [f"{float(number) + step}" for step in (1, -1)]
    return [f"{int(number) + step}" if int(number) + step >= 0 else f"({int(number) + step})" for step in (1, -1)]


def spots(code):
    """(kind, start, end, replacements) of all places."""
    for match in COMPARISON.finditer(code):
        yield "comparison", *match.span(1), COMPARISONS[match.group(1)]
    for match in NUMBER.finditer(code):
        if not code[:match.start()].rstrip().endswith("["):
            yield "constant", *match.span(), moved(match.group())
    for match in TRUTH.finditer(code):
        yield "constant", *match.span(), ("false" if match.group() == "true" else "true",)
    for match in LOCK.finditer(code):
        if not match.group().lstrip().startswith("explicit"):
            yield "lock", *match.span(), (";",)
    for match in KIND_OF_LOCK.finditer(code):
        yield "lock", *match.span(), ("Write" if match.group() == "Read" else "Read",)


def call_spots(code, text):
    statements = list(calls(code))
    for start, end in statements:
        if not LOCK.match(" " + code[start:end]):
            yield "call", start, end, (";",)
    for (first, first_end), (second, second_end) in zip(statements, statements[1:]):
        between = text[first_end:second]
        if not between.strip() and between.count("\n") == 1:
            yield "order", first, second_end, (text[second:second_end] + between + text[first:first_end],)


def changes_of(path, text):
    """All changes of a source; of a header only those in an expression."""
    code = code_of(text)
    found = list(spots(code)) + (list(call_spots(code, text)) if path.endswith(".cpp") else [])
    for kind, start, end, replacements in found:
        for new in replacements:
            if new != text[start:end]:
                yield Change(path, text.count("\n", 0, start) + 1, kind, start, end, text[start:end], new)
