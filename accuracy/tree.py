"""What is on the screen, as the accessibility tree of the applications tells it: elements by name and kind, and where."""
import re
import subprocess
import time

import dbus

ACCESSIBLE = "org.a11y.atspi.Accessible"
COMPONENT = "org.a11y.atspi.Component"
NULL = "/org/a11y/atspi/null"
LABEL_FOR = 1
OF_SCREEN, OF_WINDOW = 0, 1
STATES = {"active": 1, "checked": 4, "expanded": 10, "focused": 12, "pressed": 20, "selected": 23, "showing": 25,
          "manages descendants": 31}
SCREEN = (1280, 900)
MOST_ELEMENTS = 4000
MOST_IN_TABLE = 400
X_WINDOW = re.compile(r'\s+(?P<number>0x[0-9a-f]+) (?:"(?P<title>.*)"|\(has no name\)): .*? '
                      r'(?P<width>\d+)x(?P<height>\d+)[+-]-?\d+[+-]-?\d+  \+(?P<x>-?\d+)\+(?P<y>-?\d+)$')
POPOVERS = ("GtkPopover", "GtkPopoverMenu")


def normal(text):
    """Texts that look alike on the screen are equal."""
    return " ".join(text.replace("...", "…").replace("\u200b", "").split())


def is_kind(role, kind):
    """Kinds are parts of what roles are called: a "push button" is a "button", while no list of tabs is a tab."""
    return kind in role and (kind.endswith("list") or not role.endswith("tab list"))


def x_windows():
    """All windows, also those that cannot be seen: (number, title, [x, y, width, height])."""
    lines = subprocess.run(["xwininfo", "-root", "-tree"], capture_output=True, text=True, errors="replace").stdout.splitlines()
    found = [X_WINDOW.match(line) for line in lines]
    return [(match["number"], match["title"] or "", [int(match[key]) for key in ("x", "y", "width", "height")])
            for match in found if match]


def is_open_popup(number):
    text = subprocess.run(["xwininfo", "-id", number, "-all"], capture_output=True, text=True, errors="replace").stdout
    return "IsViewable" in text and "Override Redirect State: yes" in text


