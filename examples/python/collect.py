#!/usr/bin/python3
"""Prints each report of the collector service as one line, until Ctrl-C. Needs python3-dbus and python3-gi."""
import json
import signal
import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib


class Client(dbus.service.Object):
    @dbus.service.method("com.norra.ClientProtocol", in_signature="stb")
    def addEvent(self, event, date, isApplicationEvent):
        report = json.loads(event)
        print(json.dumps(report, ensure_ascii=False), flush=True)
        if stopping and report == {"action": "Collector", "operation": "stop"}:
            loop.quit()


def call(method):
    service.get_dbus_method(method, "com.norra.ServiceProtocol")(reply_handler=check, error_handler=check)


def check(problem):
    if str(problem):
        problems.append(str(problem))
        loop.quit()


def service_ended(*_):  # another client's stop ends it too
    if not stopping:
        problems.append("the service has ended")
    loop.quit()


def stop():
    stopping.append(True)
    call("stopCollectorWith")


problems, stopping = [], []
dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
loop = GLib.MainLoop()
GLib.unix_signal_add(GLib.PRIORITY_HIGH, signal.SIGINT, stop)
bus = dbus.SessionBus()
client = Client(bus, "/com/norra/UserInteractionsCollectorClient")
bus.add_signal_receiver(service_ended, "NameOwnerChanged", "org.freedesktop.DBus", "org.freedesktop.DBus",
                        arg0="com.norra.UserInteractionsCollectorService", arg2="")
service = bus.get_object("com.norra.UserInteractionsCollectorService",  # the bus starts it
                         "/com/norra/UserInteractionsCollectorService", introspect=False)
call("startCollectorWith")
loop.run()
sys.exit("\n".join(problems) or 0)
