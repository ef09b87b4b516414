#!/usr/bin/python3
"""A GTK 3 window that a test fills with controls while it runs. Its title is its only argument.

Besides the commands of control.py: {"add button": NAME}, {"add field": NAME}, {"remove": NAME}, {"text": [NAME, TEXT]}
and {"window": null}, which gives the number of its X window.
"""
import os
import sys

import gi

gi.require_version("GdkX11", "3.0")
sys.path.append(os.path.join(os.path.dirname(__file__), "..", "applications"))
from gtk3_app import Gtk, Places
from gi.repository import GdkX11
from gtk_windows import Named, put, run, set_accessible_name


class Window(Named):
    def __init__(self):
        super().__init__()
        self.main = Gtk.Window(title=sys.argv[1])
        self.main.set_default_size(300, 200)
        self.column = Gtk.Box(orientation=Gtk.Orientation.VERTICAL)
        self.main.add(self.column)
        self.commands = {
            "add button": lambda name: self.put(name, Gtk.Button(label=name)),
            "add field": lambda name: self.put(name, Gtk.Entry()),
            "remove": lambda name: self.widgets.pop(name).destroy(),
            "text": lambda to: self.widgets[to[0]].set_text(to[1]),
            "window": lambda _: self.main.get_window().get_xid(),
        }

    def put(self, name, control):
        set_accessible_name(control, name)
        put(self.column, self.named(name, control))


if __name__ == "__main__":
    run(Window, Places)
