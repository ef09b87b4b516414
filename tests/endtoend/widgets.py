"""A row for each widget that toolkits have: what makes the test of a click on it. The test file of a toolkit is a column."""
import hands
from expected import change, click, click_radio_button


def clicked(*steps, focus=None, in_any_order=False):
    """A step is a widget, how it is clicked (none: in its middle), and the reports that follow."""
    def test(self):
        if focus:
            self.focus(*focus)
        for widget, where, *told in steps:
            self.application.click(widget, **where)
            (self.expect_in_any_order if in_any_order else self.expect)(*told)
    return test


def mouse_buttons(widget, control, *buttons):
    told = {"left": "left", "right": "right", "middle": "other"}
    return clicked(*((widget, {"button": button}, click(widget, control, button=told[button])) for button in buttons),
                   focus=(widget, control))


def toggle(widget, control, **where):
    """On and off again."""
    return clicked(*((widget, where, click(widget, control, state=state), change("Toggle", widget, control, str(state)))
                     for state in (1, 0)), focus=(widget, control))


def radio_button():
    return clicked(("South", {}, click_radio_button("South", "radio button", "Course"),
                    change("Text", "South", "radio button", "1")), focus=("South", "radio button"))


def menus(control):
    """A menu of the bar, which is not told, one in it of this control type, and an item."""
    return clicked(("Voyage", {}), ("Past", {}, click("Voyage -> Past", control)),
                   ("Lisbon 1920", {}, click("Voyage -> Past -> Lisbon 1920", "menu item")))


def tab(widget, button):
    """And the button on its page is no click on it."""
    return clicked((widget, {}, click_radio_button("Stores", "page tab", "")), ("Count", {}, click("Count", button)))


def slider(least, **where):
    """Clicked so far to the right that it goes there, or one page to the right."""
    def test(self):
        self.focus("Speed", "slider")
        self.application.click("Speed", **where)
        reports = self.collection.next(3)
        speed = self.application.value("Speed")
        self.assertGreater(speed, least)
        self.assertEqual(reports, [click("Speed", "slider")] + 2 * [change("Slider", "Speed", "slider", f"{speed:.0f}")])
    return test


def selected(view, control, place, kind, name, told, button="left"):
    """The press selects what is called so, the release is the click."""
    def test(self):
        self.focus(view, control)
        self.application.press(place, button)
        self.expect(change(kind, view, control, f'["{name}"]'))
        hands.release(button)
        self.expect(told)
    return test


def option(widget, told):
    """Of a combo box, which opens at the press."""
    def test(self):
        self.application.press("Cargo")
        self.application.place(widget)
        hands.release()
        self.expect(click("Cargo: Tea", "combo box"))
        self.application.click(widget)
        self.expect(told)
    return test
