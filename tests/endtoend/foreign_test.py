#!/usr/bin/python3
"""Desktops that are not set up as those of the other tests are: a case each, that a person would tell no differently."""
import ctypes
import os
import subprocess
import tempfile
from pathlib import Path
from unittest import mock

import hands
import toolkits
from desktop import EndToEndTest, main
from expected import change, click, click_list_item, key_combination
from waiting import wait_until

ROW = click_list_item("Bergen", "row", column="Harbour", cell="Bergen")
CELL = click_list_item("Bergen", "row", column="Depth", cell="30 m")
SHIP = change("Text", "Ship", "text", "Gull")
TOOLKITS = [toolkits.Gtk3, toolkits.Qt5, toolkits.Qt6]


def button_in(application):
    return click("Drop anchor", toolkits.of(application).button)


def locale(name):
    """The environment of a language of which only the words need to be installed."""
    folder = tempfile.mkdtemp(dir=os.environ["HOME"])
    subprocess.run(["localedef", "-i", name, "-f", "UTF-8", f"{folder}/{name}.UTF-8"], capture_output=True)
    return {"LOCPATH": folder, "LC_ALL": f"{name}.UTF-8", "LANGUAGE": name}


class Foreign(EndToEndTest):
    def show(self, script, *arguments, **environment):
        with mock.patch.dict(os.environ, environment):
            self.application = self.started(script, *arguments)
        self.follow(self.application)

    def expect_clicks(self, *clicks):
        for widget, told in clicks:
            with self.subTest(widget):
                self.application.click(widget)
                self.expect_among(told)

    def expect_typed(self, widget, text, told):
        self.focus(widget, told["controlType"])
        hands.type_text(text)
        self.expect_among(told)


class Screens(Foreign):
    def test_two_monitors(self):
        for monitor in (["LEFT", "640/170x900/240+0+0", "screen"], ["RIGHT", "640/170x900/240+640+0", "none"]):
            subprocess.run(["xrandr", "--setmonitor", *monitor], check=True, capture_output=True)
            self.addCleanup(subprocess.run, ["xrandr", "--delmonitor", monitor[0]])
        for toolkit in TOOLKITS:
            self.show(*toolkit.opened.args)
            for x in (0, 250, 500):
                hands.xdotool("getactivewindow", "windowmove", "--sync", x, 20)
                wait_until(lambda: 0 <= self.application.place("Drop anchor")[0] - x < 100, "the window to move")
                self.expect_clicks(("Drop anchor", button_in(self.application)), ("Harbours 1 1", CELL))

    def test_full_screen(self):
        for toolkit in TOOLKITS:
            self.show(*toolkit.opened.args)
            subprocess.run(["wmctrl", "-r", ":ACTIVE:", "-b", "add,fullscreen"], check=True)
            wait_until(lambda: self.application.window_place()[2:] == [1280, 900], "the window to fill the screen")
            self.expect_clicks(("Drop anchor", button_in(self.application)), ("Harbours 1 1", CELL))

    def test_a_window_that_was_minimised(self):
        for toolkit in TOOLKITS:
            self.show(*toolkit.opened.args)
            window = hands.xdotool("getactivewindow").strip()
            hands.xdotool("windowminimize", window)
            wait_until(lambda: not self.application.window_title(), "the window to be minimised")
            below = hands.window_below_pointer()
            hands.xdotool("windowactivate", "--sync", window)
            hands.point_to(self.application.place("Drop anchor"))
            wait_until(lambda: hands.window_below_pointer() != below, "the window to be back")
            self.expect_clicks(("Drop anchor", button_in(self.application)), ("Harbours 1 0", ROW))


