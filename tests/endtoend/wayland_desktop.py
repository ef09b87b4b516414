"""The user and the windows of a Wayland desktop, with the functions that hands.py has for an X server."""
import json
import os
import subprocess

from wayland import FakeInput, VirtualInput, Wayland, unsigned

SIZE = 1280, 900

LETTERS = {letter: code for row, first in (("qwertyuiop", 16), ("asdfghjkl", 30), ("zxcvbnm", 44))
           for code, letter in enumerate(row, first)}
DIGITS = {digit: code for code, digit in enumerate("1234567890", 2)}
NAMED = {"Escape": 1, "Tab": 15, "Return": 28, "space": 57, "F5": 63, "F9": 67, "Home": 102, "Up": 103, "Left": 105, "Right": 106,
         "End": 107, "Down": 108, "Delete": 111, "ctrl": 29, "shift": 42, "alt": 56}
KEYS = {**LETTERS, **DIGITS, **NAMED, " ": 57, ".": 52, "/": 53, "-": 12}
SHIFTED = {**{letter.upper(): code for letter, code in LETTERS.items()}, "!": 2, "?": 53}
MODIFIERS = {"shift": 1, "ctrl": 4, "alt": 8}


class SwayWindows:
    """Pid, title, place and state of each window, as the compositor has them."""

    make_input = VirtualInput

    def __init__(self, _):
        pass

    def ask(self, *words):
        return subprocess.run(["swaymsg", *words], check=True, capture_output=True, text=True).stdout

    def all(self):
        return list(self._below(json.loads(self.ask("-t", "get_tree"))))

    def _below(self, node):
        if node.get("pid"):
            yield {"pid": node["pid"], "title": node["name"], "active": node["focused"],
                   "origin": (node["rect"]["x"], node["rect"]["y"])}
        for child in node["nodes"] + node["floating_nodes"]:
            yield from self._below(child)

    def activate(self, pid):
        self.ask(f"[pid={pid}] focus")


class KWinWindows:
    """Through the protocol of its own task bar."""

    make_input = FakeInput

    def __init__(self, wayland):
        self.wayland, self.windows = wayland, {}
        self.manager = wayland.bind("org_kde_plasma_window_management", 16, self._manager)

    def _manager(self, event, arguments):
        if event in (1, 4):  # a window, by its number or by both its number and its name
            number = arguments.unsigned()
            window = {"pid": 0, "title": "", "active": False, "origin": (0, 0)}
            handle = self.wayland.new(lambda event, arguments: self._window(handle, event, arguments))
            self.windows[handle] = window
            self.wayland.send(self.manager, 1, unsigned(handle) + unsigned(number))

    def _window(self, handle, event, arguments):
        window = self.windows.get(handle)
        if not window:
            return
        if event == 0:
            window["title"] = arguments.text()
        elif event == 2:
            window["active"] = arguments.unsigned() & 1 == 1
        elif event == 5:
            del self.windows[handle]
        elif event == 10:
            window["pid"] = arguments.unsigned()
        elif event in (8, 17):  # with what the compositor draws around it; without
            window["origin"] = arguments.integer(), arguments.integer()

    def all(self):
        self.wayland.roundtrip()
        self.wayland.roundtrip()
        return list(self.windows.values())

    def activate(self, pid):
        handle = next(handle for handle, window in self.windows.items() if window["pid"] == pid)
        self.wayland.send(handle, 0, unsigned(1) + unsigned(1))


class Desktop:
    """Connected at the first use, for the desktop of the environment."""

    def __init__(self):
        self.wayland = Wayland()
        kind = SwayWindows if "SWAYSOCK" in os.environ else KWinWindows
        self.windows = kind(self.wayland)
        self.input = kind.make_input(self.wayland, *SIZE)
        self.at = 0, 0

    def press_key(self, name):
        *modifiers, key = name.split("+")
        if key in SHIFTED:
            modifiers, code = [*modifiers, "shift"], SHIFTED[key]
        else:
            code = KEYS[key]
        held = 0
        for modifier in modifiers:
            held |= MODIFIERS[modifier]
            self.input.key(KEYS[modifier], True, held)
        self.input.key(code, True, held)
        self.input.key(code, False, held)
        for modifier in modifiers:
            held &= ~MODIFIERS[modifier]
            self.input.key(KEYS[modifier], False, held)


_desktops = []


def desktop():
    if not _desktops:
        _desktops.append(Desktop())
    return _desktops[0]


def front_window():
    """Its process and its title."""
    return next(((window["pid"], window["title"]) for window in desktop().windows.all() if window["active"]), (0, ""))


def origin_of(pid):
    """Where the window of a process begins on the screen, which the process does not know."""
    return next((window["origin"] for window in desktop().windows.all() if window["pid"] == pid), (0, 0))


def activate(pid):
    desktop().windows.activate(pid)


def move_to(x, y):
    desktop().at = x, y
    desktop().input.move(x, y)


def move(right, down):
    x, y = desktop().at
    move_to(x + right, y + down)


def press(button="left"):
    desktop().input.button(button, True)


def release(button="left"):
    desktop().input.button(button, False)


def key(*names):
    for name in names:
        desktop().press_key(name)


def type_text(text):
    key(*text)
