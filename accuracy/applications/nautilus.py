"""Nautilus: GTK 4 with libadwaita, icon and list views, popovers."""
from cases import *

PROGRAM = Program(
    "Nautilus", "nautilus", ["nautilus", "--new-window", "{home}/Harbour"],
    opens=Application("Files", "Harbour"),
    files={"Harbour/log.txt": "calm sea", "Harbour/tides.txt": "high at noon", "Harbour/Charts/bay.txt": "shallow"},
    ready=shows("log.txt", "label"),
    cases=[
        case(click("Home", "label"), Item("Home"), effect=titled("Home")),
        case(click("Back", "button"), Click("Back"), effect=titled("Harbour")),
        case(click("log.txt", "label", down=-1.2), Item("log.txt")),
        case(right_click("tides.txt", "label", down=-1.2), Item("tides.txt", button="right"), then=keys("Escape")),
        case(click("View Options", "button", nth=1), Click("View Options")),
        case(keys("Escape")),
        case(keys("ctrl+shift+n"), Combination("Shift + Control + N")),
        case(typing("Nets"), Text(("Folder Name", "Folder name", "Nets"), "Nets")),
        case(click("Create", "label"), Click("Create"), effect=shows("Nets", "label")),
        case(keys("ctrl+1"), Combination("Control + 1")),
        case(click("tides.txt", "label"), Item("tides.txt")),
        case(keys("ctrl+f"), Combination("Control + f")),
        case(typing("tides"), Text(("Search", "Search files", "tides", "Search current folder"), "tides")),
        case(keys("Escape"), then=keys("Escape")),
        case(keys("ctrl+h"), Combination("Control + h")),
        case(click("Trash", "label"), Item("Trash"), effect=titled("Trash")),
        case(click("Main Menu", "button"), Click("Main Menu")),
        case(click("Preferences", "menu item"), Click("Preferences"), effect=titled("Preferences")),
        case(click("Sort Folders Before Files", "label"), Item("Sort Folders Before Files")),
        case(keys("Escape"), effect=titled("Trash")),
    ])
