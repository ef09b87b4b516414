#!/usr/bin/python3
"""A GTK 3 window with one of each widget; control.py says how a test asks where they are."""
import os

import gi

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import GLib, Gtk

from gtk_windows import Ledger, Values, put, run, set_accessible_name

HARBOURS = [("Lisbon", "12 m"), ("Bergen", "30 m"), ("Genoa", "15 m"), ("Cork", "9 m")]
FLEETS = [("Northern", ["Gull", "Tern"]), ("Southern", ["Petrel"])]


class Window(Ledger):
    def __init__(self):
        super().__init__("Harbour ledger", 760, 700)
        self.main.set_decorated("WAYLAND_DISPLAY" not in os.environ)  # what it draws itself is not in the places of its widgets
        rows = Gtk.Box(orientation=Gtk.Orientation.VERTICAL, spacing=4)
        self.main.add(rows)
        rows.add(self.menu_bar())
        columns = Gtk.Box(spacing=8, homogeneous=True)
        rows.pack_start(columns, True, True, 0)
        for build in (self.controls, self.entries, self.views):
            column = Gtk.Box(orientation=Gtk.Orientation.VERTICAL, spacing=4)
            columns.add(column)
            build(column)

    def menu_bar(self):
        bar = Gtk.MenuBar()
        voyage = self.submenu(bar, "Voyage")
        past = self.submenu(voyage, "Past")
        for text in ("Lisbon 1920", "Cork 1921"):
            past.append(self.named(text, Gtk.MenuItem(label=text)))
        voyage.append(self.named("Depart", Gtk.MenuItem(label="Depart")))
        return bar

    def submenu(self, parent, text):
        item = self.named(text, Gtk.MenuItem(label=text))
        item.set_submenu(Gtk.Menu())
        parent.append(item)
        return item.get_submenu()

    def controls(self, column):
        for text in ("Weigh anchor", "Drop anchor"):
            put(column, self.named(text, Gtk.Button(label=text)))
        put(column, self.named("Lanterns", Gtk.CheckButton(label="Lanterns")))
        put(column, self.courses())
        self.numbers(column)
        cargo = Gtk.ComboBoxText()
        for text in ("Tea", "Salt", "Rope"):
            cargo.append_text(text)
        cargo.set_active(0)
        put(column, self.labelled("Cargo", cargo))
        flag = Gtk.ComboBoxText.new_with_entry()
        flag.append_text("Blue Peter")
        put(column, self.labelled("Flag", flag))
        link = Gtk.LinkButton.new_with_label("https://tides.example/", "Tide tables")
        link.connect("activate-link", lambda _: True)  # or the user's browser would start
        put(column, self.named("Tide tables", link))

    def courses(self):
        frame, box, first = Gtk.Frame(label="Course"), Gtk.Box(spacing=4), None
        for text in ("North", "South", "East"):
            button = Gtk.RadioButton.new_with_label_from_widget(first, text)
            first = first or button
            box.add(self.named(text, button))
        frame.add(box)
        return frame

    def entries(self, column):
        self.texts(column, Passphrase=Gtk.Entry(visibility=False), Telegram=self.telegram())
        pages = Gtk.Notebook()
        for tab, text in (("Charts", "Unroll"), ("Stores", "Count")):
            label = self.named(tab, Gtk.Label(label=tab))
            pages.append_page(self.named(text, Gtk.Button(label=text)), label)
        put(column, pages)
        put(column, self.duties())

    @staticmethod
    def telegram():
        """A field that sends itself: it is empty again after thirty characters."""
        entry = Gtk.Entry()
        entry.connect("changed", lambda _: len(entry.get_text()) >= 30 and GLib.idle_add(entry.set_text, ""))
        return entry

    def views(self, column):
        harbours = Gtk.ListStore(str, str)
        for row in HARBOURS:
            harbours.append(row)
        put(column, self.view("Harbours", harbours, ("Harbour", "Depth")))
        fleets = Gtk.TreeStore(str)
        for fleet, ships in FLEETS:
            parent = fleets.append(None, (fleet,))
            for ship in ships:
                fleets.append(parent, (ship,))
        tree = self.view("Fleets", fleets, ("Fleet",))
        tree.expand_all()
        put(column, tree)

    def view(self, name, model, titles):
        view = Gtk.TreeView(model=model)
        set_accessible_name(view, name)
        for index, title in enumerate(titles):
            view.append_column(Gtk.TreeViewColumn(title, Gtk.CellRendererText(), text=index))
        return self.named(name, view)


class Places(Values):
    """Where a widget is on the screen. "Harbours 1 0" is a cell: the view, its row (2:0 below row 2) and its column."""

    def place(self, name):
        view, *cell = name.rsplit(" ", 2)
        if len(cell) == 2 and isinstance(self.widgets.get(view), Gtk.TreeView):
            return self.place_of_cell(self.widgets[view], *cell)
        widget = self.option(name) or self.widgets[name]
        return self.place_of(widget) if widget.get_mapped() else None

    def option(self, name):
        """"Cargo: Salt" is an option of a combo box."""
        combo, colon, text = name.partition(": ")
        if not colon:
            return None
        options = self.widgets[combo].get_popup_accessible().get_widget().get_children()
        return options[[row[0] for row in self.widgets[combo].get_model()].index(text)]

    @staticmethod
    def place_in(widget, x, y, width, height):
        """The place of an area in the widget's own coordinates."""
        window = widget.get_toplevel()
        left, top = widget.translate_coordinates(window, x, y)
        origin = Gtk.Widget.get_window(window).get_origin()
        return [number * widget.get_scale_factor() for number in (origin.x + left, origin.y + top, width, height)]

    def place_of(self, widget):
        return self.place_in(widget, 0, 0, widget.get_allocated_width(), widget.get_allocated_height())

    def place_of_cell(self, view, path, column):
        area = view.get_cell_area(Gtk.TreePath(path), view.get_column(int(column)))
        x, y = view.convert_bin_window_to_widget_coords(area.x, area.y)
        return self.place_in(view, x, y, area.width, area.height)


if __name__ == "__main__":
    run(Window, Places)
