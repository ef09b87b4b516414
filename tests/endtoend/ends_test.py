#!/usr/bin/python3
"""The ends of the service: what it has switched on is off again, and its log begins and ends with its life."""
import os
import signal
import socket
import subprocess
import tempfile
import unittest
from pathlib import Path
from unittest import mock

import dbus

from collection import Collection
from desktop import PROGRAMS, Service, main
from expected import collector
from faults import x_server
from waiting import wait_until

STATUS = "org.a11y.Status"
SET_BY_HAND = "Accessibility was switched on"


def on_bus(use):
    """Of the session bus that the environment names now."""
    connection = dbus.bus.BusConnection(os.environ["DBUS_SESSION_BUS_ADDRESS"])
    connection.set_exit_on_disconnect(False)
    try:
        status = connection.get_object("org.a11y.Bus", "/org/a11y/bus", introspect=False)
        return use(dbus.Interface(status, "org.freedesktop.DBus.Properties"))
    finally:
        connection.close()


def is_on():
    return bool(on_bus(lambda status: status.Get(STATUS, "IsEnabled")))


def switch(on):
    on_bus(lambda status: status.Set(STATUS, "IsEnabled", dbus.Boolean(on, variant_level=1)))


class SessionBus:
    """A bus whose socket outlives it, as that of a session's bus does: who connects while it is down waits for it."""

    def __init__(self, test):
        self.folder = tempfile.TemporaryDirectory(dir=os.environ["XDG_RUNTIME_DIR"])
        test.addCleanup(self.folder.cleanup)
        self.socket = socket.socket(socket.AF_UNIX)
        test.addCleanup(self.socket.close)
        self.socket.bind(f"{self.folder.name}/bus")
        self.socket.listen()
        environment = {"DBUS_SESSION_BUS_ADDRESS": f"unix:path={self.folder.name}/bus",
                       "XDG_RUNTIME_DIR": self.folder.name}
        patch = mock.patch.dict(os.environ, environment)
        patch.start()
        test.addCleanup(patch.stop)
        test.addCleanup(self.kill)
        self.start()

    def start(self):
        script = 'exec 3<&0; export LISTEN_FDS=1 LISTEN_PID=$$; exec dbus-daemon --session --nofork --nopidfile --address=systemd:'
        self.process = subprocess.Popen(["/bin/sh", "-c", script], stdin=self.socket, stderr=subprocess.DEVNULL)

    def kill(self):
        self.process.kill()
        self.process.wait()


class EndsTest(unittest.TestCase):
    def setUp(self):
        switch(False)

    def start(self):
        """A service that has switched accessibility on."""
        service = Service()
        self.addCleanup(service.close)
        wait_until(is_on, "accessibility")
        return service

    def expect_switched_back(self, service, end, status=0):
        end(service)
        self.assertEqual(service.process.wait(60), status, service.logged())
        self.assertFalse(is_on(), service.logged())

    def stop_as_client(self, _):
        client = Collection([PROGRAMS / "norra-collect"])
        self.assertEqual(client.next(1), [collector("start")])
        self.assertEqual(client.end(), 0)
        client.process.stdout.close()
        client.process.stderr.close()

    def test_every_orderly_end_puts_accessibility_back(self):
        ends = {number.name: lambda service, number=number: service.process.send_signal(number)
                for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP)}
        ends |= {"a client's stop": self.stop_as_client, "nobody needs it": lambda service: None}
        for name, end in ends.items():
            with self.subTest(name):
                service = self.start()
                self.expect_switched_back(service, end)
                lines = [line.split(" ", 2)[2] for line in service.logged().splitlines()]
                self.assertEqual(lines[0], "UserInteractionsCollectorService: Service started")
                self.assertEqual(lines[-1], "UserInteractionsCollectorService: Service stopped")

    def test_the_loss_of_the_x_server_puts_it_back(self):
        server, environment = x_server(self)
        with mock.patch.dict(os.environ, environment):
            self.expect_switched_back(self.start(), lambda _: server.kill(), status=1)

    def test_what_a_crash_left_on_is_not_the_users_wish(self):
        for _ in range(2):
            crashing = self.start()
            crashing.process.kill()
            crashing.process.wait()
        self.assertTrue(is_on())
        self.expect_switched_back(Service(), lambda service: service.process.terminate())

    def test_what_the_user_switched_on_stays(self):
        self.expect_switched_back(self.start(), lambda service: service.process.terminate())
        switch(True)
        service = Service()
        self.stop_as_client(service)
        self.assertEqual(service.process.wait(60), 0)
        self.assertTrue(is_on())
        self.assertNotIn(SET_BY_HAND, service.logged())

    def test_a_second_service_that_may_not_start_changes_nothing(self):
        first = self.start()
        second = subprocess.run([PROGRAMS / "norra-collector-service"], stderr=subprocess.PIPE, text=True, check=False)
        self.assertEqual(second.returncode, 1, second.stderr)
        self.assertTrue(is_on())
        self.expect_switched_back(first, lambda service: service.process.terminate())

    def test_a_session_bus_that_comes_back(self):
        bus = SessionBus(self)
        switch(False)
        service = self.start()
        bus.kill()
        bus.start()
        self.expect_switched_back(service, lambda _: None)
        self.assertIn("The session bus was lost", service.logged())

    def test_a_session_bus_that_is_gone_leaves_it_to_the_next_service(self):
        bus = SessionBus(self)
        switch(False)
        service = self.start()
        bus.kill()
        self.assertEqual(service.process.wait(60), 0)
        self.assertIn("could not be switched off again", service.logged())
        bus.start()
        self.assertTrue(is_on())
        self.expect_switched_back(Service(), lambda next_service: next_service.process.terminate())

    def test_what_a_desktop_lacks_is_logged_after_the_start(self):
        with mock.patch.dict(os.environ, WAYLAND_DISPLAY="wayland-0"):
            service = self.start()
        self.assertIn("This is a Wayland session", service.logged())
        self.assertRegex(service.logged(), r"\A[0-9:.]+ info UserInteractionsCollectorService: Service started\n")


if __name__ == "__main__":
    main()
