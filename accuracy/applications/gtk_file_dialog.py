"""The file dialog of GTK 3: places, path bar, list with headers, filter, dialog buttons."""
from cases import *

PROGRAM = Program(
    "GTK file dialog", "libgtk-3-0", ["/usr/bin/python3", "{here}/programs/gtk_file_dialog.py", "{home}/Harbour"],
    opens=Application(re.compile(".*"), "Harbour office"),
    files={"Harbour/log.txt": "calm sea", "Harbour/tides.txt": "high at noon", "Harbour/Charts/bay.txt": "shallow",
           "Harbour/map.png": ""},
    cases=[
        case(click("Open a chart", "button"), Click("Open a chart"), effect=titled("Open a chart")),
        case(click("log.txt", "cell"), Row("log.txt", "Name", "log.txt")),
        case(click("Size", "column header"), Click("Size")),
        case(click("tides.txt", "cell"), Row("tides.txt", "Name", "tides.txt")),
        case(click("Text files", "combo box"), Click("Text files"), effect=shows("All files", "menu item")),
        case(click("All files", "menu item"), Click("All files"), effect=shows("map.png", "cell")),
        case(double_click("Charts", "cell"), Row("Charts", "Name", "Charts"), effect=shows("bay.txt", "cell"),
             also=[Row("Charts")]),
        case(click("Harbour", "toggle button"), Click("Harbour"), effect=shows("log.txt", "cell")),
        case(click("Home", "label"), Item("Home"), effect=hides("log.txt", "cell")),
        case(keys("ctrl+l"), Combination("Control + l")),
        case(click("Cancel", "button"), Click("Cancel"), effect=shows("Cancelled", "label")),
        case(click("Save a chart", "button"), Click("Save a chart"), effect=titled("Save a chart")),
        case(typing("reef.txt"), Text(("Name", "Name:"), "reef.txt")),
        case(click("Create Folder", "button"), Click("Create Folder")),
        case(typing("Nets"), Text(("Folder Name", "Folder name", "Nets"), "Nets")),
        case(click("Create", "button"), Click("Create")),
        case(click("Save", "button"), Click("Save"), effect=shows("reef.txt", "label")),
    ])
