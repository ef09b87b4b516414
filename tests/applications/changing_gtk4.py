#!/usr/bin/python3
"""A GTK 4 window whose widgets change with the click; changing.py says which."""
import gi

gi.require_version("GdkX11", "4.0")
gi.require_version("Gtk", "4.0")
from gi.repository import Gio, GLib, Gtk

from changing import Cases
from control import Control
from gtk4_app import Places


class Kit:
    def __init__(self):
        self.main = Gtk.Window(title="Tide changes")
        self.main.set_default_size(420, 360)
        self.widgets = {}
        self.items = {}
        self.others = []

    def clear(self):
        for window in self.others:
            window.destroy()
        self.others, self.widgets, self.items = [], {}, {}
        self.column = Gtk.Box(orientation=Gtk.Orientation.VERTICAL, spacing=4)
        self.main.set_child(self.column)
        self.main.present()

    def named(self, name, widget):
        self.widgets[name] = widget
        return widget

    def add(self, text, widget, box=None):
        (box or self.column).append(self.named(text, widget))
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
        widget.set_visible(False)

    def remove(self, widget):
        self.column.remove(widget)

    def disable(self, widget):
        widget.set_sensitive(False)

    def move_down(self, widget):
        self.column.reorder_child_after(widget, self.column.get_last_child())

    def row(self, text, label, act):
        row = Gtk.Box(spacing=4)
        row.append(Gtk.Label(label=text))
        self.button(label, act, row)
        self.column.append(row)
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
            label.append(Gtk.Label(label=name))
            self.button(f"Close {name}", lambda page=page: book.remove_page(book.page_num(page)), label)
            book.append_page(page, label)
        self.add("tabs", book)

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

    def list(self, texts):
        box = Gtk.ListBox()
        box.update_property([Gtk.AccessibleProperty.LABEL], ["Duties"])
        for text in texts:
            box.append(self.named(text, Gtk.Label(label=text, xalign=0)))
        box.connect("row-activated", lambda _, row: box.remove(row))
        self.add("list", box)

    def opened(self, window):
        self.others.append(window)
        self.add("Behind", Gtk.Button(label="Behind", vexpand=True))
        window.present()

    def with_buttons(self, dialog, buttons):
        for number, text in enumerate(buttons):
            self.widgets[text] = dialog.add_button(text, number)
        dialog.connect("response", lambda *_: dialog.destroy())
        self.opened(dialog)

    def dialog(self, buttons):
        dialog = Gtk.Dialog(title="Changed", transient_for=self.main)
        dialog.get_content_area().append(Gtk.Label(label="The log has changed."))
        self.with_buttons(dialog, buttons)

    def files(self):
        self.with_buttons(Gtk.FileChooserDialog(title="Open", transient_for=self.main), ("Cancel", "Open"))

    def window(self, text, maximised=False):
        window = Gtk.Window(title="Second log")
        if maximised:
            self.main.maximize()
            window.maximize()
        window.set_default_size(300, 200)
        box = Gtk.Box()
        self.button(text, window.destroy, box)
        window.set_child(box)
        self.opened(window)


def main():
    Gtk.init()
    Gtk.Settings.get_default().set_property("gtk-enable-animations", False)
    kit = Kit()
    cases, places = Cases(kit), Places(kit)

    def place(name):
        places.widgets = kit.widgets
        return places.place(kit.items.get(name, name))

    control = Control({"place": place, "show": cases.show, "focus": lambda name: kit.widgets[name].grab_focus() and None}, lambda function: GLib.idle_add(function))
    kit.main.connect("map", lambda *_: control.begin())
    kit.clear()
    GLib.MainLoop().run()


if __name__ == "__main__":
    main()
