#!/usr/bin/python3
"""A GTK 4 window with one of each widget; control.py says how a test asks where they are."""
import re
import subprocess

import gi

gi.require_version("GdkX11", "4.0")
gi.require_version("Gtk", "4.0")
from gi.repository import GdkX11, Gio, Gtk  # a surface of X11 has its own methods only when the first is there

from gtk_windows import Ledger, Values, put, run


class Window(Ledger):
    def __init__(self):
        super().__init__("Pilot ledger", 420, 560)
        column = Gtk.Box(orientation=Gtk.Orientation.VERTICAL, spacing=4)
        self.main.set_child(column)
        self.controls(column)
        self.texts(column, Passphrase=Gtk.PasswordEntry(), Cipher=Gtk.Entry(visibility=False))
        put(column, self.duties())

    def controls(self, column):
        put(column, self.named("Weigh anchor", Gtk.Button(label="Weigh anchor")))
        put(column, self.named("Voyage", Gtk.MenuButton(label="Voyage", popover=self.popover())))
        put(column, self.named("Tools", Gtk.MenuButton(label="Tools", menu_model=self.menu())))
        put(column, self.labelled("Cargo", Gtk.DropDown.new_from_strings(["Tea", "Salt", "Rope"])))
        put(column, self.named("Lanterns", Gtk.CheckButton(label="Lanterns")))
        put(column, self.labelled("Autopilot", Gtk.Switch(halign=Gtk.Align.START)))
        self.numbers(column)

    def popover(self):
        box = Gtk.Box(orientation=Gtk.Orientation.VERTICAL)
        for text in ("Depart", "Return"):
            put(box, self.named(text, Gtk.Button(label=text)))
        return Gtk.Popover(child=box)

    def menu(self):
        menu, actions = Gio.Menu(), Gio.SimpleActionGroup()
        self.main.insert_action_group("tools", actions)
        for text in ("Chart", "Compass"):
            actions.add_action(Gio.SimpleAction.new(text, None))
            menu.append(text, f"tools.{text}")
        return menu


class Places(Values):
    """Where a widget is on the screen: its window's place, as the window manager has it (under Wayland nobody has), and its
    own place in it.
    "Cargo: 1" is an item of what pops up."""

    def place(self, name):
        name, _, number = name.partition(": ")
        widget = self.widgets[name]
        if number:
            items = list(self.items(widget))
            widget = items[int(number)] if items else None
        if not widget or not widget.get_mapped():
            return None
        native = widget.get_native()
        x, y = self.origin(native.get_surface())
        shadow = native.get_surface_transform()
        known, area = widget.compute_bounds(native)
        scale = native.get_surface().get_scale_factor()
        numbers = (x + scale * (shadow[0] + area.origin.x), y + scale * (shadow[1] + area.origin.y),
                   scale * area.size.width, scale * area.size.height)
        return [round(number) for number in numbers] if known else None

    def items(self, widget):
        if widget.__gtype__.name in ("GtkModelButton", "GtkListItemWidget") and isinstance(widget.get_native(), Gtk.Popover):
            yield widget
        child = widget.get_first_child()
        while child:
            yield from self.items(child)
            child = child.get_next_sibling()

    @staticmethod
    def origin(surface):
        if not isinstance(surface, GdkX11.X11Surface):
            return 0, 0
        command = ["xwininfo", "-id", str(surface.get_xid())]
        answer = subprocess.run(command, capture_output=True, text=True, check=True).stdout
        return [int(number) for number in re.findall(r"Absolute upper-left .:\s+(-?\d+)", answer)]


if __name__ == "__main__":
    run(Window, Places)
