#!/usr/bin/python3
"""Widgets of GTK 4 and libadwaita in which something is chosen, opened or followed."""
import gi

gi.require_version("Gtk", "4.0")
gi.require_version("Adw", "1")
from gi.repository import Adw, Gio, Gtk


def add(column, *widgets):
    row = Gtk.Box(spacing=8)
    for widget in widgets:
        row.append(widget)
    column.append(row)


def labelled(column, text, widget):
    label = Gtk.Label(label=text, use_underline=True)
    label.set_mnemonic_widget(widget)
    add(column, label, widget)


def menu_button(application):
    menu = Gio.Menu()
    for name, action in (("Light up", "light"), ("Fog horn", "horn")):
        menu.append(name, f"app.{action}")
        application.add_action(Gio.SimpleAction.new(action, None))
    return Gtk.MenuButton(icon_name="open-menu-symbolic", menu_model=menu, tooltip_text="Main Menu")


def settings():
    rows = Gtk.ListBox(selection_mode=Gtk.SelectionMode.NONE, css_classes=["boxed-list"])
    inner = Adw.ExpanderRow(title="Advanced")
    inner.add_row(Adw.ActionRow(title="Inner"))
    for row in (Adw.ActionRow(title="Keeper", subtitle="Who is on watch", activatable=True),
                Adw.ComboRow(title="Range", model=Gtk.StringList.new(["Near", "Far"])), inner):
        rows.append(row)
    return rows


def open_window(application):
    window = Adw.ApplicationWindow(application=application, title="Lighthouse", default_width=600, default_height=600)
    root = Gtk.Box(orientation=Gtk.Orientation.VERTICAL, spacing=6)
    bar = Adw.HeaderBar()
    bar.pack_end(menu_button(application))
    root.append(bar)
    labelled(root, "_Lamp", Gtk.DropDown.new_from_strings(["Oil", "Gas", "Electric"]))
    labelled(root, "_Power", Gtk.Switch(valign=Gtk.Align.CENTER))
    add(root, Gtk.Expander(label="Details", child=Gtk.Label(label="Built in 1830")))
    add(root, Gtk.LinkButton.new_with_label("https://example.org/light", "Light site"))
    labelled(root, "_Flashes", Gtk.SpinButton.new_with_range(0, 100, 1))
    root.append(settings())
    stack = Adw.ViewStack()
    for name in ("Lights", "Horns"):
        stack.add_titled(Gtk.Label(label=name.lower()), name, name)
    add(root, Adw.ViewSwitcher(stack=stack, policy=Adw.ViewSwitcherPolicy.WIDE), stack)
    window.set_content(root)
    window.present()


application = Adw.Application(application_id="org.example.Lighthouse")
application.connect("activate", open_window)
application.run(None)
