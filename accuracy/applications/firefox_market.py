"""What sites are made of, in Firefox."""
from browser import Firefox
from market import *

PROGRAM = Program("Firefox, a market", "firefox-esr", lambda: Firefox(page=PAGE),
                  opens=Application(re.compile("Firefox.*"), re.compile("Quay market.*")), cases=CASES)
