"""Judges files of CMake that an old CMake has to read, by what the manual of this one says of when each command,
generator expression, variable and property came.

Usage: oldest_cmake.py CMAKE VERSION FOLDER FILE...: the *.cmake of the folder, and the files."""
import functools
import pathlib
import re
import subprocess
import sys

cmake, oldest, folder, *files = sys.argv[1:]
files += sorted(map(str, pathlib.Path(folder).glob("*.cmake")))


def number(version):
    """A version that can be compared."""
    return [int(part) for part in version.split(".")]


@functools.cache
def manual(*question):
    """What the manual says; nothing where it does not know the name."""
    done = subprocess.run([cmake, *question], text=True, check=False, capture_output=True)
    return done.stdout if done.returncode == 0 else ""


def came(text):
    """The version that the first lines of an entry name."""
    found = re.match(r"\S.*\n-+\n\n\.\. versionadded:: ([\d.]+)", text)
    return found.group(1) if found else "0"


def command_came(name, first):
    """When a command came, or, for one like list(APPEND), its form with that first word."""
    text = manual("--help-command", name)
    if not text:
        return None
    form = re.search(rf"^ {name}\({first}\b.*(?:\n.+)*\n\n\.\. versionadded:: ([\d.]+)\n\n", text, re.MULTILINE)
    return max(came(text), form.group(1) if form else "0", key=number)


expressions = dict(re.findall(r"^\.\. genex:: \$<(\w+).*\n\n +\.\. versionadded:: ([\d.]+)",
                              manual("--help-manual", "cmake-generator-expressions"), re.MULTILINE))
variables = set(manual("--help-variable-list").split())
properties = set(manual("--help-property-list").split())
# A manual that is not there must not pass for one that has nothing to say.
assert expressions["PATH"] == "3.24" and command_came("cmake_path", "") == "3.20"
assert command_came("list", "TRANSFORM") == "3.12"
assert came(manual("--help-property", "INTERFACE_LINK_OPTIONS")) == "3.13"
assert any(name.endswith("Targets.cmake") for name in files)
assert came(manual("--help-variable", "CMAKE_CURRENT_FUNCTION_LIST_DIR")) == "3.17"

code = {name: re.sub(r"(?m)^\s*#.*| # .*", "", pathlib.Path(name).read_text(encoding="utf-8")) for name in files}
own = {name.lower() for text in code.values() for name in re.findall(r"(?:function|macro)\(\s*(\w+)", text)}
needs = {}
for name, text in code.items():
    for command, word in re.findall(r"(?m)^\s*(?!AND\b|OR\b)(\w+)\s*\(\s*(\w*)", text):
        if command.lower() not in own and not command.startswith("rasterplanwriter_"):
            needs[name, f"{command}({word}"] = command_came(command.lower(), word)
    for expression in re.findall(r"\$<(\w+)", text):
        needs[name, f"$<{expression}>"] = expressions.get(expression, "0")
    for word in re.findall(r"\b[A-Z]\w+\b", text):
        if word in variables:
            needs[name, word] = came(manual("--help-variable", word))
        elif word in properties:
            needs[name, word] = came(manual("--help-property", word))
    for version in re.findall(r"(?:VERSION|CMAKE_VERSION VERSION_LESS) \"?(\d[\d.]*\d)", text):
        needs[name, "version " + version] = version.split("...")[0]

failures = [f"{name}: {what} came with CMake {version}" if version else f"{name}: CMake knows no {what}"
            for (name, what), version in needs.items() if version is None or number(version) > number(oldest)]
print(*(failures or [f"{len(needs)} words, none newer than CMake {oldest}"]), sep="\n")
sys.exit(bool(failures))
