#!/usr/bin/python3
"""list_app.py ROWS: a GTK 3 window with a list of so many rows; control.py says how it is asked where a row is."""
import sys

import gi

gi.require_version("Gtk", "3.0")
from gi.repository import GLib, Gtk

from control import Control


class Window(Gtk.Window):
    def __init__(self, rows):
        super().__init__(title=f"List of {rows}")
        self.set_default_size(400, 400)
        model = Gtk.ListStore(str)
        for row in range(rows):
            model.append((f"Row {row}",))
        self.view = Gtk.TreeView(model=model, fixed_height_mode=False)
        self.view.get_accessible().set_name("Rows")
        self.view.append_column(Gtk.TreeViewColumn("Row", Gtk.CellRendererText(), text=0))
        scrolled = Gtk.ScrolledWindow()
        scrolled.add(self.view)
        self.add(scrolled)

    def place(self, row):
        if not self.view.get_realized():
            return None
        area = self.view.get_cell_area(Gtk.TreePath(row), self.view.get_column(0))
        x, y = self.view.convert_bin_window_to_widget_coords(area.x, area.y)
        _, left, top = self.view.get_window().get_origin()
        return [left + x, top + y, area.width, area.height]


def main():
    window = Window(int(sys.argv[1]))
    control = Control({"place": window.place}, lambda function: GLib.idle_add(function))
    window.connect("map-event", lambda *_: control.begin())
    window.show_all()
    Gtk.main()


if __name__ == "__main__":
    main()
