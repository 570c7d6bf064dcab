"""Finds what can be changed in C++ source text, one small thing at a time."""

import collections
import dataclasses
import hashlib
import re


@dataclasses.dataclass(frozen=True)
class Mutant:
    """One change: at `line` and `column` (from 1) of `file`, `before` becomes `after`."""

    file: str
    line: int
    column: int
    kind: str
    before: str
    after: str
    text: str  # the line, or the lines, as they are now
    twin: int = 0  # how many lines before it in its file read the same

    @property
    def identity(self):
        """Stays the same while the line does, wherever it moves within its file."""
        parts = (self.file, self.text.strip(), str(self.twin), str(self.column), self.before, self.after)
        return hashlib.sha256("\0".join(parts).encode()).hexdigest()[:12]

    def applied(self, source):
        """`source`, the file's text, with the change made."""
        lines = source.splitlines(keepends=True)
        length = self.before.count("\n") + 1
        place = "".join(lines[self.line - 1 : self.line - 1 + length])
        start = self.column - 1
        if place[start : start + len(self.before)] != self.before:
            raise ValueError(f"{self.file}:{self.line}: the text has changed")
        changed = place[:start] + self.after + place[start + len(self.before) :]
        return "".join(lines[: self.line - 1]) + changed + "".join(lines[self.line - 1 + length :])


# Looked for in code alone; what a pattern finds in comments, texts and directives is passed over.
_OPERATORS = [
    ("comparison", r" (==) ", ["!="]),
    ("comparison", r" (!=) ", ["=="]),
    ("comparison", r" (<) ", ["<=", ">="]),
    ("comparison", r" (>) ", [">=", "<="]),
    ("comparison", r" (<=) ", ["<", ">"]),
    ("comparison", r" (>=) ", [">", "<"]),
    ("logic", r" (&&) ", ["||"]),
    ("logic", r" (\|\|) ", ["&&"]),
    ("logic", r"(?<![\w)\]])(!)(?=[\w(])", [""]),
    ("arithmetic", r"[\w)\]] (\+) ", ["-"]),
    ("arithmetic", r"[\w)\]] (-) ", ["+"]),
    ("arithmetic", r"[\w)\]] (\*) ", ["/"]),
    ("arithmetic", r"[\w)\]] (/) ", ["*"]),
    ("arithmetic", r" (\+=) ", ["-="]),
    ("arithmetic", r" (-=) ", ["+="]),
    ("arithmetic", r"(\+\+)", ["--"]),
    ("arithmetic", r"(?<!-)(--)", ["++"]),
    ("arithmetic", r"\b(std::max)\b", ["std::min"]),
    ("arithmetic", r"\b(std::min)\b", ["std::max"]),
    ("constant", r"\b(true)\b", ["false"]),
    ("constant", r"\b(false)\b", ["true"]),
]
_NUMBER = re.compile(r"(?<![\w.'])(\d[\d']*(?:\.\d+)?)(?![\w.'])")
_TEXT = re.compile(r'"((?:[^"\\]|\\.)*)"')
_CALL = re.compile(r"^(\s*)([\w:.>()-]+\(.*\);)$")
_SETTER = re.compile(r"^\s*(\w+(?:\.|->))(set\w+(?=\()|\w+(?= = ))")
_DECLARATION = re.compile(r"^\s*(?!delete\b)[\w:<>,]+(?: [\w:<>,]+)* [*&]?\w+(?: = (?:[\d.']+|true|false))?;$")
_FUNCTION = re.compile(r"^\s*(?!delete\b|else\b|throw\b|co_)[\w:<>,]+(?: [\w:<>,*&]+)* [*&]?\w+\(.*\)(?: const)?;$")
_STATEMENT = re.compile(r"^(\s+)(?!return\b|throw\b|break\b|case\b|using\b|else\b|const\b|auto\b|static\b)[\w*].*;$")


_COMMENT = r"//[^\n]*|/\*.*?\*/"
_LITERAL = r'"(?:[^"\\\n]|\\.)*"|\'(?:[^\'\\\n]|\\.)\''
_NO_CODE = re.compile(rf"{_COMMENT}|^[ \t]*#[^\n]*|{_LITERAL}", re.M | re.S)


def _blank(match):
    return re.sub(r"[^\n]", " ", match.group())


def code_of(source):
    """`source` with comments, texts and directives blanked, every other character in its place."""
    return _NO_CODE.sub(_blank, source)


def without_comments(source):
    """`source` with comments and directives blanked, every other character in its place."""
    return _NO_CODE.sub(lambda match: match.group() if match.group()[0] in "\"'" else _blank(match), source)


def _operators(code_line):
    for kind, pattern, replacements in _OPERATORS:
        for match in re.finditer(pattern, code_line):
            for after in replacements:
                yield kind, match.start(1), match.group(1), after


def _numbers(code_line):
    for match in _NUMBER.finditer(code_line):
        number = match.group(1).replace("'", "")
        after = str(float(number) + 1) if "." in number else str(int(number) + 1)
        yield "constant", match.start(1), match.group(1), after


def _texts(uncommented_line):
    for match in _TEXT.finditer(uncommented_line):
        yield "text", match.start(), match.group(), f'"{match.group(1)}~"'


def _calls(code_line, line):
    if code_line.strip() and _CALL.match(line) and code_line.count("(") == code_line.count(")"):
        before = line.strip()
        yield "call", line.index(before), before, ";"


def _orders(lines, code_lines, index):
    # Constants mean the same in any order.
    if index + 1 == len(lines) or re.search(r"constexpr|\.reserve\(", code_lines[index] + code_lines[index + 1]):
        return
    # So do declarations.
    pair = [code_lines[place].rstrip() for place in (index, index + 1)]
    if any(_DECLARATION.match(line) or _FUNCTION.match(line) for line in pair):
        return
    # So do two properties of one object.
    setters = [_SETTER.match(line) for line in pair]
    if all(setters) and setters[0].group(1) == setters[1].group(1) and setters[0].group(2) != setters[1].group(2):
        return
    first, second = (_STATEMENT.match(line) for line in pair)
    if first and second and first.group(1) == second.group(1):
        before = lines[index].strip() + "\n" + lines[index + 1]
        after = lines[index + 1].strip() + "\n" + lines[index]
        yield "order", len(first.group(1)), before, after


def mutants_of(file, source):
    """All mutants of one file, in the order of its text."""
    lines = source.split("\n")
    code_lines = code_of(source).split("\n")
    uncommented_lines = without_comments(source).split("\n")
    result = []
    seen = collections.Counter()
    for index, (line, code_line, uncommented) in enumerate(zip(lines, code_lines, uncommented_lines)):
        # Memory that is taken early, or not, changes no value.
        if ".reserve(" in code_line:
            seen[line] += 1
            continue
        changes = [
            *_operators(code_line),
            *_numbers(code_line),
            *_texts(uncommented),
            *_calls(code_line, line),
            *_orders(lines, code_lines, index),
        ]
        for kind, column, before, after in changes:
            text = line if "\n" not in before else line + "\n" + lines[index + 1]
            twin = seen[line]
            result.append(Mutant(file, index + 1, column + 1, kind, before, after, text, twin))
        seen[line] += 1
    return result
