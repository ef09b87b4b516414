"""Components of pages in Firefox."""
from browser import Firefox
from components import *

PROGRAM = Program("Firefox, components of pages", "firefox-esr", lambda: Firefox(page=PAGE),
                  opens=Application(re.compile("Firefox.*"), re.compile("Component yard.*")), cases=CASES)
