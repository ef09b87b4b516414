"""What an action changes in its application. An action without its effect was not done, and says nothing of the service."""
import hashlib
import subprocess
import time

import gi

gi.require_version("Gdk", "3.0")
from gi.repository import Gdk

PATIENCE = 5.0


def screen():
    root = Gdk.get_default_root_window()
    return Gdk.pixbuf_get_from_window(root, 0, 0, root.get_width(), root.get_height())


def picture():
    return hashlib.blake2b(screen().get_pixels()).digest()


def title():
    return subprocess.run(["xdotool", "getactivewindow", "getwindowname"], capture_output=True, text=True).stdout.rstrip("\n")


class Effect:
    """`before` is called before the deed, `is_seen` afterwards, more than once."""

    def __init__(self, words, is_seen):
        self.words, self.is_seen = words, is_seen

    def __str__(self):
        return self.words

    def before(self):
        pass

    def happens(self, tree):
        end = time.monotonic() + PATIENCE
        while not self.is_seen(tree):
            if time.monotonic() > end:
                return False
            time.sleep(0.05)
        return True


class Change(Effect):
    """Anything that can be seen."""

    def __init__(self):
        super().__init__("a change on the screen", lambda _: picture() != self.earlier)

    def before(self):
        self.earlier = picture()
