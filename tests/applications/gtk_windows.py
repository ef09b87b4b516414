"""What windows of GTK 3 and of GTK 4 have in common; whoever imports this has chosen the version."""
from gi.repository import GLib, Gtk

from control import Control

IS_GTK4 = Gtk.get_major_version() == 4


def put(box, widget):
    if IS_GTK4:
        box.append(widget)
    else:
        box.add(widget)
        widget.show_all()


def fill(window, child):
    if IS_GTK4:
        window.set_child(child)
    else:
        if window.get_child():
            window.get_child().destroy()
        window.add(child)


def show(window):
    (window.present if IS_GTK4 else window.show_all)()


def set_accessible_name(widget, name):
    if IS_GTK4:
        widget.update_property([Gtk.AccessibleProperty.LABEL], [name])
    else:
        widget.get_accessible().set_name(name)


class Named:
    """What knows its widgets by their names, and may obey further commands."""

    commands = {}

    def __init__(self):
        self.widgets = {}

    def named(self, name, widget):
        self.widgets[name] = widget
        return widget

    def labelled(self, text, widget):
        label = self.named(f"{text} around", Gtk.Label(label=text, xalign=0))
        label.set_mnemonic_widget(widget)
        widget.set_hexpand(True)
        box = Gtk.Box(spacing=4)
        put(box, label)
        put(box, self.named(text, widget))
        return box

    def list_box(self, name, texts):
        box = self.named(name, Gtk.ListBox())
        set_accessible_name(box, name)
        for text in texts:
            put(box, self.named(text, Gtk.Label(label=text, xalign=0)))
        return box


class Ledger(Named):
    """A window with one of each widget: here those that both versions have."""

    def __init__(self, title, width, height):
        super().__init__()
        self.main = Gtk.Window(title=title)
        self.main.set_default_size(width, height)

    def numbers(self, column):
        put(column, self.labelled("Speed", Gtk.Scale.new_with_range(Gtk.Orientation.HORIZONTAL, 0, 100, 1)))
        put(column, self.labelled("Crew", Gtk.SpinButton.new_with_range(0, 100, 1)))

    def texts(self, column, **others):
        for text, entry in {"Ship": Gtk.Entry(), "Captain": Gtk.Entry(), **others}.items():
            put(column, self.labelled(text, entry))
        book = self.named("Log book", Gtk.TextView(height_request=60))
        set_accessible_name(book, "Log book")
        put(column, book)
        put(column, self.labelled("Letter", Gtk.TextView()))
        put(column, self.named("Nameless around", Gtk.Frame(label="Notes", child=self.named("Nameless", Gtk.TextView()))))

    def duties(self):
        return self.list_box("Duties", ("Helm", "Lookout", "Galley"))


class Values:
    """What the widgets hold; the places of them are another matter in each version."""

    def __init__(self, window):
        self.widgets = window.widgets

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
        for answer in ("get_value", "get_active_text", "get_active", "get_text"):
            if hasattr(widget, answer):
                return getattr(widget, answer)()
        return None


def run(make, places_in):
    """`make` gives what has the `main` window, and `places_in` of it what is asked for places and values."""
    Gtk.init()
    Gtk.Settings.get_default().set_property("gtk-enable-animations", False)
    made, loop = make(), GLib.MainLoop()
    places = places_in(made)
    control = Control({"place": places.place, "value": places.value, "focus": places.focus, **made.commands},
                      GLib.idle_add)
    made.main.connect("destroy", lambda *_: loop.quit())
    if IS_GTK4:
        made.main.connect("map", lambda *_: control.begin())
    else:
        made.main.connect_after("map-event", lambda *_: control.begin())
    show(made.main)
    loop.run()
