"""Widgets of GTK 3: drop-downs, switches, expanders, links."""
from cases import *

KEY = re.compile(".*")

PROGRAM = Program(
    "GTK 3 widgets", "libgtk-3-0", ["/usr/bin/python3", "{here}/programs/shipyard.py"],
    opens=Application(re.compile(".*"), "Shipyard"), ready=shows("Yard site"),
    cases=[
        case(click("Wood", "combo"), Click(("Wood", "Wood: Oak"))),
        case(keys("Down"), Combination(KEY, re.compile("Wood.*"))),
        case(keys("Return"), Special("carriage return", re.compile("Wood.*")), Text(("Wood", "Wood: Pine"), "Pine")),
        case(click("Metal", "combo", across=0.3), ComboBox("Metal", "")),
        case(steps(typing("Steel"), keys("Tab")), Text("Metal", "Steel"), Special("tab", "Metal")),
        case(click("Crane", "toggle"), Click("Crane", state=1)),
        case(click("Crane", "toggle"), Click("Crane", state=0)),
        case(click("Details", "toggle", down=0.3), Click("Details", state=1), effect=shows("Built in 1912")),
        case(click("Details", "toggle", down=0.1), Click("Details", state=0), effect=hides("Built in 1912")),
        case(click("See the rules and the fees", "label", across=0.3), Link("the rules", "https://example.org/rules")),
        case(click("Yard site"), Link("Yard site", "https://example.org/yard")),
        case(click("Planks", "spin", across=0.2), Click("Planks")),
        case(steps(keys("ctrl+a"), typing("42"), keys("Return")), Spinner("Planks", "42"),
             Special("carriage return", "Planks"), also=[Combination("Control + a")]),
        case(click("Planks", "spin", across=0.97), Spinner("Planks", "43"), also=[Click("Planks")]),
    ])
