#!/usr/bin/python3
"""A GTK 3 window whose widgets change with the click; changing.py says which."""
import gi

gi.require_version("Gtk", "3.0")
from gi.repository import GLib, Gtk

from changing import Cases
from control import Control
from gtk3_app import Places


class Kit:
    def __init__(self):
        self.main = Gtk.Window(title="Tide changes")
        self.main.set_default_size(420, 360)
        self.widgets = {}
        self.others = []

    def clear(self):
        for window in self.others:
            window.destroy()
        self.others, self.widgets = [], {}
        if self.main.get_child():
            self.main.get_child().destroy()
        self.column = Gtk.Box(orientation=Gtk.Orientation.VERTICAL, spacing=4)
        self.main.add(self.column)
        self.main.show_all()

    def add(self, text, widget, box=None):
        self.widgets[text] = widget
        (box or self.column).add(widget)
        widget.show_all()
        return widget

    def connected(self, widget, signal, act):
        widget.connect(signal, lambda *_: act())
        return widget

    def button(self, text, act, box=None):
        return self.add(text, self.connected(Gtk.Button(label=text), "clicked", act), box)

    def toggle(self, text, act):
        return self.add(text, self.connected(Gtk.ToggleButton(label=text), "toggled", act))

    def check(self, text, act):
        return self.add(text, self.connected(Gtk.CheckButton(label=text), "toggled", act))

    def rename(self, widget, text):
        widget.set_label(text)

    def hide(self, widget):
        widget.hide()

    def remove(self, widget):
        widget.destroy()

    def disable(self, widget):
        widget.set_sensitive(False)

    def move_down(self, widget):
        self.column.reorder_child(widget, -1)

    def row(self, text, label, act):
        row = Gtk.Box(spacing=4)
        row.add(Gtk.Label(label=text))
        self.button(label, act, row)
        self.column.add(row)
        row.show_all()
        return row

    def pages(self, pages):
        stack = Gtk.Stack()
        for index, (text, act) in enumerate(pages):
            box = Gtk.Box()
            self.button(text, act, box)
            stack.add_named(box, str(index))
        self.add("stack", stack)
        return lambda index: stack.set_visible_child_name(str(index))

    def tabs(self, names):
        book = Gtk.Notebook()
        for name in names:
            label, page = Gtk.Box(spacing=4), Gtk.Label(label=f"{name} are here")
            label.add(Gtk.Label(label=name))
            self.button(f"Close {name}", lambda page=page: book.remove_page(book.page_num(page)), label)
            label.show_all()
            book.append_page(page, label)
        self.add("tabs", book)

    def menu(self, title, before, after):
        bar, item, menu = Gtk.MenuBar(), Gtk.MenuItem(label=before), Gtk.MenuItem(label=title)
        menu.set_submenu(Gtk.Menu())
        menu.get_submenu().append(item)
        bar.append(menu)
        item.connect("activate", lambda _: item.set_label(after))
        self.widgets.update({title: menu, before: item})
        self.add("bar", bar)

    def list(self, texts):
        box = Gtk.ListBox()
        box.get_accessible().set_name("Duties")
        for text in texts:
            box.add(self.named(text, Gtk.Label(label=text, xalign=0)))
        box.connect("row-activated", lambda _, row: row.destroy())
        self.add("list", box)

    def named(self, name, widget):
        self.widgets[name] = widget
        return widget

    def opened(self, window):
        self.others.append(window)
        self.add("Behind", Gtk.Button(label="Behind", vexpand=True))
        window.show_all()

    def dialog(self, buttons):
        dialog = Gtk.Dialog(title="Changed", transient_for=self.main)
        dialog.get_content_area().add(Gtk.Label(label="The log has changed."))
        for number, text in enumerate(buttons):
            self.widgets[text] = dialog.add_button(text, number)
        dialog.connect("response", lambda *_: dialog.destroy())
        self.opened(dialog)

    def files(self):
        dialog = Gtk.FileChooserDialog(title="Open", transient_for=self.main)
        for number, text in enumerate(("Cancel", "Open")):
            self.widgets[text] = dialog.add_button(text, number)
        dialog.connect("response", lambda *_: dialog.destroy())
        self.opened(dialog)

    def window(self, text, maximised=False):
        window = Gtk.Window(title="Second log")
        if maximised:
            self.main.maximize()
            window.maximize()
        window.set_default_size(300, 200)
        box = Gtk.Box()
        self.button(text, window.destroy, box)
        window.add(box)
        self.opened(window)


def main():
    Gtk.Settings.get_default().set_property("gtk-enable-animations", False)
    kit = Kit()
    cases, places = Cases(kit), Places(kit)
    kit.clear()

    def place(name):
        places.widgets = kit.widgets
        return places.place(name)

    control = Control({"place": place, "show": cases.show, "focus": lambda name: kit.widgets[name].grab_focus() and None}, lambda function: GLib.idle_add(function))
    kit.main.connect_after("map-event", lambda *_: control.begin())
    kit.main.show_all()
    Gtk.main()


if __name__ == "__main__":
    main()
