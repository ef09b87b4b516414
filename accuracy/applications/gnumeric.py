"""Gnumeric: GTK 3 with tool bars, cells that it draws itself, and dialogs of many pages."""
from cases import *

PROGRAM = Program(
    "Gnumeric", "gnumeric", ["gnumeric"],
    opens=Application("Gnumeric", "Book1.gnumeric - Gnumeric"),
    cases=[
        case(click("Bold", "toggle"), Click("Bold", state=1)),
        case(click("Underline", "toggle"), Click("Underline", state=1)),
        case(keys("ctrl+1"), Combination("Control + 1"), effect=titled("Format Cells")),
        case(click("Currency", "cell"), Row("Currency", None, "Currency")),
        case(click("Font", "page tab"), Radio("Font")),
        case(click("Border", "page tab"), Radio("Border")),
        case(click("Protection", "page tab"), Radio("Protection")),
        case(click("Lock", "check box"), Click("Lock", state=0), effect=off("Lock", "check box")),
        case(click("Hide", "check box"), Click("Hide", state=1), effect=on("Hide", "check box")),
        case(click("Alignment", "page tab"), Radio("Alignment")),
        case(click("Justify", "radio button"), Radio("Justify")),
        case(click("Wrap text", "check box"), Click("Wrap text", state=1), effect=on("Wrap text", "check box")),
        case(click("Cancel", "button"), Click("Cancel"), effect=titled("Book1")),
        case(keys("ctrl+f"), Combination("Control + f"), effect=titled("Search")),
        case(typing("reef"), Text(re.compile("Search for:?"), "reef")),
        case(click("Ignore case", "check box"), Click("Ignore case", state=0), effect=off("Ignore case", "check box")),
        case(click("Current sheet", "radio button"), Radio("Current sheet")),
        case(click("Advanced", "page tab"), Radio("Advanced")),
        case(click("Close", "button"), Click("Close"), effect=titled("Book1")),
        case(choose("File", "Page Setup..."), Click("File -> Page Setup..."), then=keys("Escape")),
    ])
