#!/usr/bin/python3
"""A Qt window with one of each widget; control.py says how a test asks where they are. The argument: PyQt5 (default) or PyQt6."""
import importlib
import sys

from control import Control

BINDING = sys.argv[1] if len(sys.argv) > 1 else "PyQt5"
QtCore, QtWidgets = (importlib.import_module(f"{BINDING}.{module}") for module in ("QtCore", "QtWidgets"))

HARBOURS = [("Lisbon", "12 m"), ("Bergen", "30 m"), ("Genoa", "15 m"), ("Cork", "9 m")]
FLEETS = [("Northern", ["Gull", "Tern"]), ("Southern", ["Petrel"])]


class Named:
    """A main window that knows its widgets by their names, and may obey further commands."""

    commands = {}

    def __init__(self, title, width, height):
        self.main = QtWidgets.QMainWindow()
        self.main.setWindowTitle(title)
        self.main.resize(width, height)
        self.widgets = {}

    def named(self, name, widget):
        self.widgets[name] = widget
        return widget


class Window(Named):
    def __init__(self):
        super().__init__("Quay ledger", 900, 640)
        voyage = self.main.menuBar().addMenu("Voyage")
        past = voyage.addMenu("Past")
        for menu, text in ((past, "Lisbon 1920"), (past, "Cork 1921"), (voyage, "Depart")):
            self.widgets[text] = (menu, menu.addAction(text))
        self.widgets["Voyage"] = (self.main.menuBar(), voyage.menuAction())
        self.widgets["Past"] = (voyage, past.menuAction())
        centre = QtWidgets.QWidget()
        self.main.setCentralWidget(centre)
        columns = QtWidgets.QHBoxLayout(centre)
        for build in (self.controls, self.texts, self.views):
            column = QtWidgets.QVBoxLayout()
            columns.addLayout(column)
            build(column)
            column.addStretch()

    def labelled(self, text, widget):
        label = self.named(f"{text} around", QtWidgets.QLabel(text))
        label.setBuddy(self.named(text, widget))
        box = QtWidgets.QHBoxLayout()
        box.addWidget(label)
        box.addWidget(widget)
        return box

    def controls(self, column):
        for text in ("Weigh anchor", "Drop anchor"):
            column.addWidget(self.named(text, QtWidgets.QPushButton(text)))
        column.addWidget(self.named("Lanterns", QtWidgets.QCheckBox("Lanterns")))
        course, box = QtWidgets.QGroupBox("Course"), QtWidgets.QHBoxLayout()
        course.setLayout(box)
        for text in ("North", "South", "East"):
            box.addWidget(self.named(text, QtWidgets.QRadioButton(text)))
        self.widgets["North"].setChecked(True)
        column.addWidget(course)
        column.addLayout(self.labelled("Speed", QtWidgets.QSlider(QtCore.Qt.Orientation.Horizontal)))
        column.addLayout(self.labelled("Crew", QtWidgets.QSpinBox()))
        cargo = QtWidgets.QComboBox()
        cargo.addItems(["Tea", "Salt", "Rope"])
        column.addLayout(self.labelled("Cargo", cargo))

    def texts(self, column):
        column.addLayout(self.labelled("Ship", QtWidgets.QLineEdit()))
        column.addLayout(self.labelled("Captain", QtWidgets.QLineEdit()))
        hidden = QtWidgets.QLineEdit.EchoMode.Password
        column.addLayout(self.labelled("Passphrase", QtWidgets.QLineEdit(echoMode=hidden)))
        book = self.named("Log book", QtWidgets.QPlainTextEdit())
        book.setAccessibleName("Log book")
        book.setMaximumHeight(60)
        column.addWidget(book)
        column.addLayout(self.labelled("Letter", QtWidgets.QTextEdit(maximumHeight=40)))
        box = self.named("Nameless around", QtWidgets.QGroupBox("Notes"))
        QtWidgets.QGridLayout(box).addWidget(self.named("Nameless", QtWidgets.QTextEdit(maximumHeight=40)))
        column.addWidget(box)
        pages = self.named("Pages", QtWidgets.QTabWidget())
        for tab, text in (("Charts", "Unroll"), ("Stores", "Count")):
            page = QtWidgets.QWidget()
            QtWidgets.QGridLayout(page).addWidget(self.named(text, QtWidgets.QPushButton(text)))
            pages.addTab(page, tab)
        column.addWidget(pages)

    def views(self, column):
        duties = self.named("Duties", QtWidgets.QListWidget())
        duties.addItems(["Helm", "Lookout", "Galley"])
        harbours = self.named("Harbours", QtWidgets.QTableWidget(len(HARBOURS), 2))
        harbours.setHorizontalHeaderLabels(["Harbour", "Depth"])
        for row, texts in enumerate(HARBOURS):
            for index, text in enumerate(texts):
                harbours.setItem(row, index, QtWidgets.QTableWidgetItem(text))
        fleets = self.named("Fleets", QtWidgets.QTreeWidget())
        fleets.setHeaderLabel("Fleet")
        for fleet, ships in FLEETS:
            item = QtWidgets.QTreeWidgetItem(fleets, [fleet])
            for ship in ships:
                QtWidgets.QTreeWidgetItem(item, [ship])
        fleets.expandAll()
        for name in ("Duties", "Harbours", "Fleets"):
            self.widgets[name].setAccessibleName(name)
            self.widgets[name].setMaximumHeight(160)
            column.addWidget(self.widgets[name])


