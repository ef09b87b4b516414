"""The harbour master's page in Firefox."""
from browser import Firefox
from harbourmaster import *

PROGRAM = Program("Firefox, harbour master", "firefox-esr", lambda: Firefox(page=PAGE),
                  opens=Application(re.compile("Firefox.*"), re.compile("Harbour master.*")), cases=CASES)
