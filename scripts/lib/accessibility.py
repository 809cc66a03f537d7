"""A program's windows as a screen reader has them: over AT-SPI, which is D-Bus on a bus of its own.

    reader = ScreenReader(desktop, "vantro")
    for control in reader.controls():
        print(control.role, control.name)
"""

from gi.repository import Gio, GLib

_ACCESSIBLE = "org.a11y.atspi.Accessible"
_COMPONENT = "org.a11y.atspi.Component"
_ROOT = "/org/a11y/atspi/accessible/root"
_FOCUSABLE, _FOCUSED, _SHOWING = 11, 12, 25
# What a user does something with.
CONTROLS = {"push button", "check box", "toggle button", "radio button", "combo box", "text", "entry", "list item",
            "page tab", "slider", "spin button", "link"}


class Node:
    def __init__(self, reader, address, depth):
        self._reader = reader
        self.address = address
        self.depth = depth
        self.role = reader.call(address, _ACCESSIBLE, "GetRoleName")[0]
        self.name, self.description = (reader.property(address, name) for name in ("Name", "Description"))
        low, high = reader.call(address, _ACCESSIBLE, "GetState")[0]
        self._states = low | high << 32

    def _is(self, state):
        return bool(self._states >> state & 1)

    is_focusable = property(lambda self: self._is(_FOCUSABLE))
    is_focused = property(lambda self: self._is(_FOCUSED))
    is_showing = property(lambda self: self._is(_SHOWING))

    def extents(self):
        """(x, y, width, height) on the screen."""
        on_screen = GLib.Variant("(u)", (0,))
        return self._reader.call(self.address, _COMPONENT, "GetExtents", on_screen)[0]

    def children(self):
        return [Node(self._reader, tuple(child), self.depth + 1)
                for child in self._reader.call(self.address, _ACCESSIBLE, "GetChildren")[0]]

    def __str__(self):
        return f"{'  ' * self.depth}{self.role} \"{self.name}\" {self.description}".rstrip()


class ScreenReader:
    def __init__(self, desktop, program):
        address = desktop.call_bus("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus.GetAddress").split("'")[1]
        self._bus = Gio.DBusConnection.new_for_address_sync(
            address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION,
            None, None)
        self._program = program

    def call(self, address, interface, method, arguments=None):
        return self._bus.call_sync(address[0], address[1], interface, method, arguments, None, Gio.DBusCallFlags.NONE,
                                   5000, None).unpack()

    def property(self, address, name):
        return self.call(address, "org.freedesktop.DBus.Properties", "Get",
                         GLib.Variant("(ss)", (_ACCESSIBLE, name)))[0]

    def program(self):
        """The program's own node, or None."""
        registry = ("org.a11y.atspi.Registry", _ROOT)
        for child in self.call(registry, _ACCESSIBLE, "GetChildren")[0]:
            if self.property(tuple(child), "Name") == self._program:
                return Node(self, tuple(child), 0)
        return None

    def nodes(self, title=None):
        """All that is shown in its windows, or in the one of that title. What goes meanwhile is left out."""
        program = self.program()
        waiting = [] if program is None else [window for window in program.children() if title in (None, window.name)]
        while waiting:
            node = waiting.pop(0)
            if node.depth > 1 and not node.is_showing:
                continue
            yield node
            try:
                waiting[:0] = node.children()
            except GLib.Error:
                continue

    def controls(self, title=None):
        return [node for node in self.nodes(title) if node.role in CONTROLS or node.is_focusable]

    def focused(self, title=None):
        """The innermost: what is around it has the focus too."""
        return max((node for node in self.nodes(title) if node.is_focused and node.depth > 1), key=lambda node: node.depth,
                   default=None)
