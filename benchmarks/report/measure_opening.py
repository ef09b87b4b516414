#!/usr/bin/env python3
"""How long a report page takes to open: measure_opening.py PROGRAM [ACTIONS [TIMES]]; benchmarks/run.sh runs it

Measures from the browser's order to open the page to the second frame after its list stands there."""

import pathlib
import statistics
import sys
import tempfile
import time

import sessions
from browser import Browser

PAINTED = "new Promise(done => requestAnimationFrame(() => requestAnimationFrame(() => done(true))))"


def opening_time(browser, page):
    browser.open("/dev/null")
    begin = time.monotonic()
    browser.call("Page.navigate", url=page.as_uri())
    browser.wait_for("document.readyState === 'complete' && document.querySelectorAll('#list tbody tr').length > 0")
    browser.evaluate(PAINTED)
    return time.monotonic() - begin


def searching_time(browser, text):
    return browser.evaluate(f"""(async () => {{
        const begin = performance.now(), field = document.querySelector("#search");
        field.value = {text!r};
        field.dispatchEvent(new Event("input"));
        await {PAINTED};
        return (performance.now() - begin) / 1000;
    }})()""")


def main(program, actions=100000, times=9):
    with tempfile.TemporaryDirectory() as folder:
        session, page = pathlib.Path(folder, "session.jsonl"), pathlib.Path(folder, "page.html")
        sessions.write_session(session, sessions.long_session(int(actions)))
        begin = time.monotonic()
        sessions.make_page(program, session, page)
        print(f"{actions} actions, session {session.stat().st_size / 1e6:.1f} MB, page {page.stat().st_size / 1e6:.1f} MB")
        print(f"made in {time.monotonic() - begin:.2f} s")
        with Browser() as browser:
            opened = [opening_time(browser, page) for _ in range(int(times))]
            searched = [searching_time(browser, text) for text in ("button 42", "typed 999", "example.org", "")]
        print(f"opened in {opened[0]:.2f} s the first time, median {statistics.median(opened):.2f} s, "
              f"slowest {max(opened):.2f} s of {times}")
        print(f"first search {searched[0]:.2f} s, later ones at most {max(searched[1:]):.2f} s")


if __name__ == "__main__":
    main(*sys.argv[1:])
