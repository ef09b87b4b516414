"""A GTK window whose widgets change with the click; changing.py says which, and the scripts which GTK."""
from gi.repository import Gtk

from changing import Cases
from gtk_windows import IS_GTK4, Named, fill, put, show


class GtkKit(Named):
    def __init__(self):
        super().__init__()
        self.main = Gtk.Window(title="Tide changes")
        self.main.set_default_size(420, 360)
        self.others = []
        self.commands = {"show": Cases(self).show}

    def clear(self):
        for window in self.others:
            window.destroy()
        self.others = []
        self.widgets.clear()
        self.column = Gtk.Box(orientation=Gtk.Orientation.VERTICAL, spacing=4)
        fill(self.main, self.column)
        show(self.main)

    def add(self, text, widget, box=None):
        put(box or self.column, self.named(text, widget))
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
        if IS_GTK4:
            widget.get_parent().remove(widget)
        else:
            widget.destroy()

    def disable(self, widget):
        widget.set_sensitive(False)

    def row(self, text, label, act):
        row = Gtk.Box(spacing=4)
        put(row, Gtk.Label(label=text))
        self.button(label, act, row)
        put(self.column, row)
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
            put(label, Gtk.Label(label=name))
            self.button(f"Close {name}", lambda page=page: book.remove_page(book.page_num(page)), label)
            book.append_page(page, label)
        self.add("tabs", book)

    def list(self, texts):
        box = self.list_box("Duties", texts)
        box.connect("row-activated", lambda _, row: self.remove(row))
        put(self.column, box)

    def opened(self, window):
        self.others.append(window)
        self.add("Behind", Gtk.Button(label="Behind", vexpand=True))
        show(window)

    def with_buttons(self, dialog, buttons):
        for number, text in enumerate(buttons):
            self.widgets[text] = dialog.add_button(text, number)
        dialog.connect("response", lambda *_: dialog.destroy())
        self.opened(dialog)

    def dialog(self, buttons):
        dialog = Gtk.Dialog(title="Changed", transient_for=self.main)
        put(dialog.get_content_area(), Gtk.Label(label="The log has changed."))
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
        fill(window, box)
        self.opened(window)
