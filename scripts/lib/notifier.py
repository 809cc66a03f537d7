"""A StatusNotifier watcher and host, and a user's actions on an icon.

Run as a program, it is the watcher. In a test:

    watcher = desktop.start(*WATCHER)
    item = desktop.wait_until(lambda: find_item(desktop), 5, "the icon")
    item.choose("Settings")
"""

import sys
from pathlib import Path

from gi.repository import Gio, GLib

WATCHER = ("/usr/bin/python3", Path(__file__).resolve())
_NAME = "org.kde.StatusNotifierWatcher"
_PATH = "/StatusNotifierWatcher"
_ITEM_INTERFACE = "org.kde.StatusNotifierItem"
_MENU_INTERFACE = "com.canonical.dbusmenu"
_INTROSPECTION = f"""<node><interface name='{_NAME}'>
  <method name='RegisterStatusNotifierItem'><arg type='s' direction='in'/></method>
  <method name='RegisterStatusNotifierHost'><arg type='s' direction='in'/></method>
  <property name='RegisteredStatusNotifierItems' type='as' access='read'/>
  <property name='IsStatusNotifierHostRegistered' type='b' access='read'/>
  <property name='ProtocolVersion' type='i' access='read'/>
  <signal name='StatusNotifierItemRegistered'><arg type='s'/></signal>
  <signal name='StatusNotifierHostRegistered'/>
</interface></node>"""


class Item:
    """An icon as a host sees it."""

    def __init__(self, bus, service):
        self._bus = bus
        self.service, _, path = service.partition("/")
        self._path = "/" + path if path else "/StatusNotifierItem"

    def property(self, name):
        return self._call(self._path, "org.freedesktop.DBus.Properties", "Get",
                          GLib.Variant("(ss)", (_ITEM_INTERFACE, name)))[0]

    def labels(self):
        """The menu's labels, without separators."""
        return list(self._entries())

    def submenu(self, label):
        """What a submenu offers: for each label, whether it is checked."""
        return {name: bool(properties.get("toggle-state")) for name, (_, properties, _) in
                self._entries_of(self._entry(label)).items()}

    def is_checked(self, label):
        return bool(self._entry(label)[1].get("toggle-state"))

    def choose(self, label, entry=None):
        """Clicks the menu entry with that label, or an entry of that submenu."""
        number = (self._entries_of(self._entry(label))[entry] if entry else self._entry(label))[0]
        self._call(self.property("Menu"), _MENU_INTERFACE, "Event",
                   GLib.Variant("(isvu)", (number, "clicked", GLib.Variant("s", ""), 0)))

    def _entry(self, label):
        return self._entries()[label]

    def _entries(self):
        return self._entries_of(self._call(self.property("Menu"), _MENU_INTERFACE, "GetLayout",
                                           GLib.Variant("(iias)", (0, -1, [])))[1])

    @staticmethod
    def _entries_of(layout):
        return {node[1]["label"].partition("\t")[0]: node for node in layout[2]
                if node[1].get("type") != "separator" and node[1].get("visible", True)}

    def _call(self, path, interface, method, arguments):
        return self._bus.call_sync(self.service, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, 5000,
                                   None).unpack()


def find_item(desktop):
    """The first icon registered with the watcher, or None."""
    bus = Gio.DBusConnection.new_for_address_sync(
        desktop.env["DBUS_SESSION_BUS_ADDRESS"],
        Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
    try:
        items = bus.call_sync(_NAME, _PATH, "org.freedesktop.DBus.Properties", "Get",
                              GLib.Variant("(ss)", (_NAME, "RegisteredStatusNotifierItems")), None,
                              Gio.DBusCallFlags.NO_AUTO_START, 5000, None).unpack()[0]
    except GLib.Error:
        return None
    return Item(bus, items[0]) if items else None


def _watch():
    items = []
    bus = Gio.bus_get_sync(Gio.BusType.SESSION, None)
    loop = GLib.MainLoop()

    def called(connection, sender, path, interface, method, arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            given = arguments.unpack()[0]
            items.append(sender + given if given.startswith("/") else given)
            print("registered", items[-1], flush=True)
        invocation.return_value(None)

    def read(connection, sender, path, interface, name):
        return {"RegisteredStatusNotifierItems": GLib.Variant("as", items),
                "IsStatusNotifierHostRegistered": GLib.Variant("b", True),
                "ProtocolVersion": GLib.Variant("i", 0)}[name]

    interface = Gio.DBusNodeInfo.new_for_xml(_INTROSPECTION).interfaces[0]
    bus.register_object(_PATH, interface, called, read, None)
    Gio.bus_own_name_on_connection(bus, _NAME, Gio.BusNameOwnerFlags.NONE, None, lambda *_: sys.exit("name taken"))
    loop.run()


if __name__ == "__main__":
    _watch()
