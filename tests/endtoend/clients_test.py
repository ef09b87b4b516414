#!/usr/bin/python3
"""Clients that do not read."""
import signal
import sys

import hands
from desktop import EndToEndTest, main
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


if __name__ == "__main__":
    main()
