"""Whether a report page can be used by keyboard and screen reader, as the browser's own accessibility tree and the computed
styles tell: accessibility_test.py PROGRAM EXAMPLE_SESSION"""

import pathlib
import sys
import tempfile
import unittest

import sessions
from browser import Browser

PROGRAM, EXAMPLE = sys.argv[1:3]
del sys.argv[1:3]

NAMED_ROLES = {"button", "checkbox", "radio", "searchbox", "textbox", "link", "DisclosureTriangle", "region", "search",
               "navigation", "radiogroup", "img", "image", "table", "columnheader", "rowheader", "heading"}

# Ratio of each text's colour to what lies behind it; [ratio, text] of those below the limit.
CONTRAST = r"""(() => {
  const channels = text => text.match(/[\d.]+/g).map(Number);
  const over = (top, below) => {
    const alpha = top[3] ?? 1;
    return [0, 1, 2].map(index => alpha * top[index] + (1 - alpha) * below[index]);
  };
  const groundOf = node => node === null ? [255, 255, 255]
    : over(channels(getComputedStyle(node).backgroundColor), groundOf(node.parentElement));
  const luminance = colour => colour.map(value => value / 255)
    .map(value => value <= 0.03928 ? value / 12.92 : ((value + 0.055) / 1.055) ** 2.4)
    .reduce((sum, value, index) => sum + value * [0.2126, 0.7152, 0.0722][index], 0);
  const ratio = node => {
    const ground = groundOf(node), text = over(channels(getComputedStyle(node).color), ground);
    const [dark, light] = [luminance(ground), luminance(text)].sort((left, right) => left - right);
    return (light + 0.05) / (dark + 0.05);
  };
  const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT), found = [];
  let count = 0;
  while (walker.nextNode()) {
    const node = walker.currentNode.parentElement;
    if (!walker.currentNode.data.trim() || !node.checkVisibility() || node.closest(":disabled, script, style, .skip")) continue;
    ++count;
    if (ratio(node) < 4.5) found.push([ratio(node), node.className, walker.currentNode.data]);
  }
  return { count, found };
})()"""

FOCUSED = """(() => {
  const node = document.activeElement;
  const shows = element => getComputedStyle(element).outlineStyle !== 'none' && parseFloat(getComputedStyle(element).outlineWidth) >= 1;
  return { id: node.id, tag: node.localName, shows: shows(node) || (node.closest('.segments') && shows(node.closest('.segments'))) };
})()"""


