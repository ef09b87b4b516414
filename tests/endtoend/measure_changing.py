#!/usr/bin/python3
"""measure_changing.py SECONDS...: how many clicks on what changes are told right when a button is held for so long."""
import os
import sys
from collections import Counter

import changing_test
from changing_test import ChangingTest
from desktop import EndToEndTest

ROUNDS = int(os.environ.get("ROUNDS", 2))


def measure(kind, holds):
    kind.setUpClass()
    try:
        for hold in holds:
            faults = Counter(case for _ in range(ROUNDS) for case in kind.changing.wrong(kind.cases, hold))
            clicks = ROUNDS * len(kind.cases)
            print(f"| {kind.__name__} | {1000 * hold:.0f} ms | {clicks - faults.total()} of {clicks} | "
                  f"{', '.join(f'{case} {count}' for case, count in faults.items())} |", flush=True)
    finally:
        kind.doClassCleanups()


def main():
    print("| application | held for | right | wrong |\n| --- | --- | --- | --- |")
    kinds = [kind for kind in vars(changing_test).values()
             if isinstance(kind, type) and issubclass(kind, EndToEndTest) and issubclass(kind, ChangingTest)]
    wanted = os.environ.get("KINDS", " ".join(kind.__name__ for kind in kinds)).split()
    for kind in kinds:
        if kind.__name__ in wanted:
            measure(kind, [float(hold) for hold in sys.argv[1:]])


if __name__ == "__main__":
    main()
