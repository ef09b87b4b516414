"""galculator: GTK 3 whose keys are toggle buttons that spring back."""
from cases import *

PROGRAM = Program(
    "galculator", "galculator", ["galculator"],
    opens=Application(("galculator", "Galculator"), "galculator"),
    cases=[
        case(click("7", "button"), Click("7")),
        case(click("*", "button"), Click("*")),
        case(click("6", "button"), Click("6")),
        case(click("=", "button"), Click("=")),
        case(click("C", "button"), Click("C")),
        case(click("8", "button"), Click("8")),
        case(choose("View", "Scientific Mode"), Click("View -> Scientific Mode"), effect=shows("sin", "button")),
        case(choose("Calculator", "Number bases", "Hexadecimal"), Click("Calculator -> Number bases -> Hexadecimal"),
             also=[Click("Calculator -> Number bases")]),
        case(click("F", "button"), Click("F")),
        case(choose("Calculator", "Number bases", "Decimal"), Click("Calculator -> Number bases -> Decimal"),
             also=[Click("Calculator -> Number bases")]),
        case(choose("Edit", "Preferences…"), Click(("Edit -> Preferences...", "Edit -> Preferences…")), effect=titled("Preferences")),
        case(click("Numbers", "page tab"), Radio("Numbers")),
        case(click("Close", "button"), Click("Close"), effect=titled("galculator")),
        case(choose("View", "Basic Mode"), Click("View -> Basic Mode"), effect=hides("sin", "button")),
        case(choose("Help", "About"), Click("Help -> About"), then=keys("Escape")),
    ])
