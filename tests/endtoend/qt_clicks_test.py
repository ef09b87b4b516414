#!/usr/bin/python3
"""Clicks in an application of Qt 5 and in one of Qt 6."""
import hands
from desktop import EndToEndTest, main
from expected import change, click, click_list_item, click_radio_button


class QtClicks:
    """Mixed into an EndToEndTest."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.application = cls.open_own("qt_app.py", cls.binding)

    def test_every_mouse_button_is_told(self):
        for button, told in (("left", "left"), ("right", "right"), ("middle", "other")):
            with self.subTest(button):
                self.application.click("Drop anchor", button)
                self.expect(click("Drop anchor", "push button", button=told))

    def test_a_menu_item_is_told_with_its_path_and_a_menu_of_the_bar_is_not(self):
        self.application.click("Voyage")
        self.application.click("Past")
        self.expect(click("Voyage -> Past", "menu item"))
        self.application.click("Lisbon 1920")
        self.expect(click("Voyage -> Past -> Lisbon 1920", "menu item"))

    def test_a_tab_is_told_as_a_radio_button(self):
        self.application.click("Pages 1")
        self.expect(click_radio_button("Stores", "page tab", ""))
        self.application.click("Count")
        self.expect(click("Count", "push button"))

    def test_an_item_of_a_list_is_told(self):
        self.focus("Duties", "list")
        self.press_and_release("Duties 1 0", change("SelectedChildren", "Duties", "list", '["Lookout"]'),
                               click("Lookout", "list item"))

    def test_a_cell_of_a_table_is_told_with_its_column(self):
        self.focus("Harbours", "table")
        self.press_and_release("Harbours 1 1", change("SelectedCells", "Harbours", "table", '["30 m"]'),
                               click_list_item("Bergen", "row", column="Depth", cell="30 m"))

    def test_a_row_of_a_tree_is_told(self):
        self.focus("Fleets", "tree")
        self.press_and_release("Fleets 0:1 0", change("SelectedRows", "Fleets", "tree", '["Tern"]'),
                               click_list_item("Tern", "row", column="Fleet", cell="Tern"))

    def test_a_check_box_is_told_with_its_new_state(self):
        self.focus("Lanterns", "check box")
        for state in (1, 0):
            self.application.click("Lanterns", across=0.1)
            self.expect(click("Lanterns", "check box", state=state), change("Toggle", "Lanterns", "check box", str(state)))

    def test_a_radio_button_is_told_with_its_group(self):
        self.focus("South", "radio button", "Course")
        self.application.click("South")
        self.expect(click_radio_button("South", "radio button", "Course"), change("Text", "Course", "radio button", "1"))

    def test_a_slider_is_told_as_clicked_and_as_changed(self):
        self.focus("Speed", "slider")
        self.application.click("Speed", across=0.75)
        clicked, changed, settled = self.collection.next(3)
        speed = str(self.application.value("Speed"))
        self.assertGreater(int(speed), 0)
        self.assertEqual([clicked, changed, settled],
                         [click("Speed", "slider")] + 2 * [change("Slider", "Speed", "slider", speed)])

    def test_the_option_of_a_combo_box_is_told(self):
        self.application.press("Cargo")
        self.application.place("Cargo: 1")
        hands.release()
        self.expect(click("Cargo: Tea", "combo box"))
        self.application.click("Cargo: 1")
        self.expect(click("Salt", "list item"))


class Qt5(QtClicks, EndToEndTest):
    binding = "PyQt5"


class Qt6(QtClicks, EndToEndTest):
    binding = "PyQt6"


if __name__ == "__main__":
    main()
