"""How each toolkit's window of tests/applications is opened, and what its reports call things there."""
from ctypes import CDLL
from functools import partial

from applications import ControlledApplication
from browser import Chromium, Firefox

# ATK, whose words those of GTK 3 and of browsers are, calls it otherwise in later releases.
CALLS_IT_PUSH_BUTTON = CDLL("libatk-1.0.so.0").atk_get_minor_version() <= 46
# GTK 4 had none when it was younger.
HAS_TOGGLE_BUTTONS = CDLL("libgtk-4.so.1").gtk_get_minor_version() > 8


class Gtk3:
    opened = partial(ControlledApplication, "gtk3_app.py")
    button = "push button" if CALLS_IT_PUSH_BUTTON else "button"
    text, password, check_box, spin_button = "text", "password text", "check box", "spin button"
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
    toggle_button = "toggle button" if HAS_TOGGLE_BUTTONS else "button"
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
    button, text, password, check_box, spin_button = Gtk3.button, "entry", "password text", "check box", "spin button"
    slider, selections = {}, [("Duties", "list box", "SelectedChildren", '["Helm"]', '["Lookout"]')]


class PageInFirefox(PageInChromium):
    opened = Firefox


def of(application):
    """The toolkit of one of our own applications."""
    words = " ".join(map(str, application.process.args))
    return next(toolkit for name, toolkit in BY_NAME.items() if name in words)


BY_NAME = {"gtk3_app": Gtk3, "gtk4_app": Gtk4, "PyQt6": Qt6, "qt_app": Qt5}
