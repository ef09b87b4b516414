"""Runs the recipes of docs/analysis.md on its examples: analysis_test.py PROJECT FOLDER-OF-PROGRAMS

A block that begins with ```sh is a recipe; the block ```output after it is what it prints."""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

PROJECT, PROGRAMS = map(pathlib.Path, sys.argv[1:])
BLOCK = re.compile(r"^```(sh|output)\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def recipes(document):
    """Each recipe with what it is to print."""
    found = []
    for kind, text in BLOCK.findall(document):
        if kind == "sh":
            found.append([text, ""])
        else:
            assert not found[-1][1], "two outputs of one recipe"
            found[-1][1] = text
    return found


def prepare(folder):
    for file in ("docs/examples/session.jsonl", "docs/examples/fleet.jsonl", "examples/sqlite/views.sql"):
        shutil.copy(PROJECT / file, folder)


def run(recipe, folder):
    environment = {**os.environ, "PATH": f"{PROGRAMS}:{os.environ['PATH']}", "LC_ALL": "C.UTF-8"}
    ran = subprocess.run(["bash", "-euo", "pipefail", "-c", recipe], cwd=folder, env=environment, text=True, timeout=60,
                         stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    return ran.stdout if ran.returncode in (0, 141) else f"{ran.stdout}exit status {ran.returncode}\n"


def main():
    all_recipes = recipes((PROJECT / "docs/analysis.md").read_text(encoding="utf-8"))
    assert len(all_recipes) >= 10, "the document has lost its recipes"
    failed = 0
    with tempfile.TemporaryDirectory() as folder:
        prepare(folder)
        for recipe, expected in all_recipes:
            printed = run(recipe, folder)
            if printed != expected:
                failed += 1
                print(f"{recipe}printed:\n{printed}instead of:\n{expected}")
    return 1 if failed else 0


sys.exit(main())
