"""Holds the logs of norra-export to the rules of IEEE 1849: xes_test.py PROGRAM SESSION"""
import collections
import datetime
import json
import re
import subprocess
import sys
import unittest
import xml.etree.ElementTree as ElementTree

PROGRAM, SESSION = sys.argv[1:]
del sys.argv[1:]

VALUES = {  # what the schema's types allow: xs:string, xs:dateTime in UTC, xs:long
    "string": lambda text: True,
    "date": lambda text: datetime.datetime.strptime(text, "%Y-%m-%dT%H:%M:%S.%fZ"),
    "int": lambda text: -(2**63) <= int(text) < 2**63,
}
# A name of XML, as the schema wants for a key, without the letters that no key here has.
NAME = re.compile(r"[A-Za-z_:][A-Za-z0-9_:.-]*")
ORDER = ["extension", "global", "classifier", "attribute", "trace", "event"]


def export(lines, *options):
    return subprocess.run([PROGRAM, "-", *options], input=lines, capture_output=True, text=True, timeout=60)


def report(second, action, **members):
    return json.dumps({"action": action, **members, "date": f"2026-03-02T08:00:{second:02}Z", "isApplicationEvent": False})


def attributes(element):
    return {child.get("key"): child.get("value") for child in element if child.tag in VALUES}


class Xes(unittest.TestCase):
    def log_of(self, lines, *options):
        result = export(lines, *options)
        self.assertEqual(result.returncode, 0, result.stderr)
        return ElementTree.fromstring(result.stdout)

    def check_attributes(self, element, prefixes):
        keys = [child.get("key") for child in element if child.tag in VALUES]
        self.assertEqual(len(keys), len(set(keys)), "a key twice in one component")
        for child in element:
            if child.tag not in VALUES:
                continue
            self.assertTrue(NAME.fullmatch(child.get("key")) and VALUES[child.tag](child.get("value")), child.attrib)
            self.assertLessEqual(set(child.get("key").split(":")[:-1]), prefixes, "a prefix of no extension")

    def check_rules(self, log):
        self.assertEqual((log.tag, log.get("xes.version")), ("log", "1849.2016"))
        places = [ORDER.index("attribute" if child.tag in VALUES else child.tag) for child in log]
        self.assertEqual(places, sorted(places))
        prefixes = {extension.get("prefix") for extension in log.iter("extension")}
        declared = {scope.get("scope"): attributes(scope).keys() for scope in log.iter("global")}
        for classifier in log.iter("classifier"):
            self.assertLessEqual(set(classifier.get("keys").split()), declared["event"])
        for scope in ("trace", "event"):
            for component in log.iter(scope):
                self.check_attributes(component, prefixes)
                self.assertLessEqual(declared[scope], attributes(component).keys())

    def test_the_example_keeps_to_the_rules_and_loses_nothing(self):
        with open(SESSION, encoding="utf-8") as file:
            lines = file.read()
        told = [json.loads(line) for line in lines.splitlines() if '"Collector"' not in line]
        for notion in ("application", "visit", "collection"):
            with self.subTest(notion):
                log = self.log_of(lines, "--cases", notion)
                self.check_rules(log)
                events = sorted(map(attributes, log.iter("event")), key=lambda event: event["time:timestamp"])
                self.assertEqual([event["time:timestamp"] for event in events], [report["date"] for report in told])
                for event, one in zip(events, told):
                    members = {key: str(value) for key, value in one.items() if key not in ("date", "isApplicationEvent")}
                    self.assertLessEqual(members.items(), event.items())

    def test_cases(self):
        def switch(second, name, process):
            return report(second, "ChangeApplication", processID=process, applicationName=name.lower(), fileDescription=name,
                          windowTitle="w")

        start, stop = (lambda second: report(second, "Collector", operation="start")), (
            lambda second: report(second, "Collector", operation="stop"))
        session = "\n".join([start(0), report(1, "Undefined"), switch(2, "Notes", 1), switch(3, "Mail", 2), switch(4, "Notes", 1),
                             switch(5, "Notes", 3), stop(6), start(7), switch(8, "Notes", 1)])
        rows = [
            ("application", [("", 1), ("notes", 2), ("mail", 1), ("notes", 1), ("notes", 1)]),
            ("visit", [("", 1), ("notes", 1), ("mail", 1), ("notes", 1), ("notes", 1), ("notes", 1)]),
            ("collection", [("", 5), ("", 1)]),
        ]
        for notion, expected in rows:
            traces = list(self.log_of(session, "--cases", notion).iter("trace"))
            found = [(attributes(trace)["application"], len(trace.findall("event"))) for trace in traces]
            self.assertEqual(found, expected, notion)
            names = collections.Counter(attributes(trace)["concept:name"] for trace in traces)
            self.assertEqual(max(names.values()), 1, "two cases of one name")

    def test_texts_of_any_kind_and_no_value_in_an_activity(self):
        nasty = "a\u0001<b>&\"c\"\n\ud83d\ude00\uffff\u0085]]>"
        session = "\n".join([report(1, "ChangeText", elementName=nasty, automationID="", newValue="secret plan"),
                             report(2, "ChangePassword", elementName="PIN", automationID="", newValue="correct horse")])
        log = self.log_of(session)
        self.check_rules(log)
        text, password = map(attributes, log.iter("event"))
        self.assertEqual(text["elementName"], "a\ufffd<b>&\"c\"\n\U0001f600\ufffd\u0085]]>")
        self.assertEqual(text["newValue"], "secret plan")
        self.assertNotIn("secret", text["concept:name"])
        self.assertNotIn("horse", export(session).stdout)

    def test_an_empty_session_and_a_damaged_one(self):
        self.check_rules(self.log_of(""))
        result = export("oops\n" + report(1, "Undefined"))
        self.assertEqual((result.returncode, result.stdout.count("<event>")), (1, 1), result.stderr)
        self.assertEqual(export("", "--format", "csv").returncode, 2)


if __name__ == "__main__":
    unittest.main()
