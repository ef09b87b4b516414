"""Browsers that show a page of tests/applications, which says where its elements are as our own applications do."""
import http.server
import json
import os
import queue
import ssl
import subprocess
import tempfile
import threading
from pathlib import Path

import hands
from applications import ApplicationWithWidgets, FOLDER
from waiting import PATIENCE, wait_until


class PageServer:
    """Serves a page, hands it questions as server-sent events and takes its answers."""

    def __init__(self, page, certificate=None):
        self.page = page
        self.questions, self.answers = queue.Queue(), queue.Queue()
        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), self._handler())
        self.server.daemon_threads = True
        if certificate:
            context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
            context.load_cert_chain(certificate)
            self.server.socket = context.wrap_socket(self.server.socket, server_side=True)
        self.port = self.server.server_address[1]
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    # By path; the empty name is the page itself, the other lies beside it.
    FILES = {"/": ("", "text/html"), "/page.js": ("page.js", "text/javascript")}

    def _handler(self):
        pages = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                if self.path == "/commands":
                    self.begin("text/event-stream")
                    while True:
                        self.wfile.write(b"data: " + json.dumps(pages.questions.get()).encode() + b"\n\n")
                        self.wfile.flush()
                file, content_type = pages.FILES.get(self.path, (None, "image/x-icon"))
                self.begin(content_type)
                if file is not None:
                    page = FOLDER / pages.page
                    self.wfile.write((page.with_name(file) if file else page).read_bytes())

            def do_POST(self):
                body = self.rfile.read(int(self.headers["Content-Length"]))
                self.begin("text/plain")
                pages.answers.put(json.loads(body))

            def begin(self, content_type):
                self.send_response(200)
                self.send_header("Content-Type", content_type)
                self.end_headers()

            def log_message(self, *_):
                pass

        return Handler

    def ask(self, command, argument):
        self.questions.put({command: argument})
        return self.answers.get(timeout=PATIENCE)

    def close(self):
        self.server.shutdown()
        self.server.server_close()


def own_certificate(folder):
    path = Path(folder) / "certificate.pem"
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=localhost",
                    "-keyout", path, "-out", path], check=True, capture_output=True)
    return path


class Browser(ApplicationWithWidgets):
    """One window with a page. `host` is the name under which the page is shown, over HTTPS; none: plain localhost."""

    def __init__(self, host=None, page="page.html"):
        self.folder = tempfile.TemporaryDirectory(prefix="norra-browser-", ignore_cleanup_errors=True)
        self.server = PageServer(page, own_certificate(self.folder.name) if host else None)
        self.address = f"https://{host}/" if host else f"http://localhost:{self.server.port}/"
        super().__init__(self.command(host), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.wait_until_in_front()
        wait_until(self.answers_where, "the page")

    def answers_where(self):
        """The page learns where it is from the pointer's moves above it."""
        for x in (640, 641):
            hands.point_to([x, 450, 0, 0])
        if "WAYLAND_DISPLAY" in os.environ:
            left, top = hands.origin_of(self.pid)
            return self.ask("pointer", [641 - left, 450 - top])
        return self.ask("place", "Ship")

    def ask(self, command, argument):
        return self.server.ask(command, argument)

    def close(self):
        super().close()
        self.server.close()
        self.folder.cleanup()


class Chromium(Browser):
    def command(self, host):
        rules = [f"--host-resolver-rules=MAP {host} 127.0.0.1:{self.server.port}", "--ignore-certificate-errors"] if host else []
        return ["chromium", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-sync",
                "--disable-background-networking", "--disable-component-update", "--password-store=basic",
                f"--user-data-dir={self.folder.name}", "--window-size=1000,800", *rules, self.address]


class Firefox(Browser):
    # Without what it tells a person once in a while, in a tab or a bar of its own.
    PREFERENCES = {"datareporting.policy.dataSubmissionEnabled": "false", "browser.aboutwelcome.enabled": "false",
                   "browser.startup.homepage_override.mstone": '"ignore"'}

    def command(self, host):
        lines = [f'user_pref("{name}", {value});\n' for name, value in self.PREFERENCES.items()]
        (Path(self.folder.name) / "user.js").write_text("".join(lines))
        return ["firefox-esr", "--no-remote", "--profile", self.folder.name, "--width", "1000", "--height", "800", self.address]
