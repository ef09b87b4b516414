"""GNOME's calculator: GTK 4 with libadwaita."""
from cases import *

display = "GtkSourceView"
PROGRAM = Program(
    "gnome-calculator", "gnome-calculator", ["gnome-calculator"],
    opens=Application("Calculator", "Calculator"),
    cases=[
        case(click("7", "label"), Click("7"), effect=holds("7", name=display)),
        case(click("Add [+]", "button"), Click("+"), effect=holds("7+", name=display)),
        case(click("5", "label"), Click("5"), effect=holds("7+5", name=display)),
        case(click("Calculate Result", "button"), Click("="), effect=holds("12", name=display)),
        case(click("Undo", "label"), Click("Undo")),
        case(click("Clear Display [Escape]", "button"), Click("Clear Display [Escape]")),
        case(click("π", "label"), Click(("π", "Pi", "Pi [Ctrl+P]")), effect=holds("π", name=display)),
        case(keys("Escape")),
        case(click("Square [Ctrl+2]", "button"), Click(("x2", "x²", "Square [Ctrl+2]")), effect=holds("²", name=display), then=keys("Escape")),
        case(typing("3*4"), effect=holds("3×4", name=display)),
        case(keys("Return"), Special("carriage return"), effect=holds("12", name=display)),
        case(keys("ctrl+z"), Combination("Control + z")),
        case(click("Basic", "button"), Click(("Basic", "Mode selection"))),
        case(click("Advanced", "menu item"), Click("Advanced"), effect=shows("sin", "label")),
        case(click("sin", "label"), Click("sin"), effect=holds("sin", name=display), then=keys("Escape")),
        case(click("Advanced", "button"), Click(("Advanced", "Mode selection"))),
        case(click("Basic", "menu item"), Click("Basic"), effect=hides("sin", "label")),
        case(click("Primary menu", "button"), Click("Primary menu")),
        case(click("Preferences", "menu item"), Click("Preferences"), effect=titled("Preferences")),
        case(click("Trailing zeroes", "switch"), Click("Trailing zeroes", state=1)),
        case(keys("Escape")),
        case(click("Primary menu", "button"), Click("Primary menu")),
        case(click("About Calculator", "menu item"), Click("About Calculator"), effect=titled("About")),
        case(keys("Escape"), effect=titled("Calculator")),
    ])
