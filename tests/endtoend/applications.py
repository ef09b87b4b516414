"""Applications under test, and how they say where their widgets are."""
import json
import os
import subprocess
from pathlib import Path

import hands
from waiting import wait_until

FOLDER = Path(__file__).resolve().parent.parent / "applications"


class Application:
    """A process of its own; ends with the `close` call."""

    def __init__(self, command, **streams):
        self.knows_its_place = os.environ.get("GDK_BACKEND") == "x11"
        self.process = subprocess.Popen([str(word) for word in command], text=True, **streams)
        self.pid = self.process.pid

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def window_title(self):
        """The title of its window in front of all others, empty while another application is there."""
        process, title = hands.front_window()
        return title if process == self.pid else ""

    def wait_until_in_front(self):
        wait_until(self.window_title, f"the window of {self.process.args}")
        return self

    def activate(self):
        """Brings its window to the front."""
        hands.activate(self.pid)
        return self.wait_until_in_front()

    def window_place(self):
        """[x, y, width, height] of its window in front."""
        words = hands.xdotool("getactivewindow", "getwindowgeometry", "--shell").split()
        values = dict(word.split("=") for word in words)
        return [int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT")]

    def state(self):
        """The kernel's letter: T is stopped."""
        return Path(f"/proc/{self.pid}/stat").read_text().rpartition(")")[2].split()[0]

    def close(self):
        self.process.kill()
        self.process.wait()
        for stream in (self.process.stdin, self.process.stdout):
            if stream:
                stream.close()


class ApplicationWithWidgets(Application):
    """Answers questions, as "place", about its widgets; how it is asked is the business of the kinds of it."""

    def place(self, widget):
        x, y, *size = wait_until(lambda: self.ask("place", widget), f"{widget} on the screen")
        left, top = (0, 0) if self.knows_its_place else hands.origin_of(self.pid)
        return [left + x, top + y, *size]

    def value(self, widget):
        return self.ask("value", widget)

    def focus(self, widget):
        self.ask("focus", widget)

    def click(self, widget, button="left", **where):
        """As slowly as a person: the application has drawn what the pointer and the press change before the release."""
        self.press(widget, button, **where)
        self.ask("idle", None)
        hands.release(button)

    def press(self, widget, button="left", **where):
        hands.point_to(self.place(widget), **where)
        self.ask("idle", None)
        hands.press(button)


class ControlledApplication(ApplicationWithWidgets):
    """One of our own applications, which answers over its standard input and output (control.py)."""

    def __init__(self, script, *arguments, has_window=True):
        super().__init__(["/usr/bin/python3", FOLDER / script, *arguments], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        assert self._answer() == "ready"
        if has_window:
            self.wait_until_in_front()

    def ask(self, command, argument):
        self.process.stdin.write(json.dumps({command: argument}) + "\n")
        self.process.stdin.flush()
        return self._answer()

    def _answer(self):
        line = self.process.stdout.readline()
        assert line, f"{self.process.args} has ended"
        return json.loads(line)
