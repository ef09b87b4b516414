#!/usr/bin/python3
"""Applications on the accessibility bus that answer whatever they like, or nothing."""
import sys
from functools import partial

import hands
from applications import ControlledApplication
from desktop import main
from expected import click
from faults import FaultTest, HostileApplication, hostile_faults
from waiting import wait_until

MEBIBYTE = 1 << 20
HUGE_TEXT = 64 * MEBIBYTE
KEPT_MEMORY = 8 * MEBIBYTE


class Hostile(FaultTest):
    opened = partial(ControlledApplication, "gtk3_app.py")

    def test_without_a_fault_it_is_reported(self):
        with HostileApplication("none") as hostile:
            hostile.click()
            self.expect_among(click("Reef", "some role"))

    def test_no_fault_harms_another_application(self):
        for fault in hostile_faults():
            with self.subTest(fault), HostileApplication(fault) as hostile:
                self.follow(hostile)
                before = self.service.private_memory()
                self.service.forget_peak_of_memory()
                hostile.click_until_read()
                hands.key("ctrl+b")
                self.application.activate()
                for _ in range(3):
                    self.expect_click(self.application, "Weigh anchor", fault)
                self.expect_memory_since(before, fault)

    def test_a_huge_text_is_not_kept(self):
        with HostileApplication("has huge texts") as hostile:
            self.follow(hostile)
            before = self.service.private_memory()
            self.service.forget_peak_of_memory()

            def has_come():
                hostile.click_until_read()
                return self.service.peak_of_memory() > HUGE_TEXT

            def has_gone():
                self.expect_click(self.application, "Weigh anchor", "after a huge text")
                return self.service.private_memory() - before < KEPT_MEMORY

            wait_until(has_come, "a huge text to come")
            self.application.activate()
            wait_until(has_gone, "its memory to be free again")
            self.expect_memory_since(before, "huge text")

    def expect_memory_since(self, before, what):
        more, peak = self.service.private_memory() - before, self.service.peak_of_memory()
        print(f"    {what}: {more / MEBIBYTE:.1f} MiB more, {peak / MEBIBYTE:.0f} MiB at the peak", file=sys.stderr)
        if not self.service.is_sanitized():
            self.assertLess(more, KEPT_MEMORY)
            self.assertLess(peak, 4 * HUGE_TEXT)


if __name__ == "__main__":
    main()
