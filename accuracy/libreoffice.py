"""LibreOffice with its GTK 3 interface: what it draws itself it places as high as if there were no menu bar, until its window
has been laid out anew; and it lists its menu bar twice, of which the first is not on the screen."""
from cases import choose, click
from person import Sequence


def missing_menu_bar(tree):
    """The field in the box for the font is GTK's own, and rightly placed."""
    box = tree.find("Font Name", "panel")
    field = box and next(tree.search(lambda element: element.role == "text", below=box), None)
    return (0, field.place()[1] - box.place()[1] if field else 0)


def drawn(name, role="", **where):
    return click(name, role, offset=missing_menu_bar, **where)


def choose_from_bar(menu, *path):
    return Sequence(click(menu, "menu", nth=1), choose(*path))
