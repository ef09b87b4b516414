"""Widgets of pages in Firefox."""
from browser import Firefox
from chandlery import *

PROGRAM = Program("Firefox, widgets of pages", "firefox-esr", lambda: Firefox(page=PAGE),
                  opens=Application(re.compile("Firefox.*"), re.compile("Chandlery.*")), cases=CASES)
