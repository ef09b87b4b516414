#!/usr/bin/python3
"""table.py FOLDER [NAME...]: the results of measure.py in a folder as one table, and what was told wrong."""
import json
import sys
from collections import Counter
from pathlib import Path

HEADER = ["application", "version", "tried", "right", "wrong", "missing", "told too much", "void", "complaints"]


def row(result, complaints):
    verdicts = Counter(each["verdict"] for each in result["results"])
    tried = sum(verdicts.values()) - verdicts["void"]
    surplus = sum(len(each["too much"]) for each in result["results"] if each["verdict"] != "void")
    return [result["title"], result["version"], tried, verdicts["right"], verdicts["wrong"], verdicts["missing"], surplus,
            verdicts["void"], "not measured" if complaints is None else len(complaints)]


def new_complaints(folder, path):
    """What the application says only when it is watched; None where it has not been measured alone."""
    alone = folder / f"{path.stem}.alone.json"
    if not alone.exists():
        return None
    watched = json.loads(path.read_text())["complaints"]
    return None if watched is None else sorted(set(watched) - set(json.loads(alone.read_text())["complaints"]))


def line(cells):
    return "| " + " | ".join(map(str, cells)) + " |"


def main():
    folder, names = Path(sys.argv[1]), sys.argv[2:]
    paths = sorted(path for path in folder.glob("*.json") if not path.name.endswith(".alone.json"))
    chosen = [path for path in paths if not names or path.stem in names]
    results = [(json.loads(path.read_text()), new_complaints(folder, path)) for path in chosen]
    rows = [row(*result) for result in results]
    total = ["all", ""] + [sum(n for n in column if n != "not measured") for column in list(zip(*rows))[2:]] if rows else []
    print("\n".join(map(line, [HEADER, ["---"] * len(HEADER), *rows, total])))
    if rows and total[2]:
        print(f"\n{100 * total[3] / total[2]:.1f} % right")
    for result, complaints in results:
        for complaint in complaints or []:
            print(f"{result['title']} says only when watched: {complaint}")


if __name__ == "__main__":
    main()
