"""What a person does in programs/page.html, whatever browser shows it. The page says where its elements are."""
from pathlib import Path

from cases import *
from person import Click as PersonClick
from person import Unable
from waiting import wait_until

PAGE = Path(__file__).resolve().parent / "programs/page.html"


class Spot(Target):
    def place(self, tree):
        try:
            return wait_until(lambda: tree.page.ask("place", self.name), self.name, 3)
        except AssertionError as fault:
            raise Unable(str(fault)) from None


def press(name, button="left", **where):
    return PersonClick(Spot(name, **where), button)


def contains(name, value):
    return effects.Effect(f"{name} with {value!r}", lambda tree: tree.page.ask("value", name) == value)


CASES = [
    case(press("Weigh anchor"), Click("Weigh anchor")),
    case(press("Follow"), Click("Follow")),
    case(press("Sink"), Click("Sink")),
    case(press("Signal"), Click("Signal")),
    case(press("Tides"), Link("Tides", re.compile(".*#tides"))),
    case(press("Lanterns"), Click("Lanterns", state=1), effect=contains("Lanterns", True)),
    case(press("Lanterns"), Click("Lanterns", state=0), effect=contains("Lanterns", False)),
    case(press("South"), Radio("South"), effect=contains("South", True)),
    case(press("Cargo"), Click(("Cargo", "Cargo: Tea"))),
    case(press("Cargo", down=2.5), Item(("Salt", "Cargo: Salt")), effect=contains("Cargo", "Salt")),
    case(press("Lookout"), Item("Lookout"), effect=contains("Duties", "Lookout")),
    case(press("Speed", across=0.75), Click("Speed"), Slider("Speed", re.compile("7[0-9]"))),
    case(press("Crew", across=0.93, down=0.25), Spinner("Crew", "4"), also=[Click("Crew")], effect=contains("Crew", "4")),
    case(steps(press("Ship"), typing("Gull")), Text("Ship", "Gull"), also=[Click("Ship")], effect=contains("Ship", "Gull")),
    case(keys("Return"), Special("carriage return", "Ship"), also=[Text("Ship", "Gull")], effect=contains("Ship", "Gull")),
    case(steps(press("Passphrase"), typing("gannet")), Password("Passphrase"), also=[Click("Passphrase")],
         effect=contains("Passphrase", "gannet")),
    case(steps(press("Search"), typing("reef")), Text("Search the bay", "reef"), also=[Click("Search the bay")],
         effect=contains("Search", "reef")),
    case(steps(press("Flag", across=0.3), typing("Blue")), Text("Flag", "Blue"), also=[ComboBox("Flag")], then=keys("Escape")),
    case(steps(press("Arrival", across=0.1), typing("11232026")), Told(("ChangeText", "ChangeSpinner"), elementName="Arrival", newValue=re.compile(".*2026.*")), then=keys("Escape"),
         also=[Click("Arrival")], effect=contains("Arrival", "2026-11-23")),
    case(steps(press("Log book"), typing("calm")), Click("Log book"), effect=contains("Log book", "calm")),
    case(keys("ctrl+a"), Combination("Control + a", "Log book")),
    case(press("More"), Click("More", state=(1, 2))),
    case(press("Moor"), Click("Moor")),
    case(press("Alarm"), Click("Alarm")),
    case(press("Fenders"), Click("Fenders", state=1)),
    case(press("Autopilot"), Click("Autopilot", state=1)),
    case(press("Low"), Radio("Low", "Tide")),
    case(press("Stores"), Radio("Stores", "Pages")),
    case(press("Charts"), Link("Charts")),
    case(press("Depth"), Click("Depth"), Slider("Depth", "3")),
    case(press("Voyage"), Click("Voyage")),
    case(press("Depart"), Click(("Depart", "Voyage -> Depart"))),
    case(steps(press("Voyage"), press("Night watch")), Click(("Night watch", "Voyage -> Night watch")), also=[Click("Voyage")]),
    case(press("Genoa"), Item("Genoa")),
    case(press("Southern"), Item("Southern")),
    case(steps(press("Remark"), typing("fog")), Click("Remark")),
    case(press("Red buoy", across=0.1), Item("Red buoy")),
    case(press("9 m"), Row(("Cork", "Cork 9 m"), "Quay", "9 m")),
    case(press("Ann"), Row(("Monday", "Monday Ann"), "Mate", "Ann")),
]
