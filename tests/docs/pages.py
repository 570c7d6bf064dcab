"""What the checks of this folder read in a page of Markdown."""

import pathlib
import re

FENCE = re.compile(r"^\s*(```|~~~)")
HEADING = re.compile(r"^(#{1,6})\s+(.*?)\s*#*\s*$")
CODE = re.compile(r"(`+)(.+?)\1")
LINK = re.compile(r"(!?)\[((?:\[[^\]]*\]\([^)]*\)|[^\[\]])*)\]\(\s*<?([^)\s>]+)>?[^)]*\)")


class Link:
    """One link of a page: its line, where it leads, and whether it shows a picture."""

    def __init__(self, line, target, is_image):
        self.line = line
        self.target = target
        self.is_image = is_image


def lines(page):
    """The lines outside fenced blocks, numbered from 1."""
    is_fenced = False
    for number, line in enumerate(pathlib.Path(page).read_text(encoding="utf-8").splitlines(), 1):
        if FENCE.match(line):
            is_fenced = not is_fenced
        elif not is_fenced:
            yield number, line


def without_code(text):
    return CODE.sub("", text)


def links(page):
    """All links, those inside the text of another link too."""
    for number, line in lines(page):
        rest = [without_code(line)]
        while rest:
            for found in LINK.finditer(rest.pop()):
                rest.append(found.group(2))
                yield Link(number, found.group(3), found.group(1) == "!")


def anchor(heading):
    """The name that the site makes of a heading: lower case, no punctuation, a hyphen for each blank."""
    text = LINK.sub(r"\2", heading)
    text = re.sub(r"[`*]", "", text).strip().lower()
    return re.sub(r"[^\w\- ]", "", text).replace(" ", "-")


def anchors(page):
    """The anchors of a page; a heading that stands there again gets a number."""
    found = {}
    for _, line in lines(page):
        heading = HEADING.match(line)
        if heading:
            name = anchor(heading.group(2))
            found[name] = found.get(name, -1) + 1
            if found[name]:
                found[f"{name}-{found[name]}"] = 0
    return set(found)


def code_words(page):
    """What stands in backquotes outside fenced blocks, with its line."""
    for number, line in lines(page):
        for found in CODE.finditer(line):
            yield number, found.group(2).strip()


def tables(page):
    """The tables as lists of rows, a row as a list of its cells; a bar behind a backslash parts nothing."""
    found, last = [], -1
    for number, line in lines(page):
        if line.lstrip().startswith("|"):
            cells = [cell.strip() for cell in re.split(r"(?<!\\)\|", line.strip())[1:-1]]
            if number != last + 1:
                found.append([])
            found[-1].append(cells)
            last = number
    return [[row for row in table if not all(re.fullmatch(r":?-+:?", cell) for cell in row)] for table in found]
