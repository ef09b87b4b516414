"""Widgets of pages in Chromium."""
from browser import Chromium
from chandlery import *

PROGRAM = Program("Chromium, widgets of pages", "chromium", lambda: Chromium(page=PAGE),
                  opens=Application(re.compile("Chromium.*"), "Chandlery - Chromium"), cases=CASES)
