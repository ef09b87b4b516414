"""Every standard widget of Qt 5."""
from qt_widgets import program

PROGRAM = program("5")
