#!/usr/bin/python3
# A client of the service: prints each report. Needs python3-dbus and python3-gi.
import dbus.service, dbus.mainloop.glib
from gi.repository import GLib

class Client(dbus.service.Object):
    @dbus.service.method("com.norra.ClientProtocol", in_signature="stb")
    def addEvent(self, event, date, isApplicationEvent):
        print(event, flush=True)

bus = dbus.SessionBus(mainloop=dbus.mainloop.glib.DBusGMainLoop())
client = Client(bus, "/com/norra/UserInteractionsCollectorClient")
service = bus.get_object("com.norra.UserInteractionsCollectorService", "/com/norra/UserInteractionsCollectorService")
print(service.startCollectorWith(dbus_interface="com.norra.ServiceProtocol") or "collecting", flush=True)
GLib.MainLoop().run()
