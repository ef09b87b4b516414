"""LibreOffice Calc with its GTK 3 interface."""
from cases import *
from libreoffice import choose_from_bar, drawn

def cell(name):
    return drawn(name, "table cell")


PROGRAM = Program(
    "LibreOffice Calc", "libreoffice-calc", ["soffice", "--norestore", "--nologo", "--nofirststartwizard", "--calc"],
    opens=Application("LibreOffice Calc", "Untitled 1 - LibreOffice Calc"),
    environment={"SAL_USE_VCLPLUGIN": "gtk3"},
    cases=[
        case(cell("B2"), Row(("2", "B2"), None, None), effect=holds("B2", role="text")),
        case(steps(typing("Lisbon"), keys("Return")), Special("carriage return"), effect=titled("Untitled")),
        case(steps(typing("12"), keys("Tab")), Special("tab")),
        case(keys("Up"), Combination("NumericPad + Function + up arrow")),
        case(cell("B2"), Row(("2", "B2", "Lisbon"), None, None), effect=holds("B2", role="text")),
        case(keys("ctrl+c"), Combination("Control + c")),
        case(drawn("Bold", "button"), Click("Bold"), effect=on("Bold", "toggle button")),
        case(drawn("Align Center", "button"), Click("Align Center")),
        case(drawn("Italic", "button"), Click("Italic"), effect=on("Italic", "toggle button")),
        case(choose_from_bar("Insert", "Date"), Click("Insert -> Date")),
        case(choose_from_bar("Format", "Cells…"), Click("Format -> Cells…"), effect=titled("Format Cells")),
        case(click("Font Effects", "page tab"), Radio("Font Effects")),
        case(click("Borders", "page tab"), Radio("Borders")),
        case(click("OK", "button"), Click("OK"), effect=titled("Calc")),
        case(choose_from_bar("Sheet", "Insert Sheet…"), Click("Sheet -> Insert Sheet…"), effect=titled("Insert Sheet")),
        case(click("After current sheet", "radio button"), Radio("After current sheet"), effect=on("After current sheet", "radio button")),
        case(click("Cancel", "button"), Click("Cancel"), effect=titled("Calc")),
        case(drawn("Add", "button"), Click("Add"), effect=shows("Sheet2", "page tab")),
        case(drawn("Sheet1", "page tab"), Radio("Sheet1"), effect=selected("Sheet1", "page tab")),
        case(choose_from_bar("View", "Formula Bar"), Click("View -> Formula Bar")),
        case(keys("ctrl+s"), Combination("Control + s"), effect=titled("Save")),
        case(click("Cancel", "button"), Click("Cancel"), effect=titled("Calc")),
        case(choose_from_bar("File", "Close"), Click("File -> Close"), effect=shows("Don’t Save", "button")),
        case(click("Don’t Save", "button"), Click("Don’t Save"), effect=hides("Don’t Save", "button")),
    ])
