#!/usr/bin/python3
"""Texts, passwords, values and selections in a GTK 3 application."""
from desktop import EndToEndTest, main
from text_tests import SelectionTests, TextTests


class Gtk3Text(TextTests, SelectionTests, EndToEndTest):
    password = "password text"
    selections = [
        ("Harbours", "table", "SelectedRows", '["Bergen"]', '["Genoa"]'),
        ("Fleets", "tree table", "SelectedRows", '["Gull"]', '["Tern"]'),
        ("Duties", "list box", "SelectedChildren", '["Lookout"]', '["Galley"]'),
    ]

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.application = cls.open_own("gtk3_app.py")


if __name__ == "__main__":
    main()
