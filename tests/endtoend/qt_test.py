#!/usr/bin/python3
"""Clicks, texts, passwords, values and selections in an application of Qt 5 and in one of Qt 6."""
import toolkits
from desktop import EndToEndTest, main
from expected import click, click_list_item
from text_tests import SelectionTests, TextTests
from widgets import menus, mouse_buttons, option, radio_button, selected, slider, tab, toggle


class QtClicks:
    """Mixed into an EndToEndTest."""

    test_a_button = mouse_buttons("Drop anchor", toolkits.Qt5.button, "left", "right", "middle")
    test_a_tab = tab("Pages 1", toolkits.Qt5.button)
    test_a_check_box = toggle("Lanterns", "check box", across=0.1)
    test_a_radio_button = radio_button()
    test_a_slider = slider(0, across=0.75)
    test_an_option = option("Cargo: 1", click("Salt", "list item"))
    test_menus = menus("menu item")
    test_a_cell_of_a_table = selected("Harbours", "table", "Harbours 1 1", "SelectedCells", "30 m",
                                      click_list_item("Bergen", "row", column="Depth", cell="30 m"))
    test_a_row_of_a_tree = selected("Fleets", "tree", "Fleets 0:1 0", "SelectedRows", "Tern",
                                    click_list_item("Tern", "row", column="Fleet", cell="Tern"))
    test_an_item_of_a_list = selected("Duties", "list", "Duties 1 0", "SelectedChildren", "Lookout", click("Lookout", "list item"))


class Qt5Clicks(toolkits.Qt5, QtClicks, EndToEndTest):
    pass


class Qt6Clicks(toolkits.Qt6, QtClicks, EndToEndTest):
    pass


class Qt5Texts(toolkits.Qt5, TextTests, SelectionTests, EndToEndTest):
    pass


class Qt6Texts(toolkits.Qt6, TextTests, SelectionTests, EndToEndTest):
    pass


if __name__ == "__main__":
    main()
