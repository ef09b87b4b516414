#!/usr/bin/python3
"""Clicks on what changes, goes or moves with the click: what was pressed is what is told."""
from applications import ControlledApplication
from browser import Chromium, Firefox
from changing_cases import (GTK3, GTK4, KEYS, KEYS_IN_DIALOGS, KEYS_IN_WINDOWS, PARTS_OF_PAGES, QT, WIDGETS,
                            Changing)
from desktop import EndToEndTest, main

AS_A_PERSON_DOES = 0.08  # seconds that a button is held


class ChangingTest:
    """Mixed into an EndToEndTest that opens an application."""

    cases = WIDGETS
    aim = 0.15
    keys = KEYS + KEYS_IN_DIALOGS + KEYS_IN_WINDOWS
    not_told_yet = ()  # cases that are measured (measure_changing.py) but not held
    first_in_page = ()  # done, so that the browser shows its page to who asks, but not held

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.changing = Changing(cls.open(cls.application()), cls.collection, cls.words, cls.aim)
        for case in [case for case in cls.cases if case[0] in cls.first_in_page]:
            cls.changing.wrong([case], AS_A_PERSON_DOES)

    def test_what_was_pressed_is_told(self):
        for case in [case for case in self.cases if case[0] not in (*self.not_told_yet, *self.first_in_page)]:
            with self.subTest(case[0]):
                self.assertEqual(self.changing.wrong([case], AS_A_PERSON_DOES), {})


    def test_what_had_the_focus_is_told(self):
        for case in self.keys:
            with self.subTest(case[0]):
                self.assertEqual(self.changing.wrong_keys([case]), {})


# A page that changes at the press may do so before it can be asked.
AT_PRESS = ("grab", "vanish", "chosenAtPress")

# For toolkits whose tabs have no parts that can be read: the button in one is told as the tab.
WIDGETS_WITH_BARE_TABS = [("tabs", "Close Charts", "tab", "Charts") if case[0] == "tabs" else case for case in WIDGETS]


class Gtk3(ChangingTest, EndToEndTest):
    words, cases = GTK3, WIDGETS_WITH_BARE_TABS
    application = staticmethod(lambda: ControlledApplication("changing_gtk3.py"))


class Gtk4(ChangingTest, EndToEndTest):
    words = GTK4
    # A window that opens with the focus where it stays may be told of before the window behind it is.
    keys = [case for case in KEYS + KEYS_IN_DIALOGS + KEYS_IN_WINDOWS if case[0] not in ("cancel", "close", "window")]
    application = staticmethod(lambda: ControlledApplication("changing_gtk4.py"))


class Qt5(ChangingTest, EndToEndTest):
    words, cases, keys = QT, WIDGETS_WITH_BARE_TABS, KEYS_IN_DIALOGS + KEYS_IN_WINDOWS
    application = staticmethod(lambda: ControlledApplication("changing_qt.py", "PyQt5"))


class Qt6(ChangingTest, EndToEndTest):
    words, cases, keys = QT, WIDGETS_WITH_BARE_TABS, KEYS_IN_DIALOGS + KEYS_IN_WINDOWS
    application = staticmethod(lambda: ControlledApplication("changing_qt.py", "PyQt6"))


class PageInChromium(ChangingTest, EndToEndTest):
    words, cases, keys = GTK3, PARTS_OF_PAGES, KEYS + KEYS_IN_DIALOGS[:1]
    first_in_page = ("play",)
    not_told_yet = AT_PRESS
    aim = 0.6  # a browser tells of what is new in a page only after a while
    application = staticmethod(lambda: Chromium(page="changing.html"))


class PageInFirefox(ChangingTest, EndToEndTest):
    words, cases, keys = GTK3, PARTS_OF_PAGES, KEYS + KEYS_IN_DIALOGS[:1]
    first_in_page = ("play",)
    not_told_yet = AT_PRESS
    aim = 0.6
    application = staticmethod(lambda: Firefox(page="changing.html"))


if __name__ == "__main__":
    main()
