#!/usr/bin/python3
"""Clicks under GNOME Shell, which the extension tells of; no input device is read."""
import toolkits
from desktop import main
from expected import click
from wayland_test import WaylandTest


class Toolkit:
    """Mixed into a WaylandTest, with one of toolkits.py."""

    def test_buttons_are_told(self):
        for button, told in (("left", "left"), ("right", "right"), ("middle", "other")):
            self.go_to("Weigh anchor", button=button)
            self.expect(click("Weigh anchor", self.button, button=told))


class Gtk3(toolkits.Gtk3, Toolkit, WaylandTest):
    pass


class Gtk4(toolkits.Gtk4, Toolkit, WaylandTest):
    pass


class Qt6(toolkits.Qt6, Toolkit, WaylandTest):
    pass


if __name__ == "__main__":
    main()
