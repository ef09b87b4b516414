"""What a report page does in a browser: page_test.py PROGRAM EXAMPLE_SESSION"""

import pathlib
import sys
import tempfile
import unittest

import sessions
from browser import Browser

PROGRAM, EXAMPLE = sys.argv[1:3]
del sys.argv[1:3]

HOSTILE = ["</script><script>hacked = 1</script>", "<!-- <script>", "</SCRIPT", "]]>", "&lt;", "<img src=x onerror='hacked = 1'>",
           "a\u2028b\u2029c", "nul\0nul", "\"\\/\b\f\n\r\t.", "{{title}} {{data}}", "\u202eright to left", "😀 é 検索"]


class PageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        cls.browser = cls.enterClassContext(Browser())

    def show(self, reports, fragment=""):
        session, page = self.folder / "session.jsonl", self.folder / "page.html"
        sessions.write_session(session, reports)
        sessions.make_page(PROGRAM, session, page)
        self.browser.open(page, fragment)

    def show_example(self, fragment=""):
        page = self.folder / "example.html"
        if not page.exists():
            sessions.make_page(PROGRAM, EXAMPLE, page)
        self.browser.open(page, fragment)

    def texts(self, selector):
        return self.browser.evaluate(
            f"[...document.querySelectorAll({selector!r})].map(node => node.innerText.replace(/\\s+/g, ' ').trim())")

    def frames(self, selector):
        """[left, right] of each, in pixels."""
        return self.browser.evaluate(f"[...document.querySelectorAll({selector!r})].map(each => each.getBoundingClientRect())"
                                     ".map(frame => [frame.left, frame.right])")

    def status(self):
        return self.texts("#status")[0]

    def sentences(self):
        return self.texts("#list .sentence summary, #list div.sentence")

    def choose(self, fieldset, label):
        place = self.texts(f"#{fieldset} .choice").index(label) + 1
        self.browser.click(f"#{fieldset} li:nth-child({place}) label")


