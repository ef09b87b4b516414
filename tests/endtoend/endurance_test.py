#!/usr/bin/python3
"""Much of the same: a thousand clicks leak nothing, a thousand keys cost one report."""

import hands
import toolkits
from desktop import EndToEndTest, main
from expected import change, click

CLICKS = 1000
CLICKS_AT_ONCE = 100
KEYS = 1000


class Endurance(EndToEndTest):
    def test_a_thousand_clicks_in_gtk_leak_nothing(self):
        self.click_often(self.open_own("gtk3_app.py"))

    def test_a_thousand_clicks_in_qt_leak_nothing(self):
        self.click_often(self.open_own("qt_app.py"))

    def click_often(self, application):
        self.click_and_expect(application)  # what is remembered of elements reaches its bounds
        descriptors = self.service.file_descriptors()
        growths = [self.growth_while_clicking(application) for _ in range(3)]
        self.assertEqual(self.service.file_descriptors(), descriptors)
        if not self.service.is_sanitized():
            # Memory is taken in steps now and then; a leak takes it each time.
            self.assertLess(min(growths), CLICKS * 32, f"bytes, of {growths}")
        self.assertTrue(application.place("Ship"), "the application goes on")

    def growth_while_clicking(self, application):
        memory = self.service.private_memory()
        self.click_and_expect(application)
        return self.service.private_memory() - memory

    def click_and_expect(self, application):
        hands.point_to(application.place("Weigh anchor"))
        for _ in range(CLICKS // CLICKS_AT_ONCE):
            hands.xdotool("click", "--repeat", CLICKS_AT_ONCE, "--delay", 5, 1)
            self.expect(*CLICKS_AT_ONCE * [click("Weigh anchor", toolkits.of(application).button)])

    def test_a_burst_of_keys_costs_one_report(self):
        self.application = self.open_own("gtk3_app.py")
        self.focus("Telegram", "text")
        hands.type_text("k" * KEYS, keys_a_second=200)
        if not self.application.value("Telegram"):
            hands.type_text("k")
        rest = self.application.value("Telegram")
        self.expect(change("Text", "Telegram", "text", rest))
        self.expect_idle_key("Telegram", "text")


if __name__ == "__main__":
    main()
