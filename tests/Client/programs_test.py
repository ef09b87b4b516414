#!/usr/bin/python3
"""norra-collect and norra-collector-service, as programs, over a session bus of their own and without a desktop."""
import contextlib
import fcntl
import json
import os
import pty
import signal
import stat
import subprocess
import tempfile
import termios
import threading
import time
import unittest
from pathlib import Path
from xml.etree import ElementTree

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

ROOT = Path(__file__).resolve().parents[2]
PROGRAMS = Path(os.environ["NORRA_PROGRAMS"])
BUS_NAME = "com.norra.UserInteractionsCollectorService"
START, STOP = ({"action": "Collector", "operation": operation, "isApplicationEvent": False} for operation in ("start", "stop"))
DATE = r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{6}Z$"
LIMIT_IN_SECONDS = 30
CONFIGURATION = """<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen>{}<policy context="default">
  <allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/></policy></busconfig>"""


class Bus:
    """The session bus of this process and its children until `close`; it starts what the folder describes."""

    def __init__(self, services=None):
        with tempfile.NamedTemporaryFile("w", suffix=".conf") as file:
            file.write(CONFIGURATION.format(f"<servicedir>{services}</servicedir>" if services else ""))
            file.flush()
            self.daemon = subprocess.Popen(["dbus-daemon", f"--config-file={file.name}", "--nofork", "--nopidfile",
                                            "--print-address=1"], stdout=subprocess.PIPE, text=True)
            self.address = os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.daemon.stdout.readline().strip()

    def connection(self, **options):
        connection = dbus.bus.BusConnection(self.address, **options)
        connection.set_exit_on_disconnect(False)
        return connection

    def has_service(self):
        connection = self.connection()
        try:
            return connection.name_has_owner(BUS_NAME)
        finally:
            connection.close()

    def close(self):
        self.daemon.kill()
        self.daemon.wait()
        self.daemon.stdout.close()


class Program(subprocess.Popen):
    """One of the build unless it is named by its path; ends at the limit, and so does waiting for its lines."""

    def __init__(self, name, *arguments, **options):
        super().__init__([PROGRAMS / name, *arguments], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                         **{"stdin": subprocess.DEVNULL, **options})
        self.watchdog = threading.Timer(LIMIT_IN_SECONDS, self.kill)
        self.watchdog.start()

    def line(self):
        """None: there is no further one."""
        return self.stdout.readline().removesuffix("\n") or None

    def report(self):
        """Without its date."""
        report = json.loads(self.line() or "{}")
        report.pop("date", None)
        return report

    def close(self):
        self.kill()
        self.wait()
        self.watchdog.cancel()
        self.stdout.close()
        self.stderr.close()


class ProgramTest(unittest.TestCase):
    services = PROGRAMS.parent / "share/dbus-1/services"

    def setUp(self):
        for variable in ("DISPLAY", "WAYLAND_DISPLAY", "XDG_SESSION_TYPE"):
            os.environ.pop(variable, None)
        self.bus = Bus(self.services)
        self.addCleanup(self.bus.close)

    def start(self, name, *arguments, **options):
        program = Program(name, *arguments, **options)
        self.addCleanup(program.close)
        return program

    def collect(self, *arguments, **options):
        """A client that has begun."""
        client = self.start("norra-collect", *arguments, **options)
        self.assertEqual(client.report(), START)
        return client

    def expect_end(self, program, status, *messages):
        self.assertEqual(program.wait(), status, program.args)
        errors = program.stderr.read()
        for message in messages:
            self.assertIn(message, errors)

    def start_service(self):
        service = self.start("norra-collector-service")
        while not self.bus.has_service() and service.poll() is None:
            time.sleep(0.002)
        return service


