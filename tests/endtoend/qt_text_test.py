#!/usr/bin/python3
"""Texts, passwords, values and selections in an application of Qt 5 and in one of Qt 6."""
from desktop import EndToEndTest, main
from text_tests import SelectionTests, TextTests


class QtText(TextTests, SelectionTests):
    spin_button = "spin box"
    selections = [
        ("Harbours", "table", "SelectedCells", '["Bergen"]', '["Genoa"]'),
        ("Fleets", "tree", "SelectedRows", '["Gull"]', '["Tern"]'),
        ("Duties", "list", "SelectedChildren", '["Lookout"]', '["Galley"]'),
    ]

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.application = cls.open_own("qt_app.py", cls.binding)


class Qt5(QtText, EndToEndTest):
    binding = "PyQt5"


class Qt6(QtText, EndToEndTest):
    binding = "PyQt6"


if __name__ == "__main__":
    main()
