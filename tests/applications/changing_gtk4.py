#!/usr/bin/python3
"""A GTK 4 window whose widgets change with the click; changing.py says which."""
import gi

gi.require_version("GdkX11", "4.0")
gi.require_version("Gtk", "4.0")
from gi.repository import Gio, Gtk

import gtk4_app
from changing_gtk import GtkKit
from gtk_windows import run


class Kit(GtkKit):
    items = {}  # of the menu: what pops up numbers them

    def move_down(self, widget):
        self.column.reorder_child_after(widget, self.column.get_last_child())

    def menu(self, title, before, after):
        menu, actions, grid = Gio.Menu(), Gio.SimpleActionGroup(), Gio.SimpleAction.new("grid", None)
        menu.append(before, "view.grid")

        def act(*_):
            menu.remove_all()
            menu.append(after, "view.grid")

        grid.connect("activate", act)
        actions.add_action(grid)
        self.main.insert_action_group("view", actions)
        self.items[before] = f"{title}: 0"
        self.add(title, Gtk.MenuButton(label=title, menu_model=menu))


class Places(gtk4_app.Places):
    def place(self, name):
        return super().place(Kit.items.get(name, name))


if __name__ == "__main__":
    run(Kit, Places)
