#!/usr/bin/python3
"""Switching between applications, and clients and applications that fail in the middle of it."""
import signal
import subprocess

import hands
from applications import FOLDER, Application, ControlledApplication
from desktop import EndToEndTest, main
from expected import change_application, collector, key_combination
from waiting import wait_until


class Switching(EndToEndTest):
    # What is started, its identifier and name. A script without a desktop file is called by its own name.
    APPLICATIONS = [
        (["galculator"], "galculator", "Galculator"),
        (["mousepad", "--disable-server"], "org.xfce.mousepad", "Mousepad"),
        (["featherpad", "--standalone"], "featherpad", "FeatherPad"),
        (["/usr/bin/python3", FOLDER / "plain_window.py", "Bare hull"], "plain_window.py", "plain_window.py"),
    ]

    def test_each_switch_is_told_with_identifier_name_and_window_title(self):
        running = [self.start(*row) for row in self.APPLICATIONS]
        for application, name, description in reversed(running[:-1]):
            with self.subTest(name):
                application.activate()
                self.expect_switch(application, name, description)

    def start(self, command, identifier, description):
        application = Application(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(application.close)
        application.wait_until_in_front()
        self.expect_switch(application, identifier, description)
        return application, identifier, description

    def expect_switch(self, application, identifier, description):
        """With the title that stands there by then: some applications give their window another one first."""
        told = self.collection.next(1)
        self.assertEqual(told, [change_application(application.pid, identifier, description, application.window_title())])

    def test_an_application_that_begins_where_another_ended_is_told(self):
        for title in ("First hull", "Second hull"):  # the second window gets the number of the first one
            application = ControlledApplication("plain_window.py", title)
            self.expect(change_application(application.pid, "plain_window.py", "plain_window.py", title))
            application.close()

    def test_the_keys_of_an_application_without_accessibility_belong_to_its_window(self):
        self.follow(self.started("plain_window.py", "Bare hull"))
        hands.key("ctrl+b")
        self.expect(key_combination("Control + b", "Bare hull", "window"))

    def test_a_client_that_vanishes_disturbs_no_other(self):
        other = self.collect()
        self.assertEqual(other.next(1), [collector("start")])
        other.process.send_signal(signal.SIGKILL)
        other.process.wait()
        wait_until(lambda: "Connection was invalidated." in self.service.logged(), "the warning")
        application = self.started("plain_window.py", "Bare hull")
        self.expect(change_application(application.pid, "plain_window.py", "plain_window.py", "Bare hull"))

    def test_an_application_that_does_not_answer_disturbs_no_other(self):
        stuck = self.started("gtk3_app.py")
        self.follow(stuck)
        place = stuck.place("Drop anchor")
        stuck.process.send_signal(signal.SIGSTOP)
        hands.point_to(place)
        hands.press()
        hands.release()
        self.application = self.started("qt_app.py")
        self.follow(self.application)
        self.focus("Ship", "text")
        hands.key("ctrl+b")
        self.expect(key_combination("Control + b", "Ship", "text"))
        stuck.process.send_signal(signal.SIGCONT)
        stuck.activate()
        self.expect(change_application(stuck.pid, "gtk3_app.py", "Gtk3_app.py", "Harbour ledger"))


class Stopping(EndToEndTest):
    def test_the_last_report_is_the_end_of_collecting(self):
        self.assertEqual(self.collection.end(), 0)
        self.expect(collector("stop"))
        self.assertEqual(self.service.process.wait(), 0)


if __name__ == "__main__":
    main()
