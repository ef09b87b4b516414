"""The service with one client, and applications that are watched or not."""
import contextlib
import json
import os
import signal
import subprocess
import sys
import time
from collections import defaultdict

import dbus

import machine
from applications import ControlledApplication
from browser import Chromium
from collection import Collection
from desktop import BUS_NAME, PROGRAMS, Service

OWN_APPLICATIONS = {"gtk3": "gtk3_app.py", "gtk4": "gtk4_app.py", "qt": "qt_app.py"}
SETTLING = 0.5
ROUNDS = int(os.environ.get("ROUNDS", "3"))
CLICKS = int(os.environ.get("CLICKS", "100"))

# What is clicked: a name, the application, the widget, how it is asked.
TARGETS = (("GTK 3 button", "gtk3", "Weigh anchor", "gtk3"), ("GTK 4 button", "gtk4", "Weigh anchor", "gtk4"),
           ("Qt 5 button", "qt", "Weigh anchor", "qt"), ("Chromium button", "chromium", "Drop anchor", "chromium-button"),
           ("Chromium link", "chromium", "link", "chromium-link"))


class Watch:
    """The service and a client; `follow` waits until an application is known to it."""

    def __init__(self):
        self.service = Service()
        self.collection = Collection([PROGRAMS / "norra-collect"])
        self.collection.next(1)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.collection.process.kill()
        self.collection.wait()
        self.service.close()

    def follow(self, application):
        self.collection.until(lambda report: report.get("processID") == application.pid)
        settle()
        return application

    @staticmethod
    def statistics():
        service = dbus.SessionBus().get_object(BUS_NAME, "/" + BUS_NAME.replace(".", "/"))
        return service.GetAll("com.norra.ServiceStatistics", dbus_interface="org.freedesktop.DBus.Properties")

    def round_trips(self, act):
        """The calls and the waves to applications that an action costs, and the reports that it makes."""
        settle()
        before, reports = self.statistics(), len(self.collection.lines)
        act()
        settle()
        after = self.statistics()
        return [int(after[name] - before[name]) for name in ("reads", "waves")] + [len(self.collection.lines) - reports]


def accessibility_bus_address():
    return dbus.SessionBus().get_object("org.a11y.Bus", "/org/a11y/bus").GetAddress(dbus_interface="org.a11y.Bus")


def bus_names_of(pid):
    """On the accessibility bus."""
    bus = dbus.bus.BusConnection(accessibility_bus_address())
    driver = dbus.Interface(bus.get_object("org.freedesktop.DBus", "/org/freedesktop/DBus"), "org.freedesktop.DBus")
    return [name for name in bus.list_names()
            if name.startswith(":") and driver.GetConnectionUnixProcessID(name) == pid]


def settle():
    """Nothing says that nothing more will come."""
    time.sleep(SETTLING)


def open_application(name):
    return Chromium() if name == "chromium" else ControlledApplication(OWN_APPLICATIONS[name])


@contextlib.contextmanager
def followed(start, *arguments):
    """The service with a client, and the application that `start` gives, which it follows."""
    with Watch() as watch:
        app = watch.follow(start(*arguments))
        try:
            yield watch, app
        finally:
            app.close()


@contextlib.contextmanager
def known_place(name, widget):
    """The place of a widget that was clicked once; the client has paused, and leaves it to others to ask."""
    with followed(open_application, name) as (watch, app):
        app.click(widget)
        settle()
        watch.collection.process.send_signal(signal.SIGUSR1)
        settle()
        yield app.place(widget)


def benchmark(what, count, place=None, way=""):
    """The samples of what a program of the benchmark measures, by name."""
    program = "norra-libatspi-clicks" if what.startswith("library") else "norra-desktop-benchmark"
    where = [str(round(number)) for number in (place[0] + place[2] / 2, place[1] + place[3] / 2)] + [way] if place else []
    answer = subprocess.run([PROGRAMS / program, what, str(count), *where], capture_output=True, text=True)
    if answer.returncode:
        raise RuntimeError(f"{what} {way}: {answer.stderr}")
    return json.loads(answer.stdout)


def clicks_of(application, widget, way, kinds):
    """All samples of all rounds, by the kind of client and what it measured; the kinds take turns."""
    samples = defaultdict(list)
    with known_place(application, widget) as place:
        for _ in range(ROUNDS):
            for kind in kinds:
                for name, values in benchmark(kind, CLICKS, place, way).items():
                    samples[kind, name] += values
    return samples


def measure(sections):
    """Prints the tables of the sections that the command line names, of all by default."""
    print(f"{machine.description()}, load {machine.load():.2f}", flush=True)
    for name in sys.argv[1:] or sections:
        sections[name]()
    print(f"\nload at the end {machine.load():.2f}")
