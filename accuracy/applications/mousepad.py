"""Mousepad: GTK 3; small enough for continuous integration."""
from cases import *

PROGRAM = Program(
    "Mousepad", "mousepad", ["mousepad", "--disable-server", "{home}/log.txt"],
    opens=Application("Mousepad", re.compile(".*log.txt - Mousepad")),
    files={"log.txt": "calm sea\nfair wind\n"},
    cases=[
        case(keys("ctrl+a"), Combination("Control + a")),
        case(choose("View", "Line Numbers"), Click("View -> Line Numbers")),
        case(choose("Document", "Tab Size", "2"), Click("Document -> Tab Size -> 2"), also=[Click("Document -> Tab Size")],
             effect=titled("log.txt")),
        case(choose("Search", "Find"), Click("Search -> Find")),
        case(typing("wind"), Text(("Search for:", "wind", "Search"), "wind")),
        case(keys("Return"), Special("carriage return"), also=[Text(None, "wind")], effect=titled("log.txt")),
        case(click("Match case", "check box"), Click("Match case", state=1), effect=on("Match case", "check box"),
             then=keys("Escape")),
        case(choose("Edit", "Preferences…"), Click("Edit -> Preferences…"), effect=titled("Preferences")),
        case(click("Show line numbers", "check box"), Click("Show line numbers", state=0),
             effect=off("Show line numbers", "check box")),
        case(click("Editor", "page tab"), Radio("Editor"), effect=selected("Editor", "page tab")),
        case(click("Enable automatic indentation", "check box"), Click("Enable automatic indentation", state=1),
             effect=on("Enable automatic indentation", "check box")),
        case(keys("Escape"), effect=titled("log.txt")),
        case(typing("x"), effect=titled("*")),
        case(keys("ctrl+w"), Combination("Control + w"), effect=shows("Don't Save", "button")),
        case(click("Don't Save", "button"), Click("Don't Save"), effect=hides("Don't Save", "button")),
    ])
