#!/usr/bin/env python3
"""measure.py [SECTION...]: measures the service on the desktop that it runs in, and prints tables in Markdown.

The sections are the functions of this file that end in _figures; all of them by default. ROUNDS and CLICKS in the
environment make it quicker or better.
"""
import os
import signal
import statistics
import subprocess
import sys
import time
from collections import defaultdict
from pathlib import Path

import machine
from figures import median_and_tail, milliseconds, table
from watching import Watch, accessibility_bus_address, benchmark, bus_names_of, open_application, settle

import hands
from applications import ControlledApplication

ROUNDS = int(os.environ.get("ROUNDS", "3"))
CLICKS = int(os.environ.get("CLICKS", "100"))

# After so many seconds a changed text has been told.
LEFT_ALONE = 3

# What is clicked: a name, the application, the widget, how it is asked.
TARGETS = (("GTK 3 button", "gtk3", "Weigh anchor", "gtk3"), ("GTK 4 button", "gtk4", "Weigh anchor", "gtk4"),
           ("Qt 5 button", "qt", "Weigh anchor", "qt"), ("Chromium button", "chromium", "Drop anchor", "chromium-button"),
           ("Chromium link", "chromium", "link", "chromium-link"))
KINDS = ("service", "input", "one-call", "floor", "library", "library-all")


def clicks_of(application, widget, way):
    """All samples of all rounds, by the kind of client and what it measured."""
    samples = defaultdict(list)
    with Watch() as watch:
        app = open_application(application)
        watch.follow(app)
        app.click(widget)
        settle()
        watch.collection.process.send_signal(signal.SIGUSR1)
        settle()
        place = app.place(widget)
        for _ in range(ROUNDS):
            for kind in KINDS:
                for name, values in benchmark(kind, CLICKS, place, way).items():
                    samples[kind, name] += values
        app.close()
    return samples


def click_figures():
    """The way from the release of the button to the client, against the floor and against libatspi."""
    rows, parts = [], []
    for title, application, widget, way in TARGETS:
        samples = clicks_of(application, widget, way)
        totals = {kind: samples[kind, "total"] for kind in KINDS}
        medians = {kind: statistics.median(values) for kind, values in totals.items() if values}
        ours = medians["service"]
        rows.append([title, *(median_and_tail(totals[kind]) for kind in ("service", "floor", "library", "library-all")),
                     f"{ours / medians['floor']:.2f}",
                     *(f"{medians[kind] / ours:.1f}" for kind in ("library", "library-all"))])
        x, delivery = (statistics.median(samples[key]) for key in (("input", "input"), ("service", "delivery")))
        rest = ours - x - delivery
        parts.append([title, milliseconds(x), milliseconds(rest), milliseconds(delivery), milliseconds(medians["one-call"])])
    table("From the click to the client", ["what", "service", "floor", "libatspi, the same facts", "libatspi, six levels",
                                           "times the floor", "times faster", "than six levels"], rows,
          f"Medians of {ROUNDS * CLICKS} clicks, the 99th percentile in brackets.")
    table("Where the time goes", ["what", "X server to service", "reading and deciding", "delivery",
                                   "a single call, for comparison"], parts,
          "Medians. The single call is sent at the release too: it waits until the application has handled the click.")


def reading_figures():
    """The same facts without a click, from applications that have nothing else to do."""
    rows = []
    for title, application, widget, way in TARGETS:
        with Watch() as watch:
            app = watch.follow(open_application(application))
            app.click(widget)
            settle()
            watch.collection.process.send_signal(signal.SIGUSR1)
            settle()
            place = app.place(widget)
            floor, library, everything = (benchmark(kind + "-at-rest", CLICKS, place, way)["total"]
                                          for kind in ("floor", "library", "library-all"))
            rows.append([title, *map(median_and_tail, (floor, library, everything)),
                         f"{statistics.median(library) / statistics.median(floor):.1f}"])
            app.close()
    table("Reading without a click", ["what", "floor", "libatspi, the same facts", "libatspi, six levels",
                                      "libatspi to floor"], rows)


def calls_on_bus(app, act):
    """The method calls to an application that the bus itself sees."""
    monitor = subprocess.Popen(["dbus-monitor", "--address", accessibility_bus_address(), "--profile"],
                               stdout=subprocess.PIPE, text=True)
    settle()
    act()
    settle()
    monitor.terminate()
    names = bus_names_of(app.pid)
    lines = (line.split("\t") for line in monitor.stdout.read().splitlines())
    return sum(1 for fields in lines if fields[0] == "mc" and fields[4] in names)


def round_trip_figures():
    """Calls and waves for each click and key."""
    rows = []
    for title, application, widget, _ in TARGETS:
        with Watch() as watch:
            app = watch.follow(open_application(application))
            app.click(widget)
            app.click(widget)
            rows.append([title + ", click", *per(10, watch.round_trips(lambda: repeat(10, lambda: slow_click(app, widget)))),
                         f"{calls_on_bus(app, lambda: repeat(10, lambda: slow_click(app, widget))) / 10:.1f}"])
            if widget == "link":
                continue
            app.focus("Ship")
            rows.append([title.replace("button", "text field, F9"),
                         *per(10, watch.round_trips(lambda: repeat(10, lambda: hands.key("F9")))), ""])
            rows.append([title.replace("button", "text field, a letter"),
                         *per(10, watch.round_trips(lambda: hands.type_text("abcdefghij", 10))), ""])
            app.close()
    table("Round trips", ["what", "calls", "waves", "reports", "calls, as the bus saw them"], rows)


