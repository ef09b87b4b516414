#!/usr/bin/env python3
"""Prints the results of norra-benchmarks or norra-json-peers (JSON, with repetitions) as Markdown tables of medians of processor time."""

import json
import os
import statistics
import sys
from collections import defaultdict

PEERS = ("nlohmann-json", "simdjson")


class Results:
    """The repetitions of each benchmark, by its name."""

    def __init__(self, path):
        with open(path, encoding="utf-8") as file:
            content = json.load(file)
        self.context = content["context"]
        self.runs = defaultdict(list)
        for run in content["benchmarks"]:
            if run["run_type"] != "iteration":
                continue
            if run.get("error_occurred"):
                sys.exit(f"{run['name']}: {run['error_message']}")
            self.runs[run["name"]].append(run)

    def names(self, prefix):
        """What follows the prefix in the names that begin with it, in the order of the program."""
        found = [run for run in self.runs.values() if run[0]["name"].startswith(prefix)]
        found.sort(key=lambda run: run[0]["family_index"])
        return [run[0]["name"][len(prefix):] for run in found]

    def median(self, name, key="cpu_time"):
        return statistics.median(run[key] for run in self.runs[name])

    def worst(self, name):
        return max(run["cpu_time"] for run in self.runs[name])


def nanoseconds(value):
    """A duration with three digits."""
    for unit, size in (("ns", 1), ("µs", 1e3), ("ms", 1e6), ("s", 1e9)):
        if value < 1000 * size or unit == "s":
            return f"{value / size:.3g} {unit}"
    return ""


def table(title, header, rows):
    if not rows:
        return
    print(f"\n### {title}\n")
    print("| " + " | ".join(header) + " |")
    print("|" + " --- |" * len(header))
    for row in rows:
        print("| " + " | ".join(str(cell) for cell in row) + " |")


def print_machine(context):
    model = "unknown processor"
    if os.path.exists("/proc/cpuinfo"):
        with open("/proc/cpuinfo", encoding="utf-8") as file:
            models = [line.split(":")[1].strip() for line in file if line.startswith("model name")]
        model = models[0] if models else model
    load = ", ".join(f"{value:.1f}" for value in context["load_avg"])
    print(f"{model}, {context['num_cpus']} cores, load {load}, {context['date']}")


def print_wire_format(results):
    for title, direction in (("Writing a report", "encode"), ("Reading a report", "decode")):
        peers = [peer for peer in PEERS if results.names(f"{direction}/{peer}/")]

        def row(kind):
            ours = f"{direction}/ours/{kind}"
            cells = [kind, nanoseconds(results.median(ours)), nanoseconds(results.worst(ours)),
                     f"{results.median(ours, 'allocations'):.0f}"]
            for peer in peers:
                theirs = results.median(f"{direction}/{peer}/{kind}")
                cells += [nanoseconds(theirs), f"{theirs / results.median(ours):.2f}"]
            return cells

        table(title, ["kind", "ours", "worst", "allocations"] + [word for peer in peers for word in (peer, "times ours")],
              [row(kind) for kind in results.names(f"{direction}/ours/")])


def print_clicks(results):
    def row(scene):
        whole, reads = f"click/whole/{scene}", f"click/reads/{scene}"
        own = results.median(whole) - results.median(reads)
        return [scene, f"{results.median(reads, 'reads'):.0f}", nanoseconds(results.median(whole)),
                nanoseconds(results.worst(whole)), nanoseconds(results.median(reads)), nanoseconds(own),
                f"{results.median(whole, 'allocations'):.0f}"]

    table("The meaning of one click",
          ["what is clicked", "reads", "whole", "worst", "the bare reads", "the core's own", "allocations"],
          [row(scene) for scene in results.names("click/whole/")])


def print_growth(results):
    families = defaultdict(list)
    for name in results.names("growth/whole/"):
        family, size = name.rsplit("/", 1)
        families[family].append(int(size))
    sizes = sorted({size for of_family in families.values() for size in of_family})

    def cell(part, family, size):
        return results.median(f"growth/{part}/{family}/{size}")

    def rows(value):
        return [[family] + [nanoseconds(value(family, size)) if size in of_family else "" for size in sizes]
                for family, of_family in families.items()]

    header = ["how many"] + [f"{size:,}" for size in sizes]
    table("Growth: the core's own time, without the bare reads", header,
          rows(lambda family, size: max(0, cell("whole", family, size) - cell("reads", family, size))))
    table("Growth: the bare reads", header, rows(lambda family, size: cell("reads", family, size)))


def print_service(results):
    def row(name):
        benchmark = f"service/{name}"
        return [name, f"{results.median(benchmark, 'items_per_second'):,.0f}", nanoseconds(results.median(benchmark)),
                nanoseconds(results.worst(benchmark)), f"{results.median(benchmark, 'allocations'):.1f}"]

    table("The whole service on a simulated desktop, one core",
          ["what", "a second", "each", "worst", "allocations each"],
          [row(name) for name in results.names("service/")])


def main():
    results = Results(sys.argv[1])
    print_machine(results.context)
    print_wire_format(results)
    print_clicks(results)
    print_growth(results)
    print_service(results)


main()
