"""Clicks on what is on or off, as several toolkits tell them; their test files inherit it."""
from expected import change, click, click_radio_button


class ToggleTests:
    """Mixed into an EndToEndTest."""

    def test_a_check_box_is_told_with_its_new_state(self):
        self.focus("Lanterns", "check box")
        for state in (1, 0):
            self.application.click("Lanterns")
            self.expect(click("Lanterns", "check box", state=state), change("Toggle", "Lanterns", "check box", str(state)))

    def test_a_radio_button_is_told_with_its_group(self):
        self.focus("South", "radio button")
        self.application.click("South")
        self.expect(click_radio_button("South", "radio button", "Course"), change("Text", "South", "radio button", "1"))
