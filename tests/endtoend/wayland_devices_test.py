#!/usr/bin/python3
"""Clicks and keys under Wayland, where the user may read the input devices: pipes here, which tell what the hands do."""
import os
import struct
import tempfile
from unittest import mock

import hands
import toolkits
import wayland_desktop
from desktop import EndToEndTest, main
from expected import change, click, key_combination, special_key
from wayland import BUTTONS

EV_SYN, EV_KEY = 0, 1


class Pipe:
    """Stands for a device. It has a writer before the service reads it, or it would be one that was taken away."""

    def __init__(self, path):
        os.mkfifo(path)
        self.descriptor = os.open(path, os.O_RDWR | os.O_NONBLOCK)

    def tell(self, code, value):
        events = (EV_KEY, code, value), (EV_SYN, 0, 0)
        os.write(self.descriptor, b"".join(struct.pack("llHHi", 0, 0, *event) for event in events))


class ToldInput:
    """The hands' input, which the devices tell of as well."""

    def __init__(self, real, folder):
        self.real, self.mouse, self.keyboard = real, Pipe(f"{folder}/event0"), Pipe(f"{folder}/event1")

    def move(self, x, y):
        self.real.move(x, y)

    def button(self, name, is_pressed):
        self.mouse.tell(BUTTONS[name], int(is_pressed))
        self.real.button(name, is_pressed)

    def key(self, code, is_pressed, modifiers):
        self.keyboard.tell(code, int(is_pressed))
        self.real.key(code, is_pressed, modifiers)


class DevicesTest(EndToEndTest):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="norra-devices-")
        cls.addClassCleanup(folder.cleanup)
        desktop = wayland_desktop.desktop()
        real = getattr(desktop.input, "real", desktop.input)
        desktop.input = ToldInput(real, folder.name)
        with mock.patch.dict(os.environ, NORRA_INPUT_DEVICES=folder.name):
            super().setUpClass()


class Keys:
    """Mixed into a DevicesTest, with one of toolkits.py."""

    def test_keys_that_do_something_are_told_and_typing_is_not(self):
        self.focus("Weigh anchor", self.button)
        hands.key("a", "B", "ctrl+b", "Escape")
        self.expect(key_combination("Control + b", "Weigh anchor", self.button))
        hands.key("Tab")
        self.expect(special_key("tab", "Weigh anchor", self.button))

    def test_a_password_is_told_without_any_of_it(self):
        self.focus("Passphrase", self.password)
        hands.type_text("albatross")
        self.expect(change("Password", "Passphrase", self.password, ""))


class KeysInGtk3(toolkits.Gtk3, Keys, DevicesTest):
    """For compositors that do not say where the pointer is."""


class Toolkit(Keys):
    def test_buttons_are_told(self):
        for button, told in (("left", "left"), ("right", "right"), ("middle", "other")):
            self.application.click("Weigh anchor", button=button)
            self.expect(click("Weigh anchor", self.button, button=told))

    def test_a_check_box_is_told(self):
        self.focus("Lanterns", self.check_box)
        for state in (1, 0):
            self.application.click("Lanterns", across=0.05)
            self.expect(click("Lanterns", self.check_box, state=state),
                        change("Toggle", "Lanterns", self.check_box, str(state)))


class Gtk3(toolkits.Gtk3, Toolkit, DevicesTest):
    pass


class Gtk4(toolkits.Gtk4, Toolkit, DevicesTest):
    pass


class Qt5(toolkits.Qt5, Toolkit, DevicesTest):
    pass


class Qt6(toolkits.Qt6, Toolkit, DevicesTest):
    pass


if __name__ == "__main__":
    main()
