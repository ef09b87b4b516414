"""A fleet on the loopback interface: desktops with the installed configuration, a central broker behind TLS, links that can be
cut, and a reader."""
import contextlib
import json
import os
import pathlib
import select
import signal
import socket
import subprocess
import threading
import time

PROJECT = pathlib.Path(__file__).resolve().parents[2]
PACKAGING = PROJECT / "packaging/fleet"
NAME, PASSWORD = "desks", "a password of the test"


def wait_for(condition, what, seconds=60):
    limit = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > limit:
            raise AssertionError(f"waited in vain for {what}")
        time.sleep(0.02)


def run(*command, **options):
    return subprocess.run(list(map(str, command)), check=True, capture_output=True, text=True, timeout=60, **options)


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class Process:
    """A program that is stopped at the end, whatever happens."""

    def __init__(self, command, log, **options):
        self.log = log
        with open(log, "ab") as out:
            self.process = subprocess.Popen(list(map(str, command)), stderr=out, **{"stdout": out, **options})

    def end(self, number=signal.SIGTERM, seconds=30):
        if self.process.poll() is None:
            self.process.send_signal(number)
        return self.process.wait(seconds)


class Broker:
    def __init__(self, folder, configuration, answers):
        self.folder, self.answers, self.process, self.begin = folder, answers, None, 0
        self.configuration, self.log = folder / "broker.conf", folder.with_name(folder.name + "-broker.log")
        self.configuration.write_text(configuration)

    def start(self):
        self.begin = self.log.stat().st_size if self.log.exists() else 0
        self.process = Process(["/usr/sbin/mosquitto", "-c", self.configuration], self.log)
        wait_for(self.answers, f"the broker of {self.folder}: {self.text()}")

    def text(self):
        """What it has said since its start."""
        with open(self.log, errors="replace") as log:
            log.seek(self.begin)
            return log.read()

    def end(self, number=signal.SIGTERM):
        """One that goes on in a circle is killed, as its unit does."""
        if self.process:
            try:
                self.process.end(number, seconds=15)
            except subprocess.TimeoutExpired:
                self.process.end(signal.SIGKILL)
        self.process = None

    def hangs(self, path):
        """Whether it does not answer at its socket: then it is ended and begun again, as its unit does."""
        try:
            run("timeout", "10", "mosquitto_pub", "--unix", path, "-q", "1", "-t", "alive", "-n")
        except subprocess.CalledProcessError:
            self.end(signal.SIGKILL)
            self.start()
            return True
        return False


def accepts(family, address):
    def answers():
        with socket.socket(family) as probe:
            return probe.connect_ex(address) == 0

    return answers


class Link:
    """A way to the central broker that can be cut: what passes is lost then, and nobody gets through until it is mended."""

    def __init__(self, target):
        self.target, self.is_cut, self.pairs = target, False, []
        self.server = socket.create_server(("127.0.0.1", 0))
        self.port = self.server.getsockname()[1]
        threading.Thread(target=self.serve, daemon=True).start()

    def serve(self):
        while True:
            try:
                near = self.server.accept()[0]
            except OSError:
                return
            try:
                far = None if self.is_cut else socket.create_connection(("127.0.0.1", self.target), timeout=5)
            except OSError:
                far = None
            if far is None:
                near.close()
                continue
            for end in (near, far):
                end.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
            self.pairs.append((near, far))
            if self.is_cut:  # meanwhile
                self.cut()
            threading.Thread(target=self.carry, args=(near, far), daemon=True).start()

    @staticmethod
    def carry(near, far):
        with contextlib.suppress(OSError, ValueError):
            while True:
                for end in select.select([near, far], [], [])[0]:
                    data = end.recv(65536)
                    if not data:
                        raise OSError
                    (far if end is near else near).sendall(data)
        for end in (near, far):
            end.close()

    def cut(self):
        self.is_cut = True
        for pair in self.pairs:
            for end in pair:
                with contextlib.suppress(OSError):
                    end.shutdown(socket.SHUT_RDWR)
        self.pairs = []

    def mend(self):
        self.is_cut = False

    def close(self):
        self.cut()
        self.server.close()


class Central:
    """The broker that all desktops send to, with users, TLS and a folder of its own; and what reads from it."""

    def __init__(self, folder):
        self.folder = folder
        folder.mkdir()
        self.port, self.socket = free_port(), folder / "socket"
        self.authority = folder / "ca.crt"
        self.make_certificate()
        run("mosquitto_passwd", "-b", "-c", folder / "passwords", NAME, PASSWORD)
        (folder / "acl").write_text(f"user {NAME}\ntopic write desktops/#\n")
        self.broker = Broker(folder, self.configuration(), accepts(socket.AF_UNIX, str(self.socket)))

    def make_certificate(self):
        key = ["-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes"]
        run("openssl", "req", "-x509", *key, "-keyout", "ca.key", "-out", "ca.crt", "-days", "2", "-subj", "/CN=Test authority",
            cwd=self.folder)
        run("openssl", "req", *key, "-keyout", "server.key", "-out", "server.csr", "-subj", "/CN=localhost", cwd=self.folder)
        (self.folder / "names").write_text("subjectAltName=DNS:localhost,IP:127.0.0.1")
        run("openssl", "x509", "-req", "-in", "server.csr", "-CA", "ca.crt", "-CAkey", "ca.key", "-CAcreateserial", "-out",
            "server.crt", "-days", "2", "-extfile", "names", cwd=self.folder)

    def configuration(self):
        """Readers come by a socket, as a listener of its own has its own rules."""
        return f"""per_listener_settings true
set_tcp_nodelay true
persistence true
persistence_location {self.folder}/
autosave_interval 1
log_dest stderr
log_type error
log_type warning
log_type notice
max_queued_messages 0
max_inflight_messages 0
user {os.environ.get('USER', 'root') if os.getuid() else 'root'}
listener {self.port} 127.0.0.1
certfile {self.folder}/server.crt
keyfile {self.folder}/server.key
password_file {self.folder}/passwords
acl_file {self.folder}/acl
allow_anonymous false
listener 0 {self.socket}
allow_anonymous true
"""

    def reader(self, topic, output):
        """Keeps its session over all breaks. Each message is one line: its topic, a blank, its text."""
        return Process(["mosquitto_sub", "--unix", self.socket, "-i", f"reader of {topic}", "-c", "-q", "1", "-t", topic,
                        "-F", "%t %p"], self.folder / "reader.log", stdout=open(output, "ab"))


