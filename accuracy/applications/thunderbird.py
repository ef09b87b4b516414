"""Thunderbird: Firefox's toolkit, with a window of its own for a new message. A new profile with an account on this machine."""
import shutil
from pathlib import Path

from cases import *


def profile(path):
    shutil.copy(Path(__file__).resolve().parent.parent / "programs/thunderbird.js", path)


PROGRAM = Program(
    "Thunderbird", "thunderbird", ["thunderbird", "--profile", "{home}/profile"],
    opens=Application(re.compile("Thunderbird.*|Mozilla Thunderbird"), re.compile(".*Mozilla Thunderbird")),
    files={"profile/user.js": profile},
    cases=[
        case(click("Local Folders", "tree item"), Item("Local Folders"), effect=titled("Local Folders")),
        case(click("ann@harbour.example", "tree item"), Item("ann@harbour.example"), effect=titled("ann@")),
        case(click("New Message", "button"), Click("New Message"), effect=titled("Write")),
        case(steps(click("Subject", "entry"), typing("Tides")), Text("Subject", "Tides"), also=[Click("Subject")]),
        case(steps(click("To", "entry"), typing("bob@harbour.example")), Text("To", "bob@harbour.example"), also=[Click("To")]),
        case(keys("ctrl+a"), Combination("Control + a")),
        case(click("Attach", "button"), Click("Attach"), then=keys("Escape")),
        case(keys("ctrl+w"), Combination("Control + w"), effect=shows("Discard changes", "button")),
        case(click("Discard changes", "button"), Click("Discard changes"), effect=titled("Mozilla Thunderbird")),
        case(click("Address Book (Ctrl+2)", "button"), Click(("Address Book", "Address Book (Ctrl+2)")), effect=titled("Address Book")),
        case(click("New Contact", "button"), Click("New Contact"), effect=shows("First name", "entry")),
        case(steps(click("First name", "entry"), typing("Bob")), Text("First name", "Bob"), also=[Click("First name")],
             then=keys("Escape", "Escape")),
        case(click("Calendar (Ctrl+3)", "button"), Click(("Calendar", "Calendar (Ctrl+3)"))),
        case(click("Settings", "button"), Click("Settings"), effect=titled("Settings")),
        case(click("Composition", "list item"), Item("Composition")),
        case(click("Privacy & Security", "list item"), Item("Privacy & Security")),
        case(click("Mail (Ctrl+1)", "button"), Click(("Mail", "Mail (Ctrl+1)")), effect=titled("ann@")),
        case(click("AppMenu", "button"), Click(("AppMenu", "Display the Thunderbird Menu")), then=keys("Escape")),
        case(steps(click("Search", "entry"), typing("reef")), Text("Search", "reef"), also=[Click("Search")]),
        case(click("Get Messages", "button"), Click("Get Messages"), then=keys("Escape")),
    ])
