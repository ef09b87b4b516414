#!/usr/bin/python3
"""Much of the same: a thousand clicks leak nothing, a thousand keys cost one report."""

import hands
from desktop import EndToEndTest, main
from expected import change, click

CLICKS = 1000
WARM_UP = 200
KEYS = 1000


class Endurance(EndToEndTest):
    def test_a_thousand_clicks_in_gtk_leak_nothing(self):
        self.click_often(self.open_own("gtk3_app.py"))

    def test_a_thousand_clicks_in_qt_leak_nothing(self):
        self.click_often(self.open_own("qt_app.py"))

    def click_often(self, application):
        self.click_and_expect(application, WARM_UP)
        descriptors, memory = self.service.file_descriptors(), self.service.private_memory()
        self.click_and_expect(application, CLICKS)
        self.assertEqual(self.service.file_descriptors(), descriptors)
        if not self.service.is_sanitized():
            self.assertLess(self.service.private_memory() - memory, CLICKS * 200, "bytes for each click")
        self.assertTrue(application.place("Ship"), "the application goes on")

    def click_and_expect(self, application, count):
        hands.point_to(application.place("Weigh anchor"))
        hands.xdotool("click", "--repeat", count, "--delay", 5, 1)
        self.expect(*count * [click("Weigh anchor", "push button")], patience=60)

    def test_a_burst_of_keys_costs_one_report(self):
        self.application = self.open_own("gtk3_app.py")
        self.focus("Telegram", "text")
        hands.type_text("k" * KEYS, keys_a_second=200)
        rest = self.application.value("Telegram")
        self.assertTrue(rest, "the last characters are still there")
        self.expect(change("Text", "Telegram", "text", rest))
        self.expect_idle_key("Telegram", "text")


if __name__ == "__main__":
    main()
