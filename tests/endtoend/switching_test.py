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
    # What is started, its identifier and name. Nothing: there is no desktop file, the executable's name stands for it.
    APPLICATIONS = [
        (["galculator"], "galculator", "Galculator"),
        (["mousepad", "--disable-server"], "org.xfce.mousepad", "Mousepad"),
        (["featherpad", "--standalone"], "featherpad", "FeatherPad"),
        (["/usr/bin/python3", FOLDER / "plain_window.py", "Bare hull"], None, ""),
    ]

    def test_each_switch_is_told_with_identifier_name_and_window_title(self):
        running = [self.start(*row) for row in self.APPLICATIONS]
        for application, name, description in reversed(running[:-1]):
            with self.subTest(name):
                application.activate()
                self.expect(change_application(application.pid, name, description, application.window_title()))

    def start(self, command, identifier, description):
        application = Application(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(application.close)
        application.wait_until_in_front()
        name = identifier or application.executable()
        self.expect(change_application(application.pid, name, description, application.window_title()))
        return application, name, description

    def test_an_application_that_begins_where_another_ended_is_told(self):
        for title in ("First hull", "Second hull"):  # the second window gets the number of the first one
            application = ControlledApplication("plain_window.py", title)
            self.expect(change_application(application.pid, application.executable(), "", title))
            application.close()

    def test_a_client_that_vanishes_disturbs_no_other(self):
        other = self.collect()
        self.assertEqual(other.next(1), [collector("start")])
        other.process.send_signal(signal.SIGKILL)
        other.process.wait()
        wait_until(lambda: "Connection was invalidated." in self.service.logged(), "the warning")
        application = ControlledApplication("plain_window.py", "Bare hull")
        self.addCleanup(application.close)
        self.expect(change_application(application.pid, application.executable(), "", "Bare hull"))

    def test_an_application_that_does_not_answer_disturbs_no_other(self):
        stuck = ControlledApplication("gtk3_app.py")
        self.addCleanup(stuck.close)
        self.follow(stuck)
        place = stuck.place("Drop anchor")
        stuck.process.send_signal(signal.SIGSTOP)
        hands.point_to(place)
        hands.press()
        hands.release()
        self.application = ControlledApplication("qt_app.py")
        self.addCleanup(self.application.close)
        self.follow(self.application)
        self.focus("Ship", "text")
        hands.key("ctrl+b")
        self.expect(key_combination("Control + b", "Ship", "text"))
        stuck.process.send_signal(signal.SIGCONT)
        stuck.activate()
        self.expect(change_application(stuck.pid, stuck.executable(), "", "Harbour ledger"))


class Stopping(EndToEndTest):
    def test_the_last_report_is_the_end_of_collecting(self):
        self.assertEqual(self.collection.end(), 0)
        self.expect(collector("stop"))
        self.assertEqual(self.service.process.wait(), 0)


if __name__ == "__main__":
    main()
