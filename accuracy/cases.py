"""The words of which cases are made; docs/accuracy.md says how to add one.

A case is an action, what a person who saw the screen would say of it, and by what the application shows that it was done.
"""
import re
from dataclasses import dataclass, field

import effects
from person import Click as _Click
from person import Drag, Keys, Sequence, Target, Typing
from told import ItemTold, Told


@dataclass
class Program:
    """An application: the command that starts it, or the browser that shows a page, with which files in its home folder, and
    what a person then does in it, in order, once it is `ready`."""
    title: str
    package: str
    command: object
    opens: Told
    cases: list
    files: dict = field(default_factory=dict)
    environment: dict = field(default_factory=dict)
    ready: object = None


@dataclass
class Case:
    action: object
    told: tuple
    effect: effects.Effect
    also: tuple
    then: object


def case(action, *told, effect=None, also=(), then=None):
    """`also` may be told besides; `then` is done afterwards, and nobody looks at what is told of it."""
    return Case(action, told, effect or effects.Change(), also, then)


# What is done.

def target(name, role="", **where):
    return Target(name, role, **where)


def click(name, role="", button="left", **where):
    return _Click(Target(name, role, **where), button)


def right_click(name, role="", **where):
    return click(name, role, "right", **where)


def double_click(name, role="", **where):
    return _Click(Target(name, role, **where), times=2)


def choose(*path, role="menu"):
    """Clicks through a menu, down to the last item."""
    return Sequence(*(click(name, role) for name in path))


def drag(start, end):
    return Drag(start, end)


def keys(*names):
    return Keys(*names)


def typing(text):
    return Typing(text)


def steps(*actions):
    return Sequence(*actions)


# What the application shows of it.

def shows(name, role=""):
    return effects.Effect(f"{role} {name!r} appears", lambda tree: tree.find(name, role))


def hides(name, role=""):
    return effects.Effect(f"{role} {name!r} goes", lambda tree: not tree.find(name, role))


def titled(part):
    return effects.Effect(f"a window {part!r}", lambda tree: part in effects.title())


def holds(text, name="", role="", nth=0):
    def is_so(tree):
        element = tree.find(name, role, nth)
        return element is not None and text in element.text()
    return effects.Effect(f"{role} {name!r} with {text!r}", is_so)


def is_in_state(state, name, role="", wanted=True):
    def is_so(tree):
        element = tree.find(name, role)
        return element is not None and element.has(state) is wanted
    return effects.Effect(f"{role} {name!r} {'' if wanted else 'not '}{state}", is_so)


def on(name, role=""):
    return is_in_state("checked", name, role)


def off(name, role=""):
    return is_in_state("checked", name, role, wanted=False)


def selected(name, role=""):
    return is_in_state("selected", name, role)


# What is told of it.

def Application(name, title=None):
    return Told("ChangeApplication", fileDescription=name, windowTitle=title)


def Click(name, state=None, button="left"):
    return Told("Click", elementName=name, toggleState=state, button=button)


def Item(name, button="left"):
    return ItemTold(name, button)


def Row(name, column=None, value=None, button="left"):
    return Told("ClickListItem", elementName=name, columnName=column, columnValue=value, button=button)


def Radio(name, group=None):
    return Told("ClickRadioButton", elementName=name, groupName=group)


def Link(name, url=None):
    return Told("ClickHyperLink", elementName=name, url=url)


def ComboBox(name, value=None):
    return Told("ClickComboBox", elementName=name, comboBoxValue=value)


def Text(name, value):
    return Told("ChangeText", elementName=name, newValue=value)


def Password(name):
    return Told("ChangePassword", elementName=name, newValue="")


def Slider(name, value):
    return Told("ChangeSlider", elementName=name, newValue=value)


def Spinner(name, value):
    return Told("ChangeSpinner", elementName=name, newValue=value)


def Toggle(name, value):
    return Told("Toggle", elementName=name, newValue=value)


def Selected(value, name=None):
    return Told(("ChangeSelectedRows", "ChangeSelectedCells", "ChangeSelectedChildren"), elementName=name, newValue=value)


def Combination(key, name=None):
    return Told("PressKeyCombination", key=key, elementName=name)


def Special(key, name=None):
    return Told("PressSpecialKey", key=key, elementName=name)
