#!/usr/bin/python3
"""qt_widgets.py VERSION: every standard widget of Qt 5 or 6, in a harbour master's office. What is done shows in the status bar."""
import importlib
import sys

VERSION = sys.argv[1]
for module in ("QtCore", "QtWidgets"):
    globals().update(vars(importlib.import_module(f"PyQt{VERSION}.{module}")))

application = QApplication(sys.argv)
window = QMainWindow(windowTitle="Harbour office")
window.resize(1240, 790)


def say(*words):
    window.statusBar().showMessage(" ".join(map(str, words)))


def box(title, *widgets, checkable=False):
    group = QGroupBox(title, checkable=checkable)
    layout = QVBoxLayout(group)
    for widget in widgets:
        layout.addWidget(widget)
    return group


def form(*rows):
    page = QWidget()
    layout = QFormLayout(page)
    for label, widget in rows:
        layout.addRow(label, widget)
    return page


def combo_box(*items, editable=False):
    made = QComboBox(editable=editable)
    made.addItems(items)
    made.currentTextChanged.connect(lambda text: say("chosen", text))
    return made


def menu(*items):
    made = QMenu(window)
    for item in items:
        made.addAction(item).triggered.connect(lambda _, item=item: say("did", item))
    return made


def tool_button(text, mode, *items):
    made = QToolButton(text=text, popupMode=mode)
    made.setMenu(menu(*items))
    made.clicked.connect(lambda: say("pressed", text))
    return made


def button(text, deed=None):
    made = QPushButton(text)
    made.clicked.connect(deed or (lambda: say("pressed", text)))
    return made


def fields():
    name, mooring = QLineEdit(), QLineEdit(placeholderText="Mooring")
    mooring.setClearButtonEnabled(True)
    secret = QLineEdit(echoMode=QLineEdit.EchoMode.Password)
    return form(("&Ship:", name), ("", mooring), ("Pass&word:", secret), ("Notes:", QPlainTextEdit(maximumHeight=50)))


def numbers():
    day = QDateEdit(QDate(2026, 3, 14), displayFormat="yyyy-MM-dd", calendarPopup=True)
    arrival = QTimeEdit(QTime(9, 30), displayFormat="HH:mm")
    both = QDateTimeEdit(QDateTime(QDate(2026, 3, 14), QTime(9, 30)), displayFormat="yyyy-MM-dd HH:mm")
    crew = QSpinBox(maximum=500, value=12)
    draught = QDoubleSpinBox(value=2.5, singleStep=0.5, suffix=" m")
    speed = QSlider(Qt.Orientation.Horizontal)
    bearing = QDial(maximum=359, maximumHeight=50)
    return form(("Crew:", crew), ("Draught:", draught), ("Day:", day), ("Arrival:", arrival), ("Slot:", both),
                ("Speed:", speed), ("Bearing:", bearing))


def choices():
    flag, port = combo_box("Danish", "Finnish", "Irish", "Greek"), combo_box("Lisbon", "Cork", "Oslo", editable=True)
    tristate = QCheckBox("Inspected", tristate=True)
    pilot = QCheckBox("Pilot on board")
    pilot.toggled.connect(lambda now: say("pilot", now))
    radios = [QRadioButton(text) for text in ("Port side", "Starboard side")]
    hello = QLabel('<a href="https://example.org/tides">Tide tables</a> are out')
    hello.linkActivated.connect(lambda url: say("link", url))
    insured = box("Insured", QLabel("By whom"), QLineEdit(), checkable=True)
    insured.setChecked(False)
    insured.toggled.connect(lambda now: say("insured", now))
    page = form(("Flag:", flag), ("Port:", port))
    for widget in (pilot, tristate, box("Berth", *radios), insured, hello):
        page.layout().addRow(widget)
    return page


