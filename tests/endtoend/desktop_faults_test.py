#!/usr/bin/python3
"""Parts of the desktop that end: what comes back is used again, what does not ends the service with a message."""
import os
import signal
import subprocess
import unittest
from unittest import mock

import hands
from collection import Collection
from desktop import PROGRAMS, Service, main
from expected import change, change_application, collector
from faults import DBUS, REGISTRY, FaultTest, desktop_process, is_focus_wanted, owner_on_accessibility_bus, server, x_server
from waiting import wait_until


class PartsThatComeBack(FaultTest):
    def expect_all_of(self, application):
        """Clicks, keys and texts."""
        self.application = application
        self.expect_click(application, "Weigh anchor")
        self.focus("Ship", "text")
        self.expect_key("b", "Ship", "text")
        hands.type_text("Gull")
        self.expect_among(change("Text", "Ship", "text", "Gull"))

    def end_on_accessibility_bus(self, name):
        process = owner_on_accessibility_bus(name)
        os.kill(process, signal.SIGKILL)
        wait_until(lambda: owner_on_accessibility_bus(name) != process, f"the end of {name}")

    def test_the_registry(self):
        running = self.open_own("gtk3_app.py")
        self.end_on_accessibility_bus(REGISTRY)
        self.expect_click(running, "Drop anchor")
        started = self.open_own("qt_app.py")  # and the registry with it
        wait_until(is_focus_wanted, "the service to tell the new registry what it wants")
        self.expect_all_of(started)
        self.expect_all_of(running.activate())

    def test_the_accessibility_bus(self):
        running = self.open_own("gtk3_app.py")
        self.expect_click(running, "Drop anchor")
        self.end_on_accessibility_bus(DBUS)
        wait_until(is_focus_wanted, "the service on the new bus")
        self.expect_all_of(self.open_own("gtk3_app.py"))
        running.activate()
        self.expect_among(change_application(running.pid, "gtk3_app.py", "Gtk3_app.py", "Harbour ledger"))

    def test_the_window_manager(self):
        running = self.open_own("gtk3_app.py")
        os.kill(desktop_process("openbox"), signal.SIGKILL)
        wait_until(lambda: "No window manager tells" in self.service.logged(), "the message")
        self.expect_click(running, "Weigh anchor")
        manager = subprocess.Popen(["openbox"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(manager.wait)
        self.addCleanup(manager.kill)
        wait_until(lambda: "A window manager is there" in self.service.logged(), "the message that it is back")
        self.expect_all_of(self.open_own("qt_app.py"))


class PartsThatDoNot(unittest.TestCase):
    def expect_the_end(self, server, status, logged, told):
        """Of the service, with a status and a line in its log, and of its client, which tells why."""
        service = Service()
        self.addCleanup(service.close)
        client = Collection([PROGRAMS / "norra-collect"])
        self.addCleanup(client.process.kill)
        self.assertEqual(client.next(1), [collector("start")])
        server.kill()
        self.assertEqual(service.process.wait(20), status, service.logged())
        self.assertIn(logged, service.logged())
        self.assertEqual(client.wait(), 3)
        self.assertIn(told, client.process.stderr.read())

    def test_the_x_server(self):
        process, environment = x_server(self)
        with mock.patch.dict(os.environ, environment):
            self.expect_the_end(process, 1, "The X server has gone", "The service ended while it was collecting.")

    def test_the_session_bus(self):
        process, address = server(self, "dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address=1")
        with mock.patch.dict(os.environ, DBUS_SESSION_BUS_ADDRESS=address):
            self.expect_the_end(process, 0, "The session bus was lost", "The session bus was lost.")


if __name__ == "__main__":
    main()
