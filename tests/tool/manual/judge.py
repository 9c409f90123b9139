#!/usr/bin/python3
"""Judges the manual page and the completion by the help of rasterplan: each knows what the others know, and no more.
The sites that the page and the other documents show are judged by their schema.

    judge.py TEST --tool RASTERPLAN --page PAGE --completion FILE --schema SCHEMA --site FOLDER --documents FILE...
"""

import argparse
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
from dataclasses import dataclass
from pathlib import Path

import jsonschema

OF_EVERY_COMMAND = {"--help": ""}


def text_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def demand_same(found, wanted, what):
    if found != wanted:
        sys.exit(f"{what}: {found}, and not {wanted}")


@dataclass
class Help:
    """What the program says of itself, or of one of its commands."""
    text: str
    commands: set
    files: list  # such as "SITE.json", in their order; those that may be left out in brackets
    options: dict  # the name of an option's value by the option; empty where it has none
    short: set


def help_of(tool, *command):
    text = text_of(tool, *command, "--help")
    options = re.findall(r"^  (-\w,)?(--[\w-]+)(?: ([A-Z][A-Z,]*)(?= |$))?", text, re.MULTILINE)
    return Help(text, set(re.findall(r"^  (\w+) {3,}", text, re.MULTILINE)),
                re.findall(r"\[?\b\w+\.\w+\]?", re.search("^Usage: .*", text, re.MULTILINE)[0]),
                {name: value for _, name, value in options}, {short[:-1] for short, _, _ in options if short})


def path_forms(tool):
    complaint = subprocess.run([tool, "3d", "a", "b", "--paths=?"], check=False, capture_output=True, text=True).stderr
    return set(re.search(r"\{(.*)\}", complaint)[1].split(","))


class Page:
    """The manual page as it is read."""

    def __init__(self, file):
        # Letters are printed twice to be bold, and over an underscore to be underlined.
        text = re.sub(".\b", "", text_of("mandoc", "-T", "ascii", "-O", "width=100", file))
        parts = re.split(r"^(\S.*)\n", text, flags=re.MULTILINE)
        self.sections = dict(zip(parts[1::2], parts[2::2]))
        self.last_line = parts[-2]

    def entries(self, section):
        """The texts of a section by their tags."""
        parts = re.split(r"^ {7}(?! )", self.sections[section], flags=re.MULTILINE)[1:]
        return dict((*re.split(r"\n {14}| {2,}|(?<=--\w{4}) ", part, maxsplit=1), "")[:2] for part in parts)

    def example(self, section):
        """The lines that are indented further."""
        return re.findall(r"^ {11}(.*)", self.sections[section], re.MULTILINE)


def page_is_clean(options):
    """No complaint of those that read the format."""
    subprocess.run(["mandoc", "-T", "lint", "-W", "style", options.page], check=True)
    complaints = subprocess.run(["groff", "-ww", "-man", "-Tutf8", "-z", options.page], check=True, capture_output=True,
                                text=True).stderr
    demand_same(complaints, "", "groff")


def page_knows_the_program(options):
    page, whole = Page(options.page), help_of(options.tool)
    demand_same(page.last_line.split("  ")[0], text_of(options.tool, "--version").strip(), "version")
    demand_same(set(page.entries("COMMANDS")), whole.commands | {"help"}, "commands of the page")

    uses = {}
    for use in re.split(r"\n\n|\n(?= {7}\S)", page.sections["SYNOPSIS"].strip()):
        name, rest = re.match(r"\s*rasterplan (\w+)(.*)", use, re.DOTALL).groups()
        uses[name] = ({option: value for option, value in re.findall(r"(--[\w-]+)(?: ([A-Z,]+))?", rest)},
                      re.findall(r"\[?\b\w+\.\w+\]?", rest))
    demand_same(set(uses), whole.commands | {"help"}, "commands of the synopsis")

    known, short = dict(whole.options), set(whole.short)
    for command in sorted(whole.commands):
        own = help_of(options.tool, command)
        known |= own.options
        short |= own.short
        wanted = {name: value for name, value in own.options.items() if name not in OF_EVERY_COMMAND}
        demand_same(uses[command], (wanted, own.files), f"synopsis of {command}")

    entries = page.entries("OPTIONS")
    described = {option: value for tag in entries
                 for option, value in re.findall(r"(--[\w-]+)(?: ([A-Z,]+))?", tag)}
    demand_same(described, known, "options of the page")
    demand_same({name for tag in entries for name in re.findall(r"(?<![\w-])-\w\b", tag)}, short, "short options of the page")
    demand_same(path_forms(options.tool) - set(re.findall(r"[\w-]+", entries["--paths FORM"])), set(),
                "forms that --paths does not name")
    demand_same(set(page.entries("EXIT STATUS")) & set("0123456789"),
                set(re.findall(r"\b\d\b", whole.text[whole.text.index("Exit status:"):])), "exit statuses")
    units = re.search(r"The units:(.*?)\n\n", whole.text, re.DOTALL)[1]
    told = re.search(r"count as well:(.*?)\.", page.sections["SITE.JSON"], re.DOTALL)[1]
    demand_same(re.findall(r"\w+", told), re.findall(r"\w+", units), "units")


