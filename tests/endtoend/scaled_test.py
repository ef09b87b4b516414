#!/usr/bin/python3
"""Applications that draw larger than the screen's pixels, with their windows on both sides of its middle."""
import os
from unittest import mock

import hands
import toolkits
from applications import ControlledApplication
from desktop import EndToEndTest, main
from expected import click, click_list_item, click_radio_button
from waiting import wait_until

ROW = click_list_item("Bergen", "row", column="Harbour", cell="Bergen")
# What is clicked, and what is told of it: of what opens a menu nothing, and its items lie in a window of their own.
GTK3 = [("Drop anchor", click("Drop anchor", toolkits.Gtk3.button)), ("South", click_radio_button("South", "radio button", "Course")),
        ("Voyage", None), ("Depart", click("Voyage -> Depart", "menu item")), ("Harbours 1 0", ROW),
        ("Lookout", click("Lookout", "list item"))]
GTK4 = [("Weigh anchor", click("Weigh anchor", "button")), ("Tools", None), ("Tools: 1", click("Compass", "menu item")),
        ("Lookout", click("Lookout", "list item"))]
QT = [("Drop anchor", click("Drop anchor", toolkits.Qt5.button)), *GTK3[1:-1], ("Duties 1 0", click("Lookout", "list item"))]
IN_MENUS = ("Depart", "Tools: 1")


class ScaledTest:
    """Mixed into an EndToEndTest."""

    def test_clicks_on_both_sides_of_the_middle(self):
        for x in (0, 1400):
            hands.xdotool("getactivewindow", "windowmove", "--sync", x, 0)
            wait_until(lambda: self.application.place(self.clicks[0][0])[0] // 1400 == x // 1400, "the window to move")
            for widget, told in self.clicks:
                with self.subTest(widget, x=x):
                    self.point_to(widget)
                    hands.click(hold=0.08, after=0)
                    if told:
                        self.expect_among(told)

    def point_to(self, widget):
        """Menus open and close in their own time, and may be moved before they are seen."""
        def is_there():
            hands.point_to(self.application.place(widget))
            return (hands.window_below_pointer() != self.window) == (widget in IN_MENUS)

        wait_until(is_there, f"{widget} below the pointer")

    def setUp(self):
        hands.point_to(self.application.place(self.clicks[0][0]))
        self.window = hands.window_below_pointer()


def scaled(clicks, *command, **environment):
    def opened():
        with mock.patch.dict(os.environ, environment):
            return ControlledApplication(*command)
    return type("Scaled", (ScaledTest, EndToEndTest), {"clicks": clicks, "opened": staticmethod(opened)})


class Gtk3Twice(scaled(GTK3, "gtk3_app.py", GDK_SCALE="2")):
    pass


class Gtk4Twice(scaled(GTK4, "gtk4_app.py", GDK_SCALE="2")):
    pass


class Qt5ByHalf(scaled(QT, "qt_app.py", "PyQt5", QT_SCALE_FACTOR="1.5")):
    pass


class Qt6ByHalf(scaled(QT, "qt_app.py", "PyQt6", QT_SCALE_FACTOR="1.5")):
    pass


class Qt6Twice(scaled(QT, "qt_app.py", "PyQt6", QT_SCALE_FACTOR="2")):
    pass


if __name__ == "__main__":
    main()
