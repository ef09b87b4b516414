"""KCalc: Qt 5 with KDE's own dialogs."""
from cases import *

PROGRAM = Program(
    "KCalc", "kcalc", ["kcalc"],
    opens=Application("KCalc", "KCalc"),
    cases=[
        case(click("7", "button"), Click("7"), effect=shows("7", "frame")),
        case(click("+", "button"), Click("+")),
        case(click("5", "button"), Click("5"), effect=shows("5", "frame")),
        case(click("=", "button"), Click("="), effect=shows("12", "frame")),
        case(click("C", "button"), Click("C"), effect=shows("0", "frame")),
        case(keys("8"), effect=shows("8", "frame")),
        case(keys("plus", "8"), effect=shows("8", "frame")),
        case(keys("Return"), Special("carriage return"), effect=shows("16", "frame")),
        case(keys("ctrl+c"), Combination("Control + c"), effect=shows("16", "frame")),
        case(choose("Settings", "Science Mode"), Click("Settings -> Science Mode"), effect=shows("Hyp", "check box")),
        case(click("Hyp", "check box"), Click("Hyp", state=1), effect=on("Hyp", "check box")),
        case(click("Rad", "radio button"), Radio("Rad"), effect=on("Rad", "radio button")),
        case(choose("Settings", "Numeral System Mode"), Click("Settings -> Numeral System Mode"), effect=shows("Hex", "radio button")),
        case(click("Hex", "radio button"), Radio("Hex"), effect=on("Hex", "radio button")),
        case(click("Dec", "radio button"), Radio("Dec"), effect=on("Dec", "radio button")),
        case(choose("Settings", "Simple Mode"), Click("Settings -> Simple Mode"), effect=hides("Hex", "radio button")),
        case(click("AC", "button"), Click("AC"), effect=shows("0", "frame")),
        case(choose("Settings", "Configure KCalc…"), Click("Settings -> Configure KCalc…"), effect=titled("Configure")),
        case(click("Beep on error", "check box"), Click("Beep on error", state=0), effect=off("Beep on error", "check box")),
        case(click("Colors", "item"), Item("Colors")),
        case(click("Font", "item"), Item("Font")),
        case(click("Cancel", "button"), Click("Cancel"), effect=titled("KCalc")),
        case(choose("Help", "About KCalc"), Click("Help -> About KCalc"), effect=titled("About")),
        case(click("Authors", "page tab"), Radio("Authors")),
        case(click("Close", "button"), Click("Close")),
    ])
