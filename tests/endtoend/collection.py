"""The client program under the test's eyes: its reports, one JSON line each, as they come."""
import json
import re
import signal
import subprocess
import threading
from datetime import datetime

from waiting import PATIENCE, wait_until

DATE = re.compile(r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{6}(Z|[+-]\d\d:\d\d)")


class Collection:
    """Reports are taken in order: every `expect` goes on where the last one ended, so that none is overlooked."""

    def __init__(self, command):
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.lines = []
        self.taken = 0
        self.reader = threading.Thread(target=self._read, daemon=True)
        self.reader.start()

    def _read(self):
        for line in self.process.stdout:
            self.lines.append(line)

    def next(self, count, patience=PATIENCE):
        """The next reports, fewer when they do not come in time; without what the client adds, which is checked here."""
        try:
            wait_until(lambda: len(self.lines) >= self.taken + count, f"{count} reports", patience)
        except AssertionError:
            pass
        lines = self.lines[self.taken:self.taken + count]
        self.taken += len(lines)
        return [self._report(line) for line in lines]

    def until(self, is_last, patience=PATIENCE):
        """The reports up to and with the first that `is_last` says of; all that came when none does in time."""
        reports = []
        while not reports or not is_last(reports[-1]):
            more = self.next(1, patience)
            if not more:
                break
            reports += more
        return reports

    def date(self):
        """When the service forwarded the report that was taken last; in seconds, as time.time()."""
        date = json.loads(self.lines[self.taken - 1])["date"]
        return datetime.fromisoformat(date.replace("Z", "+00:00")).timestamp()

    @staticmethod
    def _report(line):
        report = json.loads(line)
        date, is_application = report.pop("date"), report.pop("isApplicationEvent")
        assert DATE.fullmatch(date), line
        assert is_application is (report["action"] == "ChangeApplication"), line
        return report

    def end(self):
        """As Ctrl-C in its terminal does; gives its exit status when its last line has been read."""
        self.process.send_signal(signal.SIGINT)
        return self.wait()

    def wait(self):
        status = self.process.wait(PATIENCE)
        self.reader.join(PATIENCE)
        return status
