#!/usr/bin/python3
"""Clicks, texts and values in a page that Firefox shows."""
import toolkits
from desktop import EndToEndTest, main
from expected import change, click
from page_tests import PageTests


class FirefoxPage(toolkits.PageInFirefox, PageTests, EndToEndTest):
    menu_opens_under_pointer = False

    def test_clicks_on_a_check_box(self):
        """The browser may still say the old state when the click is told; the change has the new one."""
        self.focus("Lanterns", "check box")
        for state in (1, 0):
            self.application.click("Lanterns")
            clicked, changed = self.collection.next(2)
            self.assertIn(clicked, [click("Lanterns", "check box", state=told) for told in (0, 1)])
            self.assertEqual(changed, change("Toggle", "Lanterns", "check box", str(state)))


if __name__ == "__main__":
    main()
