"""What tests of faults have in common: the processes that a desktop is made of, and what is measured."""
import os
import subprocess
import sys
import time
from pathlib import Path

import dbus

import hands
import toolkits
from applications import Application
from desktop import PROGRAMS, EndToEndTest
from expected import click, key_combination
from waiting import wait_until

DBUS = "org.freedesktop.DBus"
REGISTRY = "org.a11y.atspi.Registry"


def desktop_process(name):
    """The process identifier of a part of the desktop: of a child of the script that made it."""
    script = os.getppid()
    children = Path(f"/proc/{script}/task/{script}/children").read_text().split()
    return next(int(child) for child in children if Path(f"/proc/{child}/comm").read_text().startswith(name))


def accessibility_bus_address():
    """Starts the bus where it has ended."""
    bus = dbus.SessionBus().get_object("org.a11y.Bus", "/org/a11y/bus", introspect=False)
    return str(bus.GetAddress(dbus_interface="org.a11y.Bus"))


def ask_on_accessibility_bus(name, path, method, *arguments):
    """Nothing: no answer."""
    try:
        connection = dbus.bus.BusConnection(accessibility_bus_address())
        connection.set_exit_on_disconnect(False)
        answer = dbus.Interface(connection.get_object(name, path, introspect=False), name).get_dbus_method(method)(*arguments)
        connection.close()
        return answer
    except dbus.DBusException:
        return None


def owner_on_accessibility_bus(name):
    """The process that has a name there; the bus itself has org.freedesktop.DBus. Nothing: nobody has it."""
    return ask_on_accessibility_bus(DBUS, "/org/freedesktop/DBus", "GetConnectionUnixProcessID", name)


def is_focus_wanted():
    """Whether somebody asked the registry for events of the focus; an application need not send others."""
    wanted = ask_on_accessibility_bus(REGISTRY, "/org/a11y/atspi/registry", "GetRegisteredEvents") or []
    return any("focused" in event[1].lower() for event in wanted)


class FaultTest(EndToEndTest):
    def expect_click(self, application, widget, case=""):
        """Clicks a button that is on the screen; prints how long after the release its report was forwarded."""
        application.press(widget)
        released = time.time()
        hands.release()
        self.expect_among(click(widget, toolkits.of(application).button))
        print(f"    {case or self._testMethodName}: {1000 * (self.collection.date() - released):.0f} ms", file=sys.stderr)

    def expect_key(self, key, name, control):
        hands.key("ctrl+" + key)
        self.expect_among(key_combination(f"Control + {key}", name, control))

    def expect_to_be_read_again(self, application, widget):
        """It may take a moment until an application that goes on is asked again."""
        application.activate()
        wait_until(lambda: self.is_reported(application, widget), f"{widget} to be read")

    def is_reported(self, application, widget):
        application.click(widget)
        report = click(widget, toolkits.of(application).button)
        return self.collection.until(lambda other: other == report, patience=0.5)[-1:] == [report]


def server(test, *command):
    """A process of the test's own, and the first line that it prints: where it is found."""
    process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    for end in (process.stdout.close, process.wait, process.kill):
        test.addCleanup(end)
    return process, process.stdout.readline().strip()


def x_server(test):
    """And the environment of those who are to use it."""
    process, number = server(test, "Xvfb", "-displayfd", "1", "-nolisten", "tcp")
    return process, {"DISPLAY": f":{number}"}


def hostile_faults():
    """The names of what a hostile application can do."""
    answer = subprocess.run([PROGRAMS / "norra-hostile-application"], capture_output=True, text=True, check=True)
    return answer.stdout.splitlines()


class HostileApplication(Application):
    """One window over a button that the accessibility bus calls "Reef"; the program tells its faults."""

    def __init__(self, fault, number=0):
        super().__init__([PROGRAMS / "norra-hostile-application", fault, str(number)], stdin=subprocess.PIPE,
                         stdout=subprocess.PIPE, env={**os.environ, "AT_SPI_BUS_ADDRESS": accessibility_bus_address()})
        assert self.process.stdout.readline() == "ready\n"
        self.wait_until_in_front()
        self.place = self.window_place()

    def click(self):
        hands.point_to(self.place)
        hands.press()
        hands.release()

    def calls(self):
        """How many it has received so far."""
        self.process.stdin.write("\n")
        self.process.stdin.flush()
        return int(self.process.stdout.readline())

    def click_until_read(self):
        """An application that did not answer before is asked again after a while."""
        before = self.calls()

        def is_read():
            self.click()
            return self.calls() > before

        wait_until(is_read, "the service to read it")