def views():
    table = QTableWidget(3, 3)
    table.horizontalHeader().setDefaultSectionSize(70)
    table.setHorizontalHeaderLabels(["Ship", "Length", "Flag"])
    for row, cells in enumerate((("Anna", "12", "Danish"), ("Bella", "9", "Irish"), ("Cora", "31", "Greek"))):
        for column, text in enumerate(cells):
            table.setItem(row, column, QTableWidgetItem(text))
    table.setMaximumHeight(150)
    tree = QTreeWidget(maximumHeight=130)
    tree.setSortingEnabled(True)
    tree.setHeaderLabels(["Pier", "Depth"])
    for pier, depth, boats in (("North", "4 m", ("Dora", "Ella")), ("South", "6 m", ("Fram",))):
        top = QTreeWidgetItem(tree, [pier, depth])
        for boat in boats:
            QTreeWidgetItem(top, [boat, "2 m"])
    crates = QListWidget(maximumHeight=90)
    crates.addItems(["Apples", "Bricks", "Coal"])
    for text in ("Sealed", "Weighed"):
        item = QListWidgetItem(text, crates)
        item.setCheckState(Qt.CheckState.Unchecked)
    page = QWidget()
    layout = QVBoxLayout(page)
    for widget in (table, tree, crates):
        layout.addWidget(widget)
    return page


def pages():
    book = QTabWidget(tabsClosable=True, maximumHeight=140)
    browser = QTextBrowser(openLinks=False)
    browser.setHtml('<p>Read the <a href="https://example.org/rules">harbour rules</a> first.</p>')
    browser.anchorClicked.connect(lambda url: say("link", url.toString()))
    for title, page in (("Rules", browser), ("Weather", QLabel("Calm")), ("Lights", QLabel("On"))):
        book.addTab(page, title)
    book.tabCloseRequested.connect(lambda number: (say("closed", book.tabText(number)), book.removeTab(number)))
    chests = QToolBox(maximumHeight=130)
    for title in ("Ropes", "Sails"):
        chests.addItem(QLabel(f"All {title.lower()}"), title)
    command = QCommandLinkButton("Call the pilot", "By radio")
    command.clicked.connect(lambda: say("called"))
    toggle = QPushButton("Fog horn", checkable=True)
    toggle.toggled.connect(lambda now: say("horn", now))
    follow = button("Follow", lambda: follow.setText("Following" if follow.text() == "Follow" else "Follow"))
    with_menu = QPushButton("Signals")
    with_menu.setMenu(menu("Raise anchor", "Lower anchor"))
    page = QWidget()
    layout = QVBoxLayout(page)
    for widget in (book, chests, command, toggle, follow, with_menu):
        layout.addWidget(widget)
    return page


def dialogs():
    ask = button("Ask", lambda: say("asked", QMessageBox.question(window, "Leave", "Leave the harbour?")
                                    == QMessageBox.StandardButton.Yes))
    name = button("Rename", lambda: say("renamed", *QInputDialog.getText(window, "Rename", "New name:")))
    amount = button("Load", lambda: say("loaded", *QInputDialog.getInt(window, "Load", "Tons:", 5)))
    colour = button("Paint", lambda: say("painted", QColorDialog.getColor().name()))
    letter = button("Letters", lambda: say("letters", QFontDialog.getFont(window)[-1]))
    group = QWidget()
    layout = QHBoxLayout(group)
    for widget in (ask, name, amount, colour, letter):
        layout.addWidget(widget)
    return group


def build():
    for title, items in (("&Ship", ("&Moor", "&Depart")), ("&View", ("Charts", "Radar"))):
        top = window.menuBar().addMenu(title)
        for item in items:
            top.addAction(item).triggered.connect(lambda _, item=item: say("did", item))
    more = window.menuBar().actions()[1].menu().addMenu("Layers")
    radar = more.addAction("Depth lines")
    radar.setCheckable(True)
    radar.toggled.connect(lambda now: say("lines", now))
    bar = window.addToolBar("Main")
    bar.addAction("Report").triggered.connect(lambda: say("did Report"))
    mode = QToolButton.ToolButtonPopupMode
    bar.addWidget(tool_button("Send", mode.MenuButtonPopup, "By radio", "By post"))
    bar.addWidget(tool_button("Open", mode.InstantPopup, "Log", "Map"))
    dock = QDockWidget("Messages", window)
    dock.setWidget(QLabel("No news"))
    window.addDockWidget(Qt.DockWidgetArea.BottomDockWidgetArea, dock)
    centre = QWidget()
    grid = QGridLayout(centre)
    for place, made in (((0, 0), fields()), ((1, 0), numbers()), ((0, 1, 2, 1), choices()), ((0, 2, 2, 1), views()),
                        ((0, 3, 2, 1), pages()), ((2, 0, 1, 4), dialogs())):
        grid.addWidget(made, *place)
    window.setCentralWidget(centre)


build()
window.show()
(application.exec if hasattr(application, "exec") else application.exec_)()
