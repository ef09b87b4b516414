"""Every standard widget of Qt, in a window of our own (programs/qt_widgets.py): the same cases for Qt 5 and 6."""
from cases import *


def program(version):
    return Program(f"Widgets of Qt {version}", {"5": "libqt5widgets5", "6": "libqt6widgets6"}[version],
                   ["/usr/bin/python3", "{here}/programs/qt_widgets.py", version],
                   opens=Application(re.compile(".*qt_widgets.*"), "Harbour office"), cases=cases())


def fields():
    return [
        case(click("Ship:", "text"), Click(("Ship:", "Ship")), effect=is_in_state("focused", "Ship:", "text")),
        case(typing("Anna"), Text(("Ship:", "Ship"), "Anna")),
        case(steps(typing(" B"), keys("Return")), Text(("Ship:", "Ship"), "Anna B"), Special("carriage return")),
        case(click("Mooring", "text"), Click("Mooring"), effect=is_in_state("focused", "Mooring", "text")),
        case(steps(typing("north"), keys("Tab")), Text("Mooring", "north"), Special("tab")),
        case(click("Password:", "text"), Click(("Password:", "Password"))),
        case(typing("hunter2"), Password(("Password:", "Password"))),
        case(click("Crew:", "spin", across=0.3), Click(("Crew:", "Crew"))),
        case(steps(keys("ctrl+a"), typing("45"), keys("Tab")), Spinner(("Crew:", "Crew"), "45"), Special("tab"),
             also=[Combination("Control + a")]),
        case(click("Crew:", "spin", across=0.97, down=0.25), Click(("Crew:", "Crew"))),
        case(click("Crew:", "spin", across=0.97, down=0.25), Click(("Crew:", "Crew")), Spinner(("Crew:", "Crew"), "47")),
        case(steps(keys("Tab", "Up")), Spinner(("Draught:", "Draught"), ("3", "3.0", "3.00 m", "3.00")),
             also=[Special("tab"), Combination("NumericPad + Function + up arrow")]),
        case(click("Day:", "spin", across=0.1), Click(("Day:", "Day"))),
        case(keys("Up"), Spinner(("Day:", "Day"), "2027-03-14"), Combination("NumericPad + Function + up arrow")),
        case(steps(click("Arrival:", "spin", across=0.05), keys("Up")), Spinner(("Arrival:", "Arrival"), "10:30"),
             also=[Combination("NumericPad + Function + up arrow"), Click(("Arrival:", "Arrival"))]),
        case(click("Slot:", "spin", across=0.97, down=0.25), Click(("Slot:", "Slot"))),
        case(click("Slot:", "spin", across=0.97, down=0.25), Click(("Slot:", "Slot")), Spinner(("Slot:", "Slot"), "2028-03-14 09:30")),
        case(click("Speed:", "slider", across=0.7), Click(("Speed:", "Speed")), Slider(("Speed:", "Speed"), None)),
        case(keys("Right"), Slider(("Speed:", "Speed"), None), Combination("NumericPad + Function + rightArrow")),
        case(click("Bearing:", "dial", across=0.55, down=0.2), Click(("Bearing:", "Bearing")), Slider(("Bearing:", "Bearing"), None)),
    ]


def choices():
    flag = ("Flag:", "Flag")
    return [
        case(click("Danish", "combo box"), Click(re.compile("Flag:?( Danish)?"))),
        case(click("Irish", "item"), Item("Irish"), also=[Text(flag, "Irish")]),
        case(keys("Down"), Combination("NumericPad + Function + down arrow"), Text(flag, "Greek"), effect=shows("Greek", "combo box")),
        case(click("Lisbon", "combo box", across=0.3), ComboBox(re.compile("Port:?( Lisbon)?"), "Lisbon")),
        case(steps(keys("ctrl+a"), typing("Cork"), keys("Return")), Text(re.compile("Port:?( .*)?"), "Cork"), Special("carriage return"),
             also=[Combination("Control + a")]),
        case(click("Cork", "combo box", across=0.95), ComboBox(re.compile("Port:?( Cork)?"), "Cork")),
        case(click("Oslo", "item"), Item("Oslo"), effect=shows("Oslo", "combo box"), also=[Text(None, "Oslo")]),
        case(click("Pilot on board", "check box"), Click("Pilot on board", state=1), effect=on("Pilot on board", "check box")),
        case(keys("space"), Toggle("Pilot on board", "0"), effect=off("Pilot on board", "check box"), also=[Special("space")]),
        case(click("Inspected", "check box"), Click("Inspected", state=2)),
        case(click("Port side", "radio button"), Radio("Port side", "Berth"), effect=on("Port side", "radio button")),
        case(click("Starboard side", "radio button"), Radio("Starboard side", "Berth"), effect=on("Starboard side", "radio button")),
        case(click("Insured", "check box", across=0.1, down=0.1), Click("Insured", state=1), effect=on("Insured", "check box")),
        case(click("Insured", "text"), Click(re.compile(".*")), also=[]),
        case(click("By whom", "label", across=0.9), effect=hides("Nobody")),
        case(click("Fog horn", "check box"), Click("Fog horn", state=1), effect=on("Fog horn", "check box")),
        case(click("Follow", "button"), Click("Follow"), effect=shows("Following", "button")),
        case(click("Call the pilot", "button"), Click("Call the pilot")),
        case(click("Signals", "button"), Click("Signals"), then=keys("Escape")),
        case(steps(click("Signals", "button"), keys("Down", "Return")), Special("carriage return"),
             also=[Click("Signals"), Combination("NumericPad + Function + down arrow")]),
        case(click("Sails", "button"), Click("Sails")),
    ]


