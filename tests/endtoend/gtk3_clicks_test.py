#!/usr/bin/python3
"""Clicks and keys in a GTK 3 application."""
import hands
from desktop import EndToEndTest, main
from expected import (change, click, click_combo_box, click_link, click_list_item, click_radio_button, key_combination,
                      special_key)
from toggle_tests import ToggleTests


class Gtk3Clicks(ToggleTests, EndToEndTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.application = cls.open_own("gtk3_app.py")

    def test_every_mouse_button_is_told(self):
        for button, told in (("left", "left"), ("right", "right"), ("middle", "other")):
            with self.subTest(button):
                self.application.click("Drop anchor", button)
                self.expect(click("Drop anchor", "push button", button=told))

    def test_a_slider_is_told_as_clicked_and_as_changed(self):
        self.focus("Speed", "slider")
        self.application.click("Speed", across=0.75, down=0.7)
        clicked, changed, settled = self.collection.next(3)
        speed = f"{self.application.value('Speed'):.0f}"
        self.assertGreater(float(speed), 50)
        self.assertEqual([clicked, changed, settled],
                         [click("Speed", "slider")] + 2 * [change("Slider", "Speed", "slider", speed)])

    def test_a_spin_button_is_told_as_clicked_and_as_changed(self):
        self.focus("Crew", "spin button")
        self.application.click("Crew", across=0.95)
        self.expect(click("Crew", "spin button"), change("Spinner", "Crew", "spin button", "1"))

    def test_the_option_of_a_combo_box_is_told_with_the_label(self):
        self.application.press("Cargo")
        self.application.place("Cargo: Salt")
        hands.release()
        self.expect(click("Cargo: Tea", "combo box"))
        self.application.click("Cargo: Salt")
        self.expect(click("Cargo: Salt", "menu item"))

    def test_an_editable_combo_box_is_told_with_its_text(self):
        self.application.click("Flag", across=0.3)
        self.expect(click_combo_box("Flag", "combo box", ""))

    def test_a_menu_item_is_told_with_its_path_and_a_menu_of_the_bar_is_not(self):
        self.application.click("Voyage")
        self.application.click("Past")
        self.expect(click("Voyage -> Past", "menu"))
        self.application.click("Lisbon 1920")
        self.expect(click("Voyage -> Past -> Lisbon 1920", "menu item"))

    def test_a_tab_is_told_as_a_radio_button(self):
        self.application.click("Stores")
        self.expect(click_radio_button("Stores", "page tab", ""))

    def test_a_button_on_a_page_is_no_click_on_its_tab(self):
        self.application.click("Unroll")
        self.expect(click("Unroll", "push button"))

    def test_a_row_of_a_table_is_told_with_column_header_and_cell(self):
        self.focus("Harbours", "table")
        for place, row, column, cell, button in (("Harbours 1 1", "Bergen", "Depth", "30 m", "left"),
                                                 ("Harbours 2 0", "Genoa", "Harbour", "Genoa", "right")):
            with self.subTest(place):
                self.press_and_release(place, change("SelectedRows", "Harbours", "table", f'["{row}"]'),
                                       click_list_item(row, "row", column=column, cell=cell, button=button), button)

    def test_a_row_of_a_tree_is_told(self):
        self.focus("Fleets", "tree table")
        self.press_and_release("Fleets 0:1 0", change("SelectedRows", "Fleets", "tree table", '["Tern"]'),
                               click_list_item("Tern", "row", column="Fleet", cell="Tern"))

    def test_an_item_of_a_list_is_told_by_its_text(self):
        self.focus("Duties", "list box")
        self.application.click("Lookout")
        self.expect_in_any_order(change("SelectedChildren", "Duties", "list box", '["Lookout"]'),
                                 click("Lookout", "list item"))

    def test_a_link_is_told_with_its_address(self):
        self.application.click("Tide tables")
        self.expect(click_link("Tide tables", "https://tides.example/"))

    def test_keys_that_do_something_are_told_and_typing_is_not(self):
        self.focus("Weigh anchor", "push button")
        hands.key("a", "shift+b", "Escape")
        for keys, told in self.COMBINATIONS:
            with self.subTest(keys):
                hands.key(keys)
                self.expect(key_combination(told, "Weigh anchor", "push button"))
                self.application.focus("Weigh anchor")
        hands.key("Return")
        self.expect(change("Text", "Weigh anchor", "push button", ""),
                    special_key("carriage return", "Weigh anchor", "push button"))
        hands.key("shift+Tab")
        self.expect(special_key("Shift + back tab", "Weigh anchor", "push button"))

    COMBINATIONS = [
        ("ctrl+c", "Control + c"),
        ("super+l", "Command + l"),
        ("alt+F5", "Option + Function + f5"),
        ("ctrl+shift+x", "Shift + Control + X"),
        ("Up", "NumericPad + Function + up arrow"),
        ("Left", "NumericPad + Function + left Arrow"),
        ("F5", "Function + f5"),
        ("Delete", "Function + delete forward"),
    ]


if __name__ == "__main__":
    main()
