"""xterm: without accessibility; the window stands in for what is in it."""
from cases import *

PROGRAM = Program(
    "xterm", "xterm", ["xterm", "-title", "Harbour"],
    opens=Application("XTerm", "Harbour"),
    cases=[
        case(typing("true")),
        case(keys("Return"), Special("carriage return", "Harbour")),
        case(keys("Up"), Combination("NumericPad + Function + up arrow", "Harbour")),
        case(keys("ctrl+c"), Combination("Control + c", "Harbour")),
        case(keys("ctrl+l"), Combination("Control + l", "Harbour")),
        case(keys("Tab"), Special("tab", "Harbour"), effect=titled("Harbour")),
        case(typing("x")),
        case(keys("BackSpace"), Special("delete", "Harbour")),
        case(keys("F5"), Combination("Function + f5", "Harbour")),
        case(keys("ctrl+u"), Combination("Control + u", "Harbour")),
    ])
