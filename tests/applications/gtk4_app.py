#!/usr/bin/python3
"""A GTK 4 window with one of each widget; control.py says how a test asks where they are."""
import re
import subprocess

import gi

gi.require_version("GdkX11", "4.0")
gi.require_version("Gtk", "4.0")
from gi.repository import GdkX11, Gio, GLib, Gtk  # a surface of X11 has its own methods only when the first is there

from control import Control


class Window(Gtk.Window):
    def __init__(self):
        super().__init__(title="Pilot ledger")
        self.set_default_size(420, 560)
        self.widgets = {}
        column = Gtk.Box(orientation=Gtk.Orientation.VERTICAL, spacing=4)
        self.set_child(column)
        self.controls(column)
        self.texts(column)
        duties = self.named("Duties", Gtk.ListBox())
        duties.update_property([Gtk.AccessibleProperty.LABEL], ["Duties"])
        for text in ("Helm", "Lookout", "Galley"):
            duties.append(self.named(text, Gtk.Label(label=text, xalign=0)))
        column.append(duties)

    def named(self, name, widget):
        self.widgets[name] = widget
        return widget

    def labelled(self, text, widget):
        label = self.named(f"{text} around", Gtk.Label(label=text, xalign=0))
        label.set_mnemonic_widget(widget)
        box = Gtk.Box(spacing=4)
        box.append(label)
        widget.set_hexpand(True)
        box.append(self.named(text, widget))
        return box

    def controls(self, column):
        column.append(self.named("Weigh anchor", Gtk.Button(label="Weigh anchor")))
        column.append(self.named("Voyage", Gtk.MenuButton(label="Voyage", popover=self.popover())))
        column.append(self.named("Tools", Gtk.MenuButton(label="Tools", menu_model=self.menu())))
        column.append(self.labelled("Cargo", Gtk.DropDown.new_from_strings(["Tea", "Salt", "Rope"])))
        column.append(self.named("Lanterns", Gtk.CheckButton(label="Lanterns")))
        column.append(self.labelled("Autopilot", Gtk.Switch(halign=Gtk.Align.START)))
        column.append(self.labelled("Speed", Gtk.Scale.new_with_range(Gtk.Orientation.HORIZONTAL, 0, 100, 1)))
        column.append(self.labelled("Crew", Gtk.SpinButton.new_with_range(0, 100, 1)))

    def popover(self):
        box = Gtk.Box(orientation=Gtk.Orientation.VERTICAL)
        for text in ("Depart", "Return"):
            box.append(self.named(text, Gtk.Button(label=text)))
        return Gtk.Popover(child=box)

    def menu(self):
        menu, actions = Gio.Menu(), Gio.SimpleActionGroup()
        self.insert_action_group("tools", actions)
        for text in ("Chart", "Compass"):
            actions.add_action(Gio.SimpleAction.new(text, None))
            menu.append(text, f"tools.{text}")
        return menu

    def texts(self, column):
        column.append(self.labelled("Ship", Gtk.Entry()))
        column.append(self.labelled("Captain", Gtk.Entry()))
        column.append(self.labelled("Passphrase", Gtk.PasswordEntry()))
        column.append(self.labelled("Cipher", Gtk.Entry(visibility=False)))
        book = self.named("Log book", Gtk.TextView(height_request=60))
        book.update_property([Gtk.AccessibleProperty.LABEL], ["Log book"])
        column.append(book)
        column.append(self.labelled("Letter", Gtk.TextView()))
        frame = Gtk.Frame(label="Notes", child=self.named("Nameless", Gtk.TextView()))
        column.append(self.named("Nameless around", frame))


class Places:
    """Where a widget is on the screen: its window's place, as the window manager has it (under Wayland nobody has), and its
    own place in it.
    "Cargo: 1" is an item of what pops up."""

    def __init__(self, window):
        self.widgets = window.widgets

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

    def focus(self, name):
        widget = self.widgets[name]
        (widget.grab_focus_without_selecting if isinstance(widget, Gtk.Entry) else widget.grab_focus)()

    def value(self, name):
        widget = self.widgets[name]
        if isinstance(widget, Gtk.TextView):
            return widget.get_buffer().props.text
        for answer in ("get_value", "get_active", "get_text"):
            if hasattr(widget, answer):
                return getattr(widget, answer)()
        return None


def main():
    Gtk.init()
    loop = GLib.MainLoop()
    Gtk.Settings.get_default().set_property("gtk-enable-animations", False)
    window = Window()
    places = Places(window)
    commands = {"place": places.place, "value": places.value,
                "focus": places.focus}
    control = Control(commands, lambda function: GLib.idle_add(function))
    window.connect("close-request", lambda *_: loop.quit())
    window.connect("map", lambda *_: control.begin())
    window.present()
    loop.run()


if __name__ == "__main__":
    main()
