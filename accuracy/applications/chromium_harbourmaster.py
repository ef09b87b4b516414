"""The harbour master's page in Chromium."""
from browser import Chromium
from harbourmaster import *

PROGRAM = Program("Chromium, harbour master", "chromium", lambda: Chromium(page=PAGE),
                  opens=Application(re.compile("Chromium.*"), re.compile("Harbour master.*")), cases=CASES)