class Element:
    def __init__(self, tree, reference, parent=None):
        self.tree, self.bus_name, self.path = tree, str(reference[0]), str(reference[1])
        self.parent = parent

    def call(self, interface, method, signature="", *arguments):
        """None where the application does not answer this."""
        try:
            return self.tree.bus.call_blocking(self.bus_name, self.path, interface, method, signature, arguments, timeout=3.0)
        except (dbus.DBusException, UnicodeDecodeError):
            return None

    def fact(self, name, interface=ACCESSIBLE):
        return self.call("org.freedesktop.DBus.Properties", "Get", "ss", interface, name)

    @property
    def name(self):
        return str(self.fact("Name") or "")

    @property
    def description(self):
        return str(self.fact("Description") or "")

    @property
    def role(self):
        return str(self.call(ACCESSIBLE, "GetRoleName") or "")

    def has(self, state):
        words = self.call(ACCESSIBLE, "GetState") or (0, 0)
        return bool((int(words[0]) | int(words[1]) << 32) >> STATES[state] & 1)

    def text(self):
        """What a text shows, or what a value is."""
        count = self.fact("CharacterCount", "org.a11y.atspi.Text")
        if count is not None:
            return str(self.call("org.a11y.atspi.Text", "GetText", "ii", 0, int(count)) or "")
        value = self.fact("CurrentValue", "org.a11y.atspi.Value")
        return "" if value is None else f"{float(value):g}"

    def caption(self):
        """The text of what is text and nothing else."""
        return self.text() if self.role in ("label", "static", "text") else ""

    def children(self):
        if self.has("manages descendants"):
            return self._first_cells()
        references = self.call(ACCESSIBLE, "GetChildren") or []
        return [Element(self.tree, reference, self) for reference in references if reference[1] != NULL]

    def _first_cells(self):
        """Tables may have millions of cells, of which those at the top left are on the screen."""
        count = int(self.fact("ChildCount") or 0)
        columns = int(self.fact("NColumns", "org.a11y.atspi.Table") or 0) if count > MOST_IN_TABLE else 0
        if columns:
            numbers = [row * columns + column for row in range(25) for column in range(min(columns, 12))]
        else:
            numbers = range(min(count, MOST_IN_TABLE))
        references = [self.call(ACCESSIBLE, "GetChildAtIndex", "i", number) for number in numbers]
        return [Element(self.tree, reference, self) for reference in references if reference and reference[1] != NULL]

    def labelled(self):
        """What this is the label of."""
        relations = self.call(ACCESSIBLE, "GetRelationSet") or []
        targets = [target for kind, targets in relations if kind == LABEL_FOR for target in targets]
        return Element(self.tree, targets[0], self.parent) if targets else None

    def extents(self, coordinates):
        place = self.call(COMPONENT, "GetExtents", "u", coordinates)
        return [int(number) for number in place] if place else [0, 0, 0, 0]

    def ancestors(self):
        element = self
        while element:
            yield element
            element = element.parent

    def place(self):
        """[x, y, width, height] on the screen, None of what cannot be seen."""
        place = self._place_in_gtk4() if self.tree.is_gtk4(self.bus_name) else self._place_in_popup() or self.extents(OF_SCREEN)
        if not place:
            return None
        x, y, width, height = place
        is_seen = width > 0 and height > 0 and -width < x < SCREEN[0] and -height < y < SCREEN[1]
        return place if is_seen else None

    def _place_in_popup(self):
        """Java's menu items tell where they would be if their menu lay over what opened it; None of all else."""
        if not self.parent or self.parent.role != "popup menu" or self.parent.parent.role != "panel":
            return None
        x, y, width, height = self.parent.parent.extents(OF_SCREEN)
        items = [item.extents(OF_SCREEN) for item in self.parent.children()]
        top, bottom = min(item[1] for item in items), max(item[1] + item[3] for item in items)
        own = self.extents(OF_SCREEN)
        return [x, own[1] - top + y + (height - (bottom - top)) // 2, width, own[3]]

    def _place_in_gtk4(self):
        """GTK 4 tells places in its own windows only, which popovers are too."""
        x, y, width, height = self.extents(OF_WINDOW)
        surface = next((e for e in self.ancestors() if e.name in POPOVERS or e.role in ("window", "frame", "dialog")), self)
        own = surface.extents(OF_WINDOW)
        if surface.name in POPOVERS:
            window = self.tree.popover_of_size(own[2:])
        else:
            window = self.tree.window_titled(surface.name)
        if not window:
            return None
        return [x - own[0] + window[0] + (window[2] - own[2]) // 2, y - own[1] + window[1] + (window[3] - own[3]) // 2,
                width, height]


class Tree:
    """`page` is what a browser shows, which is asked for places in the tree's stead."""

    def __init__(self, page=None):
        self.page = page
        session = dbus.SessionBus()
        address = session.call_blocking("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", "", ())
        self.bus = dbus.bus.BusConnection(address)
        self.bus.set_exit_on_disconnect(False)
        self.toolkits, self.x_windows = {}, []

    def is_gtk4(self, bus_name):
        if bus_name not in self.toolkits:
            root = Element(self, (bus_name, "/org/a11y/atspi/accessible/root"))
            toolkit = [str(root.fact(name, "org.a11y.atspi.Application") or "") for name in ("ToolkitName", "Version")]
            self.toolkits[bus_name] = toolkit[0].lower() == "gtk" and toolkit[1].startswith("4")
        return self.toolkits[bus_name]

    def popover_of_size(self, size):
        """The place of the popover that has about this size, none when it is closed."""
        def difference(window):
            return abs(window[2][2] - size[0]) + abs(window[2][3] - size[1])
        fitting = sorted((window for window in self.x_windows if difference(window) < 120), key=difference)
        return next((place for number, _, place in fitting if is_open_popup(number)), None)

    def window_titled(self, title):
        return next((place for number, name, place in self.x_windows if name == title and place[2] > 1), None)

    def windows(self):
        """The windows of all applications, the active ones first."""
        registry = Element(self, ("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"))
        windows = [window for application in registry.children() for window in application.children()]
        return sorted(windows, key=lambda window: not window.has("active"))

    def search(self, matches, below=None):
        """Elements on the screen that match, breadth first, those of the active window first."""
        end = time.monotonic() + 15
        for window in [below] if below else self.windows():
            queue, seen = [window], 0
            while queue and seen < MOST_ELEMENTS and time.monotonic() < end:
                element = queue.pop(0)
                seen += 1
                if matches(element) and element.place():
                    yield element
                if self.is_gtk4(element.bus_name) or element is window or element.has("showing"):
                    queue += element.children()

    def find(self, name, role="", nth=0, below=None):
        """The element that is called so, or that a label of this name belongs to; None when there is none to be seen."""
        self.x_windows = x_windows()
        wanted = normal(name)
        for says in (lambda element: element.name or element.caption(), lambda element: element.description):
            found = []
            for element in self.search(lambda element: normal(says(element)) == wanted, below):
                found += [target for target in (element, element.labelled()) if target and is_kind(target.role, role) and target.place()]
                if len(found) > nth:
                    return found[nth]
        return None
