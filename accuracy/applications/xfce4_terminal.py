"""Xfce's terminal: GTK 3 around a terminal; what is typed into the terminal is not told."""
from cases import *

PROGRAM = Program(
    "xfce4-terminal", "xfce4-terminal", ["xfce4-terminal", "--disable-server"],
    opens=Application("Xfce Terminal", re.compile("Terminal - .+")),
    cases=[
        case(typing("true")),
        case(keys("Return"), Special("carriage return", "Terminal")),
        case(keys("Up"), Combination("NumericPad + Function + up arrow", "Terminal")),
        case(keys("ctrl+c"), Combination("Control + c", "Terminal")),
        case(choose("File", "Open Tab"), Click("File -> Open Tab")),
        case(choose("Terminal", "Set Title…"), Click("Terminal -> Set Title…")),
        case(steps(keys("ctrl+a"), typing("Harbour")), Combination("Control + a"), Text(None, "Harbour")),
        case(keys("Return"), Special("carriage return"), also=[Text(None, "Harbour")]),
        case(click("Harbour", "page tab"), Radio("Harbour")),
        case(choose("Edit", "Preferences…"), Click("Edit -> Preferences…"), effect=titled("Preferences")),
        case(click("Appearance", "page tab"), Radio("Appearance"), effect=selected("Appearance", "page tab")),
        case(click("Allow bold text", "check box"), Click("Allow bold text")),
        case(click("Colors", "page tab"), Radio("Colors"), effect=selected("Colors", "page tab")),
        case(click("General", "page tab"), Radio("General"), effect=selected("General", "page tab")),
        case(click("Close", "button"), Click("Close"), effect=titled("Harbour")),
        case(choose("View", "Show Toolbar"), Click("View -> Show Toolbar")),
        case(choose("Help", "About"), Click("Help -> About"), effect=titled("About")),
        case(click("Close", "button"), Click("Close"), effect=titled("Harbour")),
        case(right_click("Terminal", "terminal"), then=keys("Escape")),
    ])
