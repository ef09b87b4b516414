#!/usr/bin/python3
"""Clicks, texts and values in a GTK 4 application."""
import hands
import toolkits
from desktop import EndToEndTest, main
from expected import change, click
from text_tests import TextTests
from waiting import wait_until
from widgets import clicked, mouse_buttons, toggle


class Gtk4(toolkits.Gtk4, TextTests, EndToEndTest):
    test_a_button = mouse_buttons("Weigh anchor", "button", "left", "right", "middle")
    test_clicks_on_a_check_box = toggle("Lanterns", "checkbox", across=0.03)
    test_clicks_on_a_switch = toggle("Autopilot", "switch")
    test_an_item_of_a_list = clicked(("Lookout", {}, click("Lookout", "list item")))

    def click_in_what_opened(self, widget):
        window = hands.window_below_pointer()
        hands.point_to(self.application.place(widget))
        wait_until(lambda: hands.window_below_pointer() != window, "the pop-up to open")
        hands.click(hold=0.08, after=0)

    def test_a_button_in_a_popover_is_told(self):
        self.application.click("Voyage")
        self.expect(click("Voyage", self.toggle_button))
        self.click_in_what_opened("Return")
        self.expect(click("Return", "button"))
        hands.key("Escape")
        wait_until(lambda: not self.application.ask("place", "Return"), "the popover to close")

    def test_an_item_of_a_menu_is_told(self):
        self.application.click("Tools")
        self.expect(click("Tools", self.toggle_button))
        self.click_in_what_opened("Tools: 1")
        self.expect(click("Compass", "menu item"))

    def test_the_option_of_a_drop_down_is_told(self):
        self.application.click("Cargo")
        self.expect(click("Cargo", "combo box"))
        self.click_in_what_opened("Cargo: 1")
        self.expect_among(click("Salt", "list item"))

    def test_a_hidden_text_is_told_as_a_password(self):
        self.focus("Cipher", "text box")
        self.type_into("Cipher", "albatross")
        self.expect(change("Password", "Cipher", "text box", ""))


if __name__ == "__main__":
    main()
