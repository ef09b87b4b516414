"""What a person who clicks on something that changes with the click would say it was, and how to click on it."""
import time

import hands
import toolkits
from expected import click, click_radio_button, key_combination, special_key
from waiting import wait_until

WITHIN_THE_LABEL = 0.1
LONGER_THAN_A_FRAME = 0.1  # seconds

# The case, what is clicked on, and the kind of element that it is; what it is called, if that is not what stands on it.
COMMON = [
    ("play", "Play", "button"),
    ("counter", "3 votes", "button"),
    ("follow", "Follow", "toggle"),
    ("ruler", "Show ruler", "check"),
    ("dismiss", "Dismiss", "button"),
    ("remove", "Remove", "button"),
    ("disable", "Send", "button"),
    ("swap", "Move down", "button"),
    ("row", "Delete Lisbon", "button"),
    ("pages", "Next page", "button"),
    ("ok", "OK", "button"),
    ("slow", "Reckon", "button"),
]
WIDGETS = COMMON + [
    ("tabs", "Close Charts", "button"),
    ("menu", "Show grid", "item of View"),
    ("chosen", "Helm", "item"),
    ("cancel", "Cancel", "button"),
    ("save", "Save", "button"),
    ("close", "Close", "button"),
    ("files", "Cancel", "button"),
    ("window", "Leave", "button"),
    ("maximised", "Log off", "button"),
]
PARTS_OF_PAGES = COMMON + [
    ("aria", "Sound", "button", "Mute"),
    ("toast", "Archive", "button"),
    ("grab", "Grab", "button"),
    ("vanish", "Vanish", "button"),
    ("chosen", "Salt", "item"),
    ("chosenAtPress", "Salt", "item"),
]


def by_return(*cases):
    return [(case, target, "Return") for case, target, _ in WIDGETS if case in cases]


# Keys that change or close what has the keyboard focus.
KEYS = by_return("play", "counter", "dismiss", "row", "pages", "slow")
KEYS_IN_DIALOGS = by_return("ok", "cancel", "save", "close")
KEYS_IN_WINDOWS = [("window", "Leave", "alt+F4")]

# What keys are called.
SPECIAL_KEYS = {"Return": "carriage return"}
COMBINATIONS = {"alt+F4": "Option + Function + f4"}

# What toolkits call the kinds.
GTK3 = {"button": toolkits.Gtk3.button, "toggle": "toggle button", "check": "check box", "menu item": "menu item",
        "item": "list item", "tab": "page tab"}
GTK4 = {**GTK3, "button": "button", "toggle": toolkits.Gtk4.toggle_button, "check": "checkbox", "menus have paths": False}
QT = {**GTK3, "button": toolkits.Qt5.button, "toggle": "check box"}


def expected(name, kind, words):
    if kind == "tab":
        return click_radio_button(name, words["tab"], "")
    if kind.startswith("item of "):
        menu = kind.removeprefix("item of ")
        path = f"{menu} -> {name}" if words.get("menus have paths", True) else name
        return click(path, words["menu item"])
    has_state = kind in ("toggle", "check") and words[kind] != words["button"]
    return click(name, words[kind], state=1 if has_state else 2)


def is_click(report):
    return report["action"].startswith("Click")


def is_key(report):
    return report["action"].startswith("Press")


class Changing:
    """Clicks on what changes; `application` shows the cases, `collection` has the reports."""

    def __init__(self, application, collection, words, aim):
        """`aim`: for how many seconds the pointer rests before the press."""
        self.application, self.collection, self.words, self.aim = application, collection, words, aim

    def place_of(self, target):
        """Where it stays: toolkits lay out what is new, and window managers move it."""
        first_seen = {}

        def settled():
            place = tuple(self.application.place(target))
            since = first_seen.setdefault(place, time.monotonic())
            return place if time.monotonic() - since > LONGER_THAN_A_FRAME else None

        return wait_until(settled, f"{target} to stay where it is")

    def told(self, case, target, kind, hold):
        """The first report of a click, None if there is none."""
        self.application.ask("show", case)
        if kind.startswith("item of "):
            self.place_of(kind.removeprefix("item of "))
            self.application.click(kind.removeprefix("item of "))
            self.collection.until(is_click, patience=0.3)
        hands.point_to(self.place_of(target), across=WITHIN_THE_LABEL)
        self.application.ask("idle", None)
        hands.click(hold, after=self.aim)
        reports = self.collection.until(is_click, patience=1)
        return reports[-1] if reports and is_click(reports[-1]) else None

    def told_by_key(self, case, target, key):
        """The report of a key that is pressed in a widget when it has the focus, with what it does to the widget."""
        self.application.ask("show", case)
        self.place_of(target)
        self.application.focus(target)
        idle = key_combination("Function + f9", target, self.words["button"])
        wait_until(lambda: idle in self.reports_of_key("F9"), f"{target} to be followed")
        reports = self.reports_of_key(key)
        return reports[-1] if reports else None

    def reports_of_key(self, key):
        hands.key(key)
        return self.collection.until(is_key, patience=0.5)

    def wrong_keys(self, cases):
        faults = {}
        for case, target, key in cases:
            told, control = self.told_by_key(case, target, key), self.words["button"]
            right = (special_key(SPECIAL_KEYS[key], target, control) if key in SPECIAL_KEYS
                     else key_combination(COMBINATIONS[key], target, control))
            if told != right:
                faults[case] = f"{told} instead of {right}"
        return faults

    def wrong(self, cases, hold):
        """The cases that are not told as a person would, each with what is told instead."""
        faults = {}
        for case, target, kind, *name in cases:
            told = self.told(case, target, kind, hold)
            right = expected(name[0] if name else target, kind, self.words)
            if told != right:
                faults[case] = f"{told} instead of {right}"
        return faults
