"""What every toolkit's text fields, sliders, boxes and selections must come out as; a test file for each toolkit inherits it."""
import hands
from applications import ControlledApplication
from expected import change, change_application, key_combination, special_key
from waiting import wait_until


class TextTests:
    """Mixed into an EndToEndTest, with one of toolkits.py."""

    def type_into(self, widget, text):
        """Types and waits until the widget has it all, so that what follows is not ahead of the application."""
        before = self.application.value(widget)
        hands.type_text(text)
        wait_until(lambda: self.application.value(widget) == before + text, f"{text!r} in {widget}")

    def test_a_burst_of_typing_is_told_once(self):
        self.focus("Ship", self.text)
        self.type_into("Ship", "Gull of Cork")
        self.expect(change("Text", "Ship", self.text, "Gull of Cork"))
        self.expect_idle_key("Ship", self.text)

    def test_leaving_a_field_tells_its_text_at_once(self):
        self.focus("Ship", self.text)
        before = self.application.value("Ship")
        self.type_into("Ship", "!")
        hands.key("Tab")
        self.expect(special_key("tab", "Ship", self.text), change("Text", "Ship", self.text, before + "!"))
        self.expect_idle_key("Captain", self.text)

    def test_return_tells_the_text_before_the_key(self):
        self.focus("Captain", self.text)
        self.type_into("Captain", "Ahab")
        typed = self.application.value("Captain")
        for _ in ("changed", "unchanged"):
            hands.key("Return")
            self.expect(change("Text", "Captain", self.text, typed), special_key("carriage return", "Captain", self.text))

    def test_switching_to_another_application_tells_the_text_before_the_switch(self):
        self.focus("Captain", self.text)
        before = self.application.value("Captain")
        self.type_into("Captain", "x")
        other = ControlledApplication("plain_window.py", "Bare hull")
        try:
            self.expect(change("Text", "Captain", self.text, before + "x"),
                        change_application(other.pid, "plain_window.py", "plain_window.py", "Bare hull"))
        finally:
            other.close()
        self.follow(self.application)

    def test_a_password_is_told_without_any_of_it(self):
        self.focus("Passphrase", self.password)
        self.type_into("Passphrase", "albatross")
        self.expect(change("Password", "Passphrase", self.password, ""))
        self.expect_idle_key("Passphrase", self.password)

    def test_a_text_area_is_not_told(self):
        self.focus("Log book", self.text)
        hands.type_text("calm sea")
        self.focus("Ship", self.text)
        before = self.application.value("Ship")
        self.type_into("Ship", "?")
        self.expect(change("Text", "Ship", self.text, before + "?"))

    def test_a_slider_is_told_when_keys_move_it(self):
        self.focus("Speed", "slider")
        for _ in range(3):
            hands.key("Right")
        self.expect(*3 * [key_combination("NumericPad + Function + rightArrow", "Speed", "slider")],
                    change("Slider", "Speed", "slider", "3"))

    def test_a_spin_button_is_told_when_keys_step_it(self):
        self.focus("Crew", self.spin_button)
        for _ in range(2):
            hands.key("Up")
        self.expect(*2 * [key_combination("NumericPad + Function + up arrow", "Crew", self.spin_button)],
                    change("Spinner", "Crew", self.spin_button, "2"))

    def test_a_check_box_is_told_when_the_space_bar_ticks_it(self):
        self.focus("Lanterns", self.check_box)
        for state in ("1", "0"):
            hands.key("space")
            self.expect(change("Toggle", "Lanterns", self.check_box, state))


class SelectionTests:
    """The same: selections by keyboard."""

    def test_arrow_keys_tell_what_they_select(self):
        for view, control, kind, *selected in self.selections:
            with self.subTest(view):
                self.focus(view, control)
                for names in selected:
                    hands.key("Down")
                    self.expect(key_combination("NumericPad + Function + down arrow", view, control),
                                change(kind, view, control, names))
