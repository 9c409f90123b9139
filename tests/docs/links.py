"""Every link of every document leads to a file, and where it names a heading, to that; the guide names every page of docs.

Usage: links.py FOLDER, that of the repository or of an unpacked archive. The network is not asked."""
import pathlib
import sys

root = pathlib.Path(sys.argv[1]).resolve()
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "docs/doxygen"))
import markdown  # noqa: E402 pylint: disable=wrong-import-position

GUIDE = root / "docs/guide.md"
FOLDERS = ("", "docs", "docs/pictures", "examples")


def anchors(page):
    """What links may name in a page."""
    return {anchor for _, _, anchor in markdown.headings(page.read_text(encoding="utf-8"))}


pages = sorted(page for folder in FOLDERS for page in (root / folder).glob("*.md"))
findings = []
links = 0
in_guide = set()
for page in pages:
    text = page.read_text(encoding="utf-8")
    for match in markdown.LINK.finditer(markdown.prose(text)):
        link = match.group(3)
        if "://" in link:
            continue
        links += 1
        path, _, anchor = link.partition("#")
        target = (page.parent / path).resolve() if path else page
        if page == GUIDE:
            in_guide.add(target)
        where = f"{page.relative_to(root)}:{markdown.line_of(text, match.start())}: ({link})"
        if not target.exists():
            findings.append(f"{where}: there is no such file")
        elif anchor and anchor not in anchors(target):
            findings.append(f"{where}: there is no such heading; there are: {', '.join(sorted(anchors(target)))}")
findings += [f"docs/guide.md does not name {page.relative_to(root)}"
             for page in pages if page.parent == GUIDE.parent and page != GUIDE and page not in in_guide]
if not links:
    findings.append("no link was found at all")
print(f"{links} links in {len(pages)} documents")
if findings:
    sys.exit("\n".join(findings))
