"""A private desktop with the service, a client and applications, and the test case that all end-to-end tests are.

The display, the session bus and the window manager are those of the environment (scripts/headless-desktop.sh gives them).
"""
import os
import signal
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import dbus

import expected
import hands
from applications import ControlledApplication
from collection import Collection
from waiting import PATIENCE, wait_until

BUS_NAME = "com.norra.UserInteractionsCollectorService"
PROGRAMS = Path(os.environ.get("NORRA_PROGRAMS", Path(__file__).resolve().parents[2] / "build/release/bin"))


class Service:
    """The service process of the build tree; what it logs is in `log`."""

    def __init__(self):
        self.log = tempfile.NamedTemporaryFile(prefix="norra-service-", suffix=".log", mode="w+")
        self.process = subprocess.Popen([PROGRAMS / "norra-collector-service"], stdout=self.log, stderr=self.log)
        bus = dbus.bus.BusConnection(os.environ["DBUS_SESSION_BUS_ADDRESS"])
        bus.set_exit_on_disconnect(False)
        wait_until(lambda: bus.name_has_owner(BUS_NAME), "the service on the bus")
        bus.close()

    def logged(self):
        return Path(self.log.name).read_text(errors="replace")

    def file_descriptors(self):
        return len(os.listdir(f"/proc/{self.process.pid}/fd"))

    def private_memory(self):
        """In bytes: what the service has allocated, without the files that it has mapped."""
        return self._status("RssAnon:")

    def peak_of_memory(self):
        """In bytes, with the files that it has mapped; since the last `forget_peak_of_memory`."""
        return self._status("VmHWM:")

    def forget_peak_of_memory(self):
        Path(f"/proc/{self.process.pid}/clear_refs").write_text("5")

    def _status(self, key):
        status = Path(f"/proc/{self.process.pid}/status").read_text()
        return 1024 * next(int(line.split()[1]) for line in status.splitlines() if line.startswith(key))

    def is_sanitized(self):
        """Sanitizers keep freed memory back."""
        return "libasan" in Path(f"/proc/{self.process.pid}/maps").read_text()

    def close(self):
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGTERM)
        try:
            return self.process.wait(PATIENCE)
        finally:
            self.process.kill()
            self.log.close()


def screenshot():
    """The path of a picture of the screen as it is now."""
    if "WAYLAND_DISPLAY" in os.environ:
        return "none of a Wayland desktop"
    file = tempfile.NamedTemporaryFile(prefix="norra-screen-", suffix=".png", delete=False)
    script = ("import gi, sys; gi.require_version('Gdk', '3.0'); from gi.repository import Gdk; "
              "root = Gdk.get_default_root_window(); "
              "Gdk.pixbuf_get_from_window(root, 0, 0, root.get_width(), root.get_height()).savev(sys.argv[1], 'png', [], [])")
    subprocess.run(["/usr/bin/python3", "-c", script, file.name], check=False)
    return file.name


class EndToEndTest(unittest.TestCase):
    """The tests of a class share the service and one client; their reports follow one another."""

    maxDiff = None
    opened = None  # what gives the application that all tests of a class are about, if there is one

    @classmethod
    def setUpClass(cls):
        cls.service = Service()
        cls.addClassCleanup(cls.service.close)
        cls.collection = cls.collect()
        first = cls.collection.next(1)
        assert first == [expected.collector("start")], f"{first}\n{cls.service.logged()}"
        if cls.opened:
            cls.application = cls.open(cls.opened())

    @classmethod
    def collect(cls):
        collection = Collection([os.environ.get("NORRA_COLLECT", PROGRAMS / "norra-collect")])
        cls.addClassCleanup(collection.process.wait)
        cls.addClassCleanup(collection.process.kill)
        return collection

    @classmethod
    def open(cls, application):
        """Waits until a newly started application is followed."""
        cls.addClassCleanup(application.close)
        cls.follow(application)
        return application

    @classmethod
    def follow(cls, application):
        """Takes the reports up to the switch to an application, and does not look at them."""
        reports = cls.collection.until(lambda report: report.get("processID") == application.pid)
        assert reports and reports[-1].get("processID") == application.pid, reports

    @classmethod
    def open_own(cls, script, *arguments):
        return cls.open(ControlledApplication(script, *arguments))

    def started(self, script, *arguments):
        """The same for one test, and its report is left to the test."""
        application = ControlledApplication(script, *arguments)
        self.addCleanup(application.close)
        return application

    def expect(self, *reports, patience=PATIENCE):
        """Exactly these are the next reports."""
        found = self.collection.next(len(reports), patience)
        self.assertEqual(one_a_line(found), one_a_line(reports))

    def expect_among(self, *reports):
        """These come, in this order; others may come before each."""
        for report in reports:
            found = self.collection.until(lambda other: other == report)
            self.assertEqual(found[-1:], [report], one_a_line(found))

    def expect_in_any_order(self, *reports):
        """For what a toolkit does at the same moment as the user: the selection when the button is released."""
        self.assertEqual(one_a_line(sorted(self.collection.next(len(reports)), key=str)),
                         one_a_line(sorted(reports, key=str)))

    def focus(self, widget, control, name=None):
        """Gives a widget the keyboard focus, and waits until the service follows it: until it names it at a key press."""
        self.application.focus(widget)
        followed = self.idle_key(widget if name is None else name, control)
        wait_until(lambda: self.is_followed(widget, followed), f"the service to follow {followed}")
        type(self).tells_focus = True

    # A toolkit that starts tells of no focus changes until it has heard that somebody listens.
    tells_focus = False

    def is_followed(self, widget, followed):
        if followed in self.press_idle_key():
            return True
        if not self.tells_focus:
            self.application.focus("Weigh anchor")
            self.application.focus(widget)
        return False

    # A key that no application under test does anything with; it is reported like any other.
    IDLE_KEY = "F9"

    def idle_key(self, name, control):
        return expected.key_combination(f"Function + {self.IDLE_KEY.lower()}", name, control)

    def press_idle_key(self):
        hands.key(self.IDLE_KEY)
        return self.collection.next(1, patience=0.5)

    def expect_idle_key(self, name, control):
        """Nothing else has been reported, and the service goes on: a key press is the next report."""
        self.assertEqual(one_a_line(self.press_idle_key()), one_a_line([self.idle_key(name, control)]))

    def run(self, result=None):
        self.faults = lambda: len(result.failures) + len(result.errors)
        self.faults_before = self.faults()
        return super().run(result)

    def tearDown(self):
        if self.faults() > self.faults_before:
            print(f"--- {self.id()}: the screen: {screenshot()}\n--- reports:\n{''.join(self.collection.lines)}"
                  f"--- the service's log:\n{self.service.logged()[-20000:]}---", file=sys.stderr)
            self.begin_anew()

    @classmethod
    def begin_anew(cls):
        """What one test leaves behind is not to spoil the next ones."""
        cls.doClassCleanups()
        cls.setUpClass()


def one_a_line(reports):
    return "\n".join(str(report) for report in reports)


def main():
    unittest.main(verbosity=2)
