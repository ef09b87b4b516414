"""Makes recorded sessions for the tests, and pages of them."""

import datetime
import json
import pathlib
import random
import subprocess

BEGIN = datetime.datetime(2025, 3, 4, 9, 0, 0, tzinfo=datetime.timezone.utc)


def report(seconds, action, **members):
    date = (BEGIN + datetime.timedelta(seconds=seconds)).strftime("%Y-%m-%dT%H:%M:%S.%fZ")
    return {"action": action, **members, "date": date, "isApplicationEvent": action == "ChangeApplication"}


def start(seconds):
    return report(seconds, "Collector", operation="start")


def stop(seconds):
    return report(seconds, "Collector", operation="stop")


def switch(seconds, name, title=""):
    return report(seconds, "ChangeApplication", processID=700, applicationName="org.example." + name,
                  fileDescription=name, windowTitle=title)


def click(seconds, name, identifier=""):
    return report(seconds, "Click", elementName=name, controlType="button", automationID=identifier, button="left")


def text(seconds, name, value):
    return report(seconds, "ChangeText", elementName=name, controlType="text field", automationID="", newValue=value)


def password(seconds, name, value=""):
    return report(seconds, "ChangePassword", elementName=name, automationID="", newValue=value)


def long_session(count):
    """As many reports as asked for, the same ones each time."""
    chance = random.Random(1)
    makers = [
        lambda at, n: click(at, f"Button {n % 97}", f"id{n % 500}"),
        lambda at, n: text(at, f"Field {n % 31}", f"Typed text number {n}"),
        lambda at, n: report(at, "PressSpecialKey", elementName=f"Field {n % 31}", controlType="text field",
                             automationID="", key="carriage return"),
        lambda at, n: report(at, "ClickHyperLink", elementName=f"Link {n % 211}", automationID="",
                             url=f"https://example.org/articles/{n % 5000}"),
        lambda at, n: report(at, "ChangeSelectedRows", elementName="Messages", controlType="table", automationID="",
                             newValue=f"Row {n % 1000}, Row {n % 777}"),
    ]
    yield start(0)
    for n in range(1, count - 1):
        at = n * 2 + chance.random()
        yield switch(at, f"Application {chance.randrange(12)}") if n % 15 == 1 else chance.choice(makers)(at, n)
    yield stop(count * 2)


def write_session(path, reports):
    lines = (json.dumps(each, ensure_ascii=False, separators=(",", ":")) for each in reports)
    pathlib.Path(path).write_text("".join(line + "\n" for line in lines), encoding="utf-8")


def make_page(program, session, page, *arguments):
    subprocess.run([program, session, "-o", page, *arguments], check=True, timeout=300)
