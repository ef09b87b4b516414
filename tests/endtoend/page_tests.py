"""Clicks, texts and values in the page that a browser shows; a test file for each browser inherits it."""
import hands
from expected import click, click_link, click_list_item
from text_tests import SelectionTests, TextTests
from toggle_tests import ToggleTests
from waiting import wait_until


class PageTests(TextTests, SelectionTests, ToggleTests):
    """Mixed into an EndToEndTest that says which `browser` it opens."""

    menu_opens_under_pointer = True
    text = "entry"
    password = "password text"
    selections = [("Duties", "list box", "SelectedChildren", '["Helm"]', '["Lookout"]')]

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.application = cls.open(cls.browser())

    def test_every_mouse_button_is_told_and_the_text_in_a_button_is_the_button(self):
        self.focus("Weigh anchor", "push button")
        for button, told in (("left", "left"), ("middle", "other")):
            with self.subTest(button):
                self.application.click("Weigh anchor", button)
                self.expect(click("Weigh anchor", "push button", button=told))

    def test_a_right_click_is_told(self):
        self.focus("Weigh anchor", "push button")
        hands.point_to(self.application.place("Weigh anchor"))
        page = hands.window_below_pointer()
        hands.press("right")
        if self.menu_opens_under_pointer:
            wait_until(lambda: hands.window_below_pointer() != page, "the menu to open")
        hands.release("right")
        self.expect(click("Weigh anchor", "push button", button="right"))
        hands.move(30, 30)
        wait_until(lambda: hands.window_below_pointer() != page, "the menu to open")
        hands.key("Escape")
        wait_until(lambda: hands.window_below_pointer() == page, "the menu to close")

    def test_a_link_is_told_with_its_address(self):
        self.application.click("link")
        self.expect(click_link("Depths of the bay", self.application.address + "#depths"))

    def test_a_select_is_told(self):
        self.focus("Cargo", "combo box")
        self.application.click("Cargo")
        self.expect(click("Cargo", "combo box"))
        hands.key("Escape")

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

    def test_an_item_of_a_list_is_told_by_its_text(self):
        self.application.click("Red buoy", across=0.05)
        self.expect(click("Red buoy", "list item"))

    def test_a_cell_that_can_be_clicked_is_told_with_row_and_column(self):
        self.application.click("depth of Bergen")
        self.application.click("depth of Lisbon")
        self.expect(click_list_item("Lisbon", "row", column="Depth", cell="12 m"))

    def test_a_heading_is_told_when_it_can_be_clicked(self):
        self.application.click("heading")
        self.focus("clickable heading", "heading", "Lights of the bay")
        self.application.click("clickable heading", across=0.05)
        self.expect(click("Lights of the bay", "heading"))
