#!/usr/bin/python3
"""Holds the clipboard, without a window: {"clipboard": TEXT} over control.py puts a text into it."""
import gi

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, GLib, Gtk

from control import Control


def put(text):
    Gtk.Clipboard.get(Gdk.SELECTION_CLIPBOARD).set_text(text, -1)


def main():
    control = Control({"clipboard": put}, lambda function: GLib.idle_add(function))
    GLib.idle_add(control.begin)
    Gtk.main()


if __name__ == "__main__":
    main()
