"""A small Wayland client without libraries for it: keyboards to press keys on, and the windows of KDE's compositor."""

import array
import ctypes
import os
import socket
import struct

_DISPLAY, _REGISTRY = 1, 2  # objects that every client has, or makes first
_GET_REGISTRY, _SYNC, _BIND = 1, 0, 0
_ERROR_EVENT, _GLOBAL_EVENT = 0, 0
_XKB_V1 = 1

# Their places on the keyboard, as the kernel numbers them, and the modifiers' bits.
_KEYS = {"ctrl": 29, "shift": 42, "alt": 56, "super": 125, "space": 57, "escape": 1, "return": 28, "tab": 15,
         "1": 2, "2": 3, "3": 4, "4": 5, "5": 6, "a": 30, "d": 32, "o": 24, "q": 16, "s": 31, "v": 47, "x": 45}
_BITS = {29: 4, 42: 1, 56: 8, 125: 64}


class WaylandClient:
    """One connection. Subclasses handle the events of the objects that they bind."""

    def __init__(self, display):
        """display: the path of the compositor's socket."""
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.connect(str(display))
        self._last_id = _REGISTRY
        self._globals = {}
        self._send(_DISPLAY, _GET_REGISTRY, struct.pack("=I", _REGISTRY))
        self.round_trip()

    def close(self):
        self._socket.close()

    def round_trip(self):
        """Returns when the compositor has handled everything, and every event that it sent before."""
        callback = self._new_id()
        self._send(_DISPLAY, _SYNC, struct.pack("=I", callback))
        while True:
            sender, opcode, arguments = self._receive()
            if sender == callback:
                return
            if (sender, opcode) == (_DISPLAY, _ERROR_EVENT):
                raise ConnectionError(f"the compositor refuses: {arguments!r}")
            if (sender, opcode) == (_REGISTRY, _GLOBAL_EVENT):
                self._globals[text_at(arguments, 4)] = struct.unpack_from("=I", arguments)[0]
            else:
                self._handle(sender, opcode, arguments)

    def _handle(self, sender, opcode, arguments):
        pass

    def _new_id(self):
        self._last_id += 1
        return self._last_id

    def _bind(self, interface, version=1):
        if interface not in self._globals:
            raise ConnectionError(f"the compositor has no {interface}")
        identifier = self._new_id()
        self._send(_REGISTRY, _BIND, struct.pack("=I", self._globals[interface]) + _text(interface) +
                   struct.pack("=II", version, identifier))
        return identifier

    def _send(self, target, opcode, arguments, file=None):
        message = struct.pack("=IHH", target, opcode, 8 + len(arguments)) + arguments
        files = [] if file is None else [(socket.SOL_SOCKET, socket.SCM_RIGHTS, array.array("i", [file]))]
        self._socket.sendmsg([message], files)

    def _receive(self):
        sender, opcode, size = struct.unpack("=IHH", self._read(8))
        return sender, opcode, self._read(size - 8)

    def _read(self, count):
        data = b""
        while len(data) < count:
            part = self._socket.recv(count - len(data))
            if not part:
                raise ConnectionError("the compositor has ended")
            data += part
        return data


class _Keyboard(WaylandClient):
    """key() returns when the compositor has handled it."""

    def __init__(self, display):
        super().__init__(display)
        self._held = []

    def key(self, name, down):
        """Presses or releases the key that has this name on a US keyboard."""
        code = _KEYS[name.lower()]
        if down:
            self._held.append(code)
        else:
            self._held.remove(code)
        self._press(code, int(down))
        self.round_trip()

    def held(self):
        """The keys that are down."""
        return list(self._held)


class VirtualKeyboard(_Keyboard):
    """layout: of the X keyboard extension ("us", "ru")."""

    def __init__(self, display, layout):
        super().__init__(display)
        self._time_ms = 0
        seat, manager = self._bind("wl_seat"), self._bind("zwp_virtual_keyboard_manager_v1")
        self._keyboard = self._new_id()
        self._send(manager, 0, struct.pack("=II", seat, self._keyboard))
        keymap = _keymap(layout)
        file = os.memfd_create("keymap")
        os.write(file, keymap)
        self._send(self._keyboard, 0, struct.pack("=II", _XKB_V1, len(keymap)), file)
        self.round_trip()
        os.close(file)

    def _press(self, code, state):
        self._time_ms += 1
        self._send(self._keyboard, 1, struct.pack("=III", self._time_ms, code, state))
        held = sum(_BITS.get(code, 0) for code in self._held)
        self._send(self._keyboard, 2, struct.pack("=IIII", held, 0, 0, 0))


class FakeInput(_Keyboard):
    """The keyboard of KDE's user, pressed by a program."""

    def __init__(self, display):
        super().__init__(display)
        self._input = self._bind("org_kde_kwin_fake_input", 4)
        self._send(self._input, 0, _text("tests") + _text("press keys"))
        self.round_trip()

    def _press(self, code, state):
        self._send(self._input, 10, struct.pack("=II", code, state))


class PlasmaWindows(WaylandClient):
    """The windows as KDE's compositor tells of them: {identifier: [title, app_id, state]}."""

    _ACTIVE = 1

    def __init__(self, display):
        super().__init__(display)
        self.windows = {}
        self._manager = self._bind("org_kde_plasma_window_management", 4)
        self.update()

    def update(self):
        """Takes in what has changed."""
        self.round_trip()
        self.round_trip()

    def active(self):
        return next((window for window, (_, _, state) in self.windows.items() if state & self._ACTIVE), 0)

    def activate(self, window):
        self._send(window, 0, struct.pack("=II", self._ACTIVE, self._ACTIVE))
        self.update()

    def _handle(self, sender, opcode, arguments):
        if sender == self._manager and opcode == 1:
            window = self._new_id()
            self.windows[window] = ["", "", 0]
            self._send(self._manager, 1, struct.pack("=I", window) + arguments[:4])
        elif sender in self.windows and opcode in (0, 1):
            self.windows[sender][opcode] = text_at(arguments, 0)
        elif sender in self.windows and opcode == 2:
            self.windows[sender][2] = struct.unpack_from("=I", arguments)[0]
        elif sender in self.windows and opcode == 5:
            del self.windows[sender]


def text_at(arguments, offset):
    length = struct.unpack_from("=I", arguments, offset)[0]
    return arguments[offset + 4:offset + 3 + length].decode()


def _text(text):
    data = text.encode() + b"\0"
    return struct.pack("=I", len(data)) + data + b"\0" * (-len(data) % 4)


class _Names(ctypes.Structure):
    _fields_ = [(field, ctypes.c_char_p) for field in ("rules", "model", "layout", "variant", "options")]


def _keymap(layout):
    xkb = ctypes.CDLL("libxkbcommon.so.0")
    for name in ("xkb_context_new", "xkb_keymap_new_from_names", "xkb_keymap_get_as_string"):
        getattr(xkb, name).restype = ctypes.c_void_p
    names = _Names(layout=layout.encode())
    context = ctypes.c_void_p(xkb.xkb_context_new(0))
    keymap = ctypes.c_void_p(xkb.xkb_keymap_new_from_names(context, ctypes.byref(names), 0))
    return ctypes.string_at(ctypes.c_void_p(xkb.xkb_keymap_get_as_string(keymap, _XKB_V1))) + b"\0"