class Collecting(ProgramTest):
    def test_prints_each_report_with_its_date_and_stops_the_service_on_a_signal(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            client = self.start("norra-collect")
            report = json.loads(client.line())
            self.assertRegex(report.pop("date"), DATE)
            self.assertEqual(report, START)
            client.send_signal(number)
            self.assertEqual(client.report(), STOP)
            self.assertIsNone(client.line())
            self.expect_end(client, 0)
            self.assertFalse(self.bus.has_service())

    def test_stops_by_itself_after_the_duration(self):
        client = self.start("norra-collect", "--duration", "0.01", "--format", "text")
        self.assertIn("Collection started", client.line())
        self.assertIn("Collection stopped", client.line())
        self.expect_end(client, 0, "No X server: clicks and keys are not seen.", "Install at-spi2-core", "norra-collect --check")

    def test_pauses_and_resumes_on_signals(self):
        client = self.collect()
        for number, report in 2 * [(signal.SIGUSR1, STOP), (signal.SIGUSR2, START)] + [(signal.SIGUSR1, STOP)]:
            client.send_signal(number)
            self.assertEqual(client.report(), report)
        client.send_signal(signal.SIGINT)
        self.assertIsNone(client.line(), "a paused collector has nothing more to report")
        self.expect_end(client, 0)
        self.assertFalse(self.bus.has_service())

    def test_pauses_and_resumes_on_a_key_that_is_not_shown(self):
        keyboard, terminal = pty.openpty()
        client = self.collect(stdin=terminal, start_new_session=True, preexec_fn=lambda: fcntl.ioctl(0, termios.TIOCSCTTY, 0))
        for report in (STOP, START):
            os.write(keyboard, b"p")
            self.assertEqual(client.report(), report)
        client.send_signal(signal.SIGINT)
        self.expect_end(client, 0, "Paused")
        os.close(terminal)
        with self.assertRaises(OSError):
            os.read(keyboard, 1)
        os.close(keyboard)

    def test_appends_to_a_file_that_only_its_owner_can_read_and_ends_after_a_count(self):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder, "session.jsonl")
            for count in (1, 2):
                client = self.start("norra-collect", "--output", path, "--count", "1")
                self.assertIsNone(client.line())
                self.expect_end(client, 0)
                self.assertFalse(self.bus.has_service())
                reports = [json.loads(line) for line in path.read_text().splitlines()]
                self.assertEqual([{**report, "date": ""} for report in reports], count * [{**START, "date": ""}])
            self.assertEqual(stat.S_IMODE(path.stat().st_mode), 0o600)

    def test_does_not_end_well_where_reports_could_not_be_written(self):
        client = self.start("norra-collect", "--output", "/dev/full", "--duration", "0.01")
        self.expect_end(client, 3, "Reports lost at the end: 2.")

    def test_prints_only_the_kinds_that_are_wanted_in_any_letter_case(self):
        self.expect_end(self.collect("--kind", "collector", "--count", "1"), 0)
        client = self.start("norra-collect", "--kind", "Click", "--duration", "0.01")
        self.assertIsNone(client.line())
        self.expect_end(client, 0)

    def test_shows_what_a_running_service_says_of_its_work(self):
        self.collect()
        view = self.start("norra-collect", "--stats")
        values = dict(line.strip().split("  ", 1) for line in view.stdout)
        self.expect_end(view, 0)
        shown = len(signature_of((PROTOCOLS / "com.norra.ServiceStatistics.xml").read_text(), "com.norra.ServiceStatistics"))
        self.assertEqual(len(values), shown)
        for name, value in (("reports sent", "1"), ("reports lost", "0"), ("click to report, median (µs)", "0")):
            self.assertEqual(values[name].strip(), value)
        self.assertIn("No X server", values["clicks and keys"])
        self.assertIn("with DISPLAY set", values["windows and applications"])

    def test_starts_no_service_to_show_its_statistics(self):
        view = self.start("norra-collect", "--stats")
        self.assertIsNone(view.line())
        self.expect_end(view, 1, "The service is not running")
        self.assertFalse(self.bus.has_service())

    def test_reports_a_service_that_ends_while_it_collects(self):
        service = self.start_service()
        client = self.collect()
        service.terminate()
        self.expect_end(client, 3, "The service ended while it was collecting.")
        self.expect_end(service, 0, "Service stopped")

    def test_one_clients_stop_ends_the_other(self):
        first, second = self.collect(), self.collect()
        second.send_signal(signal.SIGINT)
        self.assertEqual(second.report(), STOP)
        self.expect_end(second, 0)
        self.expect_end(first, 3)

    def test_stops_the_service_when_nobody_reads_its_output(self):
        client = self.collect()
        client.stdout.close()
        self.expect_end(client, 3, "Nobody reads the reports any more.")
        self.assertFalse(self.bus.has_service())

    def test_ends_when_the_bus_is_lost(self):
        client = self.collect()
        self.bus.daemon.kill()
        self.expect_end(client, 3, "The session bus was lost.")

    def test_the_example_client_collects(self):
        example = self.start("/usr/bin/python3", ROOT / "docs/examples/client.py")
        self.assertEqual(example.line(), "collecting")
        self.assertEqual(example.line(), '{"action":"Collector","operation":"start"}')

    def test_a_second_service_says_that_one_runs(self):
        self.start_service()
        self.expect_end(self.start("norra-collector-service"), 1, "The service runs already")


