#!/usr/bin/python3
"""Applications that stop or end while they are watched."""
import signal
from functools import partial

import hands
from applications import ControlledApplication
from desktop import main
from expected import click, key_combination
from faults import FaultTest, HostileApplication
from waiting import wait_until


class StoppedApplication(FaultTest):
    """The other application is reported before the stopped one goes on."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.stuck, cls.application = cls.open_own("gtk3_app.py"), cls.open_own("qt_app.py")

    def setUp(self):
        self.stuck.activate()
        self.focus_in(self.stuck, "Ship")

    def focus_in(self, application, widget):
        self.application, other = application, self.application
        self.focus(widget, "text")
        self.application = other

    def stop(self):
        self.stuck.process.send_signal(signal.SIGSTOP)
        self.addCleanup(self.stuck.process.send_signal, signal.SIGCONT)

    def expect_the_other_to_be_reported(self):
        self.application.activate()
        self.expect_click(self.application, "Weigh anchor")
        self.focus("Captain", "text")
        self.expect_key("b", "Captain", "text")

    def expect_the_stopped_one_to_come_back(self):
        self.stuck.process.send_signal(signal.SIGCONT)
        self.expect_to_be_read_again(self.stuck, "Drop anchor")

    def test_stopped_while_it_has_the_focus(self):
        """What was named before goes on to be."""
        self.stop()
        hands.key("ctrl+b", "ctrl+c", "F9")
        self.expect_among(key_combination("Control + c", "Ship", "text"))
        self.expect_the_other_to_be_reported()
        self.expect_the_stopped_one_to_come_back()

    def test_stopped_while_it_is_clicked(self):
        self.stuck.press("Drop anchor")
        self.stop()
        for _ in range(3):
            hands.release()
            hands.press()
        hands.release()
        self.expect_the_other_to_be_reported()
        self.expect_the_stopped_one_to_come_back()


class InTheMiddleOfAWalk(FaultTest):
    """At the first, third, ... of the calls that a click makes in the application that is clicked."""

    CALLS = (1, 3, 6, 10, 15, 21, 28, 36)

    opened = partial(ControlledApplication, "gtk3_app.py")

    def test_ended(self):
        for call in self.CALLS:
            with self.subTest(call), HostileApplication("ends", call) as hostile:
                self.click_until(hostile, lambda: hostile.process.poll() == -signal.SIGKILL, "its end")
                self.expect_the_other_to_be_reported()

    def test_stopped(self):
        for call in self.CALLS:
            with self.subTest(call), HostileApplication("stops", call) as hostile:
                self.click_until(hostile, lambda: hostile.state() == "T", "its stop")
                self.expect_the_other_to_be_reported()
                hostile.process.send_signal(signal.SIGCONT)
                hostile.activate()
                self.expect_reef_to_be_reported(hostile)

    @staticmethod
    def click_until(hostile, condition, what):
        def is_so():
            hostile.click()
            return condition()

        wait_until(is_so, what)

    def expect_the_other_to_be_reported(self):
        self.application.activate()
        self.expect_click(self.application, "Weigh anchor")

    def expect_reef_to_be_reported(self, hostile):
        report = click("Reef", "some role")

        def is_reported():
            hostile.click()
            return self.collection.until(lambda other: other == report, patience=0.3)[-1:] == [report]

        wait_until(is_reported, "the application that goes on to be read")


if __name__ == "__main__":
    main()