class Whole(PageTest):
    def test_fetches_nothing_and_complains_of_nothing(self):
        self.show_example()
        addresses = [event["request"]["url"] for event in self.browser.happened("Network.requestWillBeSent")]
        self.assertEqual([each for each in addresses if not each.startswith("data:")],
                         [(self.folder / "example.html").as_uri()])
        self.assertEqual(self.browser.happened("Runtime.exceptionThrown"), [])
        self.assertEqual(self.browser.happened("Log.entryAdded"), [])

    def test_could_fetch_nothing_if_it_tried(self):
        self.show_example()
        refused = "new Promise(done => addEventListener('securitypolicyviolation', event => done(event.blockedURI)))"
        self.browser.evaluate(f"void (refusal = {refused})")
        self.browser.evaluate("void (document.body.append(Object.assign(new Image, { src: 'https://example.org/x' })))")
        self.assertEqual(self.browser.evaluate("refusal"), "https://example.org/x")

    def test_shows_every_kind_of_action(self):
        self.show_example()
        self.assertEqual(self.status(), "44 actions")
        self.assertEqual(len(self.texts("#kinds li")), 21)
        sentences = self.sentences()
        self.assertEqual(len(sentences), 44)
        for sentence in ["Collection started", "Switched to Text Editor shopping.txt", "Clicked button New Document",
                         "Pressed Super+B in text area Document", "Opened menu File", "Clicked check box Keep me signed in on",
                         "Clicked link Statements https://bank.example/accounts/17/statements?year=2025",
                         "Clicked row March Amount: 1,204.00", "Chose radio button Landscape in Orientation",
                         "Clicked with another button on button without a name"]:
            self.assertIn(sentence, sentences)

    def test_marks_password_changes_and_shows_no_value(self):
        self.show_example("kind=ChangePassword")
        self.assertEqual(self.sentences(), ["Changed password in secure text field Password Value not recorded",
                                            "Changed password in field Transaction number Value not recorded"])
        self.assertEqual(len(self.texts("#list tr.secret")), 2)

    def test_tells_who_was_in_front_for_how_long(self):
        self.show([sessions.start(0), sessions.switch(0, "Notes"), sessions.switch(45, "Mail"), sessions.switch(60, "Notes"),
                   sessions.stop(100), sessions.start(160), sessions.stop(160)])
        self.assertEqual(self.texts("#timeline tbody tr"), ["Notes 1 min 25 s 85 % 2 2", "Mail 15 s 15 % 1 1"])
        self.assertEqual(self.texts("#figures dd"), ["1 min 40 s", "1 min 0 s in 1 pause", "7", "2", "3", "0"])
        drawn = "document.querySelectorAll('#timeline tbody tr')[1].querySelector('path:last-child').getAttribute('d')"
        self.assertEqual(self.browser.evaluate(drawn), "M562 0H750V1H562Z")

    def test_says_keys_as_people_do_and_tells_their_reported_names(self):
        self.show([sessions.report(0, "PressKeyCombination", elementName="List", controlType="list", automationID="",
                                   key="NumericPad + Function + down arrow")])
        self.assertEqual(self.sentences(), ["Pressed Down in list List"])
        self.browser.click("#list summary")
        self.browser.wait_for("document.querySelector('#list .members') !== null")
        self.assertIn("NumericPad + Function + down arrow", self.texts("#list .members dd"))

    def test_has_ticks_that_do_not_touch_and_reach_to_the_end(self):
        minute, day = 60, 86400
        lengths = [0.004, 0.05, 0.9, 7, 45, 3 * minute, 47 * minute, 5 * 60 * minute, day, 3 * day, 11 * day, 40 * day, 200 * day,
                   608 * day, 1500 * day, 30 * 365 * day]
        for length in lengths:
            with self.subTest(seconds=length):
                self.show([sessions.start(0), sessions.switch(0, "Notes"), sessions.stop(length)])
                [[begin, end]] = self.frames("#timeline .axis")
                labels = self.frames("#timeline .axis span:not([hidden])")
                self.assertGreaterEqual(len(labels), 2)
                bounds = [begin - 1] + [bound for label in labels for bound in label] + [end + 1]
                self.assertEqual(bounds, sorted(bounds), "labels touch or stand out")
                self.assertLess(end - labels[-1][1], 1.6 * (labels[-1][0] - labels[-2][0]), "ends before the end")

    def test_keeps_hostile_texts_as_texts(self):
        self.show([sessions.start(0)] + [sessions.click(1, text, text) for text in HOSTILE]
                  + [sessions.switch(2, text, text) for text in HOSTILE])
        self.assertEqual(self.browser.evaluate("typeof hacked"), "undefined")
        names = self.browser.evaluate("[...document.querySelectorAll('#list tr.click strong')].map(node => node.textContent)")
        self.assertEqual(names, HOSTILE)
        self.assertEqual(self.browser.evaluate("document.querySelectorAll('main img, main script').length"), 0)

    def test_says_so_when_there_is_nothing_to_show(self):
        self.show([])
        self.assertEqual(self.texts("#empty"), ["The session holds no reports."])
        self.assertEqual(self.browser.happened("Runtime.exceptionThrown"), [])


class Searching(PageTest):
    def test_finds_what_is_typed_whatever_its_case_and_accents(self):
        self.show([sessions.click(1, "Öffnen", "openButton"), sessions.click(2, "Save"), sessions.text(3, "Note", "offnet")])
        self.browser.click("#search")
        self.browser.type("OFFN")
        self.assertEqual(self.status(), "2 of 3 actions")
        self.assertEqual(self.sentences(), ["Clicked button Öffnen", "Changed text field Note offnet"])
        self.assertEqual(self.texts("#list mark"), ["offn"])

    def test_wants_every_word_and_shows_where_an_unseen_one_stands(self):
        self.show([sessions.click(1, "Save", "fileSave"), sessions.click(2, "Save", "other")])
        self.browser.click("#search")
        self.browser.type("save file")
        self.assertEqual(self.sentences(), ["Clicked button Save automationID: fileSave"])

    def test_finds_applications_and_kinds_but_not_what_says_nothing(self):
        self.show([sessions.switch(0, "Notes"), sessions.click(1, "A"), sessions.switch(2, "Mail"), sessions.text(3, "B", "")])
        for asked, found in [("notes", 2), ("mail text", 1), ("left", 0), ("700", 0)]:
            with self.subTest(asked):
                self.browser.evaluate(f"void (location.hash = 'text={asked}')")
                self.browser.wait_for(f"document.querySelector('#search').value === {asked!r}")
                self.assertEqual(self.status(), f"{found} of 4 actions")

    def test_says_that_nothing_was_found_and_starts_anew(self):
        self.show_example()
        self.browser.click("#search")
        self.browser.type("no such thing")
        self.assertEqual(self.texts("#empty"), ["No action fits the search and the filters."])
        self.browser.click("#clear")
        self.assertEqual(self.status(), "44 actions")
        self.assertEqual(self.browser.evaluate("document.activeElement.id"), "search")


