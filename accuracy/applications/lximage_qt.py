"""LXImage-Qt: Qt 5 with a tool bar, submenus and dialogs."""
from cases import *

SEA = '<svg xmlns="http://www.w3.org/2000/svg" width="300" height="200"><rect width="150" height="200" fill="teal"/></svg>'
PROGRAM = Program(
    "LXImage-Qt", "lximage-qt", ["lximage-qt", "{home}/sea.svg"],
    opens=Application(("LXImage-Qt", "Image Viewer", "LXImage"), re.compile(".*sea.svg.*Image Viewer")),
    files={"sea.svg": SEA},
    cases=[
        case(click("Zoom In", "button"), Click("Zoom In")),
        case(click("Rotate Clockwise", "button"), Click("Rotate Clockwise")),
        case(choose("View", "Show Thumbnails"), Click("View -> Show Thumbnails")),
        case(choose("View", "Annotations Toolbar"), Click("View -> Annotations Toolbar")),
        case(choose("View", "Sorting", "By File Size"), Click("View -> Sorting -> By File Size"), also=[Click("View -> Sorting")],
             effect=titled("Image Viewer")),
        case(choose("Edit", "Preferences"), Click("Edit -> Preferences"), effect=titled("Preferences")),
        case(click("Cancel", "button"), Click("Cancel"), effect=titled("Image Viewer")),
        case(choose("Edit", "Resize"), Click("Edit -> Resize")),
        case(keys("Escape"), effect=titled("Image Viewer")),
        case(choose("Help", "About"), Click("Help -> About")),
    ])
