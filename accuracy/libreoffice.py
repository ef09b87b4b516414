"""LibreOffice with its GTK 3 interface: what it draws itself it first places as high as if there were no menu bar, until
its window has been laid out anew; and it lists its menu bar twice, of which the first is not on the screen."""
from cases import choose, click
from person import Sequence

MENU_BAR = 25


def missing_menu_bar(tree):
    tools, inside = tree.find("Standard", "tool bar"), next(tree.search(lambda element: element.role == "root pane"), None)
    is_too_high = tools and inside and tools.place()[1] - inside.place()[1] < MENU_BAR
    return (0, MENU_BAR if is_too_high else 0)


def drawn(name, role="", **where):
    return click(name, role, offset=missing_menu_bar, **where)


def choose_from_bar(menu, *path):
    return Sequence(click(menu, "menu", nth=1), choose(*path))
