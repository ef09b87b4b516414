#!/usr/bin/env python3
"""measure.py [SECTION...]: measures the service on the desktop that it runs in, and prints tables in Markdown.

ROUNDS and CLICKS in the environment make it quicker or better. benchmarks/run.sh runs it.
"""
import statistics
import subprocess
import time
from pathlib import Path

import hands
import machine
from applications import ControlledApplication
from figures import median_and_tail, milliseconds, table
from watching import (CLICKS, ROUNDS, TARGETS, accessibility_bus_address, benchmark, bus_names_of, clicks_of, followed,
                      known_place, measure, open_application, settle)

# After so many seconds a changed text has been told.
LEFT_ALONE = 3

KINDS = ("service", "input", "one-call", "floor")


def click_figures():
    """The way from the release of the button to the client, against the floor."""
    rows, parts = [], []
    for title, *target in TARGETS:
        samples = clicks_of(*target, KINDS)
        ours, input_time, delivery, floor, one_call = (statistics.median(samples[key]) for key in (
            ("service", "total"), ("input", "input"), ("service", "delivery"), ("floor", "total"), ("one-call", "total")))
        rows.append([title, *(median_and_tail(samples[kind, "total"]) for kind in ("service", "floor")), f"{ours / floor:.2f}"])
        parts.append([title, *map(milliseconds, (input_time, ours - input_time - delivery, delivery, one_call))])
    table("From the click to the client", ["what", "service", "floor", "times the floor"], rows,
          f"Medians of {ROUNDS * CLICKS} clicks, the 99th percentile in brackets.")
    table("Where the time goes", ["what", "X server to service", "reading and deciding", "delivery",
                                   "a single call, for comparison"], parts,
          "Medians. The single call is sent at the release too: it waits until the application has handled the click.")


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
        with followed(open_application, application) as (watch, app):
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
        script = Path(__file__).with_name("list_app.py")
        with followed(ControlledApplication, script, str(size)) as (watch, app):
            slow_click(app, 3)
            counts = watch.round_trips(lambda: [slow_click(app, row) for row in (4, 5, 6, 7, 8) * 4])
            clicks = watch.statistics()
            rows.append([f"{size:,} rows", *per(20, counts), milliseconds(clicks["clickToReportMedian"])])
    table("A click into a list", ["GTK 3 list", "calls", "waves", "reports", "in the service (median)"], rows)


def rest_figures():
    """At rest: wake-ups, memory, start."""
    with followed(open_application, "gtk3") as (watch, _):
        pid = watch.service.process.pid
        time.sleep(5)
        before = machine.wake_ups(pid)
        time.sleep(60)
        woken = machine.wake_ups(pid) - before
        memory = machine.private_bytes(pid), watch.service.private_memory()
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
            with followed(open_application, application) as (_, app):
                watched.append(strain(app, widget))
        for index, what in enumerate(("500 keys", "200 scroll steps")):
            without, with_service = (statistics.median(pair[index] for pair in pairs) for pairs in (alone, watched))
            rows.append([f"{title}, {what}", f"{without:.2f} s", f"{with_service:.2f} s", f"{with_service - without:+.2f} s"])
    table("What it costs the watched", ["application and action", "alone", "watched", "difference"], rows,
          f"Processor time of the application's processes, medians of {ROUNDS} runs.")


def burst_figures():
    """1,000 key presses at 200 a second in a GTK 3 field that empties itself after thirty characters."""
    rows = []
    for _ in range(ROUNDS):
        with followed(open_application, "gtk3") as (watch, app):
            app.focus("Telegram")
            hands.key("F9")
            settle()
            time_of_service = machine.ProcessorTime(watch.service.process.pid)
            begin, used = time.monotonic(), time_of_service.seconds()
            counts = watch.round_trips(lambda: type_and_leave(app, "Telegram", "abcdefghij" * 100))
            seconds, used = time.monotonic() - begin, time_of_service.seconds() - used
            rows.append([counts[2], f"{used:.2f} s", f"{100 * used / seconds:.0f} %", *per(1000, counts[:2])])
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
        with known_place(application, widget) as place:
            samples = benchmark("socket", 2000, place, way)
        socket = f"{statistics.median(samples['socket']):.0f} µs" if "socket" in samples else "none offered"
        rows.append([title.split(" button")[0], f"{statistics.median(samples['bus']):.0f} µs", socket])
    table("One call", ["toolkit", "over the bus", "over the application's socket"], rows)


SECTIONS = {"click": click_figures, "round_trip": round_trip_figures, "tree": tree_figures, "rest": rest_figures,
            "cost": cost_figures, "burst": burst_figures, "socket": socket_figures}

if __name__ == "__main__":
    measure(SECTIONS)
