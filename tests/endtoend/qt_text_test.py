#!/usr/bin/python3
"""Texts, passwords, values and selections in a Qt application."""
from desktop import EndToEndTest, main
from text_tests import SelectionTests, TextTests


class QtText(TextTests, SelectionTests, EndToEndTest):
    spin_button = "spin box"
    selections = [
        ("Harbours", "table", "SelectedCells", '["Bergen"]', '["Genoa"]'),
        ("Fleets", "tree", "SelectedRows", '["Gull"]', '["Tern"]'),
        ("Duties", "list", "SelectedChildren", '["Lookout"]', '["Galley"]'),
    ]

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.application = cls.open_own("qt_app.py")


if __name__ == "__main__":
    main()