class Filtering(PageTest):
    def test_by_kinds_and_applications(self):
        self.show_example()
        self.choose("kinds", "Click")
        self.assertEqual(self.status(), "9 of 44 actions")
        self.choose("kinds", "Text")
        self.assertEqual(self.status(), "12 of 44 actions")
        self.choose("applications", "Firefox")
        self.assertEqual(self.status(), "4 of 44 actions")
        self.assertEqual(set(self.texts("#list .where")), {"Firefox"})

    def test_by_an_application_of_the_timeline(self):
        self.show_example()
        self.browser.click("#timeline tbody button")
        self.assertEqual(self.texts("#applications :checked + .choice"), ["Firefox"])
        self.assertEqual(self.status(), "12 of 44 actions")

    def test_is_kept_in_the_address(self):
        self.show_example("text=bank&kind=ChangeApplication&application=Firefox")
        self.assertEqual(self.status(), "2 of 44 actions")
        self.choose("kinds", "Click")
        self.choose("kinds", "Application switch")
        self.assertEqual(self.browser.evaluate("location.hash"), "#text=bank&kind=Click&application=Firefox")


class Turning(PageTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        sessions.write_session(cls.folder / "long.jsonl", sessions.long_session(5000))
        sessions.make_page(PROGRAM, cls.folder / "long.jsonl", cls.folder / "long.html")

    def setUp(self):
        self.browser.open(self.folder / "long.html")

    def turn(self, label):
        place = self.texts(".pager:first-child button").index(label) + 1
        self.browser.click(f".pager:first-child button:nth-of-type({place})")

    def test_pages(self):
        self.assertEqual(self.status(), "5,000 actions , page 1 of 50")
        self.turn("Next")
        self.assertEqual(self.status(), "5,000 actions , page 2 of 50")
        self.turn("Last")
        self.assertEqual(self.sentences()[-1], "Collection stopped")
        self.assertEqual(self.texts(".pager:first-child button:disabled"), ["Next", "Last"])
        self.turn("First")
        self.assertEqual(self.sentences()[0], "Collection started")

    def test_to_a_time(self):
        self.browser.evaluate("void (moment = document.querySelector('#moment'))")
        self.browser.evaluate("void (moment.value = '2025-03-04T10:00:00', moment.dispatchEvent(new Event('change')))")
        self.assertRegex(self.texts("#list .pointed-at time")[0], r"^10:00:0[0-3]\.")

    def test_to_a_moment_of_the_timeline(self):
        self.browser.click("#timeline svg")
        self.assertRegex(self.texts("#list .pointed-at time")[0], r"^10:2[23]:")

    def test_the_printer_gets_more_than_a_page(self):
        self.browser.evaluate("void dispatchEvent(new Event('beforeprint'))")
        self.assertEqual(self.browser.evaluate("document.querySelectorAll('#list tbody tr').length"), 2000)
        self.assertEqual(self.browser.evaluate("document.querySelector('#printed-part').textContent"),
                         "These are the first 2,000 of 5,000 actions. Search or filter to print others.")
        self.browser.evaluate("void dispatchEvent(new Event('afterprint'))")
        self.assertEqual(self.browser.evaluate("document.querySelectorAll('#list tbody tr').length"), 100)


class Appearance(PageTest):
    def ground(self):
        return self.browser.evaluate("getComputedStyle(document.body).backgroundColor")

    def emulate(self, scheme, media=""):
        self.browser.call("Emulation.setEmulatedMedia", media=media,
                          features=[{"name": "prefers-color-scheme", "value": scheme}])

    def test_follows_the_system_until_it_is_chosen(self):
        grounds = {}
        for scheme in ("light", "dark"):
            self.emulate(scheme)
            self.show_example()
            grounds[scheme] = self.ground()
        self.assertNotEqual(grounds["light"], grounds["dark"])
        self.browser.click("#appearance label:nth-of-type(2)")
        self.assertEqual(self.ground(), grounds["light"])
        self.browser.click("#appearance label:nth-of-type(1)")
        self.assertEqual(self.ground(), grounds["dark"])

    def test_paper_shows_the_list_and_no_controls(self):
        self.emulate("dark", "print")
        self.addCleanup(self.emulate, "light")
        self.show_example()
        self.assertEqual(len(self.sentences()), 44)
        self.assertEqual(self.browser.evaluate("[...document.querySelectorAll('button:not(#timeline *), input')]"
                                               ".filter(node => node.checkVisibility()).map(node => node.id)"), [])


if __name__ == "__main__":
    unittest.main()
