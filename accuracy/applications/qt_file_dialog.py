"""The file dialog of Qt 5: side bar, tool buttons, tree with headers, combo boxes, dialog buttons."""
from cases import *

PROGRAM = Program(
    "Qt file dialog", "libqt5widgets5", ["/usr/bin/python3", "{here}/programs/qt_file_dialog.py", "{home}/Harbour"],
    opens=Application(re.compile(".*"), "Harbour office"),
    files={"Harbour/log.txt": "calm sea", "Harbour/tides.txt": "high at noon", "Harbour/Charts/bay.txt": "shallow",
           "Harbour/map.png": ""},
    cases=[
        case(click("Open a chart", "button"), Click("Open a chart"), effect=titled("Open a chart")),
        case(click("log.txt", "item"), Item("log.txt")),
        case(click("Detail View", "button"), Click(("Detail View", "List View")), effect=shows("Size")),
        case(click("tides.txt"), Row("tides.txt", "Name", "tides.txt")),
        case(click("Size"), Click("Size")),
        case(click("Text files (*.txt)", "combo box"), Click("Files of type: Text files (*.txt)"), effect=shows("All files (*)", "item")),
        case(click("All files (*)", "item"), Item("All files (*)"), effect=shows("map.png")),
        case(double_click("Charts"), Row("Charts", "Name", "Charts"), effect=shows("bay.txt"), also=[Row("Charts")]),
        case(click("Parent Directory", "button"), Click("Parent Directory"), effect=shows("log.txt")),
        case(click("Computer", "item"), Item("Computer"), effect=hides("log.txt")),
        case(click("Back", "button"), Click("Back"), effect=shows("log.txt")),
        case(click("Cancel", "button"), Click("Cancel"), effect=shows("Cancelled", "label")),
        case(click("Save a chart", "button"), Click("Save a chart"), effect=titled("Save a chart")),
        case(typing("reef.txt"), Text(("File name", "File name:"), "reef.txt")),
        case(click("Create New Folder", "button"), Click("Create New Folder"), then=keys("Return")),
        case(click("Save", "button"), Click("Save"), effect=shows("reef.txt", "label")),
    ])