def repeat(times, act):
    for _ in range(times):
        act()


def slow_click(app, widget):
    app.click(widget)
    time.sleep(0.3)


def per(times, counts):
    return [f"{count / times:.1f}" for count in counts]


def tree_figures():
    """A click into lists of very different lengths."""
    rows = []
    for size in (10, 1_000, 100_000):
        with Watch() as watch:
            app = watch.follow(ControlledApplication(Path(__file__).with_name("list_app.py"), str(size)))
            slow_click(app, 3)
            counts = watch.round_trips(lambda: [slow_click(app, row) for row in (4, 5, 6, 7, 8) * 4])
            clicks = watch.statistics()
            rows.append([f"{size:,} rows", *per(20, counts), milliseconds(clicks["clickToReportMedian"])])
            app.close()
    table("A click into a list", ["GTK 3 list", "calls", "waves", "reports", "in the service (median)"], rows)


def rest_figures():
    """At rest: wake-ups, memory, start."""
    with Watch() as watch:
        app = watch.follow(open_application("gtk3"))
        pid = watch.service.process.pid
        time.sleep(5)
        before = machine.wake_ups(pid)
        time.sleep(60)
        woken = machine.wake_ups(pid) - before
        memory = machine.private_bytes(pid), watch.service.private_memory()
        app.close()
    starts = benchmark("start", 20)["start"]
    table("At rest", ["what", "measured"], [
        ["wake-ups of the service in 60 s, collecting, nothing happening", woken],
        ["resident private memory", f"{memory[0] / 2**20:.1f} MiB"], ["of that allocated", f"{memory[1] / 2**20:.1f} MiB"],
        ["call that makes the bus start the service to first report", median_and_tail(starts)]])


def strain(app, widget):
    """The processor time that typing and scrolling cost an application."""
    time_of_app = machine.ProcessorTime(app.pid)
    app.focus("Ship")
    settle()
    begin = time_of_app.seconds()
    hands.type_text("abcdefghij" * 50, 100)
    settle()
    typed = time_of_app.seconds()
    hands.point_to(app.place(widget))
    hands.xdotool("click", "--repeat", "100", "--delay", "20", "5")
    hands.xdotool("click", "--repeat", "100", "--delay", "20", "4")
    settle()
    return typed - begin, time_of_app.seconds() - typed


def cost_figures():
    """What it costs the applications that are watched."""
    rows = []
    for title, application, widget in (("GTK 3", "gtk3", "Log book"), ("Chromium", "chromium", "heading")):
        alone, watched = [], []
        for _ in range(ROUNDS):
            app = open_application(application)
            settle()
            alone.append(strain(app, widget))
            app.close()
            with Watch() as watch:
                app = watch.follow(open_application(application))
                watched.append(strain(app, widget))
                app.close()
        for index, what in enumerate(("500 keys", "200 scroll steps")):
            without, with_service = (statistics.median(pair[index] for pair in pairs) for pairs in (alone, watched))
            rows.append([f"{title}, {what}", f"{without:.2f} s", f"{with_service:.2f} s", f"{with_service - without:+.2f} s"])
    table("What it costs the watched", ["application and action", "alone", "watched", "difference"], rows,
          f"Processor time of the application's processes, medians of {ROUNDS} runs.")


def burst_figures():
    """1,000 key presses at 200 a second in a GTK 3 field that empties itself after thirty characters."""
    rows = []
    for _ in range(ROUNDS):
        with Watch() as watch:
            app = watch.follow(open_application("gtk3"))
            app.focus("Telegram")
            hands.key("F9")
            settle()
            time_of_service = machine.ProcessorTime(watch.service.process.pid)
            begin, used = time.monotonic(), time_of_service.seconds()
            counts = watch.round_trips(lambda: type_and_leave(app, "Telegram", "abcdefghij" * 100))
            seconds, used = time.monotonic() - begin, time_of_service.seconds() - used
            rows.append([counts[2], f"{used:.2f} s", f"{100 * used / seconds:.0f} %", *per(1000, counts[:2])])
            app.close()
    table("A burst of 1,000 key presses",
          ["reports", "service's processor time", "share of a core", "calls a key", "waves a key"], rows)


def type_and_leave(app, field, text):
    """An emptied field has nothing to tell."""
    hands.type_text(text, 200)
    app.ask("idle", None)
    if not app.value(field):
        hands.type_text("k")
    time.sleep(LEFT_ALONE)


def socket_figures():
    """A call over the bus and over the application's own socket."""
    rows = []
    for title, application, widget, way in TARGETS[:4]:
        with Watch() as watch:
            app = watch.follow(open_application(application))
            app.click(widget)
            settle()
            watch.collection.process.send_signal(signal.SIGUSR1)
            settle()
            samples = benchmark("socket", 2000, app.place(widget), way)
            socket = f"{statistics.median(samples['socket']):.0f} µs" if "socket" in samples else "none offered"
            rows.append([title.split(" button")[0], f"{statistics.median(samples['bus']):.0f} µs", socket])
            app.close()
    table("One call", ["toolkit", "over the bus", "over the application's socket"], rows)


def main():
    sections = sys.argv[1:] or [name[:-len("_figures")] for name in globals() if name.endswith("_figures")]
    print(f"{machine.description()}, load {machine.load():.2f}", flush=True)
    for section in sections:
        globals()[section + "_figures"]()
    print(f"\nload at the end {machine.load():.2f}")


if __name__ == "__main__":
    main()
