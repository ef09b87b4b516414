"""What norra-fleet does at a desktop and for an administrator: command_test.py NORRA-PUBLISH

systemctl is one that writes down what it is asked; the desktop's notifications are a service on a bus of the test."""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

COMMAND = pathlib.Path(__file__).resolve().parents[2] / "packaging/fleet/norra-fleet"
PUBLISHER = os.path.abspath(sys.argv.pop(1))

# Presses the button that the notification offers, or closes it.
NOTIFICATIONS = """
import sys
import dbus.mainloop.glib, dbus.service
from gi.repository import GLib

class Notifications(dbus.service.Object):
    name = "org.freedesktop.Notifications"

    @dbus.service.method(name, in_signature="susssasa{sv}i", out_signature="u")
    def Notify(self, app, replaced, icon, summary, body, actions, hints, expires):
        print(summary, list(map(str, actions)), expires, file=sys.stderr)
        if sys.argv[1] in actions:
            GLib.idle_add(self.ActionInvoked, 1, sys.argv[1])
        GLib.idle_add(self.NotificationClosed, 1, 2)
        return 1

    @dbus.service.method(name, out_signature="ssss")
    def GetServerInformation(self):
        return "test", "test", "1", "1.2"

    @dbus.service.method(name, out_signature="as")
    def GetCapabilities(self):
        return ["actions", "body"]

    @dbus.service.signal(name, signature="us")
    def ActionInvoked(self, number, action): pass

    @dbus.service.signal(name, signature="uu")
    def NotificationClosed(self, number, reason): pass

bus = dbus.SessionBus(mainloop=dbus.mainloop.glib.DBusGMainLoop())
claimed = dbus.service.BusName(Notifications.name, bus)
service = Notifications(bus, "/org/freedesktop/Notifications")
print("ready", flush=True)
GLib.MainLoop().run()
"""


class Command(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.tool("systemctl", f'echo "$@" >>{self.folder}/asked; [ "$3" != is-active ] || exit 0')
        self.tool("norra-publish", f'exec {PUBLISHER} --host "desk 1" --user ada "$@"')
        self.environment = {**os.environ, "PATH": f"{self.folder}:{os.environ['PATH']}", "XDG_RUNTIME_DIR": str(self.folder)}

    def tool(self, name, text):
        (self.folder / name).write_text(f"#!/bin/sh\n{text}\n")
        (self.folder / name).chmod(0o755)

    def run_command(self, *arguments, status=0, given="", before=()):
        ran = subprocess.run([*before, "sh", str(COMMAND), *arguments], input=given, env=self.environment, text=True, timeout=60,
                             capture_output=True)
        self.assertEqual(ran.returncode, status, ran.stderr)
        return ran.stdout

    def asked(self):
        return (self.folder / "asked").read_text().splitlines()

    def status(self):
        return self.run_command("status").splitlines()

    def test_a_pause_lasts_until_it_ends(self):
        paused = self.folder / "norra-fleet/paused"
        self.assertEqual(self.status(), ["collecting", "desktops/desk%201/ada/interactions"])
        self.run_command("pause")
        self.assertEqual((self.status()[0], paused.exists(), self.asked()[-1]), ("paused", True, "--user stop norra-fleet.service"))
        self.run_command("resume")
        self.assertEqual((self.asked()[-1], paused.exists()), ("--user start norra-fleet.service", False))
        unit = (COMMAND.parent / "norra-fleet.service.in").read_text()
        self.assertIn("ConditionPathExists=!%t/norra-fleet/paused\n", unit)

    def test_the_notification_says_that_it_runs_and_pauses(self):
        script = self.folder / "notifications.py"
        script.write_text(NOTIFICATIONS)
        for pressed, asked in (("close", []), ("pause", ["--user stop norra-fleet.service"])):
            with self.subTest(pressed):
                (self.folder / "asked").write_text("")
                told = self.run_command("notice", before=["dbus-run-session", "--", "sh", "-c", f"""
                    mkfifo {self.folder}/{pressed}
                    /usr/bin/python3 {script} {pressed} >{self.folder}/{pressed} 2>{self.folder}/shown & server=$!
                    read ready <{self.folder}/{pressed}
                    "$@"; status=$?; kill $server; exit $status""", "sh"])
                self.assertEqual(self.asked(), asked, told)
                self.assertIn("What you do is recorded ['pause', 'Pause'] 0", (self.folder / "shown").read_text())

    def test_the_bridge_is_for_this_machine_and_encrypted(self):
        lines = self.run_command("bridge", "broker.example.org", "desks", given="two words\n").splitlines()
        for line in ("address broker.example.org:8883", "remote_username desks", "remote_password two words",
                     "bridge_cafile /etc/ssl/certs/ca-certificates.crt", "cleansession false",
                     "topic +/interactions out 1 desktops/desk%201/ desktops/desk%201/"):
            self.assertIn(line, lines)
        self.assertFalse(list(self.folder.glob("asked")), "printing it changes nothing")

    def test_a_broker_that_does_not_answer_is_ended(self):
        self.tool("mosquitto", "exec sleep 300")
        self.tool("mosquitto_pub", f'echo asked >>{self.folder}/asked; [ "$(wc -l <{self.folder}/asked)" -lt 3 ]')
        self.run_command("serve", "0.05", status=137)
        self.assertEqual(self.asked(), 3 * ["asked"])

    def test_a_broker_that_ends_is_told_to_its_unit(self):
        self.tool("mosquitto", "exit 3")
        self.run_command("serve", "0.05", status=3)

    def test_wrong_uses(self):
        for arguments, given in ((["bridge", "broker"], "x\n"), (["bridge", "broker", "desks"], ""),
                                 (["bridge", "broker\npassword_file", "desks"], "x\n"), (["unknown"], ""), ([], "")):
            self.run_command(*arguments, given=given, status=2)
        for option in ("--help", "--version"):
            self.assertIn("norra-fleet", self.run_command(option))


if __name__ == "__main__":
    unittest.main()
