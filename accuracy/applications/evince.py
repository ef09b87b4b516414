"""Evince: GTK 3, with a document, an outline, popovers and a search."""
import cairo

from cases import *


def chart(path):
    surface = cairo.PDFSurface(str(path), 400, 500)
    context = cairo.Context(surface)
    for number, name in enumerate(("Tides", "Lights", "Depths"), 1):
        surface.add_outline(cairo.PDF_OUTLINE_ROOT, name, f"page={number} pos=[0 0]", 0)
        context.move_to(50, 80)
        context.set_font_size(20)
        context.show_text(f"{name} of the bay")
        context.show_page()
    surface.finish()


PROGRAM = Program(
    "Evince", "evince", ["evince", "{home}/bay.pdf"],
    opens=Application("Document Viewer", "bay.pdf"),
    files={"bay.pdf": chart},
    cases=[
        case(click("Lights", "cell"), Item("Lights")),
        case(click("Depths", "cell"), Item("Depths")),
        case(click("Thumbnails", "radio button"), Radio("Thumbnails")),
        case(click("Outline", "radio button"), Radio("Outline")),
        case(click("Bookmarks", "radio button"), Radio("Bookmarks")),
        case(click("Add", "button"), Click("Add")),
        case(click("Find", "toggle button"), Click(("Find", "Find a word or phrase in the document"), state=1)),
        case(typing("bay"), Text(("Search", "Find", "bay"), "bay")),
        case(keys("Return"), Special("carriage return"), also=[Text(None, "bay")]),
        case(click("Find", "toggle button"), Click(("Find", "Find a word or phrase in the document"), state=0)),
        case(click("File options", "toggle button"), Click("File options")),
        case(click("Night Mode"), Click("Night Mode")),
        case(click("Properties"), Click("Properties"), effect=titled("Properties")),
        case(click("Fonts", "page tab"), Radio("Fonts")),
        case(keys("Escape"), effect=titled("bay")),
        case(click("page-label-entry", "text"), Click(("page-label-entry", "1", ""))),
        case(steps(keys("ctrl+a"), typing("2"), keys("Return")), Combination("Control + a"), Special("carriage return"),
             Text(None, "2")),
        case(click("Annotate document", "toggle button"), Click("Annotate document", state=1)),
        case(click("Annotate document", "toggle button"), Click("Annotate document", state=0)),
        case(keys("F9"), Combination("Function + f9")),
    ])
