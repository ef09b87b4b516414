"""GNOME's text editor: GTK 4 with libadwaita, tabs, a search bar and popovers."""
from cases import *

PROGRAM = Program(
    "gnome-text-editor", "gnome-text-editor", ["gnome-text-editor", "{home}/log.txt"],
    opens=Application("Text Editor", re.compile(r"log\.txt \(.*\) - Text Editor")),
    files={"log.txt": "calm sea\nfair wind\n"},
    cases=[
        case(click("New tab (Ctrl+T)", "button"), Click(("New tab", "New tab (Ctrl+T)")), effect=titled("New Document")),
        case(typing("anchor"), effect=titled("anchor")),
        case(keys("ctrl+a"), Combination("Control + a")),
        case(click("log.txt", "label", inside=target("AdwTabBar")), Radio("log.txt"), effect=titled("log.txt")),
        case(keys("ctrl+f"), Combination("Control + f")),
        case(typing("wind"), Text(("Search", "Find", "wind"), "wind")),
        case(keys("Return"), Special("carriage return"), also=[Text(None, "wind")], effect=titled("log.txt")),
        case(keys("Escape")),
        case(click("View", "button"), Click("View")),
        case(click("Line Numbers", "menu item"), Click("Line Numbers"), then=keys("Escape")),
        case(click("View", "button"), Click("View")),
        case(click("Right Margin", "menu item"), Click("Right Margin"), then=keys("Escape")),
        case(click("Menu", "button"), Click("Menu")),
        case(click("Preferences", "menu item"), Click("Preferences"), effect=titled("Preferences")),
        case(click("Display Grid Pattern", "label"), Item("Display Grid Pattern")),
        case(keys("Escape"), effect=titled("log.txt")),
        case(click("Open", "button"), Click("Open")),
        case(keys("Escape")),
        case(keys("ctrl+h"), Combination("Control + h")),
        case(keys("Escape")),
        case(click("Menu", "button"), Click("Menu")),
        case(click("Find/Replace…", "menu item"), Click("Find/Replace…"), then=keys("Escape")),
        case(click("Close Tab", "button"), Click("Close Tab")),
    ])
