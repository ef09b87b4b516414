#!/usr/bin/env python3
"""measure.py NORRA-PUBLISH [DESKTOPS [REPORTS-PER-SECOND [SECONDS]]]: so many desktops, each with a broker of its own that is
bridged over TLS, into one central broker on this machine. Says what arrived, and what each part cost."""
import contextlib
import os
import pathlib
import signal
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tests/Fleet"))
from fleet import Central, Desktop, Stream, report, wait_for  # noqa: E402

TICKS = os.sysconf("SC_CLK_TCK")


def cost(processes):
    """Seconds of a processor, and mebibytes of memory that are each process's own."""
    seconds = memory = 0
    for process in processes:
        status = pathlib.Path(f"/proc/{process.pid}")
        fields = (status / "stat").read_text().rsplit(")", 1)[1].split()
        seconds += (int(fields[11]) + int(fields[12])) / TICKS
        rollup = (status / "smaps_rollup").read_text()
        memory += sum(int(line.split()[1]) for line in rollup.splitlines() if line.startswith("Private_")) / 1024
    return seconds, memory


def feed(pipes, rate, seconds):
    """Each desktop's reports at its rate; how late the last one was."""
    begin = time.monotonic()
    for number in range(1, rate * seconds + 1):
        line = report(number).encode() + b"\n"
        for pipe in pipes:
            pipe.write(line)
            pipe.flush()
        time.sleep(max(0, begin + number / rate - time.monotonic()))
    return time.monotonic() - begin - seconds


def measure(publisher, count, rate, seconds, ends):
    folder = pathlib.Path(ends.enter_context(tempfile.TemporaryDirectory()))
    central = Central(folder / "central")
    ends.callback(central.broker.end)
    central.broker.start()
    reader = central.reader("desktops/#", folder / "received")
    ends.callback(reader.end, signal.SIGKILL)
    desktops = [Desktop(folder / f"desk-{number}", f"desk-{number}", publisher, central, central.port) for number in range(count)]
    for desktop in desktops:
        ends.callback(desktop.end)
        desktop.broker.start()
    pipes = [desktop.publish() for desktop in desktops]
    stream = Stream(folder / "received")
    wait_for(lambda: sum('"collecting"' in states[-1] for states in stream.update().states.values()) == count, "all desktops")
    parts = {"central broker": [central.broker.process.process], "reader": [reader.process],
             "local brokers": [desktop.broker.process.process for desktop in desktops],
             "norra-publish": [desktop.feeding.process for desktop in desktops]}
    before = {name: cost(processes)[0] for name, processes in parts.items()}
    late = feed(pipes, rate, seconds)
    fed = time.monotonic()
    with contextlib.suppress(AssertionError):
        wait_for(lambda: stream.update().count() == count * rate * seconds, "the reports", 120)
    print(f"{count} desktops, {rate} reports a second each, {seconds} s (the last {late:.1f} s late): arrived {stream.count()} of "
          f"{count * rate * seconds}, gaps {len(stream.gaps())}, doubles {stream.doubles}, early {stream.early()}, "
          f"{time.monotonic() - fed:.1f} s after the last")
    for name, processes in parts.items():
        used, memory = cost(processes)
        print(f"{name:15} {100 * (used - before[name]) / seconds:6.1f} % of one processor, {memory:6.1f} MiB")


def main():
    numbers = [*map(int, sys.argv[2:]), *(50, 20, 60)[len(sys.argv) - 2:]]
    with contextlib.ExitStack() as ends:
        measure(os.path.abspath(sys.argv[1]), *numbers, ends)


main()
