"""A Java Swing program with the accessibility wrapper."""
from cases import *

WRAPPER = ("-Djavax.accessibility.assistive_technologies=org.GNOME.Accessibility.AtkWrapper "
           "-Djava.library.path=/usr/lib/x86_64-linux-gnu/jni -cp /usr/share/java/java-atk-wrapper.jar:{home}")

PROGRAM = Program(
    "Java Swing", "libatk-wrapper-java",
    ["sh", "-c", "javac -d {home} {here}/programs/Harbour.java && exec java " + WRAPPER + " Harbour"],
    opens=Application(("Harbour", "Harbour ledger"), "Harbour ledger"),
    cases=[
        case(click("Weigh anchor", "button"), Click("Weigh anchor"), effect=shows("Anchor weighed", "label")),
        case(click("Alarm", "button"), Click("Alarm", state=1)),
        case(click("Lanterns", "check box"), Click("Lanterns", state=1), effect=on("Lanterns", "check box")),
        case(click("Lanterns", "check box"), Click("Lanterns", state=0), effect=off("Lanterns", "check box")),
        case(click("South", "radio button"), Radio("South"), effect=on("South", "radio button")),
        case(click("North", "radio button"), Radio("North"), effect=on("North", "radio button")),
        case(steps(click("Ship", "text"), keys("ctrl+a"), typing("Tern")), Text("Ship", "Tern"),
             also=[Click("Ship"), Combination("Control + a")]),
        case(keys("Return"), Special("carriage return", "Ship"), also=[Text("Ship", "Tern")], effect=titled("Harbour")),
        case(steps(click("Password", "password"), typing("gannet")), Password("Password"), also=[Click("Password")]),
        case(click("Cargo", "combo box"), Click(("Cargo", "Cargo: Tea"))),
        case(click("Salt"), Item(("Salt", "Cargo: Salt"))),
        case(click("Crew", "spin", across=0.95, down=0.25), Spinner("Crew", "4"), also=[Click("Crew")]),
        case(click("Speed", "slider", across=0.8), Click("Speed"), also=[Slider("Speed", None)]),
        case(click("Bergen"), Row("Bergen", "Harbour", "Bergen")),
        case(click("15 m"), Row("Genoa", "Depth", "15 m")),
        case(click("Duties", "page tab"), Radio("Duties"), effect=shows("Lookout")),
        case(click("Lookout"), Item("Lookout")),
        case(click("Fleets", "page tab"), Radio("Fleets"), effect=shows("Southern")),
        case(click("Southern"), Item("Southern")),
        case(choose("Voyage", "About…"), Click("Voyage -> About…"), also=[Click("Voyage")], effect=titled("About")),
        case(click("OK", "button"), Click("OK"), effect=titled("Harbour ledger")),
    ])
