#!/usr/bin/python3
"""Applications that draw larger than a pixel of the screen, in each toolkit, with their windows on both sides of the
middle of the screen."""
import os
from unittest import mock

import hands
from applications import ControlledApplication
from desktop import EndToEndTest, main
from expected import click, click_list_item
from waiting import wait_until


class Scaled(ControlledApplication):
    """Says its places in pixels of its own; `origin`: those in its window, which it says in the screen's."""

    def __init__(self, script, *arguments, **environment):
        self.scale = float(next(iter(environment.values())))
        with mock.patch.dict(os.environ, environment):
            super().__init__(script, *arguments)

    def place(self, widget):
        return [number * self.scale for number in super().place(widget)]

    def move(self, x):
        hands.xdotool("getactivewindow", "windowmove", "--sync", x, 0)
        wait_until(lambda: abs(self.window_place()[0] - x) < 20, "the window to move")


class ScaledTest:
    """Mixed into an EndToEndTest; the screen is larger than the window."""

    def test_clicks_on_both_sides_of_the_middle_of_the_screen(self):
        for x in (0, 1300):
            self.application.move(x)
            for widget, *reports in self.clicks:
                with self.subTest(f"{widget}, window at {x}"):
                    self.application.click(widget)
                    told = self.collection.until(lambda report: report == reports[-1], patience=3)
                    self.assertEqual([report for report in told if report["action"].startswith("Click")], reports)


class Gtk3(ScaledTest, EndToEndTest):
    opened = staticmethod(lambda: Scaled("gtk3_app.py", GDK_SCALE="2"))
    clicks = [
        ("Drop anchor", click("Drop anchor", "push button")),
        ("Voyage", ),
    ]


if __name__ == "__main__":
    main()
