"""PCManFM-Qt: Qt 5 with an icon view and a tree of places."""
from cases import *

PROGRAM = Program(
    "PCManFM-Qt", "pcmanfm-qt", ["pcmanfm-qt", "{home}/bay"],
    opens=Application("PCManFM-Qt File Manager", "bay"),
    files={"bay/anchor.txt": "iron\n", "bay/tides.txt": "high\n", "bay/nets/hemp.txt": "old\n"},
    cases=[
        case(click("anchor.txt"), Item("anchor.txt")),
        case(click("tides.txt"), Item("tides.txt")),
        case(choose("View", "Show Hidden"), Click("View -> Show Hidden")),
        case(click("anchor.txt"), Item("anchor.txt")),
        case(keys("ctrl+a"), Combination("Control + a")),
        case(double_click("nets"), Item("nets"), effect=titled("nets"), also=[Item("nets")]),
        case(keys("ctrl+shift+n"), Combination("Shift + Control + N"), effect=titled("Create Folder")),
        case(typing("ropes"), Text("Please enter a new folder name:", "ropes")),
    ])
