#!/usr/bin/python3
"""What is told of applications of Wayland: switches, texts, passwords, values, selections; and of those of X11 beside them."""
import os
import signal
import subprocess
from unittest import mock

import dbus

import hands
import toolkits
from desktop import BUS_NAME, PROGRAMS, EndToEndTest, main
from expected import change, change_application, click, special_key
from faults import desktop_process
from waiting import wait_until


class WaylandTest(EndToEndTest):
    def settle(self):
        """Waits until the service has read all that it wants to know of what was done last."""
        statistics = dbus.Interface(dbus.SessionBus().get_object(BUS_NAME, "/com/norra/UserInteractionsCollectorService"),
                                    dbus.PROPERTIES_IFACE)
        latest = []

        def has_been_quiet():
            latest.append(statistics.Get("com.norra.ServiceStatistics", "reads"))
            return len(latest) > 20 and latest[-1] == latest[-20]

        wait_until(has_been_quiet, "the service to be done")

    def go_to(self, widget, button="left", **where):
        """A click that is held for as long as a person holds it."""
        self.application.press(widget, button, **where)
        self.settle()
        hands.release(button)
        self.settle()

    def type_into(self, widget, text):
        before = self.application.value(widget)
        hands.type_text(text)
        wait_until(lambda: self.application.value(widget) == before + text, f"{text!r} in {widget}")
        return before + text


class Toolkit:
    """Mixed into a WaylandTest, with one of toolkits.py."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.awaken()

    @classmethod
    def awaken(cls):
        """A toolkit that starts tells of no focus changes until it has heard that somebody listens."""
        test = cls()
        for widget in 10 * ("Ship", "Captain"):
            test.go_to(widget)
            test.type_into(widget, "a")
            if cls.collection.next(1, patience=2):
                return
        raise AssertionError(f"nothing is told of {cls.application.process.args}\n{cls.service.logged()}")

    def test_a_text_is_told_when_it_is_left_and_when_it_is_left_alone(self):
        self.go_to("Ship")
        written = self.type_into("Ship", "gull")
        self.application.click("Captain")
        self.expect(change("Text", "Ship", self.text, written))
        self.settle()
        written = self.type_into("Captain", "ahab")
        self.expect(change("Text", "Captain", self.text, written))

    def test_a_password_is_told_without_any_of_it(self):
        self.go_to("Passphrase")
        self.type_into("Passphrase", "albatross")
        self.expect(change("Password", "Passphrase", self.password, ""))

    def test_a_text_area_is_not_told(self):
        self.go_to("Log book")
        hands.type_text("calm sea")
        self.go_to("Ship")
        self.expect(change("Text", "Ship", self.text, self.type_into("Ship", "x")))

    def test_a_check_box_is_told(self):
        for state in ("1", "0"):
            self.go_to("Lanterns", across=0.1)
            self.expect(change("Toggle", "Lanterns", self.check_box, state))

    def test_a_slider_and_a_spin_button_are_told(self):
        self.go_to("Speed", **self.slider)
        self.collection.next(1, patience=2)  # where the click has moved it
        hands.key("Home")
        self.settle()
        self.collection.next(1, patience=2)
        hands.key("Right", "Right")
        self.expect(change("Slider", "Speed", "slider", "2"))
        self.go_to("Crew", across=0.2)
        hands.key("Up", "Up")
        self.expect(change("Spinner", "Crew", self.spin_button, "2"))

    def test_selections_are_told(self):
        for view, control, kind, *selected in self.selections:
            with self.subTest(view):
                self.application.focus(view)
                self.settle()
                for names in selected:
                    hands.key("Down")
                    self.expect(change(kind, view, control, names))


class Gtk3(toolkits.Gtk3, Toolkit, WaylandTest):
    pass


class Gtk4(toolkits.Gtk4, Toolkit, WaylandTest):
    pass


class Qt5(toolkits.Qt5, Toolkit, WaylandTest):
    pass


class Qt6(toolkits.Qt6, Toolkit, WaylandTest):
    pass


class PageInChromium(toolkits.PageInChromium, Toolkit, WaylandTest):
    pass


class PageInFirefox(toolkits.PageInFirefox, Toolkit, WaylandTest):
    pass


class Switches(WaylandTest):
    """With an X server beside."""

    APPLICATIONS = {"gtk3_app.py": "Harbour ledger", "gtk4_app.py": "Pilot ledger", "qt_app.py": "Quay ledger",
                    "plain_window.py": "Bare hull"}

    def test_each_is_told_once(self):
        running = []
        for name, title in self.APPLICATIONS.items():
            application = self.started(name, *([title] if name == "plain_window.py" else []))
            self.expect(change_application(application.pid, name, name, title))
            running.append((application, name, title))
        for application, name, title in 2 * running:
            with self.subTest(name):
                application.activate()
                self.expect(change_application(application.pid, name, name, title))

    def test_clicks_and_keys_of_an_application_of_x11_are_told(self):
        with mock.patch.dict(os.environ, GDK_BACKEND="x11"):
            self.application = self.started("gtk3_app.py")
        self.follow(self.application)
        self.application.click("Weigh anchor")
        self.expect(click("Weigh anchor", toolkits.Gtk3.button))
        hands.key("Return")
        self.expect(special_key("carriage return", "Weigh anchor", toolkits.Gtk3.button))


class SwitchesWithoutTheCompositor(Switches):
    """As applications tell of them."""

    @classmethod
    def setUpClass(cls):
        hands.front_window()  # what the test itself knows of windows
        with mock.patch.dict(os.environ):
            os.environ.pop("SWAYSOCK", None)
            super().setUpClass()


class WindowsOfTheCompositor(WaylandTest):
    def test_an_application_without_accessibility_is_told(self):
        with mock.patch.dict(os.environ, NO_AT_BRIDGE="1"):
            application = self.started("gtk3_app.py")
        self.expect(change_application(application.pid, "gtk3_app.py", "gtk3_app.py", "Harbour ledger"))


class ScriptInKWin(EndToEndTest):
    @staticmethod
    def is_loaded():
        scripting = dbus.SessionBus().get_object("org.kde.KWin", "/Scripting")
        return scripting.isScriptLoaded("norra-collector", dbus_interface="org.kde.kwin.Scripting")

    def test_it_is_there_while_somebody_collects(self):
        wait_until(self.is_loaded, "the script")
        self.assertEqual(self.collection.end(), 0)
        wait_until(lambda: not self.is_loaded(), "the script's end")


class EndOfTheCompositor(EndToEndTest):
    def test_it_ends_the_service(self):
        os.kill(desktop_process("sway"), signal.SIGKILL)
        self.assertEqual(self.service.process.wait(20), 1)
        self.assertIn("The compositor has gone", self.service.logged())


class Checks(EndToEndTest):
    def test_what_is_not_seen_is_said(self):
        check = subprocess.run([PROGRAMS / "norra-collect", "--check"], capture_output=True, text=True)
        self.assertEqual(check.returncode, 1)
        self.assertRegex(check.stdout, "(limited|missing)  clicks and keys .*Wayland session")
        self.assertRegex(check.stdout, "ready    window in front")


if __name__ == "__main__":
    main()
