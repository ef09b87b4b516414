#!/usr/bin/python3
"""A GTK 3 window with one of each widget; control.py says how a test asks where they are."""
import os

import gi

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, GLib, Gtk

from control import Control

HARBOURS = [("Lisbon", "12 m"), ("Bergen", "30 m"), ("Genoa", "15 m"), ("Cork", "9 m")]
FLEETS = [("Northern", ["Gull", "Tern"]), ("Southern", ["Petrel"])]


class Window(Gtk.Window):
    def __init__(self):
        super().__init__(title="Harbour ledger")
        self.set_default_size(760, 700)
        self.set_decorated("WAYLAND_DISPLAY" not in os.environ)  # what it draws itself is not in the places of its widgets
        self.widgets = {}
        self.connect("destroy", Gtk.main_quit)
        rows = Gtk.Box(orientation=Gtk.Orientation.VERTICAL, spacing=4)
        self.add(rows)
        rows.add(self.menu_bar())
        columns = Gtk.Box(spacing=8, homogeneous=True)
        rows.pack_start(columns, True, True, 0)
        for build in (self.controls, self.texts, self.views):
            column = Gtk.Box(orientation=Gtk.Orientation.VERTICAL, spacing=4)
            columns.add(column)
            build(column)
        self.show_all()

    def named(self, name, widget):
        self.widgets[name] = widget
        return widget

    def labelled(self, text, widget):
        label = self.named(f"{text} around", Gtk.Label(label=text, xalign=0))
        label.set_mnemonic_widget(widget)
        box = Gtk.Box(spacing=4)
        box.add(label)
        box.pack_start(self.named(text, widget), True, True, 0)
        return box

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
            column.add(self.named(text, Gtk.Button(label=text)))
        column.add(self.named("Lanterns", Gtk.CheckButton(label="Lanterns")))
        column.add(self.courses())
        column.add(self.labelled("Speed", Gtk.Scale.new_with_range(Gtk.Orientation.HORIZONTAL, 0, 100, 1)))
        column.add(self.labelled("Crew", Gtk.SpinButton.new_with_range(0, 100, 1)))
        cargo = Gtk.ComboBoxText()
        for text in ("Tea", "Salt", "Rope"):
            cargo.append_text(text)
        cargo.set_active(0)
        column.add(self.labelled("Cargo", cargo))
        flag = Gtk.ComboBoxText.new_with_entry()
        flag.append_text("Blue Peter")
        column.add(self.labelled("Flag", flag))
        link = Gtk.LinkButton.new_with_label("https://tides.example/", "Tide tables")
        link.connect("activate-link", lambda _: True)  # or the user's browser would start
        column.add(self.named("Tide tables", link))

    def courses(self):
        frame, box, first = Gtk.Frame(label="Course"), Gtk.Box(spacing=4), None
        for text in ("North", "South", "East"):
            button = Gtk.RadioButton.new_with_label_from_widget(first, text)
            first = first or button
            box.add(self.named(text, button))
        frame.add(box)
        return frame

    def texts(self, column):
        column.add(self.labelled("Ship", Gtk.Entry()))
        column.add(self.labelled("Captain", Gtk.Entry()))
        column.add(self.labelled("Passphrase", Gtk.Entry(visibility=False)))
        column.add(self.labelled("Telegram", self.telegram()))
        book = Gtk.TextView()
        book.get_accessible().set_name("Log book")
        book.set_size_request(-1, 60)
        column.add(self.named("Log book", book))
        column.add(self.labelled("Letter", Gtk.TextView()))
        column.add(self.named("Nameless around", Gtk.Frame(label="Notes", child=self.named("Nameless", Gtk.TextView()))))
        pages = Gtk.Notebook()
        for tab, text in (("Charts", "Unroll"), ("Stores", "Count")):
            label = self.named(tab, Gtk.Label(label=tab))
            pages.append_page(self.named(text, Gtk.Button(label=text)), label)
        column.add(pages)
        column.add(self.list_box())

    @staticmethod
    def telegram():
        """A field that sends itself: it is empty again after thirty characters."""
        entry = Gtk.Entry()
        entry.connect("changed", lambda _: len(entry.get_text()) >= 30 and GLib.idle_add(entry.set_text, ""))
        return entry

    def list_box(self):
        box = Gtk.ListBox()
        box.get_accessible().set_name("Duties")
        for text in ("Helm", "Lookout", "Galley"):
            box.add(self.named(text, Gtk.Label(label=text, xalign=0)))
        return self.named("Duties", box)

    def views(self, column):
        harbours = Gtk.ListStore(str, str)
        for row in HARBOURS:
            harbours.append(row)
        column.add(self.view("Harbours", harbours, ("Harbour", "Depth")))
        fleets = Gtk.TreeStore(str)
        for fleet, ships in FLEETS:
            parent = fleets.append(None, (fleet,))
            for ship in ships:
                fleets.append(parent, (ship,))
        tree = self.view("Fleets", fleets, ("Fleet",))
        tree.expand_all()
        column.add(tree)

    def view(self, name, model, titles):
        view = Gtk.TreeView(model=model)
        view.get_accessible().set_name(name)
        for index, title in enumerate(titles):
            view.append_column(Gtk.TreeViewColumn(title, Gtk.CellRendererText(), text=index))
        return self.named(name, view)


class Places:
    """Where a widget is on the screen. "Harbours 1 0" is a cell: the view, its row (2:0 below row 2) and its column."""

    def __init__(self, window):
        self.widgets = window.widgets

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

    def focus(self, name):
        widget = self.widgets[name]
        if isinstance(widget, Gtk.ListBox):
            widget.child_focus(Gtk.DirectionType.TAB_FORWARD)
        else:
            (widget.grab_focus_without_selecting if isinstance(widget, Gtk.Entry) else widget.grab_focus)()

    def value(self, name):
        widget = self.widgets[name]
        if isinstance(widget, Gtk.TextView):
            return widget.get_buffer().props.text
        if isinstance(widget, Gtk.ToggleButton):
            return widget.get_active()
        if isinstance(widget, Gtk.ComboBoxText):
            return widget.get_active_text()
        return widget.get_value() if isinstance(widget, (Gtk.Scale, Gtk.SpinButton)) else widget.get_text()


def main():
    Gtk.Settings.get_default().set_property("gtk-enable-animations", False)
    window = Window()
    places = Places(window)
    commands = {"place": places.place, "value": places.value,
                "focus": places.focus}
    control = Control(commands, lambda function: GLib.idle_add(function))
    window.connect_after("map-event", lambda *_: control.begin())
    Gtk.main()


if __name__ == "__main__":
    main()
