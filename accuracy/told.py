"""What a person who saw the screen would say, and whether the reports say it."""
import json
import re

FAMILIES = ("Click", "Change", "Press", "Collector")


def family(kind):
    return "Change" if kind == "Toggle" else next(family for family in FAMILIES if kind.startswith(family))


def same_text(told, wanted):
    """Texts that look alike are equal; several wanted ones are alternatives."""
    if isinstance(wanted, re.Pattern):
        return bool(wanted.fullmatch(told))
    if isinstance(wanted, (tuple, set, frozenset)):
        return any(same_text(told, one) for one in wanted)
    return isinstance(told, str) and " ".join(told.replace("...", "…").split()) == " ".join(wanted.replace("...", "…").split())


class Told:
    """One report: its kind, or one of several kinds, and the members that a person would notice."""

    def __init__(self, kinds, **members):
        self.kinds = (kinds,) if isinstance(kinds, str) else kinds
        self.members = {name: value for name, value in members.items() if value is not None}

    def __str__(self):
        return f"{'/'.join(self.kinds)} {self.members}"

    def is_said_by(self, report):
        if report["action"] not in self.kinds:
            return False
        return all(self._agrees(report.get(name), wanted) for name, wanted in self.members.items())

    @staticmethod
    def _agrees(told, wanted):
        return told == wanted if isinstance(wanted, int) else told in wanted if isinstance(told, int) else same_text(told, wanted)

    def is_meant_by(self, report):
        """It is about the same deed, though it may say something else of it."""
        return family(report["action"]) in {family(kind) for kind in self.kinds}

    def may_come_with(self, report):
        """What follows of itself: the check box that has the focus tells its state too, the row that it is selected."""
        name = self.members.get("elementName", "")
        kind, value = report["action"], report.get("newValue", "")
        if report == getattr(self, "matched", None):
            return True
        if kind.startswith("ChangeSelected"):
            texts = [text for key, text in self.members.items() if key in ("elementName", "columnValue", "newValue")]
            return any(self._is_in_list(text, value) for text in texts)
        if kind in ("Toggle", "ChangeText") and self.kinds[0] in ("Click", "ClickRadioButton"):
            state = self.members.get("toggleState")
            return value in (("0", "1") if state is None else (str(state),)) and (
                kind == "Toggle" or self.kinds[0] == "ClickRadioButton")
        return kind in ("ChangeSlider", "ChangeSpinner") and kind == self.kinds[0] and self._agrees(
            report.get("elementName"), name)

    @staticmethod
    def _is_in_list(text, value):
        try:
            return any(same_text(item, text) for item in json.loads(value))
        except (ValueError, TypeError):
            return False


class ItemTold(Told):
    """A row, a cell or an item: toolkits differ in what their lists and trees are made of, people do not mind."""

    def __init__(self, name, button):
        super().__init__(("Click", "ClickListItem"), elementName=name, button=button)

    def is_said_by(self, report):
        if report["action"] not in self.kinds or report.get("button") != self.members["button"]:
            return False
        return any(self._agrees(report.get(member), self.members["elementName"]) for member in ("elementName", "columnValue"))


class Judgement:
    def __init__(self, expected, reports, also=()):
        self.expected, self.reports = expected, reports
        left = list(reports)
        self.missed = [told for told in expected if not self._take(told, left)]
        self.instead = [next((report for report in left if told.is_meant_by(report)), None) for told in self.missed]
        for report in self.instead:
            if report in left:
                left.remove(report)
        self.surplus = [report for report in left if not any(told.may_come_with(report) for told in expected)
                        and not any(told.is_said_by(report) for told in also)]

    @staticmethod
    def _take(told, left):
        found = next((report for report in left if told.is_said_by(report)), None)
        if found:
            told.matched = found
            left.remove(found)
        return found is not None

    @property
    def verdict(self):
        if not self.missed:
            return "right"
        return "wrong" if any(self.instead) else "missing"
