#!/usr/bin/python3
"""Clicks, texts and values in a GTK 4 application."""
import hands
from desktop import EndToEndTest, main
from expected import change, click
from text_tests import TextTests
from waiting import wait_until


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

    def click_in_what_opened(self, widget):
        window = hands.window_below_pointer()
        hands.point_to(self.application.place(widget))
        wait_until(lambda: hands.window_below_pointer() != window, "the pop-up to open")
        self.application.click(widget)

    def test_a_button_in_a_popover_is_told(self):
        self.application.click("Voyage")
        self.expect(click("Voyage", "button"))
        self.click_in_what_opened("Return")
        self.expect(click("Return", "button"))
        hands.key("Escape")
        wait_until(lambda: not self.application.ask("place", "Return"), "the popover to close")

    def test_an_item_of_a_menu_is_told(self):
        self.application.click("Tools")
        self.expect(click("Tools", "button"))
        self.click_in_what_opened("Tools: 1")
        self.expect(click("Compass", "menu item"))

    def test_the_option_of_a_drop_down_is_told(self):
        self.application.click("Cargo")
        self.expect(click("Cargo", "combo box"))
        self.click_in_what_opened("Cargo: 1")
        chosen = click("Salt", "list item")
        self.assertIn(chosen, self.collection.until(lambda report: report == chosen))

    def test_a_hidden_text_is_told_as_a_password(self):
        self.focus("Cipher", "text box")
        self.type_into("Cipher", "albatross")
        self.expect(change("Password", "Cipher", "text box", ""))


if __name__ == "__main__":
    main()