class Accessibility(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        folder = pathlib.Path(folder.name)
        cls.example, cls.long = folder / "example.html", folder / "long.html"
        sessions.make_page(PROGRAM, EXAMPLE, cls.example)
        sessions.write_session(folder / "long.jsonl", sessions.long_session(300))
        sessions.make_page(PROGRAM, folder / "long.jsonl", cls.long)
        cls.browser = cls.enterClassContext(Browser())

    def nodes(self):
        """[role, name] of all that a screen reader meets, in its order."""
        self.browser.call("Accessibility.enable")
        tree = self.browser.call("Accessibility.getFullAXTree")["nodes"]
        return [(node["role"]["value"], node.get("name", {}).get("value", "")) for node in tree if not node["ignored"]]

    def press_tab(self, modifiers=0):
        self.browser.press("Tab", 9, modifiers)
        return self.browser.evaluate(FOCUSED)

    def test_whatever_can_be_met_has_a_name(self):
        self.browser.open(self.long)
        nodes = self.nodes()
        met = {role for role, _ in nodes}
        self.assertLessEqual({"button", "checkbox", "radio", "searchbox", "DisclosureTriangle", "region", "search",
                              "navigation", "columnheader", "rowheader", "heading", "status", "main", "banner",
                              "contentinfo"}, met)
        self.assertEqual([node for node in nodes if node[0] in NAMED_ROLES and not node[1].strip()], [])

    def test_names_of_controls(self):
        self.browser.open(self.long)
        nodes = self.nodes()
        for node in [("searchbox", "Search"), ("radio", "Dark"), ("button", "Print"), ("button", "Clear filters"),
                     ("group", "Show only these kinds"), ("group", "Show only these applications"), ("group", "Appearance"),
                     ("navigation", "Pages of the list"), ("search", "Search in the actions"), ("button", "Next")]:
            self.assertIn(node, nodes)

    def test_structure(self):
        self.browser.open(self.example)
        self.assertEqual(self.browser.evaluate("[...document.querySelectorAll('h1,h2,h3,h4,h5,h6')].map(node => node.localName)"),
                         ["h1", "h2", "h2", "h2"])
        self.assertEqual(self.browser.evaluate("document.documentElement.lang"), "en")
        identifiers = self.browser.evaluate("[...document.querySelectorAll('[id]')].map(node => node.id)")
        self.assertEqual(len(identifiers), len(set(identifiers)))
        self.assertEqual(self.browser.evaluate("document.querySelectorAll('th').length > 50"), True)
        self.assertEqual(self.browser.evaluate("document.querySelectorAll('th:not([scope])').length"), 0)

    def test_texts_stand_out_in_light_and_dark(self):
        for scheme in ("light", "dark"):
            self.browser.call("Emulation.setEmulatedMedia",
                              features=[{"name": "prefers-color-scheme", "value": scheme}])
            self.browser.open(self.example, "text=save" if scheme == "dark" else "")
            self.browser.evaluate("void document.querySelectorAll('#list details').forEach(node => { node.open = true; })")
            contrast = self.browser.evaluate(CONTRAST)
            self.assertGreater(contrast["count"], 50)
            self.assertEqual(contrast["found"], [], scheme)

    def test_the_keyboard_reaches_every_control_and_shows_where_it_is(self):
        self.browser.open(self.example)
        reached = [self.press_tab() for _ in range(60)]
        self.assertEqual([each for each in reached if not each["shows"]], [])
        for control in ("print", "search", "moment"):
            self.assertIn(control, {each["id"] for each in reached})
        self.assertGreaterEqual(sum(each["tag"] == "summary" for each in reached), 3)

    def test_the_first_key_leads_past_the_head(self):
        self.browser.open(self.example)
        self.press_tab()
        self.browser.press("Enter", 13, text="\r")
        self.assertEqual(self.browser.evaluate("document.activeElement.id"), "actions")
        self.assertEqual(self.press_tab()["id"], "search")

    def test_a_key_leads_past_the_filters(self):
        self.browser.open(self.example)
        self.browser.evaluate("document.querySelector('#filters .skip').focus()")
        self.assertTrue(self.browser.evaluate("document.activeElement.getBoundingClientRect().x >= 0"))
        self.browser.press("Enter", 13, text="\r")
        self.assertEqual(self.browser.evaluate("document.activeElement.id"), "page")
        self.assertEqual(self.browser.evaluate("document.querySelector('#status').innerText"), "44 actions")

    def test_filters_and_details_work_by_keyboard(self):
        self.browser.open(self.example)
        self.browser.evaluate("document.querySelector('#kinds input').focus()")
        self.browser.press(" ", 32, text=" ")
        self.assertIn(("status", ""), self.nodes())
        self.assertEqual(self.browser.evaluate("document.querySelector('#status').innerText"), "9 of 44 actions")
        self.browser.evaluate("document.querySelector('#list summary').focus()")
        self.browser.press("Enter", 13, text="\r")
        self.browser.wait_for("document.querySelector('#list details[open] dl') !== null")
        self.assertEqual(self.browser.evaluate("[...document.querySelectorAll('#list dt')].map(node => node.innerText)"),
                         ["elementName", "controlType", "automationID", "button", "toggleState"])

    def test_turning_pages_keeps_the_keyboard_in_the_list(self):
        self.browser.open(self.long)
        for pager, expected in [("first-child", "Next"), ("last-child", "page")]:
            self.browser.evaluate(f"document.querySelector('.pager:{pager} button:nth-of-type(3)').focus()")
            self.browser.press("Enter", 13, text="\r")
            focused = self.browser.evaluate("document.activeElement.id || document.activeElement.innerText")
            self.assertEqual(focused, expected)


if __name__ == "__main__":
    unittest.main()