class Languages(Foreign):
    def test_right_to_left(self):
        for toolkit in TOOLKITS:
            options = [] if toolkit is toolkits.Gtk3 else ["-reverse"]
            self.show(*toolkit.opened.args, *options, **locale("he_IL"))
            first, second = self.application.place("Harbours 1 0"), self.application.place("Harbours 1 1")
            self.assertGreater(first[0], second[0])
            self.expect_clicks(("Drop anchor", button_in(self.application)), ("Harbours 1 0", ROW), ("Harbours 1 1", CELL))

    def test_decimal_commas(self):
        for toolkit in ("gtk3", "PyQt5", "PyQt6"):
            self.show("decimals.py", toolkit, **locale("de_DE"))
            control = self.spin_button()
            hands.key("ctrl+a")
            hands.type_text("2,5")
            hands.key("Return", "Up")
            self.expect_among(change("Spinner", "Depth", control, "3"))
            if toolkit == "gtk3":
                self.application.click("Heel", across=0.7, down=0.7)
                heel = f"{self.application.value('Heel'):.1f}"
                self.assertNotEqual(heel[-1], "0")
                told = self.collection.until(lambda report: report["action"] == "ChangeSlider")
                self.assertEqual([report["elementName"] for report in told[-2:]], ["Heel", "Heel"])
                self.assertEqual(told[-1]["newValue"], heel)

    def spin_button(self):
        """Focuses it, and tells what its toolkit calls it."""
        def controls():
            self.application.focus("Depth")
            return [report["controlType"] for report in self.press_idle_key() if report["elementName"] == "Depth"]

        return wait_until(controls, "the spin button to be followed")[0]


class Keyboards(Foreign):
    def test_a_layout_that_a_key_switches_to(self):
        subprocess.run(["setxkbmap", "us,de", "-option", "grp:menu_toggle"], check=True)
        self.addCleanup(subprocess.run, ["setxkbmap", "us", "-option", ""])
        self.show("gtk3_app.py")
        self.focus("Ship", "text")
        for told in ("Control + y", "Control + z", "Control + y"):
            self.press_codes(self.CONTROL, self.RIGHT_OF_T)
            self.expect(key_combination(told, "Ship", "text"))
            self.press_codes(self.MENU)

    CONTROL, RIGHT_OF_T, MENU = 37, 29, 135

    @staticmethod
    def press_codes(*codes):
        """As xdotool cannot do: it chooses the layout itself."""
        x11, xtest = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXtst.so.6")
        x11.XOpenDisplay.restype = ctypes.c_void_p
        display = ctypes.c_void_p(x11.XOpenDisplay(None))
        for code in codes:
            xtest.XTestFakeKeyEvent(display, code, True, 0)
        for code in reversed(codes):
            xtest.XTestFakeKeyEvent(display, code, False, 0)
        x11.XCloseDisplay(display)

    def test_an_input_method(self):
        daemon = subprocess.Popen(["ibus-daemon", "--xim", "--panel", "disable"])
        self.addCleanup(daemon.wait)
        self.addCleanup(daemon.terminate)
        wait_until(lambda: subprocess.run(["ibus", "engine", "xkb:us::eng"], capture_output=True).returncode == 0, "the input method")
        for toolkit in TOOLKITS[:2]:
            self.show(*toolkit.opened.args, GTK_IM_MODULE="ibus", QT_IM_MODULE="ibus")
            self.expect_typed("Ship", "Gull", SHIP)


class Hands(Foreign):
    def test_a_double_click(self):
        for toolkit in TOOLKITS:
            self.show(*toolkit.opened.args)
            hands.point_to(self.application.place("Harbours 1 0"))
            hands.xdotool("click", "--repeat", 2, "--delay", 120, 1)
            for _ in range(2):
                self.expect_among(ROW)

    def test_a_knob_that_is_dragged(self):
        for toolkit in TOOLKITS:
            self.show(*toolkit.opened.args)
            self.focus("Speed", "slider")
            hands.point_to(self.application.place("Speed"), across=0.02, down=0.7)
            hands.press()
            for _ in range(8):
                hands.move(8, 0)
            hands.release()
            self.application.ask("idle", None)
            speed = self.application.value("Speed")
            self.assertGreater(speed, 0)
            self.expect_among(change("Slider", "Speed", "slider", f"{speed:.0f}"))


class BeforeTheService(Foreign):
    """Qt puts no application on the bus that nobody had asked for accessibility when it started."""

    @classmethod
    def setUpClass(cls):
        with mock.patch.dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1"):
            cls.applications = [toolkit.opened() for toolkit in TOOLKITS]
        for application in cls.applications:
            cls.addClassCleanup(application.close)
        super().setUpClass()

    def test_an_application_that_was_there(self):
        for self.application in self.applications:
            self.application.activate()
            self.expect_clicks(("Drop anchor", button_in(self.application)), ("Harbours 1 0", ROW))


if __name__ == "__main__":
    main()