class Places:
    """Where a widget is on the screen. "Harbours 1 0" is an item of a view: its row (2:0 below row 2) and its column;
    "Pages 1" a tab, "Cargo: 1" an option of a combo box."""

    def __init__(self, window):
        self.widgets = window.widgets

    def place(self, name):
        found, part = self.widgets.get(name), []
        if found is None:
            name, *part = name.split(" ")
            found = self.widgets[name.rstrip(":")]
        if isinstance(found, tuple):
            return self.place_in(found[0], found[0].actionGeometry(found[1]))
        if isinstance(found, QtWidgets.QTabWidget):
            return self.place_in(found.tabBar(), found.tabBar().tabRect(int(part[0])))
        if isinstance(found, QtWidgets.QComboBox) and part:
            return self.place_of_item(found.view(), part + ["0"])
        return self.place_of_item(found, part) if part else self.place_in(found, found.rect())

    @staticmethod
    def place_in(widget, area):
        if not widget.isVisible():
            return None
        corner = widget.mapToGlobal(area.topLeft())
        numbers = (corner.x(), corner.y(), area.width(), area.height())
        return [round(number * widget.devicePixelRatioF()) for number in numbers]

    def place_of_item(self, view, part):
        path, column = part[0].split(":"), int(part[1])
        index = view.rootIndex()
        for row in path:
            index = view.model().index(int(row), 0, index)
        return self.place_in(view.viewport(), view.visualRect(index.siblingAtColumn(column)))

    def value(self, name):
        widget = self.widgets[name]
        for answer in ("isChecked", "currentText", "value", "text", "toPlainText"):
            if isinstance(widget, QtWidgets.QPushButton) and answer == "isChecked":
                continue
            if hasattr(widget, answer):
                return getattr(widget, answer)()
        return None


class Invoker(QtCore.QObject):
    """Runs functions of other threads on the thread of the window."""

    invoked = QtCore.pyqtSignal(object)

    def __init__(self):
        super().__init__()
        self.invoked.connect(lambda function: function())


def run(make, places_in):
    """`make` gives what has the `main` window, and `places_in` of it what is asked for places and values."""
    application = QtWidgets.QApplication(sys.argv)
    application.setQuitOnLastWindowClosed(False)
    made, invoker = make(), Invoker()
    places = places_in(made)
    control = Control({"place": places.place, "value": places.value,
                       "focus": lambda name: made.widgets[name].setFocus(), **made.commands}, invoker.invoked.emit)
    made.main.show()
    QtCore.QTimer.singleShot(0, control.begin)
    sys.exit(application.exec())


if __name__ == "__main__":
    run(Window, Places)
