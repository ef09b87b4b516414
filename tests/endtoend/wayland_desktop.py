"""The user and the windows of a Wayland desktop, with the functions that hands.py has for an X server."""
import json
import os
import subprocess

import dbus

from waiting import wait_until
from wayland import BUTTONS, FakeInput, VirtualInput, Wayland, unsigned

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


class MutterInput:
    """Pointer and keyboard of GNOME Shell, which moves from where the pointer is."""

    def __init__(self, *_):
        self.interface = "org.gnome.Mutter.RemoteDesktop"
        path = self.on_bus("/org/gnome/Mutter/RemoteDesktop", self.interface).CreateSession()
        self.session = self.on_bus(path, f"{self.interface}.Session")
        self.session.Start()
        self.at = None

    def on_bus(self, path, interface):
        return dbus.Interface(dbus.SessionBus().get_object(self.interface, path), interface)

    def move(self, x, y):
        if self.at is None:
            self.session.NotifyPointerMotionRelative(5000.0, 5000.0)  # into a corner that opens nothing
            self.at = SIZE[0] - 1, SIZE[1] - 1
        self.session.NotifyPointerMotionRelative(float(x - self.at[0]), float(y - self.at[1]))
        self.at = x, y

    def button(self, name, is_pressed):
        self.session.NotifyPointerButton(BUTTONS[name], is_pressed)

    def key(self, code, is_pressed, _):
        self.session.NotifyKeyboardKeycode(dbus.UInt32(code), is_pressed)


class GnomeShellWindows:
    """Asked of the shell itself, which runs what a test wants in its unsafe mode."""

    make_input = MutterInput
    LIST = """global.get_window_actors().map(({meta_window: window}) => ({pid: window.get_pid(), title: window.get_title(),
        active: window.has_focus(), isTopLevel: window.get_transient_for() === null,
        frame: [window.get_frame_rect().x, window.get_frame_rect().y],
        buffer: [window.get_buffer_rect().x, window.get_buffer_rect().y]}))"""

    def __init__(self, _):
        self.shell = dbus.Interface(dbus.SessionBus().get_object("org.gnome.Shell", "/org/gnome/Shell"), "org.gnome.Shell")
        # It starts with the overview over all windows.
        wait_until(lambda: not self.run("Main.overview.hide(), Main.overview.visible || Main.overview.animationInProgress"),
                   "the end of the overview")

    def run(self, script):
        has_succeeded, result = self.shell.Eval(script)
        assert has_succeeded, result
        return json.loads(result) if result else None

    def all(self):
        return [{**window, "origin": window["frame"]} for window in self.run(self.LIST) if window["isTopLevel"]]

    def activate(self, pid):
        self.run(f"Main.activateWindow(global.get_window_actors().find(each => each.meta_window.get_pid() === {pid}).meta_window)")


def kind_of_desktop():
    if "SWAYSOCK" in os.environ:
        return SwayWindows
    return GnomeShellWindows if os.environ.get("NORRA_COMPOSITOR") == "gnome_shell" else KWinWindows


class Desktop:
    """Connected at the first use, for the desktop of the environment."""

    def __init__(self):
        self.wayland = Wayland()
        kind = kind_of_desktop()
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
