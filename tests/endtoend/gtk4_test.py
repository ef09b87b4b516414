#!/usr/bin/python3
"""Clicks, texts and values in a GTK 4 application."""
from desktop import EndToEndTest, main
from expected import change, click
from text_tests import TextTests


class Gtk4(TextTests, EndToEndTest):
    text = "text box"
    password = "text box"
    check_box = "checkbox"

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.application = cls.open_own("gtk4_app.py")

    def test_every_mouse_button_is_told(self):
        for button, told in (("left", "left"), ("right", "right"), ("middle", "other")):
            with self.subTest(button):
                self.application.click("Weigh anchor", button)
                self.expect(click("Weigh anchor", "button", button=told))

    def test_a_check_box_is_told_with_its_new_state(self):
        self.focus("Lanterns", "checkbox")
        for state in (1, 0):
            self.application.click("Lanterns", across=0.03)
            self.expect(click("Lanterns", "checkbox", state=state), change("Toggle", "Lanterns", "checkbox", str(state)))

    def test_a_switch_is_told_with_its_new_state(self):
        self.focus("Autopilot", "switch")
        for state in (1, 0):
            self.application.click("Autopilot")
            self.expect(click("Autopilot", "switch", state=state), change("Toggle", "Autopilot", "switch", str(state)))

    def test_an_item_of_a_list_is_told_by_its_text(self):
        self.application.click("Lookout")
        self.expect(click("Lookout", "list item"))

    def test_a_hidden_text_is_told_as_a_password(self):
        self.focus("Cipher", "text box")
        self.type_into("Cipher", "albatross")
        self.expect(change("Password", "Cipher", "text box", ""))


if __name__ == "__main__":
    main()
