#!/usr/bin/python3
"""Clicks, keys, texts, passwords, values and selections in a GTK 3 application."""
import hands
import toolkits
from desktop import EndToEndTest, main
from expected import change, click, click_combo_box, click_link, click_list_item, key_combination, special_key
from text_tests import SelectionTests, TextTests
from widgets import clicked, menus, mouse_buttons, option, radio_button, selected, slider, tab, toggle


class Gtk3Clicks(toolkits.Gtk3, EndToEndTest):
    test_a_button = mouse_buttons("Drop anchor", toolkits.Gtk3.button, "left", "right", "middle")
    test_a_check_box = toggle("Lanterns", "check box")
    test_a_radio_button = radio_button()
    test_a_slider = slider(50, across=0.75, down=0.7)
    test_a_spin_button = clicked(("Crew", {"across": 0.95}, click("Crew", "spin button"), change("Spinner", "Crew", "spin button", "1")),
                                 focus=("Crew", "spin button"))
    test_an_option = option("Cargo: Salt", click("Cargo: Salt", "menu item"))
    test_an_editable_combo_box = clicked(("Flag", {"across": 0.3}, click_combo_box("Flag", "combo box", "")))
    test_menus = menus("menu")
    test_a_tab = tab("Stores", toolkits.Gtk3.button)
    test_a_row_of_a_table = selected("Harbours", "table", "Harbours 1 1", "SelectedRows", "Bergen",
                                     click_list_item("Bergen", "row", column="Depth", cell="30 m"))
    test_a_right_click_on_a_row = selected("Harbours", "table", "Harbours 2 0", "SelectedRows", "Genoa",
                                           click_list_item("Genoa", "row", column="Harbour", cell="Genoa", button="right"), "right")
    test_a_row_of_a_tree = selected("Fleets", "tree table", "Fleets 0:1 0", "SelectedRows", "Tern",
                                    click_list_item("Tern", "row", column="Fleet", cell="Tern"))
    test_an_item_of_a_list = clicked(("Lookout", {}, change("SelectedChildren", "Duties", "list box", '["Lookout"]'),
                                      click("Lookout", "list item")), focus=("Duties", "list box"), in_any_order=True)
    test_a_link = clicked(("Tide tables", {}, click_link("Tide tables", "https://tides.example/")))

    def test_keys_that_do_something_are_told_and_typing_is_not(self):
        self.focus("Weigh anchor", self.button)
        hands.key("a", "shift+b", "Escape")
        for keys, told in self.COMBINATIONS:
            with self.subTest(keys):
                hands.key(keys)
                self.expect(key_combination(told, "Weigh anchor", self.button))
                self.application.focus("Weigh anchor")
        hands.key("Return")
        self.expect(special_key("carriage return", "Weigh anchor", self.button))
        hands.key("shift+Tab")
        self.expect(special_key("Shift + back tab", "Weigh anchor", self.button))

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


class Gtk3Texts(toolkits.Gtk3, TextTests, SelectionTests, EndToEndTest):
    pass


if __name__ == "__main__":
    main()