class Desktop:
    """The local broker with the installed configuration, and norra-publish."""

    def __init__(self, folder, host, publisher, central, port, **changes):
        self.folder, self.host, self.publisher, self.feeding = folder, host, publisher, None
        self.state, self.log = folder / "state", folder.with_name(host + "-publisher.log")
        for path in (folder, self.state, folder / "bridge"):
            path.mkdir(exist_ok=True)
        self.socket = folder / "socket"
        text = (PACKAGING / "broker.conf").read_text()
        for installed, here in {"/run/norra-fleet/socket": self.socket, "/etc/norra-fleet/acl": PACKAGING / "acl",
                                "/var/lib/norra-fleet/": f"{self.state}/", "/etc/norra-fleet/bridge": folder / "bridge",
                                **changes}.items():
            assert installed in text, installed
            text = text.replace(installed, str(here))
        (folder / "bridge/central.conf").write_text(self.bridge(central, port))
        user = "root" if os.getuid() == 0 else os.environ.get("USER", "")
        self.broker = Broker(folder, f"user {user}\n{text}", accepts(socket.AF_UNIX, str(self.socket)))

    def bridge(self, central, port):
        """As the command prints it, for a machine of this name, and more eager to connect again."""
        tools = self.folder / "tools"
        tools.mkdir(exist_ok=True)
        (tools / "norra-publish").write_text(f"#!/bin/sh\necho desktops/{self.host}/ada/interactions\n")
        (tools / "norra-publish").chmod(0o755)
        printed = run("sh", PACKAGING / "norra-fleet", "bridge", f"localhost:{port}", NAME, central.authority,
                      input=PASSWORD + "\n", env={**os.environ, "PATH": f"{tools}:{os.environ['PATH']}"}).stdout
        return printed.replace("restart_timeout 1 30", "restart_timeout 1 2")

    def publish(self, *options, user="ada"):
        """norra-publish; its input is a pipe."""
        self.feeding = Process([self.publisher, "--socket", self.socket, "--folder", self.folder / f"spool-{user}", "--host",
                                self.host, "--user", user, *options], self.log, stdin=subprocess.PIPE)
        return self.feeding.process.stdin

    def told(self):
        return self.log.read_text()

    def end(self):
        if self.feeding:
            with contextlib.suppress(BrokenPipeError):
                self.feeding.process.stdin.close()
            self.feeding.end(signal.SIGKILL)
        self.broker.end()


def report(number):
    """As norra-collect prints it."""
    return json.dumps({"action": "PressSpecialKey", "elementName": f"Field {number}", "controlType": "text field",
                       "automationID": "", "key": "tab", "date": "2026-03-02T08:00:00.000000Z", "isApplicationEvent": False})


class Stream:
    """What a reader has received: each report once, by desktop and session. The sequence number gives their order: a broker
    may send what comes in at the moment of its connection before what waits."""

    def __init__(self, path):
        self.path, self.position, self.rest = path, 0, b""
        self.sessions, self.states, self.doubles = {}, {}, 0

    def update(self):
        with open(self.path, "rb") as file:
            file.seek(self.position)
            data = file.read()
        self.position += len(data)
        *lines, self.rest = (self.rest + data).split(b"\n")
        for line in lines:
            self.take(*line.decode().split(" ", 1))
        return self

    def take(self, topic, text):
        if not topic.endswith("/interactions"):
            self.states.setdefault(topic, []).append(text)
            return
        message = json.loads(text)
        seen = self.sessions.setdefault((topic, message["session"]), {})
        self.doubles += message["sequence"] in seen
        seen.setdefault(message["sequence"], int(message["elementName"].split()[1]))

    def count(self):
        return sum(map(len, self.sessions.values()))

    def numbers(self):
        """Of the reports of each session in their order."""
        return [[seen[sequence] for sequence in sorted(seen)] for seen in self.sessions.values()]

    def early(self):
        """How many arrived before one that was reported before them."""
        count = 0
        for seen in self.sessions.values():
            least = float("inf")
            for sequence in reversed(seen):
                count += sequence > least
                least = min(least, sequence)
        return count

    def gaps(self):
        """From each session's first number, which is 1, to its last: the stretches that are missing."""
        return [(before + 1, after - 1) for seen in self.sessions.values()
                for before, after in zip([0, *sorted(seen)], sorted(seen)) if after != before + 1]
