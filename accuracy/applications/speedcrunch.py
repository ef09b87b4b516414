"""SpeedCrunch: Qt 5 with docks and a keypad."""
from cases import *

PROGRAM = Program(
    "SpeedCrunch", "speedcrunch", ["speedcrunch"],
    opens=Application("SpeedCrunch", "SpeedCrunch"),
    cases=[
        case(choose("View", "Keypad"), Click("View -> Keypad"), effect=shows("7", "button")),
        case(click("7", "button"), Click("7")),
        case(click("+", "button"), Click("+")),
        case(click("8", "button"), Click("8")),
        case(click("=", "button"), Click("=")),
        case(choose("View", "Formula Book"), Click("View -> Formula Book")),
        case(choose("View", "Constants"), Click("View -> Constants")),
        case(choose("View", "Functions"), Click("View -> Functions")),
        case(choose("View", "Status Bar"), Click("View -> Status Bar")),
        case(click("Functions", "page tab"), Radio("Functions")),
        case(click("Constants", "page tab"), Radio("Constants")),
        case(choose("Help", "About SpeedCrunch"), Click("Help -> About SpeedCrunch"), then=keys("Escape")),
    ])
