#!/usr/bin/python3
"""A window with numbers that have a decimal point, or comma; the argument: gtk3, PyQt5 or PyQt6. control.py says how it is asked."""
import importlib
import sys

from control import Control


def gtk3():
    import gi
    gi.require_version("Gtk", "3.0")
    from gi.repository import GLib, Gtk

    window = Gtk.Window(title="Soundings")
    rows = Gtk.Grid(row_spacing=4)
    window.add(rows)
    depth = Gtk.SpinButton.new_with_range(0, 10, 0.5)
    heel = Gtk.Scale.new_with_range(Gtk.Orientation.HORIZONTAL, 0, 10, 0.5)
    heel.set_size_request(300, -1)
    widgets = {"Depth": depth, "Heel": heel}
    for number, (name, widget) in enumerate(widgets.items()):
        label = Gtk.Label(label=name)
        label.set_mnemonic_widget(widget)
        rows.attach(label, 0, number, 1, 1)
        rows.attach(widget, 1, number, 1, 1)

    def place(name):
        origin = window.get_window().get_origin()
        x, y = widgets[name].translate_coordinates(window, 0, 0)
        return [origin.x + x, origin.y + y, widgets[name].get_allocated_width(), widgets[name].get_allocated_height()]

    control = Control({"place": place, "value": lambda name: widgets[name].get_value(),
                       "focus": lambda name: widgets[name].grab_focus()}, GLib.idle_add)
    window.connect_after("map-event", lambda *_: control.begin())
    window.show_all()
    Gtk.main()


def qt(binding):
    core, gui = (importlib.import_module(f"{binding}.{module}") for module in ("QtCore", "QtWidgets"))
    application = gui.QApplication(sys.argv)
    window = gui.QWidget()
    window.setWindowTitle("Soundings")
    rows = gui.QFormLayout(window)
    depth = gui.QDoubleSpinBox(singleStep=0.5)
    rows.addRow("Depth", depth)

    class Invoker(core.QObject):
        invoked = core.pyqtSignal(object)

    invoker = Invoker()
    invoker.invoked.connect(lambda function: function())

    def place(_):
        corner = depth.mapToGlobal(core.QPoint(0, 0))
        return [corner.x(), corner.y(), depth.width(), depth.height()]

    control = Control({"place": place, "value": lambda _: depth.value(), "focus": lambda _: depth.setFocus()}, invoker.invoked.emit)
    window.show()
    core.QTimer.singleShot(0, control.begin)
    sys.exit(application.exec() if hasattr(application, "exec") else application.exec_())


if __name__ == "__main__":
    gtk3() if sys.argv[1] == "gtk3" else qt(sys.argv[1])
