"""What norra-report answers on the command line: program_test.py PROGRAM"""

import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

import sessions

PROGRAM = sys.argv.pop(1)

# Lines, and what is said of them.
UNDEFINED = sessions.report(0, "Undefined")
FAULTS = [
    (b"{", "not JSON"),
    (b"[]", "not a JSON object"),
    (b'{"message":"\xff",' + json.dumps(sessions.report(0, "External")).encode()[1:], "not JSON"),
    ({**sessions.start(0), "operation": "begin"}, '"operation"'),
    ({**UNDEFINED, "date": 1741083330}, '"date"'),
    ({**UNDEFINED, "date": "yesterday"}, '"date"'),
    ({**UNDEFINED, "isApplicationEvent": 0}, '"isApplicationEvent"'),
    *(({key: value for key, value in UNDEFINED.items() if key != member}, f'"{member}"')
      for member in ("date", "isApplicationEvent")),
    ({**sessions.text(0, "Secret name", "Secret value"), "automationID": 7}, '"automationID"'),
]


def run(*arguments, given=""):
    return subprocess.run([PROGRAM, *map(str, arguments)], input=given, capture_output=True, text=True, timeout=120)


class Program(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.session = self.folder / "session.jsonl"
        self.page = self.folder / "page.html"
        sessions.write_session(self.session, [sessions.start(0), sessions.click(1, "Save"), sessions.stop(2)])

    def damage(self):
        self.session.write_text("{\n" + self.session.read_text() + "no report\n")

    def check(self, result, status, *messages):
        self.assertEqual(result.returncode, status, result.stderr)
        for message in messages:
            self.assertIn(message, result.stderr)

    def test_makes_a_page_with_a_title(self):
        for title, told in [("A <b> & </title>", "A &lt;b&gt; &amp; &lt;/title&gt;"), (os.fsdecode(b"\xff"), "\ufffd")]:
            self.check(run(self.session, "-o", self.page, "--title", title), 0)
            self.assertIn(f"<title>{told}</title>", self.page.read_text(errors="replace"))

    def test_reads_standard_input_and_writes_standard_output(self):
        result = run("-", given=self.session.read_text().rstrip())
        self.check(result, 0)
        self.assertTrue(result.stdout.startswith("<!DOCTYPE html>"))
        self.assertIn("Collection stopped", result.stdout)
        self.assertTrue(result.stdout.endswith("</html>\n"))

    def test_names_unreadable_lines_and_goes_on(self):
        first, second, last = self.session.read_text().splitlines()
        self.session.write_text(f"oops\n{first}\n\n \t\r\n{{}}\n{second}\r\n{last[:20]}")
        result = run(self.session, "-o", self.page)
        self.check(result, 1, *(f"{self.session}, line {number}: " for number in (1, 5, 7)))
        self.assertEqual(result.stderr.count(", line "), 3)
        self.assertIn('"unreadableLines":3', self.page.read_text())
        self.assertIn('"Save"', self.page.read_text())

    def test_a_fault_is_named_without_any_value(self):
        lines = (line if isinstance(line, bytes) else json.dumps(line).encode() for line, _ in FAULTS)
        self.session.write_bytes(b"\n".join(lines))
        result = run(self.session, "-o", self.page)
        self.assertNotIn("Secret", result.stderr)
        for number, (line, fault) in enumerate(FAULTS, start=1):
            self.assertRegex(result.stderr, f"line {number}: .*{fault}", line)

    def test_a_file_that_is_no_session_is_not_repeated_line_by_line(self):
        self.session.write_text("no report\n" * 25)
        result = run(self.session, "-o", self.page)
        self.check(result, 1, "line 20: ", "lines that cannot be read besides: 5")
        self.assertNotIn("line 21", result.stderr)

    def test_a_page_is_its_owners_as_the_session_is(self):
        self.check(run(self.session, "-o", self.page), 0)
        self.assertEqual(self.page.stat().st_mode & 0o777, 0o600)

    def test_strict_ends_at_the_first_unreadable_line_without_a_page(self):
        self.damage()
        result = run("--strict", self.session, "-o", self.page)
        self.check(result, 1, "line 1: ")
        self.assertNotIn("line 5", result.stderr)
        self.assertFalse(self.page.exists())

    def test_an_empty_session_makes_a_page(self):
        self.session.write_text("")
        self.check(run(self.session, "-o", self.page), 0)
        self.assertIn("</html>", self.page.read_text())

    def test_what_cannot_be_read_or_written_is_named(self):
        missing, nowhere = self.folder / "missing.jsonl", self.folder / "nowhere" / "page.html"
        rows = [
            ((missing, "-o", self.page), f"{missing} cannot be read: No such file or directory"),
            ((self.folder, "-o", self.page), f"{self.folder} cannot be read: Is a directory"),
            ((self.session, "-o", nowhere), f"{nowhere} cannot be written: No such file or directory"),
            ((self.session, "-o", self.folder), f"{self.folder} cannot be written: Is a directory"),
            ((self.session, "-o", "/dev/full"), "/dev/full cannot be written: No space left on device"),
            ((self.session, "-o", self.session), f"{self.session} is the session itself"),
            ((), "SESSION is required"),
            ((self.session, "--colour"), "--colour"),
        ]
        for arguments, message in rows:
            with self.subTest(message):
                self.check(run(*arguments), 2, message)
        self.assertFalse(self.page.exists())

    def test_a_session_that_is_its_own_page_is_left_alone(self):
        before = self.session.read_bytes()
        link = self.folder / "link.html"
        link.symlink_to(self.session)
        self.check(run(self.session, "-o", link), 2)
        self.assertEqual(self.session.read_bytes(), before)

    def test_a_password_in_the_file_does_not_reach_the_page(self):
        sessions.write_session(self.session, [sessions.password(0, "PIN", "correct horse")])
        result = run(self.session)
        self.check(result, 0)
        self.assertNotIn("correct horse", result.stdout)

    def test_help_and_version(self):
        self.assertIn("--strict", run("--help").stdout)
        self.assertRegex(run("--version").stdout, r"^norra-report \d+\.\d+\.\d+\n$")


if __name__ == "__main__":
    unittest.main()