def views():
    return [
        case(click("Bella", "cell"), Item("Bella")),
        case(click("Irish", "cell"), Row(("Bella", "Irish", "2"), "Flag", "Irish")),
        case(double_click("9", "cell"), Row(None, "Length", "9"), also=[Row(None, "Length", "9")]),
        case(steps(typing("10"), keys("Return")), Special("carriage return"), effect=shows("10", "cell"),
             also=[Text(None, "10")]),
        case(click("Length", "header"), Click("Length"), also=[Selected(None)]),
        case(click("3", "header"), Row(("3", "Cora")), also=[Selected(None)]),
        case(click("South", "item"), Item("South")),
        case(click("Depth", "header"), Click("Depth")),
        case(double_click("North", "item"), Item("North"), effect=shows("Dora", "item"), also=[Item("North")]),
        case(click("Dora", "item"), Item("Dora")),
        case(keys("Up"), Selected(re.compile('.*"Ella".*')), Combination("NumericPad + Function + up arrow")),
        case(click("Bricks", "item", across=0.1), Item("Bricks")),
        case(click("Sealed", "item", across=0.03), Item("Sealed")),
        case(click("Weather", "page tab"), Radio("Weather")),
        case(click("Rules", "page tab"), Radio("Rules")),
        case(click("Lights", "page tab"), Radio("Lights")),
    ]


def bars():
    return [
        case(choose("Ship", "Moor"), Click("Ship -> Moor")),
        case(choose("View", "Layers", "Depth lines"), Click("View -> Layers -> Depth lines"), also=[Click("View -> Layers")]),
        case(click("Report", "button"), Click("Report")),
        case(click("Send", "button", across=0.3), Click("Send")),
        case(click("Send", "button", across=0.93), Click("Send"), then=keys("Escape")),
        case(steps(click("Open", "button"), click("Open", "button", down=2.5)), Click(("Map", "Log")), also=[Click("Open")]),
        case(click("Float", "button"), Click("Float")),
        case(click("Float", "button"), Click("Float")),
        case(click("Close", "button"), Click("Close")),
    ]


def dialogs():
    return [
        case(click("Ask", "button"), Click("Ask"), effect=titled("Leave")),
        case(click("No", "button"), Click(("No", "&No")), effect=titled("Harbour")),
        case(click("Rename", "button"), Click("Rename"), effect=titled("Rename")),
        case(typing("Brig"), Text(("New name:", "New name"), "Brig")),
        case(click("OK", "button"), Click(("OK", "&OK")), effect=titled("Harbour")),
        case(click("Load", "button"), Click("Load"), effect=titled("Load")),
        case(typing("42"), Spinner(("Tons:", "Tons"), "42")),
        case(click("Cancel", "button"), Click("Cancel"), effect=titled("Harbour")),
        case(click("Paint", "button"), Click("Paint"), effect=titled("Select Color")),
        case(click("HTML:", "text"), Click(("HTML:", "HTML"))),
        case(steps(keys("ctrl+a"), typing("#00ff00")), Text(("HTML:", "HTML"), "#00ff00"), also=[Combination("Control + a")]),
        case(click("OK", "button"), Click(("OK", "&OK")), effect=titled("Harbour")),
        case(click("Letters", "button"), Click("Letters"), effect=titled("Select Font")),
        case(click("Strikeout", "check box"), Click("Strikeout", state=1), effect=on("Strikeout", "check box")),
        case(keys("Escape"), effect=titled("Harbour")),
    ]


def cases():
    return fields() + choices() + views() + bars() + dialogs()
