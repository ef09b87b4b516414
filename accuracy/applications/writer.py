"""LibreOffice Writer with its GTK 3 interface."""
from cases import *
from libreoffice import choose_from_bar, drawn

PROGRAM = Program(
    "LibreOffice Writer", "libreoffice-writer", ["soffice", "--norestore", "--nologo", "--nofirststartwizard", "--writer"],
    opens=Application("LibreOffice Writer", "Untitled 1 - LibreOffice Writer"),
    environment={"SAL_USE_VCLPLUGIN": "gtk3"},
    cases=[
        case(typing("Calm sea")),
        case(keys("Return"), Special("carriage return")),
        case(keys("ctrl+a"), Combination("Control + a")),
        case(drawn("Bold", "button"), Click("Bold"), effect=on("Bold", "toggle button")),
        case(drawn("Italic", "button"), Click("Italic"), effect=on("Italic", "toggle button")),
        case(drawn("Undo", "button", across=0.3), Click("Undo")),
        case(choose_from_bar("Format", "Text", "Strikethrough"), Click("Format -> Text -> Strikethrough"),
             also=[Click("Format -> Text")]),
        case(choose_from_bar("View", "Status Bar"), Click("View -> Status Bar")),
        case(choose_from_bar("Insert", "Page Break"), Click("Insert -> Page Break")),
        case(keys("ctrl+z"), Combination("Control + z")),
        case(choose_from_bar("Edit", "Find and Replace…"), Click("Edit -> Find and Replace…"), effect=titled("Find")),
        case(typing("sea"), Text(("Find:", "Find", "sea"), "sea")),
        case(click("Match case", "check box"), Click("Match case", state=1), effect=on("Match case", "check box")),
        case(click("Find All", "button"), Click("Find All")),
        case(click("Close", "button"), Click("Close"), effect=titled("Writer")),
        case(choose_from_bar("Tools", "Word Count…") , Click("Tools -> Word Count…"), effect=titled("Word Count")),
        case(click("Close", "button"), Click("Close"), effect=titled("Writer")),
        case(choose_from_bar("Format", "Paragraph…"), Click("Format -> Paragraph…"), effect=titled("Paragraph")),
        case(click("Alignment", "page tab"), Radio("Alignment")),
        case(click("Right", "radio button"), Radio("Right"), effect=on("Right", "radio button")),
        case(click("Cancel", "button"), Click("Cancel"), effect=titled("Writer")),
        case(choose_from_bar("Help", "About LibreOffice"), Click("Help -> About LibreOffice"), effect=titled("About")),
        case(click("Close", "button"), Click("Close"), effect=titled("Writer")),
        case(keys("ctrl+w"), Combination("Control + w"), effect=shows("Don’t Save", "button")),
        case(click("Don’t Save", "button"), Click("Don’t Save"), effect=hides("Don’t Save", "button")),
    ])
