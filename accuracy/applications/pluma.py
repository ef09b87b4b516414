"""Pluma: GTK 3 with a tool bar, a preferences dialog of pages and dialogs whose fields have labels."""
from cases import *

PROGRAM = Program(
    "Pluma", "pluma", ["pluma", "{home}/log.txt"],
    opens=Application("Pluma", re.compile("log.txt.*Pluma")),
    files={"log.txt": "calm sea\nfair wind\n"},
    cases=[
        case(choose("View", "Side Pane"), Click("View -> Side Pane")),
        case(choose("View", "Highlight Mode", "Plain Text"), Click("View -> Highlight Mode -> Plain Text"),
             also=[Click("View -> Highlight Mode")], effect=titled("Pluma")),
        case(choose("Search", "Find…"), Click("Search -> Find…"), effect=titled("Find")),
        case(typing("wind"), Text("Search for:", "wind")),
        case(click("Match case", "check box"), Click("Match case", state=1), effect=on("Match case", "check box")),
        case(click("Wrap around", "check box"), Click("Wrap around", state=0)),
        case(click("Find", "button"), Click("Find")),
        case(click("Close", "button"), Click("Close"), effect=titled("Pluma")),
        case(choose("Edit", "Preferences"), Click("Edit -> Preferences"), effect=titled("Preferences")),
        case(click("Display line numbers", "check box"), Click("Display line numbers", state=1)),
        case(click("Editor", "page tab"), Radio("Editor")),
        case(click("Tab width:", "spin", across=0.2), Click("Tab width:")),
        case(steps(keys("ctrl+a"), typing("6")), Spinner("Tab width:", "6"), also=[Combination("Control + a")]),
        case(click("Insert spaces instead of tabs", "check box"), Click("Insert spaces instead of tabs", state=1)),
        case(click("Plugins", "page tab"), Radio("Plugins")),
        case(click("Close", "button"), Click("Close"), effect=titled("Pluma")),
        case(choose("Search", "Go to Line…"), Click("Search -> Go to Line…")),
    ])