def page_shows_what_works(options):
    """The sites in the page and in the documents are such, and the page's examples run."""
    page = Page(options.page)
    schema = json.loads(options.schema.read_text())
    jsonschema.validate(json.loads("\n".join(page.example("SITE.JSON"))), schema)
    for document in options.documents:
        sites = re.findall(r"```json\n(\{.*?)```", document.read_text(encoding="utf-8"), re.DOTALL)
        demand_same(len(sites), 1, f"sites in {document}")
        jsonschema.validate(json.loads(sites[0]), schema)
    lines = page.example("EXAMPLES")
    demand_same({line.split()[1] for line in lines if line.startswith("rasterplan")}, {"3d", "2d", "check"}, "examples")
    with tempfile.TemporaryDirectory() as folder:
        shutil.copytree(options.site, folder, dirs_exist_ok=True)
        path = f"{options.tool.parent}:{os.environ['PATH']}"
        subprocess.run(["sh", "-eu", "-c", "\n".join(lines)], cwd=folder, env={**os.environ, "PATH": path}, check=True)


# The completion as bash asks it; `compopt` belongs to a terminal.
ASK = """source "$1" && complete -p rasterplan >/dev/null && compopt() { :; } && shift || exit
COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
_rasterplan && ((${#COMPREPLY[@]})) && printf '%s\\n' "${COMPREPLY[@]}"
:"""


def completion_knows_the_program(options):
    with tempfile.TemporaryDirectory() as folder:
        def expect(words, wanted):
            answer = subprocess.run(["bash", "--norc", "-uc", ASK, "bash", options.completion, "rasterplan", *words],
                                    cwd=folder, check=True, capture_output=True, text=True)
            demand_same((sorted(answer.stdout.splitlines()), answer.stderr), (sorted(wanted), ""), " ".join(words))

        for name in ("a.json", "b c.JSON", "d.dxf", "e.html", "f.png", "dxf"):
            (Path(folder) / name).touch()
        (Path(folder) / "sub").mkdir()
        (Path(folder) / "sub" / "g.json").touch()
        files = {"json": ["a.json", "b c.JSON", "sub"], "dxf": ["d.dxf", "sub"], "html": ["e.html", "sub"]}

        whole = help_of(options.tool)
        expect([""], whole.commands | {"help"})
        expect(["help", ""], whole.commands)
        expect(["help", "3d", ""], [])
        expect(["c"], {name for name in whole.commands if name.startswith("c")})
        expect(["--"], whole.options)
        expect(["nothing", ""], [])
        for command in sorted(whole.commands):
            own = help_of(options.tool, command)
            expect([command, "-"], own.options)
            expect([command, "--s"], {name for name in own.options if name.startswith("--s")})
            given = [command]
            for file in own.files:
                wanted = files[re.search(r"\.(\w+)", file)[1]]
                expect([*given, ""], wanted)
                expect([*given, "--help", ""], wanted)
                expect([*given, "--", ""], wanted)
                expect(["--help", *given, wanted[0][0]], wanted[:1])
                given += ["x"]
            expect([*given, ""], [])
            for option, value in own.options.items():
                if value:
                    forms = path_forms(options.tool) if value == "FORM" else []
                    expect([command, option, ""], forms)
                    expect([command, option, "="], forms)
                    expect([command, option, "=", "a"], {form for form in forms if form.startswith("a")})
                    expect([command, option, "=", "1", ""], files["json"])
                    expect([command, option, "-1", "site", ""], files["dxf"])
        expect(["3d", "sub/"], ["sub/g.json"])
        expect(["3d", "--", "--"], [])


TESTS = {"clean": page_is_clean, "page": page_knows_the_program, "examples": page_shows_what_works,
         "completion": completion_knows_the_program}


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("test", choices=TESTS)
    parser.add_argument("--tool", type=Path, required=True, help="rasterplan")
    parser.add_argument("--page", required=True, help="the manual page")
    parser.add_argument("--completion", required=True, help="the completion for bash")
    parser.add_argument("--schema", type=Path, required=True, help="the schema of SITE.json")
    parser.add_argument("--site", type=Path, required=True, help="a folder with a SITE.json that has no warning")
    parser.add_argument("--documents", type=Path, nargs="+", required=True, help="documents that show a SITE.json")
    options = parser.parse_args()
    TESTS[options.test](options)


if __name__ == "__main__":
    main()
