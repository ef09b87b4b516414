#!/usr/bin/python3
"""A GTK 3 window whose widgets change with the click; changing.py says which."""
import gi

gi.require_version("Gtk", "3.0")
from gi.repository import Gtk

from changing_gtk import GtkKit
from gtk3_app import Places
from gtk_windows import run


class Kit(GtkKit):
    def move_down(self, widget):
        self.column.reorder_child(widget, -1)

    def menu(self, title, before, after):
        bar, item, menu = Gtk.MenuBar(), Gtk.MenuItem(label=before), Gtk.MenuItem(label=title)
        menu.set_submenu(Gtk.Menu())
        menu.get_submenu().append(item)
        bar.append(menu)
        item.connect("activate", lambda _: item.set_label(after))
        self.widgets.update({title: menu, before: item})
        self.add("bar", bar)


if __name__ == "__main__":
    run(Kit, Places)
