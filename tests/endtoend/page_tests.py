"""Clicks, texts and values in the page that a browser shows; a test file for each browser inherits it."""
import hands
import toolkits
from expected import click, click_link, click_list_item
from text_tests import SelectionTests, TextTests
from waiting import wait_until
from widgets import clicked, mouse_buttons, radio_button, toggle


class PageTests(TextTests, SelectionTests):
    """Mixed into an EndToEndTest, with one of toolkits.py."""

    menu_opens_under_pointer = True

    test_a_button = mouse_buttons("Weigh anchor", toolkits.PageInChromium.button, "left", "middle")  # its text, in fact
    test_clicks_on_a_check_box = toggle("Lanterns", "check box")
    test_a_radio_button = radio_button()
    test_an_item_of_a_list = clicked(("Red buoy", {"across": 0.05}, click("Red buoy", "list item")))
    test_a_cell_that_can_be_clicked = clicked(
        ("depth of Bergen", {}), ("depth of Lisbon", {}, click_list_item("Lisbon", "row", column="Depth", cell="12 m")))

    def test_a_right_click_is_told(self):
        self.focus("Weigh anchor", self.button)
        hands.point_to(self.application.place("Weigh anchor"))
        page = hands.window_below_pointer()
        hands.press("right")
        if self.menu_opens_under_pointer:
            wait_until(lambda: hands.window_below_pointer() != page, "the menu to open")
        hands.release("right")
        self.expect(click("Weigh anchor", self.button, button="right"))
        hands.move(30, 30)
        wait_until(lambda: hands.window_below_pointer() != page, "the menu to open")
        hands.key("Escape")
        wait_until(lambda: hands.window_below_pointer() == page, "the menu to close")

    def test_a_link_is_told_with_its_address(self):
        self.application.click("link")
        self.expect(click_link("Depths of the bay", self.application.address + "#depths"))

    def test_an_option_that_is_chosen_is_told(self):
        self.focus("Cargo", "combo box")
        self.application.click("Cargo")
        self.expect(click("Cargo", "combo box"))
        page = hands.window_below_pointer()
        hands.point_to(self.application.place("Cargo"), down=2.4)
        wait_until(lambda: hands.window_below_pointer() != page, "the list to open")
        hands.press()
        hands.release()
        self.expect(click("Cargo: Salt", "menu item"))
        self.assertEqual(self.application.value("Cargo"), "Salt")

    def test_a_heading_is_told_when_it_can_be_clicked(self):
        self.application.click("heading")
        self.focus("clickable heading", "heading", "Lights of the bay")
        self.application.click("clickable heading", across=0.05)
        self.expect(click("Lights of the bay", "heading"))
