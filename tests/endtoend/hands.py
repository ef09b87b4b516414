"""The user: a pointer and a keyboard, moved by xdotool, or as the compositor of a Wayland desktop lets them be moved."""
import os
import subprocess

BUTTONS = {"left": "1", "middle": "2", "right": "3"}


def xdotool(*words):
    return subprocess.run(["xdotool", *map(str, words)], check=True, capture_output=True, text=True).stdout


def point_to(place, across=0.5, down=0.5):
    """Moves the pointer to a place [x, y, width, height]: its middle, or so far across and down."""
    x, y, width, height = place
    move_to(round(x + width * across), round(y + height * down))


def move_to(x, y):
    xdotool("mousemove", x, y)


def move(right, down):
    xdotool("mousemove_relative", "--", right, down)


def window_below_pointer():
    return xdotool("getmouselocation", "--shell").partition("WINDOW=")[2]


def press(button="left"):
    xdotool("mousedown", BUTTONS[button])


def release(button="left"):
    xdotool("mouseup", BUTTONS[button])


def key(*names):
    """Presses keys one after the other, as "Return" or "ctrl+c"."""
    xdotool("key", "--clearmodifiers", *names)


def type_text(text, keys_a_second=50):
    xdotool("type", "--clearmodifiers", "--delay", round(1000 / keys_a_second), text)


def click(hold, after, button="left"):
    """Moves a little, presses after so many seconds and holds for so many, without another process in between."""
    xdotool("mousemove_relative", "1", "1", "sleep", after, "mousedown", BUTTONS[button], "sleep", hold, "mouseup", BUTTONS[button])


def front_window():
    """Its process and its title; 0 where there is none."""
    active = subprocess.run(["xdotool", "getactivewindow", "getwindowpid", "getwindowname"], capture_output=True, text=True)
    process, _, title = active.stdout.partition("\n")
    return int(process or 0), title.rstrip("\n")


def activate(pid):
    """Brings a window of the process to the front."""
    xdotool("windowactivate", "--sync", xdotool("search", "--all", "--onlyvisible", "--pid", pid, "--name", ".").split()[0])


def origin_of(_):
    """Where the window of a process begins on the screen, if the process does not know."""
    return 0, 0


if "WAYLAND_DISPLAY" in os.environ:
    from wayland_desktop import activate, front_window, key, move, move_to, origin_of, press, release, type_text
