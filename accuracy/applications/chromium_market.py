"""What sites are made of, in Chromium."""
from browser import Chromium
from market import *

PROGRAM = Program("Chromium, a market", "chromium", lambda: Chromium(page=PAGE),
                  opens=Application(re.compile("Chromium.*"), "Quay market - Chromium"), cases=CASES)
