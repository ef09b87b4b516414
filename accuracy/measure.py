#!/usr/bin/python3
"""measure.py NAME RESULT [--alone]: does the cases of one application (applications/NAME.py) inside a private desktop, and
writes what came of them as JSON. With --alone nobody watches: for what the application then says on its standard error."""
import argparse
import importlib
import json
import os
import re
import subprocess
import sys
import time
from pathlib import Path

FOLDER = Path(__file__).resolve().parent
sys.path[:0] = [str(FOLDER), str(FOLDER.parent / "tests/endtoend"), str(FOLDER / "applications")]

import dbus

import effects
from collection import Collection
from desktop import PROGRAMS, Service
from person import Unable
from told import Judgement
from tree import Tree
from waiting import wait_until

QUIET = 1.2  # seconds: a text is told when it has been left alone for one
LATEST = 3.0
COMPLAINT = re.compile(r"CRITICAL|[Aa]ssertion|ASSERT|[Ss]egmentation|Traceback|terminate called|core dumped")


class Watcher:
    """The service and its client."""

    def __init__(self):
        self.service = Service()
        self.collection = Collection([os.environ.get("NORRA_COLLECT", PROGRAMS / "norra-collect")])
        self.collection.next(1)

    def reports(self):
        """Those not yet taken."""
        return [json.loads(line) for line in self.collection.lines[self.collection.taken:]]

    def take_all(self):
        self.collection.taken = len(self.collection.lines)

    def judge(self, told, also):
        """Waits until all is told, or can no longer be expected to be, and nothing more comes."""
        start = last = time.monotonic()
        count = 0
        while True:
            reports = self.reports()
            now = time.monotonic()
            if len(reports) != count:
                count, last = len(reports), now
            judgement = Judgement(told, reports, also)
            if now - last > QUIET and (not judgement.missed or now - start > LATEST):
                self.take_all()
                return judgement
            time.sleep(0.02)

    def close(self):
        self.collection.end()
        self.service.close()


class Nobody:
    """In the watcher's place; accessibility is on, as it is with it."""

    def __init__(self):
        bus = dbus.SessionBus()
        bus.call_blocking("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set", "ssv",
                          ("org.a11y.Status", "IsEnabled", True))

    def take_all(self):
        time.sleep(0.1)

    def judge(self, told, also):
        time.sleep(0.3)

    def close(self):
        pass


class Running:
    """The application, with its complaints in a file."""

    def __init__(self, program):
        self.home = Path(os.environ["HOME"])
        for name, content in program.files.items():
            path = self.home / name
            path.parent.mkdir(parents=True, exist_ok=True)
            content(path) if callable(content) else path.write_text(content)
        self.errors = open(self.home / "standard-error", "w+", errors="replace")
        self.page = program.command() if callable(program.command) else None
        self.process = self.page.process if self.page else self._start(program)
        wait_until(effects.title, f"a window of {program.title}", 60)
        self._wait_until_still()

    def _start(self, program):
        command = [word.format(home=self.home, here=FOLDER) for word in program.command]
        return subprocess.Popen(command, stdout=self.errors, stderr=self.errors, cwd=self.home,
                                env={**os.environ, **program.environment}, start_new_session=True)

    @staticmethod
    def _wait_until_still():
        end = time.monotonic() + 15
        earlier, since = None, time.monotonic()
        while time.monotonic() < end and time.monotonic() - since < 1.5:
            now = (effects.title(), effects.picture())
            if now != earlier:
                earlier, since = now, time.monotonic()
            time.sleep(0.1)

    def complaints(self):
        """What it says of itself to be wrong, without what differs from run to run; None of browsers, which keep it to themselves."""
        if self.page:
            return None
        lines = Path(self.errors.name).read_text(errors="replace").splitlines()
        said = {re.sub(r"0x[0-9a-f]+|\d+", "#", line.strip()) for line in lines if COMPLAINT.search(line)}
        status = self.process.poll() or 0
        return sorted(said | ({f"ended by signal {-status}"} if status < 0 else set()))

    def close(self):
        self.process.terminate()
        try:
            self.process.wait(5)
        except subprocess.TimeoutExpired:
            self.process.kill()


def do(case, tree, watcher):
    """What came of one case."""
    result = {"case": str(case.action), "expected": [str(told) for told in case.told]}
    watcher.take_all()
    try:
        case.action.perform(tree, case.effect.before)
        has_effect = case.effect.happens(tree)
    except Unable as fault:
        return {**result, "verdict": "void", "why": str(fault)}
    result.update(judged(watcher, case.told, case.also))
    if not has_effect:
        result.update(verdict="void", why=f"without effect: {case.effect}")
    return result


def judged(watcher, told, also=()):
    judgement = watcher.judge(told, also)
    if not judgement:
        return {}
    return {"verdict": judgement.verdict, "told": [short(report) for report in judgement.reports],
            "too much": [short(report) for report in judgement.surplus]}


def short(report):
    return {key: value for key, value in report.items() if key not in ("date", "isApplicationEvent", "automationID")}


def after(case, tree, watcher):
    if case.then:
        try:
            case.then.perform(tree)
        except Unable as fault:
            print(f"    afterwards: {fault}", flush=True)
        watcher.judge((), ())


def show(result):
    verdict = result.get("verdict", "done")
    surplus = result.get("too much", [])
    print(f"{verdict:8}{'+' + str(len(surplus)) if surplus else '':4}{result['case']}", flush=True)
    if verdict != "right" or surplus:
        for key in ("why", "expected", "told"):
            for line in [result[key]] if isinstance(result.get(key), str) else result.get(key, []):
                print(f"            {key}: {line}", flush=True)


def measure(program, watcher, pictures=None):
    """The results of all cases, and what the application complained of; a picture of the screen of each that is not right."""
    results = []
    running = Running(program)
    try:
        results.append({"case": "open", "expected": [str(program.opens)], **judged(watcher, (program.opens,))})
        show(results[-1])
        tree = Tree(running.page)
        if program.ready:
            wait_until(lambda: program.ready.is_seen(tree), program.ready, 60)
            watcher.take_all()
        for number, case in enumerate(program.cases, 1):
            results.append(do(case, tree, watcher))
            show(results[-1])
            if pictures and results[-1].get("verdict", "void") != "right":
                effects.screen().savev(str(pictures / f"{number}.png"), "png", [], [])
            after(case, tree, watcher)
        return results, running.complaints()
    finally:
        (running.page or running).close()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("name")
    parser.add_argument("result", type=Path)
    parser.add_argument("--alone", action="store_true")
    parser.add_argument("--least", type=int, default=0, help="fails when fewer of a hundred cases are right, a void one included")
    parser.add_argument("--pictures", type=Path, help="a folder for pictures of the screen after each case that is not right")
    options = parser.parse_args()
    program = importlib.import_module(options.name).PROGRAM
    watcher = Nobody() if options.alone else Watcher()
    results, complaints = measure(program, watcher, options.pictures)
    watcher.close()
    version = subprocess.run(["dpkg-query", "--show", "--showformat=${Version}", program.package],
                             capture_output=True, text=True).stdout
    options.result.write_text(json.dumps({"title": program.title, "version": version, "results": results,
                                          "complaints": complaints}, indent=1))
    right = sum(result.get("verdict") == "right" and not result["too much"] for result in results)
    if 100 * right < options.least * len(results):
        sys.exit(f"{right} of {len(results)} cases are right, which is less than {options.least} %")


if __name__ == "__main__":
    main()
