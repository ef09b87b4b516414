"""Widgets of GTK 4 and libadwaita: menus, drop-downs, expanders, rows of settings."""
from cases import *

PROGRAM = Program(
    "GTK 4 widgets", "libgtk-4-1", ["/usr/bin/python3", "{here}/programs/lighthouse.py"],
    opens=Application(re.compile(".*"), "Lighthouse"), ready=shows("Light site"),
    cases=[
        case(click("Main Menu", "button"), Click("Main Menu")),
        case(click("Light up", "menu"), Click("Light up")),
        case(click("Lamp", "combo"), Click(("Lamp", "Lamp: Oil"))),
        case(keys("Down"), Combination(re.compile(".*"), re.compile("Lamp.*"))),
        case(keys("Return"), Special("carriage return", re.compile("Lamp.*")), Text(re.compile("Lamp.*"), "Gas")),
        case(click("Power", "switch"), Click("Power", state=1)),
        case(click("Details", down=0.3), Click("Details", state=1), effect=shows("Built in 1830")),
        case(click("Details", down=0.1), Click("Details", state=0), effect=hides("Built in 1830")),
        case(click("Light site"), Link("Light site")),
        case(click("Flashes", "spin", across=0.2), Click("Flashes")),
        case(steps(keys("ctrl+a"), typing("42"), keys("Return")), Spinner("Flashes", "42"),
             Special("carriage return", "Flashes"), also=[Combination("Control + a")]),
        case(click("Keeper", "label"), Item("Keeper")),
        case(click("Range", "label"), Item(re.compile("Range.*"))),
        case(click("Far", "label"), Item(re.compile(".*Far"))),
        case(click("Advanced", "label"), Item("Advanced"), effect=shows("Inner", "label")),
        case(click("Horns", "label"), Radio("Horns")),
    ])
