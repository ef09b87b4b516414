"""Nothing that a desktop reports is lost on its way, whatever breaks: brokers_test.py NORRA-PUBLISH

NORRA_SEED chooses the moments of the breaks, NORRA_REPORTS how many reports there are."""
import contextlib
import json
import os
import pathlib
import random
import signal
import subprocess
import sys
import tempfile
import threading
import time
import unittest

import fleet
from fleet import Central, Desktop, Link, Stream, report, wait_for

PUBLISHER = os.path.abspath(sys.argv.pop(1))
SEED = int(os.environ.get("NORRA_SEED") or random.randrange(1000))
REPORTS = int(os.environ.get("NORRA_REPORTS") or 10_000)


class Fleet(unittest.TestCase):
    def setUp(self):
        self.ends = contextlib.ExitStack()
        self.addCleanup(self.ends.close)
        self.folder = pathlib.Path(self.ends.enter_context(tempfile.TemporaryDirectory()))
        self.central = Central(self.folder / "central")
        self.ends.callback(self.central.broker.end)
        self.link = Link(self.central.port)
        self.ends.callback(self.link.close)

    def desktop(self, host="desk-1", **changes):
        desktop = Desktop(self.folder / host, host, PUBLISHER, self.central, self.link.port, **changes)
        self.ends.callback(desktop.end)
        return desktop

    def read(self):
        """What arrives at the central broker from now on."""
        self.central.broker.start()
        output = self.folder / "received"
        reader = self.central.reader("desktops/#", output)
        self.ends.callback(reader.end, signal.SIGKILL)
        stream = Stream(output)

        def probe():
            fleet.run("mosquitto_pub", "--unix", self.central.socket, "-t", "desktops/probe/state", "-m", "here")
            return stream.update().states

        wait_for(probe, "the reader")
        wait_for(lambda: (self.central.folder / "mosquitto.db").exists(), "the reader's session on the disk")
        return stream

    def arrives(self, stream, count, desktop):
        try:
            wait_for(lambda: stream.update().count() >= count, f"{count} reports", 20)
        except AssertionError:
            print("the broker hangs:", desktop.broker.hangs(desktop.socket), "gaps:", stream.gaps())
            wait_for(lambda: stream.update().count() >= count, f"{count} reports, seed {SEED}")

    def restart_central(self, number, chance):
        """A broker that is killed takes with it what it acknowledged and neither wrote to its disk nor handed on. So the reader
        is there, and gets everything before it is acknowledged, whenever that happens."""
        self.restart(self.central.broker, number, chance)
        wait_for(lambda: " as reader of " in self.central.broker.text(), "the reader")

    def test_nothing_is_lost_whatever_breaks(self):
        chance = random.Random(SEED)
        stream, desktop = self.read(), self.desktop(**{"autosave_interval 60": "autosave_interval 2"})
        desktop.broker.start()
        feed = desktop.publish("--keep", "120")
        breaks = threading.Thread(target=self.break_things, args=(chance, desktop))
        breaks.start()
        for number in range(1, REPORTS + 1):
            feed.write(report(number).encode() + b"\n")
            feed.flush()
            if number % 20 == 0:
                time.sleep(20 / 500)
        breaks.join()
        self.arrives(stream, REPORTS, desktop)
        feed.close()
        self.assertEqual(desktop.feeding.process.wait(30), 0, desktop.told())
        state = "desktops/desk-1/ada/state"
        wait_for(lambda: '"ended"' in stream.update().states.get(state, [""])[-1], "the farewell")
        self.assertEqual(json.loads(stream.states[state][-1])["sequence"], REPORTS)
        self.assertEqual((stream.numbers(), stream.gaps()), ([list(range(1, REPORTS + 1))], []), f"seed {SEED}")
        print(f"seed {SEED}: {REPORTS} reports, doubles {stream.doubles}, early {stream.early()}")

    def break_things(self, chance, desktop):
        """Each break at a moment of its own, and each kind twice."""
        kinds = 2 * [lambda: self.restart_central(signal.SIGKILL, chance),
                     lambda: self.restart_central(signal.SIGTERM, chance),
                     lambda: self.cut(chance),
                     lambda: self.restart(desktop.broker, signal.SIGTERM, chance),
                     lambda: self.restart(desktop.broker, signal.SIGKILL, chance)]
        chance.shuffle(kinds)
        for break_it in kinds:
            time.sleep(chance.uniform(0.1, 1.5))
            break_it()

    def restart(self, broker, number, chance):
        broker.end(number)
        time.sleep(chance.uniform(0, 1))
        broker.start()

    def cut(self, chance):
        self.link.cut()
        time.sleep(chance.uniform(0, 1.5))
        self.link.mend()

    def test_a_full_disk_costs_nothing(self):
        disk = self.folder / "desk-1"
        disk.mkdir()
        if subprocess.run(["mount", "-t", "tmpfs", "-o", "size=8m", "tmpfs", disk], capture_output=True).returncode != 0:
            self.skipTest("a small disk can be mounted by root only")
        self.ends.callback(subprocess.run, ["umount", "--lazy", disk])
        stream, desktop = self.read(), self.desktop(**{"autosave_interval 60": "autosave_interval 1"})
        desktop.broker.start()
        feed = desktop.publish("--keep", "120")
        self.link.cut()
        filler = self.ends.enter_context(open(disk / "filler", "wb", buffering=0))
        with contextlib.suppress(OSError):
            while filler.write(bytes(4096)):
                pass
        for number in range(1, 3001):
            feed.write(report(number).encode() + b"\n")
        feed.flush()
        wait_for(lambda: "The disk cannot be written (No space left on device)" in desktop.told(), "the full disk")
        wait_for(lambda: "Error saving" in desktop.broker.text() or "No space" in desktop.broker.text(), "a failed save")
        filler.truncate(0)
        wait_for(lambda: "The disk can be written again" in desktop.told(), "room")
        self.link.mend()
        self.arrives(stream, 3000, desktop)
        self.assertEqual(stream.numbers(), [list(range(1, 3001))])

    def test_what_passes_the_bound_is_told_as_a_gap(self):
        stream, desktop = self.read(), self.desktop(
            **{"max_queued_messages 100000": "max_queued_messages 500", "autosave_interval 60": "autosave_interval 1"})
        desktop.broker.start()
        feed = desktop.publish("--keep", "1")
        connection, state = "desktops/desk-1/connection", "desktops/desk-1/ada/state"
        wait_for(lambda: stream.update().states.get(connection, [""])[-1] == "1", "the connection")
        wait_for(lambda: state in stream.update().states, "the greeting, which would wait in the place of a report")
        self.link.cut()
        wait_for(lambda: stream.update().states[connection][-1] == "0", "the last will of the connection")
        for number in range(1, 3001):
            feed.write(report(number).encode() + b"\n")
        feed.flush()
        wait_for(lambda: (desktop.folder / "spool-ada/waiting.jsonl").stat().st_size == 0, "the broker to have them")
        self.link.mend()
        try:
            wait_for(lambda: stream.update().count() >= 500, "what was kept", 20)
        except AssertionError:
            if desktop.broker.hangs(desktop.socket):
                self.skipTest("this mosquitto went in a circle when its connection broke, and what it kept is gone with it")
            raise
        feed.write(report(3001).encode() + b"\n")
        feed.close()
        self.assertEqual(desktop.feeding.process.wait(30), 0)
        wait_for(lambda: any(3001 in seen for seen in stream.update().numbers()), "the last report")
        lost = sum(last - first + 1 for first, last in stream.gaps())
        self.assertEqual((len(stream.gaps()), lost + stream.count()), (1, 3001), stream.gaps())
        self.assertGreater(lost, 1000)

    def test_what_waits_survives_its_process_and_strangers_see_nothing(self):
        stream, desktop = self.read(), self.desktop()
        feed = desktop.publish()
        for number in range(1, 101):
            feed.write(report(number).encode() + b"\n")
        feed.flush()
        spool = desktop.folder / "spool-ada"
        wait_for(lambda: spool.is_dir() and (spool / "waiting.jsonl").read_text().count("\n") == 100, "the spool")
        self.assertEqual([path.stat().st_mode & 0o777 for path in (spool, spool / "waiting.jsonl")], [0o700, 0o600])
        desktop.feeding.end(signal.SIGKILL)
        desktop.broker.start()
        feed = desktop.publish()
        feed.write(b"no report\n" + report(101).encode() + b"\n")
        feed.flush()
        self.arrives(stream, 101, desktop)
        self.assertEqual(stream.numbers(), [list(range(1, 101)), [101]])
        self.assertIn("A line that is no JSON object was left out", desktop.told())
        stranger = subprocess.run(["mosquitto_sub", "--unix", desktop.socket, "-t", "desktops/#", "-W", "2"], capture_output=True)
        self.assertEqual((stranger.stdout, stranger.stderr), (b"", b"Timed out\n"), "not even the retained state")
        desktop.feeding.end(signal.SIGKILL)
        state = "desktops/desk-1/ada/state"
        wait_for(lambda: '"lost"' in stream.update().states[state][-1], "the last will of the publisher")
        retained = fleet.run("mosquitto_sub", "--unix", self.central.socket, "-t", state, "-C", "1", "-W", "10").stdout
        self.assertEqual(json.loads(retained), {"state": "lost", "session": list(stream.sessions)[1][1]})


if __name__ == "__main__":
    unittest.main()
