"""How each toolkit's window of tests/applications is opened, and what its reports call things there."""
from functools import partial

from applications import ControlledApplication
from browser import Chromium, Firefox


class Gtk3:
    opened = partial(ControlledApplication, "gtk3_app.py")
    button, text, password, check_box, spin_button = "push button", "text", "password text", "check box", "spin button"
    slider = {"down": 0.7}  # where its groove is
    # A view, its control type, the kind of change, and what is selected after one arrow key downwards and after two.
    selections = [
        ("Harbours", "table", "SelectedRows", '["Bergen"]', '["Genoa"]'),
        ("Fleets", "tree table", "SelectedRows", '["Gull"]', '["Tern"]'),
        ("Duties", "list box", "SelectedChildren", '["Lookout"]', '["Galley"]'),
    ]


class Gtk4:
    opened = partial(ControlledApplication, "gtk4_app.py")
    button, text, password, check_box, spin_button = "button", "text box", "text box", "checkbox", "spin button"
    slider, selections = {}, []


class Qt5:
    opened = partial(ControlledApplication, "qt_app.py", "PyQt5")
    button, text, password, check_box, spin_button = "push button", "text", "text", "check box", "spin box"
    slider = {}
    selections = [
        ("Harbours", "table", "SelectedCells", '["Bergen"]', '["Genoa"]'),
        ("Fleets", "tree", "SelectedRows", '["Gull"]', '["Tern"]'),
        ("Duties", "list", "SelectedChildren", '["Lookout"]', '["Galley"]'),
    ]


class Qt6(Qt5):
    opened = partial(ControlledApplication, "qt_app.py", "PyQt6")


class PageInChromium:
    opened = Chromium
    button, text, password, check_box, spin_button = "push button", "entry", "password text", "check box", "spin button"
    slider, selections = {}, [("Duties", "list box", "SelectedChildren", '["Helm"]', '["Lookout"]')]


class PageInFirefox(PageInChromium):
    opened = Firefox
