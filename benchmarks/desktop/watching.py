"""The service with one client, and applications that are watched or not."""
import json
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests/endtoend"))

import dbus

from applications import ControlledApplication
from browser import Chromium
from collection import Collection
from desktop import BUS_NAME, PROGRAMS, Service

OWN_APPLICATIONS = {"gtk3": "gtk3_app.py", "gtk4": "gtk4_app.py", "qt": "qt_app.py"}
SETTLING = 0.5


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


def benchmark(what, count, place=None, way=""):
    """The samples of norra-desktop-benchmark, by name."""
    where = [str(round(number)) for number in (place[0] + place[2] / 2, place[1] + place[3] / 2)] + [way] if place else []
    answer = subprocess.run([PROGRAMS / "norra-desktop-benchmark", what, str(count), *where], capture_output=True, text=True)
    if answer.returncode:
        raise RuntimeError(f"{what} {way}: {answer.stderr}")
    return json.loads(answer.stdout)
