"""Every standard widget of Qt 6."""
from qt_widgets import program

PROGRAM = program("6")
