"""A page in Chromium."""
from browser import Chromium
from pages import *

PROGRAM = Program("Chromium", "chromium", lambda: Chromium(page=PAGE), opens=Application(re.compile("Chromium.*"), "Harbour office - Chromium"), cases=CASES)
