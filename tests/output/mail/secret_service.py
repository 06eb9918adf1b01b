# The desktop's secret service on the session bus, unlocked and in memory, for the tests. Prints "port 1" when it runs.
# SPDX-License-Identifier: MIT
import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

ROOT = "/org/freedesktop/secrets"
SERVICE, COLLECTION, ITEM = (f"org.freedesktop.Secret.{kind}" for kind in ("Service", "Collection", "Item"))
items = {}


class Item(dbus.service.Object):
    def __init__(self, number, attributes, secret):
        super().__init__(BUS, f"{ROOT}/collection/default/{number}")
        self.attributes, self.secret = attributes, secret
        items[self.__dbus_object_path__] = self

    @dbus.service.method(ITEM, out_signature="o")
    def Delete(self):
        del items[self.__dbus_object_path__]
        self.remove_from_connection()
        return "/"


class Collection(dbus.service.Object):
    @dbus.service.method(COLLECTION, in_signature="a{sv}(oayays)b", out_signature="oo")
    def CreateItem(self, properties, secret, replace):
        attributes = properties[ITEM + ".Attributes"]
        for item in items.values():
            if replace and item.attributes == attributes:
                item.secret = secret
                return item.__dbus_object_path__, "/"
        return Item(len(items), attributes, secret).__dbus_object_path__, "/"


class Service(dbus.service.Object):
    @dbus.service.method(SERVICE, in_signature="sv", out_signature="vo")
    def OpenSession(self, algorithm, given):
        if algorithm != "plain":
            raise dbus.DBusException("plain only", name="org.freedesktop.DBus.Error.NotSupported")
        return dbus.String("", variant_level=1), ROOT + "/session/1"

    @dbus.service.method(SERVICE, in_signature="a{ss}", out_signature="aoao")
    def SearchItems(self, attributes):
        return [path for path, item in items.items() if attributes.items() <= item.attributes.items()], []

    @dbus.service.method(SERVICE, in_signature="ao", out_signature="aoo")
    def Unlock(self, paths):
        return paths, "/"

    @dbus.service.method(SERVICE, in_signature="aoo", out_signature="a{o(oayays)}")
    def GetSecrets(self, paths, session):
        return {path: items[path].secret for path in paths}


dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
BUS = dbus.SessionBus()
name = dbus.service.BusName("org.freedesktop.secrets", BUS)
service, collection = Service(BUS, ROOT), Collection(BUS, ROOT + "/aliases/default")
print("port 1", flush=True)
loop = GLib.MainLoop()
GLib.io_add_watch(sys.stdin, GLib.IO_HUP, lambda *_: loop.quit())
loop.run()
