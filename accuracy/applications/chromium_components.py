"""Components of pages in Chromium."""
from browser import Chromium
from components import *

PROGRAM = Program("Chromium, components of pages", "chromium", lambda: Chromium(page=PAGE),
                  opens=Application(re.compile("Chromium.*"), re.compile("Component yard.*")), cases=CASES)
