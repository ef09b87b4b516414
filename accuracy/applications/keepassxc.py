"""KeePassXC: Qt 5 with a wizard, password fields and settings of its own."""
from cases import *

PROGRAM = Program(
    "KeePassXC", "keepassxc", ["keepassxc"],
    opens=Application("KeePassXC", re.compile(".*KeePassXC")),
    cases=[
        case(click("Settings", "check box"), Click("Settings", state=1), effect=shows("Security", "item")),
        case(click("Security", "item"), Item("Security")),
        case(click("General", "item"), Item("General")),
        case(click("Minimize window at application startup", "check box"),
             Click("Minimize window at application startup", state=1)),
        case(click("Settings", "check box"), Click("Settings", state=0), effect=shows("Create new database", "button")),
        case(click("Password Generator", "check box"), Click("Password Generator", state=1), effect=shows("Passphrase", "page tab")),
        case(click("Passphrase", "page tab"), Radio("Passphrase")),
        case(click("Password", "page tab"), Radio("Password")),
        case(click("Close", "button"), Click("Close"), effect=shows("Create new database", "button")),
        case(choose("View", "Show Toolbar"), Click("View -> Show Toolbar"), effect=hides("Settings", "check box")),
        case(choose("View", "Show Toolbar"), Click("View -> Show Toolbar"), effect=shows("Settings", "check box")),
        case(click("Create new database", "button"), Click("Create new database"), effect=titled("Create a new")),
        case(steps(click("Database name field", "text"), keys("ctrl+a"), typing("Harbour")), Text(("Database name field", "Database name:", "Database Name:"), "Harbour"),
             also=[Click(("Database name field", "Database name:", "Database Name:")), Combination("Control + a")]),
        case(click("Continue", "button"), Click("Continue"), effect=shows("Advanced Settings", "button")),
        case(click("Advanced Settings", "button"), Click("Advanced Settings")),
        case(keys("Escape")),
    ])
