"""A page in Firefox."""
from browser import Firefox
from pages import *

PROGRAM = Program("Firefox", "firefox-esr", lambda: Firefox(page=PAGE), opens=Application(re.compile("Firefox.*"), re.compile("Harbour office.*")), cases=CASES)
