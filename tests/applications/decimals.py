#!/usr/bin/python3
"""A window with numbers that have a decimal point, or comma; the argument: gtk3, PyQt5 or PyQt6. control.py says how it is asked."""
import sys


def gtk3():
    from gtk3_app import Gtk, Places
    from gtk_windows import Named, run

    class Soundings(Named):
        def __init__(self):
            super().__init__()
            self.main = Gtk.Window(title="Soundings")
            rows = Gtk.Box(orientation=Gtk.Orientation.VERTICAL, spacing=4)
            self.main.add(rows)
            heel = Gtk.Scale.new_with_range(Gtk.Orientation.HORIZONTAL, 0, 10, 0.5)
            heel.set_size_request(300, -1)
            rows.add(self.labelled("Depth", Gtk.SpinButton.new_with_range(0, 10, 0.5)))
            rows.add(self.labelled("Heel", heel))

    run(Soundings, Places)


def qt():
    from qt_app import Named, Places, QtWidgets, run

    class Soundings(Named):
        def __init__(self):
            super().__init__("Soundings", 300, 100)
            rows = QtWidgets.QWidget()
            QtWidgets.QFormLayout(rows).addRow("Depth", self.named("Depth", QtWidgets.QDoubleSpinBox(singleStep=0.5)))
            self.main.setCentralWidget(rows)

    run(Soundings, Places)


if __name__ == "__main__":
    gtk3() if sys.argv[1] == "gtk3" else qt()
