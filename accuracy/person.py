"""What a person does: an action finds what it is done to by what it is called, and holds a button as long as a hand does."""
import time

import hands

HOLD = 0.08  # seconds
BETWEEN = 0.12
PATIENCE = 6.0


class Unable(Exception):
    """What was to be acted on is not on the screen."""


class Target:
    """An element by its name on the screen and its kind ("button", "menu item"); `inside` is another target that holds it.

    `across` and `down` say where in it, from 0 to 1; `offset` adds pixels, or asks the tree for
    how many, for what is placed wrongly.
    """

    def __init__(self, name, role="", nth=0, inside=None, across=0.5, down=0.5, offset=(0, 0)):
        self.name, self.role, self.nth, self.inside = name, role, nth, inside
        self.across, self.down, self.offset = across, down, offset

    def __str__(self):
        return f"{self.role} {self.name!r}".strip()

    def element(self, tree):
        return tree.find(self.name, self.role, self.nth, self.inside and self.inside.element(tree))

    def place(self, tree):
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end:
            element = self.element(tree)
            place = element and element.place()
            if place:
                right, down = self.offset(tree) if callable(self.offset) else self.offset
                return [place[0] + right, place[1] + down, *place[2:]]
            time.sleep(0.1)
        raise Unable(f"no {self} on the screen")

    def point_to(self, tree):
        hands.point_to(self.place(tree), self.across, self.down)


class Click:
    def __init__(self, target, button="left", times=1):
        self.target, self.button, self.times = target, button, times

    def __str__(self):
        how = {1: "click", 2: "double click"}[self.times]
        return f"{how}{'' if self.button == 'left' else ' ' + self.button} {self.target}"

    def perform(self, tree, ready=lambda: None):
        """Calls `ready` when all is as it is before the deed."""
        self.target.point_to(tree)
        time.sleep(BETWEEN)
        ready()
        for _ in range(self.times):
            hands.press(self.button)
            time.sleep(HOLD)
            hands.release(self.button)


class Drag:
    def __init__(self, start, end):
        self.start, self.end = start, end

    def __str__(self):
        return f"drag {self.start} to {self.end}"

    def perform(self, tree, ready=lambda: None):
        end = self.end.place(tree)
        self.start.point_to(tree)
        time.sleep(BETWEEN)
        ready()
        hands.press()
        for _ in range(4):
            hands.move(4, 4)
            time.sleep(BETWEEN / 2)
        hands.point_to(end, self.end.across, self.end.down)
        time.sleep(BETWEEN)
        hands.release()


class Keys:
    """Keys one after the other, as "Return" or "ctrl+f"."""

    def __init__(self, *names):
        self.names = names

    def __str__(self):
        return "press " + ", ".join(self.names)

    def perform(self, tree, ready=lambda: None):
        ready()
        for name in self.names:
            hands.key(name)
            time.sleep(BETWEEN)


class Typing:
    def __init__(self, text, speed=20):
        self.text, self.speed = text, speed

    def __str__(self):
        return f"type {self.text!r}"

    def perform(self, tree, ready=lambda: None):
        ready()
        hands.type_text(self.text, self.speed)


class Sequence:
    """Several actions, of which the last one is what is looked at."""

    def __init__(self, *actions):
        self.actions = actions

    def __str__(self):
        return ", ".join(map(str, self.actions))

    def perform(self, tree, ready=lambda: None):
        for action in self.actions[:-1]:
            action.perform(tree)
            time.sleep(2 * BETWEEN)
        self.actions[-1].perform(tree, ready)
