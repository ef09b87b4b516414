"""What a person does in programs/harbourmaster.html, whatever browser shows it."""
from pages import *

PAGE = Path(__file__).resolve().parent / "programs/harbourmaster.html"

CASES = [
    case(press("fog"), Click("Fog horn", state=1)),
    case(press("fog"), Click("Fog horn", state=0)),
    case(steps(press("arrive", across=0.1), typing("11252026")),
         Told(("ChangeText", "ChangeSpinner"), elementName="Arrival", newValue=re.compile(".*2026.*")),
         also=[Click("Arrival")], effect=contains("arrive", "2026-11-25"), then=keys("Escape")),
    case(press("crew", across=0.85, down=0.25), Spinner("Crew members", "5"), also=[Click("Crew members")],
         effect=contains("crew", "5")),
    case(press("crew", across=0.85, down=0.75), Spinner("Crew members", "4"), also=[Click("Crew members")],
         effect=contains("crew", "4")),
    case(press("tea"), Click("Tea", state=1), effect=contains("tea", True)),
    case(press("cabin"), Radio("Cabin", "Class of ticket"), effect=contains("cabin", True)),
    case(press("chipx"), Click("Remove Jib")),
    case(steps(press("picker", across=0.4), typing("Ann")), Text("Pilot", "Ann"), also=[Click("Pilot")]),
    case(press("picker", across=0.8), Click("Call pilot")),
    case(press("toggle"), Click("Night mode", state=1)),
    case(steps(press("pin"), typing("tern")), Password("Safe code"), also=[Click("Safe code")], effect=contains("pin", "tern")),
    case(press("menu"), Click("Columns")),
    case(press("mdepth"), Click(("Depth", "Columns -> Depth"))),
    case(press("mflag"), Click(("Flag", "Columns -> Flag"))),
    case(press("b2"), Row(("North 1", "North 1 Petrel"), "Boat", "Petrel")),
    case(press("range", across=0.82), Click("Draught"), Slider("Draught", "9"), effect=contains("range", "9")),
    case(press("sum"), Click("Customs papers", state=(1, 2))),
    case(steps(press("remark"), typing("fog")), Click("Remarks"), effect=contains("remark", "fog")),
    case(press("more"), Click("More lanterns"), effect=contains("spin", "3")),
    case(press("p2"), Link("Page 2", re.compile(".*#p2"))),
    case(press("icon"), Click("Print list")),
    case(press("close"), Click("Close notice")),
    case(press("sig2"), Item("Bravo")),
]
