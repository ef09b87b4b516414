"""Widgets that change with the click, for applications of several toolkits: one case at a time fills the window.

A toolkit is an object that builds widgets and knows its own way to change them:
  clear()                     empties the window
  button(text, act)           adds one; toggle, check: the same, told at every change of what is on or off
  rename, hide, remove, disable, swap, rows, pages, tabs, menu, chosen, dialog, files, window: see below
"""
import time

LONGER_THAN_ANYBODY_WAITS = 0.4


class Cases:
    """Every method builds the case of its name."""

    def __init__(self, kit):
        self.kit = kit

    def show(self, case):
        self.kit.clear()
        getattr(self, case)(self.kit)

    def renamed(self, kit, make, before, after):
        widget = make(before, lambda *_: kit.rename(widget, after))
        kit.button("Elsewhere", lambda: None)

    def play(self, kit):
        self.renamed(kit, kit.button, "Play", "Pause")

    def counter(self, kit):
        self.renamed(kit, kit.button, "3 votes", "4 votes")

    def follow(self, kit):
        self.renamed(kit, kit.toggle, "Follow", "Following")

    def ruler(self, kit):
        self.renamed(kit, kit.check, "Show ruler", "Hide ruler")

    def dismiss(self, kit):
        self.changed(kit, "Dismiss", kit.hide)

    def remove(self, kit):
        self.changed(kit, "Remove", kit.remove)

    def disable(self, kit):
        self.changed(kit, "Send", kit.disable)

    def swap(self, kit):
        self.changed(kit, "Move down", kit.move_down)

    def changed(self, kit, text, change):
        widget = kit.button(text, lambda: change(widget))
        kit.button("Elsewhere", lambda: None)

    def row(self, kit):
        rows = [kit.row(harbour, f"Delete {harbour}", lambda harbour=harbour: kit.remove(rows[harbour]))
                for harbour in ("Lisbon", "Bergen", "Genoa")]
        rows = dict(zip(("Lisbon", "Bergen", "Genoa"), rows))

    def pages(self, kit):
        turn = kit.pages([("Next page", lambda: turn(1)), ("Back", lambda: turn(0))])

    def tabs(self, kit):
        kit.tabs(["Charts", "Stores", "Crew"])

    def menu(self, kit):
        kit.menu("View", "Show grid", "Hide grid")

    def chosen(self, kit):
        kit.list(["Helm", "Lookout", "Galley"])

    def ok(self, kit):
        kit.dialog(["Cancel", "OK"])

    def cancel(self, kit):
        kit.dialog(["Cancel", "OK"])

    def save(self, kit):
        kit.dialog(["Discard", "Cancel", "Save"])

    def close(self, kit):
        kit.dialog(["Close"])

    def files(self, kit):
        kit.files()

    def window(self, kit):
        kit.window("Leave")

    def maximised(self, kit):
        kit.window("Log off", maximised=True)

    def slow(self, kit):
        def reckon():
            time.sleep(LONGER_THAN_ANYBODY_WAITS)
            kit.rename(widget, "Reckoned")

        widget = kit.button("Reckon", reckon)
