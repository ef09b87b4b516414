"""Dolphin: Qt 5 with views of its own, places, breadcrumbs and a hamburger menu."""
from cases import *

PROGRAM = Program(
    "Dolphin", "dolphin", ["dolphin", "{home}/Harbour"],
    opens=Application("Dolphin", re.compile("Harbour — Dolphin")),
    files={"Harbour/log.txt": "calm sea", "Harbour/tides.txt": "high at noon", "Harbour/Charts/bay.txt": "shallow"},
    cases=[
        case(click("log.txt", "cell"), Item("log.txt")),
        case(right_click("tides.txt", "cell"), Item("tides.txt", button="right"), then=keys("Escape")),
        case(click("Details", "check box"), Click("Details", state=1), effect=on("Details", "check box")),
        case(click("tides.txt", "cell"), Item("tides.txt")),
        case(click("Icons", "check box"), Click("Icons", state=1), effect=on("Icons", "check box")),
        case(double_click("Charts", "cell"), Item("Charts"), effect=titled("Charts"), also=[Item("Charts")]),
        case(click("Back", "button"), Click("Back"), effect=titled("Harbour")),
        case(click("Home", "item"), Item("Home"), effect=titled("Home")),
        case(click("Back", "button"), Click("Back"), effect=titled("Harbour")),
        case(click("Zoom", "slider", across=0.8), Slider(("Zoom", "Zoom:"), None), Click(("Zoom", "Zoom:"))),
        case(click("Search", "check box"), Click("Search", state=1)),
        case(typing("tides"), Text(("Search", "Search…", "tides"), "tides")),
        case(click("Search", "check box"), Click("Search", state=0)),
        case(click("Open Menu", "button"), Click("Open Menu"), then=keys("Escape")),
        case(keys("F10"), Combination("Function + f10"), effect=titled("New Folder")),
        case(typing("Nets"), Text((re.compile("Create new folder in:?.*"), "Nets", "New Folder"), "Nets")),
        case(click("Cancel", "button"), Click("Cancel"), effect=titled("Harbour")),
        case(click("Split", "button"), Click("Split")),
        case(keys("ctrl+l"), Combination("Control + l")),
        case(keys("Escape")),
        case(keys("F5"), Combination("Function + f5"), effect=titled("Harbour")),
    ])
