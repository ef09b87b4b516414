#!/usr/bin/env python3
"""measure.py [SECTION...]: measures the service beside a client of libatspi, as benchmarks/desktop/measure.py does."""
import statistics

from figures import median_and_tail, table
from watching import CLICKS, ROUNDS, TARGETS, benchmark, clicks_of, known_place, measure

LIBRARY = ("library", "library-all")
HEADER = ["libatspi, the same facts", "libatspi, six levels"]


def click_figures():
    """The way from the release of the button to the client, against libatspi."""
    rows = []
    for title, *target in TARGETS:
        kinds = ("service", *LIBRARY)
        samples = clicks_of(*target, kinds)
        totals = [samples[kind, "total"] for kind in kinds]
        ours, *theirs = map(statistics.median, totals)
        rows.append([title, *map(median_and_tail, totals), *(f"{median / ours:.1f}" for median in theirs)])
    table("From the click to the client", ["what", "service", *HEADER, "times faster", "than six levels"], rows,
          f"Medians of {ROUNDS * CLICKS} clicks, the 99th percentile in brackets.")


def reading_figures():
    """The same facts without a click, from applications that have nothing else to do."""
    rows = []
    for title, application, widget, way in TARGETS:
        with known_place(application, widget) as place:
            totals = [benchmark(kind + "-at-rest", CLICKS, place, way)["total"] for kind in ("floor", *LIBRARY)]
        floor, library, _ = map(statistics.median, totals)
        rows.append([title, *map(median_and_tail, totals), f"{library / floor:.1f}"])
    table("Reading without a click", ["what", "floor", *HEADER, "libatspi to floor"], rows)


if __name__ == "__main__":
    measure({"click": click_figures, "reading": reading_figures})
