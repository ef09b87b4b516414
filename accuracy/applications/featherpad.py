"""FeatherPad: Qt 5; small enough for continuous integration."""
from cases import *

PROGRAM = Program(
    "FeatherPad", "featherpad", ["featherpad", "--standalone", "{home}/log.txt"],
    opens=Application("FeatherPad", re.compile(".*log.txt.*")),
    files={"log.txt": "calm sea\nfair wind\n"},
    cases=[
        case(keys("ctrl+a"), Combination("Control + a")),
        case(choose("Options", "Line Numbers"), Click("Options -> Line Numbers")),
        case(choose("Search", "Find"), Click("Search -> Find")),
        case(typing("wind"), Text(("Search…", "Search", "wind"), "wind")),
        case(keys("Return"), Special("carriage return"), also=[Text(None, "wind")], effect=titled("log.txt")),
        case(choose("File", "New"), Click("File -> New"), effect=titled("Untitled")),
        case(click("log.txt", "page tab"), Radio("log.txt"), effect=titled("log.txt")),
        case(choose("Help", "About"), Click("Help -> About"), effect=titled("About")),
        case(keys("Escape"), effect=titled("log.txt")),
        case(choose("Options", "Preferences"), Click("Options -> Preferences"), effect=titled("Preferences")),
        case(click("Text", "page tab"), Radio("Text")),
        case(click("Close", "button"), Click("Close"), effect=titled("log.txt")),
    ])
