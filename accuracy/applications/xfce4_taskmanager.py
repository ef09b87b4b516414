"""The task manager of Xfce: GTK 3 with icon buttons that tooltips name."""
from cases import *

PROGRAM = Program(
    "Xfce Task Manager", "xfce4-taskmanager", ["xfce4-taskmanager"],
    opens=Application("Task Manager", "Task Manager"),
    cases=[
        case(click("PID", "column header"), Click("PID")),
        case(click("Task", "column header"), Click("Task")),
        case(steps(click("Search", "text"), typing("xfce")), Text(("Search", "Filter on process name"), "xfce"),
             also=[Click(("Search", "Filter on process name"))]),
        case(click("Settings", "panel"), Click("Settings"), effect=titled("Settings")),
        case(click("Columns", "page tab"), Radio("Columns")),
        case(keys("Escape"), effect=titled("Task Manager")),
    ])
