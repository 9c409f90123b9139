#!/usr/bin/python3
"""Prints a page of Markdown as Doxygen wants it: links lead to pages, headings and headers of the site.

Usage: page.py FILE, in the folder that holds all of them."""
import os
import posixpath
import sys

import markdown

MAIN_PAGE = "README.md"
GUIDE = "docs/guide.md"


def label(page, anchor=""):
    """What Doxygen calls a page, or a heading of it."""
    name = "mainpage" if page == MAIN_PAGE else posixpath.splitext(page)[0].replace("/", "-").lower()
    return f"{name}-{anchor}" if anchor else name


def target(page, link):
    """The page and the anchor that a link leads to, from the folder that holds all."""
    path, _, anchor = link.partition("#")
    return posixpath.normpath(posixpath.join(posixpath.dirname(page), path)) if path else page, anchor


def linked(page, match):
    """A link as Doxygen wants it; the words alone where it leads to what the site does not hold."""
    picture, words, link = match
    if "://" in link:
        return f"{picture}[{words}]({link})"
    path, anchor = target(page, link)
    name = posixpath.basename(path)
    if path.endswith((".png", ".svg")):
        return f"![{words}]({name})" if picture else f'<a href="{name}">{words}</a>'
    if path.endswith(".md"):
        if page == GUIDE and not anchor:
            return f'@subpage {label(path)} "{words}"'
        return f"[{words}](@ref {label(path, anchor)})"
    return f"[{words}](@ref {name})" if path.startswith("include/") else words


def converted(page, text):
    """The whole page."""
    places = [(match.start(), match.end(), linked(page, (match.group(1), text[match.start(2):match.end(2)],
                                                         match.group(3))))
              for match in markdown.LINK.finditer(markdown.prose(text))]
    for end, level, anchor in markdown.headings(text):
        places.append((end, end, f" {{#{label(page, anchor if level > 1 else '')}}}"))
    for start, end, new in sorted(places, reverse=True):
        text = text[:start] + new + text[end:]
    return text


if __name__ == "__main__":
    path = os.path.relpath(sys.argv[1])
    with open(path, encoding="utf-8") as file:
        sys.stdout.reconfigure(encoding="utf-8")
        sys.stdout.write(converted(path, file.read()))
