"""The user: a pointer and a keyboard, moved by xdotool."""
import subprocess

BUTTONS = {"left": "1", "middle": "2", "right": "3"}


def xdotool(*words):
    return subprocess.run(["xdotool", *map(str, words)], check=True, capture_output=True, text=True).stdout


def point_to(place, across=0.5, down=0.5):
    """Moves the pointer to a place [x, y, width, height]: its middle, or so far across and down."""
    x, y, width, height = place
    xdotool("mousemove", round(x + width * across), round(y + height * down))


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
