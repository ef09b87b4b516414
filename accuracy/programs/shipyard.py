#!/usr/bin/python3
"""Widgets of GTK 3 in which something is chosen, opened or followed."""
import gi

gi.require_version("Gtk", "3.0")
from gi.repository import GLib, Gtk

GLib.set_prgname("shipyard")
window = Gtk.Window(title="Shipyard", default_width=600, default_height=500)
column = Gtk.Box(orientation=Gtk.Orientation.VERTICAL, spacing=6, margin=8)
window.add(column)


def add(*widgets):
    row = Gtk.Box(spacing=8)
    for widget in widgets:
        row.pack_start(widget, False, False, 0)
    column.pack_start(row, False, False, 0)


def labelled(text, widget):
    label = Gtk.Label(label=text, use_underline=True)
    label.set_mnemonic_widget(widget)
    add(label, widget)


def choice(*texts, entry=False):
    box = Gtk.ComboBoxText.new_with_entry() if entry else Gtk.ComboBoxText()
    for text in texts:
        box.append_text(text)
    return box


wood = choice("Oak", "Pine", "Teak")
wood.set_active(0)
labelled("_Wood", wood)
labelled("_Metal", choice("Brass", "Iron", entry=True))
labelled("_Crane", Gtk.Switch())
details = Gtk.Expander(label="Details")
details.add(Gtk.Label(label="Built in 1912"))
add(details)
rules = Gtk.Label()
rules.set_markup('See <a href="https://example.org/rules">the rules</a> and the fees')
add(rules, Gtk.LinkButton.new_with_label("https://example.org/yard", "Yard site"))
planks = Gtk.SpinButton.new_with_range(0, 100, 1)
labelled("_Planks", planks)
window.connect("destroy", Gtk.main_quit)
window.show_all()
Gtk.main()
