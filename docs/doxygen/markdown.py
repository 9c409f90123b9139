"""What of a page of Markdown links elsewhere, and what is code."""
import collections
import re

LINK = re.compile(r"(!?)\[((?:[^][]|\[[^][]*\])*)\]\(([^()\s]+)\)")
HEADING = re.compile(r"^(#+) +(.+?) *$", re.MULTILINE)
FENCE = re.compile(r"^( *)```([^\n`]*)\n(.*?)^\1``` *$", re.MULTILINE | re.DOTALL)
COMMENT = re.compile(r"<!--.*?-->", re.DOTALL)
CODE = re.compile(r"(`+)(?!`).+?(?<!`)\1(?!`)", re.DOTALL)

Block = collections.namedtuple("Block", "line language text before")


def blank(match):
    """Spaces in place of what was found, so that all else keeps its place."""
    return re.sub(r"[^\n]", " ", match.group())


def line_of(text, place):
    """The number of the line of a place in a text."""
    return text.count("\n", 0, place) + 1


def prose(text):
    """The page without its code, every word at its place."""
    for code in (FENCE, COMMENT, CODE):
        text = code.sub(blank, text)
    return text


def blocks(text):
    """The fenced blocks of code, each with the line of text before it."""
    for match in FENCE.finditer(text):
        before = text[:match.start()].rstrip("\n").rpartition("\n")[2]
        yield Block(line_of(text, match.start()), match.group(2).strip(), match.group(3), before)


def headings(text):
    """Every heading: where its line ends, its level, and the anchor that links name."""
    seen = collections.Counter()
    for match in HEADING.finditer(FENCE.sub(blank, text)):
        words = re.sub(r"[^\w\- ]", "", LINK.sub(r"\2", match.group(2)).lower())
        anchor = words.replace(" ", "-")
        yield match.end(), len(match.group(1)), anchor + (f"-{seen[anchor]}" if seen[anchor] else "")
        seen[anchor] += 1
