#!/usr/bin/python3
"""A GTK 3 window that a test fills with controls while it runs. Its title is its only argument.

Besides the commands of control.py: {"add button": NAME}, {"add field": NAME}, {"remove": NAME}, {"text": [NAME, TEXT]}
and {"window": null}, which gives the number of its X window.
"""
import os
import sys

import gi

gi.require_version("Gtk", "3.0")
gi.require_version("GdkX11", "3.0")
from gi.repository import GdkX11, GLib, Gtk

sys.path.append(os.path.join(os.path.dirname(__file__), "..", "applications"))
from control import Control


class Window(Gtk.Window):
    def __init__(self, title):
        super().__init__(title=title)
        self.set_default_size(300, 200)
        self.connect("destroy", Gtk.main_quit)
        self.controls = {}
        self.column = Gtk.Box(orientation=Gtk.Orientation.VERTICAL)
        self.add(self.column)
        self.show_all()

    def put(self, name, control):
        control.get_accessible().set_name(name)
        self.controls[name] = control
        self.column.add(control)
        control.show()

    def take_away(self, name):
        self.controls.pop(name).destroy()

    def place(self, name):
        control = self.controls[name]
        left, top = control.translate_coordinates(self, 0, 0)
        origin = self.get_window().get_origin()
        return [origin.x + left, origin.y + top, control.get_allocated_width(), control.get_allocated_height()]


def main():
    window = Window(sys.argv[1])
    commands = {
        "add button": lambda name: window.put(name, Gtk.Button(label=name)),
        "add field": lambda name: window.put(name, Gtk.Entry()),
        "remove": window.take_away,
        "text": lambda to: window.controls[to[0]].set_text(to[1]),
        "focus": lambda name: window.controls[name].grab_focus(),
        "place": window.place,
        "window": lambda _: window.get_window().get_xid(),
    }
    control = Control(commands, lambda function: GLib.idle_add(function))
    if window.get_mapped():
        GLib.idle_add(control.begin)
    else:
        window.connect_after("map-event", lambda *_: control.begin())
    Gtk.main()


if __name__ == "__main__":
    main()
