#!/usr/bin/python3
"""Clicks, texts and values in a page that Chromium shows."""
from functools import partial

import hands
import toolkits
from browser import Chromium
from desktop import EndToEndTest, main
from expected import change, special_key
from page_tests import PageTests


class ChromiumPage(toolkits.PageInChromium, PageTests, EndToEndTest):
    pass


class SearchPage(EndToEndTest):
    opened = partial(Chromium, "www.bing.com")

    def test_a_text_area_of_a_search_page_is_told(self):
        self.focus("Log book", "entry")
        hands.type_text("calm sea")
        self.expect(change("Text", "Log book", "entry", "calm sea"))
        hands.key("Return")
        self.expect(change("Text", "Log book", "entry", "calm sea"), special_key("carriage return", "Log book", "entry"))


if __name__ == "__main__":
    main()
