#!/usr/bin/python3
"""A password is nowhere: not in the reports, not in the log, not in the memory of the service. What is written into an
editor is in no report."""
import json
import mmap
import secrets
import subprocess
import tempfile
from functools import partial
from pathlib import Path

import hands
import toolkits
from applications import ControlledApplication
from browser import Chromium, Firefox
from desktop import EndToEndTest, main
from waiting import wait_until

ENCODINGS = ("utf-8", "utf-16-le", "utf-16-be", "utf-32-le", "utf-32-be")


def core_image(process, folder):
    command = ["gcore", "-o", f"{folder}/core", str(process)]
    done = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True)
    assert done.returncode == 0, f"no core image, may processes be traced here?\n{done.stdout}{done.stderr}"
    return Path(f"{folder}/core.{process}")


def encodings_in(path, text):
    """The encodings in which a file holds a text."""
    with open(path, "rb") as file, mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ) as content:
        return [encoding for encoding in ENCODINGS if content.find(text.encode(encoding)) >= 0]


def checked(open_application, *arguments):
    return lambda self: self.check(open_application(), *arguments)


class PrivacyTest(EndToEndTest):
    def begin(self, application):
        self.addCleanup(application.close)
        self.follow(application)
        self.application = application

    def wait_until_handled(self):
        """The service has dealt with all that came before a key press when it reports the key press; gives the report."""
        seen = len(self.collection.lines)
        hands.key(self.IDLE_KEY)
        is_key = lambda line: "Function + f9" in line
        wait_until(lambda: any(map(is_key, self.collection.lines[seen:])), "the key's report")
        return json.loads(next(filter(is_key, self.collection.lines[seen:])))


class Passwords(PrivacyTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        # Another program that holds the clipboard: what is pasted has not been in any window before.
        cls.clipboard = ControlledApplication("clipboard.py", has_window=False)
        cls.addClassCleanup(cls.clipboard.close)

    test_gtk3 = checked(toolkits.Gtk3.opened, ["Passphrase"])
    test_gtk4 = checked(toolkits.Gtk4.opened, ["Passphrase", "Cipher"])
    test_qt5 = checked(toolkits.Qt5.opened, ["Passphrase"])
    test_qt6 = checked(toolkits.Qt6.opened, ["Passphrase"])
    test_chromium = checked(Chromium, ["Passphrase"])
    test_firefox = checked(Firefox, ["Passphrase"])

    def check(self, application, widgets):
        self.begin(application)
        self.wait_until_told()
        marker = self.enter("Ship", self.type)
        wait_until(lambda: marker in "".join(self.collection.lines), "the text that is no password")
        self.assertIn("utf-8", self.encodings_in_memory([marker])[marker], "the search finds what is known to be there")
        passwords = []
        for widget in widgets:
            for way in (self.type, self.paste):
                passwords.append(self.enter(widget, way))
                self.assert_nowhere(passwords)
                self.empty(widget)
        self.assert_nowhere(passwords)

    def wait_until_told(self):
        """An application that starts may be too busy for the first second to say what is typed into it."""
        self.application.focus("Ship")

        def is_told():
            hands.type_text("a")
            return any(report["action"] == "ChangeText" for report in self.collection.next(2, patience=2))

        wait_until(is_told, "a typed text to be told")
        self.empty("Ship")

    def enter(self, widget, way):
        text = "k" + secrets.token_hex(24)
        self.application.focus(widget)
        way(text)
        wait_until(lambda: self.application.value(widget) == text, f"what was entered into {widget}")
        self.wait_until_handled()
        return text

    def empty(self, widget):
        hands.key(*len(self.application.value(widget)) * ["BackSpace"])
        wait_until(lambda: not self.application.value(widget), f"{widget} to be empty")

    @staticmethod
    def type(text):
        hands.type_text(text)

    def paste(self, text):
        self.clipboard.ask("clipboard", text)
        hands.key("ctrl+v")

    def encodings_in_memory(self, texts):
        with tempfile.TemporaryDirectory(prefix="norra-core-") as folder:
            core = core_image(self.service.process.pid, folder)
            return {text: encodings_in(core, text) for text in texts}

    def assert_nowhere(self, passwords):
        reports = "".join(self.collection.lines)
        for password, encodings in self.encodings_in_memory(passwords).items():
            self.assertEqual(encodings, [], "in memory")
            self.assertNotIn(password, reports)
            self.assertNotIn(password, self.service.logged())


class Editors(PrivacyTest):
    """Each editor with the name that a key pressed in it is reported with."""

    EDITORS = {"Letter": "Letter", "Nameless": "Notes"}  # its frame's title
    EDITORS_OF_PAGES = {
        "Message": "Message", "Nested": "Nested", "Remark": "Remark", "Nameless": "", "Textbox": "", "Vague textbox": "",
        "Self-named": "", "Plain": "", "Button": "", "Link": "", "Item": "", "Heading": "", "Title": "", "Cell": "",
        "Open cell": "", "Summary": "", "Option": "", "Check": "", "Group": "", "Pointed at": "", "Describing": "",
        "Keys": "", "Design": None}

    test_gtk3 = checked(toolkits.Gtk3.opened, EDITORS)
    test_gtk4 = checked(toolkits.Gtk4.opened, EDITORS)
    test_qt5 = checked(toolkits.Qt5.opened, EDITORS)
    test_qt6 = checked(toolkits.Qt6.opened, EDITORS)
    test_chromium = checked(partial(Chromium, page="editors.html"), EDITORS_OF_PAGES, ("Email", "Passphrase"))
    test_firefox = checked(partial(Firefox, page="editors.html"), EDITORS_OF_PAGES, ("Email", "Passphrase"))

    def check(self, application, editors, fields=()):
        self.begin(application)
        for editor, name in editors.items():
            with self.subTest(editor):
                text, lines = self.write_and_click(editor, name)
                self.assertNotIn(text, "".join(lines))
        for field in fields:  # what is written into one of one line is its value, and in no name
            with self.subTest(field):
                text, lines = self.write_and_click(field, field)
                secret = "\u2022" if field == "Passphrase" else text
                self.assertNotIn(secret, str([{**json.loads(line), "newValue": None} for line in lines]))

    def write_and_click(self, editor, name):
        """Gives how the text begins that was written, and what was reported since."""
        text, seen = "k" + secrets.token_hex(8), len(self.collection.lines)
        self.application.focus(editor)
        self.wait_until_handled()  # once in vain: a toolkit that starts tells of no focus
        hands.type_text(text)
        wait_until(lambda: text in self.application.value(editor), f"what was written into {editor}")
        if name is not None:
            wait_until(lambda: self.wait_until_handled()["elementName"] == name, f"{editor} to be called '{name}'", 5)
        hands.key("ctrl+c", "Left", "Tab")
        for widget in (editor, f"{editor} around", "Weigh anchor", "Ship", editor):
            self.click_at_the_beginning(widget)
            self.wait_until_handled()
        return text[:8], self.collection.lines[seen:]

    def click_at_the_beginning(self, widget):
        x, y, _, height = self.application.place(widget)
        hands.point_to([x, y, 12, height])
        self.application.ask("idle", None)
        hands.press()
        self.application.ask("idle", None)
        hands.release()


if __name__ == "__main__":
    main()
