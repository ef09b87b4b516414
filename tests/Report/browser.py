"""A headless Chromium, driven through its debugging pipe. Nothing but the standard library."""

import json
import os
import pathlib
import select
import shutil
import subprocess
import tempfile
import time

LIMIT_IN_SECONDS = 120
FLAGS = [
    "--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-dev-shm-usage",
    "--disable-background-networking", "--disable-component-update", "--disable-sync", "--hide-scrollbars",
    "--remote-debugging-pipe",
]


class BrowserError(Exception):
    pass


class Browser:
    """One browser with one page. Ends with the `with` block."""

    def __init__(self, width=1280, height=900):
        self.profile = tempfile.mkdtemp(prefix="norra-report-browser-")
        self.counter = 0
        self.unread = b""
        self.events = []
        self.process = subprocess.Popen(
            ["sh", "-c", 'exec "$@" 3<&0 4>&1 </dev/null >/dev/null 2>&1', "sh", "chromium", *FLAGS,
             f"--window-size={width},{height}", f"--user-data-dir={self.profile}", "about:blank"],
            bufsize=0, stdin=subprocess.PIPE, stdout=subprocess.PIPE, env={**os.environ, "TZ": "UTC", "LANG": "C.UTF-8"})
        self.session = self._open_page()

    def _open_page(self):
        target = self._send("Target.createTarget", {"url": "about:blank"}, None)["targetId"]
        session = self._send("Target.attachToTarget", {"targetId": target, "flatten": True}, None)["sessionId"]
        for domain in ("Page", "Runtime", "Network", "Log"):
            self._send(f"{domain}.enable", {}, session)
        return session

    def __enter__(self):
        return self

    def __exit__(self, *_):
        try:
            self._send("Browser.close", {}, None)
            self.process.wait(LIMIT_IN_SECONDS)
        except (BrowserError, OSError, subprocess.TimeoutExpired):
            self.process.kill()
            self.process.wait()
        for end in (self.process.stdin, self.process.stdout):
            end.close()
        shutil.rmtree(self.profile, ignore_errors=True)

    def _send(self, method, parameters, session):
        self.counter += 1
        message = {"id": self.counter, "method": method, "params": parameters}
        if session:
            message["sessionId"] = session
        self.process.stdin.write(json.dumps(message).encode() + b"\0")
        while True:
            answer = self._next_message()
            if answer.get("id") != self.counter:
                self.events.append(answer)
            elif "error" in answer:
                raise BrowserError(f"{method}: {answer['error']}")
            else:
                return answer["result"]

    def _next_message(self):
        deadline = time.monotonic() + LIMIT_IN_SECONDS
        while b"\0" not in self.unread:
            ready, _, _ = select.select([self.process.stdout], [], [], max(0, deadline - time.monotonic()))
            part = self.process.stdout.read(1 << 20) if ready else b""
            if not part:
                raise BrowserError("the browser does not answer")
            self.unread += part
        message, self.unread = self.unread.split(b"\0", 1)
        return json.loads(message)

    def call(self, method, **parameters):
        return self._send(method, parameters, self.session)

    def open(self, path, fragment=""):
        """Opens the file as it would be opened by hand, and waits until it is loaded."""
        self.call("Page.navigate", url="about:blank")
        self.wait_for("location.href === 'about:blank'")
        self.events.clear()
        address = pathlib.Path(path).resolve().as_uri() + ("#" + fragment if fragment else "")
        self.call("Page.navigate", url=address)
        self.wait_for("document.readyState === 'complete' && location.protocol === 'file:'")

    def evaluate(self, expression):
        """The value of a JavaScript expression, which may be a promise."""
        answer = self.call("Runtime.evaluate", expression=expression, returnByValue=True, awaitPromise=True)
        if "exceptionDetails" in answer:
            raise BrowserError(f"{expression}: {answer['exceptionDetails']}")
        return answer["result"].get("value")

    def wait_for(self, expression):
        deadline = time.monotonic() + LIMIT_IN_SECONDS
        while not self.evaluate(expression):
            if time.monotonic() > deadline:
                raise BrowserError(f"never came true: {expression}")

    def happened(self, method):
        """The parameters of each event of that name since the page was opened."""
        self.evaluate("0")
        return [event["params"] for event in self.events if event.get("method") == method]

    def press(self, key, code=0, modifiers=0, text=""):
        for kind in ("keyDown", "keyUp"):
            parameters = {"type": kind, "key": key, "code": key, "windowsVirtualKeyCode": code, "modifiers": modifiers}
            if text and kind == "keyDown":
                parameters["text"] = text
            self.call("Input.dispatchKeyEvent", **parameters)

    def type(self, text):
        for character in text:
            self.call("Input.dispatchKeyEvent", type="char", text=character)

    def click(self, selector):
        """Clicks the middle of the first element that the selector finds."""
        x, y = self.evaluate(f"""(() => {{
            const node = document.querySelector({json.dumps(selector)});
            node.scrollIntoView({{ block: "center", behavior: "instant" }});
            const frame = node.getBoundingClientRect();
            return [frame.x + frame.width / 2, frame.y + frame.height / 2];
        }})()""")
        for kind in ("mousePressed", "mouseReleased"):
            self.call("Input.dispatchMouseEvent", type=kind, x=x, y=y, button="left", clickCount=1)
