#!/usr/bin/python3
"""Clients that do not read, and what the client says of the desktop."""
import os
import signal
import subprocess
import sys

import hands
from desktop import PROGRAMS, EndToEndTest, main
from expected import collector, key_combination
from waiting import wait_until

KEYS = 1500
UNREAD_LIMIT = 1024
REPORT = key_combination("Control + b", "Ship", "text")


class Clients(EndToEndTest):
    def test_a_client_that_is_stopped_loses_what_is_too_much_and_nobody_else_does(self):
        self.application = self.open_own("gtk3_app.py")
        self.focus("Ship", "text")
        stopped = self.collect()
        self.assertEqual(stopped.next(1), [collector("start")])
        memory = self.service.private_memory()
        stopped.process.send_signal(signal.SIGSTOP)
        hands.xdotool("key", "--delay", 1, *KEYS * ["ctrl+b"])
        self.expect(*KEYS * [REPORT], patience=60)
        lost = self.service.logged().count("does not read its reports")
        more = self.service.private_memory() - memory
        print(f"    {lost} of {KEYS} lost, {more >> 10} KiB more memory", file=sys.stderr)
        self.assertGreaterEqual(lost, KEYS - UNREAD_LIMIT - 1)  # its first one was read
        if not self.service.is_sanitized():
            self.assertLess(more, 8 << 20)
        stopped.process.send_signal(signal.SIGCONT)
        self.assertEqual(stopped.next(KEYS - lost), (KEYS - lost) * [REPORT])
        self.expect_both_to_be_told(stopped)

    def expect_both_to_be_told(self, stopped):
        """It has read; the service may hear of that a moment later."""
        def is_told():
            hands.key("ctrl+b")
            self.expect(REPORT)
            return stopped.next(1, patience=0.5) == [REPORT]

        wait_until(is_told, "reports to the client that reads again")


class Checking(EndToEndTest):
    def check(self, **environment):
        check = subprocess.run([PROGRAMS / "norra-collect", "--check"], env={**os.environ, **environment}, capture_output=True,
                               text=True, check=False)
        return check.returncode, check.stdout.splitlines()

    def test_says_that_an_x_server_shows_only_a_part_of_a_wayland_session(self):
        self.open_own("gtk3_app.py")
        for wayland in ({"WAYLAND_DISPLAY": "wayland-0"}, {"XDG_SESSION_TYPE": "wayland"}):
            status, lines = self.check(**wayland)
            self.assertEqual(status, 1, lines)
            self.assertRegex(lines[2], "missing  display .*compositor of this Wayland session is not reached")
            self.assertRegex(lines[4], "limited  clicks and keys .*Wayland session.*log in to an X11")

    def test_knows_no_wayland_session_by_an_empty_variable(self):
        self.open_own("gtk3_app.py")
        status, lines = self.check(WAYLAND_DISPLAY="")
        self.assertEqual([line.split(" ", 1)[0] for line in lines], 8 * ["ready"], lines)
        self.assertEqual(status, 0)


if __name__ == "__main__":
    main()
