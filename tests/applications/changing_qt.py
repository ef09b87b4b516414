#!/usr/bin/python3
"""A Qt window whose widgets change with the click; changing.py says which. The argument: PyQt5 (default) or PyQt6."""
import qt_app
from changing import Cases
from qt_app import Named, QtWidgets


class Kit(Named):
    def __init__(self):
        super().__init__("Tide changes", 420, 360)
        self.others = []
        self.commands = {"show": Cases(self).show}

    def clear(self):
        for window in self.others:
            window.close()
            window.deleteLater()
        self.others = []
        self.widgets.clear()
        self.main.menuBar().clear()
        centre = QtWidgets.QWidget()
        self.column = QtWidgets.QVBoxLayout(centre)
        self.main.setCentralWidget(centre)

    def add(self, text, widget, box=None):
        (self.column if box is None else box).addWidget(widget)
        return self.named(text, widget)

    def button(self, text, act, box=None):
        button = QtWidgets.QPushButton(text)
        button.clicked.connect(lambda *_: act())
        return self.add(text, button, box)

    def toggle(self, text, act):
        button = self.button(text, act)
        button.setCheckable(True)
        return button

    def check(self, text, act):
        box = QtWidgets.QCheckBox(text)
        box.toggled.connect(lambda *_: act())
        return self.add(text, box)

    def rename(self, widget, text):
        widget.setText(text)

    def hide(self, widget):
        widget.hide()

    def remove(self, widget):
        widget.setParent(None)
        widget.deleteLater()

    def disable(self, widget):
        widget.setEnabled(False)

    def move_down(self, widget):
        self.column.removeWidget(widget)
        self.column.addWidget(widget)

    def row(self, text, label, act):
        row = QtWidgets.QWidget()
        box = QtWidgets.QHBoxLayout(row)
        box.addWidget(QtWidgets.QLabel(text))
        self.button(label, act, box)
        self.column.addWidget(row)
        return row

    def pages(self, pages):
        stack = QtWidgets.QStackedWidget()
        for text, act in pages:
            page = QtWidgets.QWidget()
            self.button(text, act, QtWidgets.QVBoxLayout(page))
            stack.addWidget(page)
        self.add("stack", stack)
        return stack.setCurrentIndex

    def tabs(self, names):
        tabs = QtWidgets.QTabWidget()
        for name in names:
            page, close = QtWidgets.QLabel(f"{name} are here"), QtWidgets.QPushButton(f"Close {name}")
            close.clicked.connect(lambda _, page=page: tabs.removeTab(tabs.indexOf(page)))
            index = tabs.addTab(page, name)
            tabs.tabBar().setTabButton(index, QtWidgets.QTabBar.ButtonPosition.RightSide, close)
            self.widgets[f"Close {name}"] = close
        self.add("tabs", tabs)

    def menu(self, title, before, after):
        menu = self.main.menuBar().addMenu(title)
        item = menu.addAction(before)
        item.triggered.connect(lambda *_: item.setText(after))
        self.widgets.update({title: (self.main.menuBar(), menu.menuAction()), before: (menu, item)})

    def list(self, texts):
        view = QtWidgets.QListWidget()
        view.addItems(texts)
        view.setAccessibleName("Duties")
        view.itemClicked.connect(lambda item: view.takeItem(view.row(item)))
        self.add("Duties", view)

    def opened(self, window):
        self.others.append(window)
        behind = self.add("Behind", QtWidgets.QPushButton("Behind"))
        behind.setMinimumHeight(300)
        window.show()

    def dialog(self, buttons):
        dialog = QtWidgets.QDialog(self.main)
        dialog.setWindowTitle("Changed")
        column, box = QtWidgets.QVBoxLayout(dialog), QtWidgets.QHBoxLayout()
        column.addWidget(QtWidgets.QLabel("The log has changed."))
        column.addLayout(box)
        for text in buttons:
            self.button(text, dialog.accept, box)
        self.opened(dialog)

    def files(self):
        dialog = QtWidgets.QFileDialog(self.main)
        dialog.setOption(QtWidgets.QFileDialog.Option.DontUseNativeDialog)
        self.opened(dialog)
        for button in dialog.findChildren(QtWidgets.QPushButton):
            self.widgets[button.text().replace("&", "")] = button

    def window(self, text, maximised=False):
        window = QtWidgets.QWidget()
        window.setWindowTitle("Second log")
        window.resize(300, 200)
        self.button(text, window.close, QtWidgets.QVBoxLayout(window))
        if maximised:
            self.main.showMaximized()
            window.showMaximized()
        self.opened(window)


class Places(qt_app.Places):
    def place(self, name):
        return super().place("Duties 0 0" if name == "Helm" and "Duties" in self.widgets else name)


if __name__ == "__main__":
    qt_app.run(Kit, Places)
