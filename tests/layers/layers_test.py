#!/usr/bin/env python3
"""layers_test.py PROJECT: holds the includes of the project against the tables in CONTRIBUTING.md that say who may include whom.

Each row of such a table names one or more folders, in backquotes, and in its last column the folders that they may include beside
themselves. A file belongs to the longest folder that is named; it may include no other than its folder allows."""
import pathlib
import re
import sys

include = re.compile(r'\s*#\s*include\s*"([^"]+)"')
quoted = re.compile(r"`([^`]+)`")


def tables_in(document):
    """The rows of each table whose last column says what may be included, with its heading first."""
    tables = re.findall(r"^\|.*\| may include \|\n(?:\|.*\n)+", document, re.MULTILINE)
    return [[line.strip("| ").split("|") for line in table.splitlines()] for table in tables]


def allowed_by(document):
    """From each folder to the folders that it may include; None: all."""
    layers = {}
    for heading, _, *rows in tables_in(document):
        base = "".join(quoted.findall(heading[0]))
        own = {folder: base + folder.removeprefix("./") for row in rows for folder in quoted.findall(row[0])}
        for row in rows:
            named = {own.get(folder, folder) for folder in quoted.findall(row[-1])}
            layers.update({own[folder]: None if "everything" in row[-1] else named for folder in quoted.findall(row[0])})
    return layers


def layer_of(path, layers):
    return max((folder for folder in layers if path.startswith(folder)), key=len, default=None)


def faults_in(path, text, layers):
    own = layer_of(path, layers)
    if own is None:
        yield f"{path}: lies in no folder that CONTRIBUTING.md names"
        return
    for number, line in enumerate(text.splitlines(), 1):
        found = include.match(line)
        other = layer_of(found[1], layers) if found else own
        if layers[own] is not None and other != own and other not in layers[own]:
            yield f"{path}:{number}: {own} may not include {found[1]}"


def sources_of(project):
    folders = [folder for folder in project.iterdir() if folder.is_dir() and folder.name != "build" and folder.name[0] != "."]
    return sorted(path for folder in folders for path in folder.rglob("*") if path.suffix in (".h", ".cpp"))


def main(project):
    layers = allowed_by((project / "CONTRIBUTING.md").read_text(encoding="utf-8"))
    unknown = {folder for others in layers.values() if others for folder in others} - layers.keys()
    faults = [f"CONTRIBUTING.md: {folder} is included but not described" for folder in sorted(unknown)]
    for path in sources_of(project):
        faults += faults_in(path.relative_to(project).as_posix(), path.read_text(encoding="utf-8"), layers)
    print("\n".join(faults) or f"{len(layers)} folders keep to the tables")
    return 1 if faults or not layers else 0


sys.exit(main(pathlib.Path(sys.argv[1])))
