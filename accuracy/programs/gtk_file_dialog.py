#!/usr/bin/python3
"""GTK 3's own file dialog, as applications open it."""
import sys

import gi

gi.require_version("Gtk", "3.0")
from gi.repository import GLib, Gtk

GLib.set_prgname("harbour-dialog")
window = Gtk.Window(title="Harbour office", default_width=500, default_height=300)
box = Gtk.Box(orientation=Gtk.Orientation.VERTICAL)
window.add(box)
answer = Gtk.Label(label="Nothing chosen")


def ask(_, action, accept):
    dialog = Gtk.FileChooserDialog(title=f"{accept} a chart", transient_for=window, action=action)
    dialog.add_buttons("_Cancel", Gtk.ResponseType.CANCEL, f"_{accept}", Gtk.ResponseType.ACCEPT)
    for name, pattern in (("Text files", "*.txt"), ("All files", "*")):
        kind = Gtk.FileFilter()
        kind.set_name(name)
        kind.add_pattern(pattern)
        dialog.add_filter(kind)
    dialog.set_current_folder(sys.argv[1])
    accepted = dialog.run() == Gtk.ResponseType.ACCEPT
    answer.set_text(dialog.get_filename().rpartition("/")[2] if accepted else "Cancelled")
    dialog.destroy()


for label, action in (("Open", Gtk.FileChooserAction.OPEN), ("Save", Gtk.FileChooserAction.SAVE)):
    button = Gtk.Button(label=f"{label} a chart")
    button.connect("clicked", ask, action, label)
    box.add(button)
box.add(answer)
window.connect("destroy", Gtk.main_quit)
window.show_all()
Gtk.main()