class WithoutService(ProgramTest):
    services = None

    def test_says_what_to_do(self):
        self.expect_end(self.start("norra-collect"), 1, "Install it, or start norra-collector-service")

    def test_both_programs_say_that_there_is_no_session_bus(self):
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=/nonexistent"
        for program in ("norra-collect", "norra-collector-service"):
            self.expect_end(self.start(program), 1, "The session bus cannot be reached")
        lines = self.start("norra-collect", "--check").stdout.read().splitlines()
        self.assertEqual(lines[1], "missing  service             This cannot be known without the session bus.")

    def test_both_programs_explain_themselves_and_refuse_wrong_arguments(self):
        for program in ("norra-collect", "norra-collector-service"):
            self.assertIn("desktop", self.start(program, "--help").line())
            self.assertRegex(self.start(program, "--version").line(), rf"^{program} \d+\.\d+\.\d+$")
            self.expect_end(self.start(program, "--no-such-option"), 2)
        for option, value, problem in (
                ("--duration", "-1", "--duration: -1 is not a number of seconds"),
                ("--duration", "soon", "--duration: soon is not a number of seconds"),
                ("--count", "0", "--count: 0 is not a whole number above 0"),
                ("--count", "-2", "--count: -2 is not a whole number above 0"),
                ("--format", "xml", "--format: xml not in {")):
            self.expect_end(self.start("norra-collect", option, value), 2, problem)

    def test_the_inspector_explains_itself_and_refuses_what_is_no_number(self):
        helped = self.start("norra-inspect", "--help")
        self.assertIn("norra-inspect focused [PID]", helped.stdout.read())
        self.expect_end(helped, 0)
        for arguments, problem in (
                (["here", "12"], "'here' is no number"), (["12", "12px"], "'12px' is no number"), (["nan", "1"], "'nan' is no number"),
                (["focused", "gedit"], "'gedit' is no process identifier"), (["focused", "-3"], "'-3' is no process identifier"),
                ([], "usage: "), (["1", "2", "3"], "usage: ")):
            self.expect_end(self.start("norra-inspect", *arguments), 2, problem)
        self.expect_end(self.start("norra-inspect", "10", "10"), 1, "there is no such element")


class SessionManager(dbus.service.Object):
    """Stands on the bus for the systemd of a session, with an environment of its own, until `close`."""

    def __init__(self, bus, variable):
        self.variable = variable
        self.own = bus.connection(mainloop=dbus.mainloop.glib.DBusGMainLoop())
        self.name = dbus.service.BusName("org.freedesktop.systemd1", self.own)
        super().__init__(self.own, "/org/freedesktop/systemd1")
        self.loop = GLib.MainLoop()
        self.thread = threading.Thread(target=self.loop.run)
        self.thread.start()

    @dbus.service.method("org.freedesktop.DBus.Properties", in_signature="ss", out_signature="v")
    def Get(self, _interface, _name):
        return dbus.Array([self.variable], signature="s")

    def close(self):
        self.loop.quit()
        self.thread.join()
        self.own.close()


class Checking(ProgramTest):
    """What norra-collect --check says."""

    def check(self):
        check = self.start("norra-collect", "--check")
        lines = check.stdout.read().splitlines()
        self.expect_end(check, 1)
        return lines

    def test_checks_what_is_there_and_says_what_to_do(self):
        lines = self.check()
        self.assertEqual(lines[:2], ["ready    session bus", "ready    service"])
        self.assertRegex(lines[2], "missing  display .*Run this inside an X11 session.*")

    def test_checks_which_display_the_service_would_get(self):
        os.environ["DISPLAY"] = ":54321.0"
        for variable, finding in (
                ("LANG=C", r"missing  service's display   systemd would start the service without DISPLAY\..*"),
                ("DISPLAY=:0", r"limited  service's display   .* for DISPLAY=:0, not :54321.0\..*"),
                ("DISPLAY=:54321", "ready    service's display$")):
            with contextlib.closing(SessionManager(self.bus, variable)):
                self.assertRegex(self.check()[3], finding)

    def test_says_what_is_not_seen_under_wayland(self):
        os.environ["WAYLAND_DISPLAY"] = "wayland-0"
        lines = self.check()
        self.assertRegex(lines[2], "missing  display .*compositor of this Wayland session is not reached.*")
        self.assertRegex(lines[4], "missing  clicks and keys .*Wayland session.*log in to an X11 session")


PROTOCOLS = ROOT / "NorraUserInteractionsCollectorServiceProtocol"


def signature_of(introspection, interface):
    """The methods, properties and arguments that an introspection text names."""
    found = ElementTree.fromstring(introspection).find(f"interface[@name='{interface}']")
    return [(each.tag, *map(each.get, ("name", "type", "direction", "access"))) for each in found.iter()
            if each.tag in ("method", "property", "arg")]


class Protocols(ProgramTest):
    def test_the_service_is_what_its_descriptions_say(self):
        exported = self.bus.connection().get_object(BUS_NAME, "/" + BUS_NAME.replace(".", "/"))
        introspection = exported.Introspect(dbus_interface="org.freedesktop.DBus.Introspectable")
        for interface, detail in (("com.norra.ServiceProtocol", ("method", "startCollectorWith", None, None, None)),
                                  ("com.norra.ServiceStatistics", ("property", "reportsSent", "t", None, "read"))):
            described = signature_of((PROTOCOLS / f"{interface}.xml").read_text(), interface)
            self.assertIn(detail, described)
            self.assertEqual(signature_of(introspection, interface), described)


if __name__ == "__main__":
    unittest.main()
