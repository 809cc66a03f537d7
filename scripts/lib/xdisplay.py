"""A small, fast X client: inspects windows and presses keys through XTest."""

import ctypes
from contextlib import contextmanager
from ctypes import POINTER, byref, c_char_p, c_int, c_long, c_uint, c_ulong, c_void_p
from dataclasses import dataclass

_ANY_PROPERTY_TYPE = 0
_IS_VIEWABLE = 2
_MAPPING_NOTIFY = 34
_PROPERTY_LIMIT_WORDS = 65536
_GRAB_MODE_ASYNC = 1
_ALL_PLANES = 0xFFFFFFFF
_Z_PIXMAP = 2
_MODIFIER_MASKS = {"shift": 1, "ctrl": 4, "alt": 8, "super": 64}
_MODIFIERS = {"ctrl": "Control_L", "alt": "Alt_L", "shift": "Shift_L", "super": "Super_L", "meta": "Meta_L"}


class _WindowAttributes(ctypes.Structure):
    _fields_ = [
        ("x", c_int), ("y", c_int), ("width", c_int), ("height", c_int), ("border_width", c_int), ("depth", c_int),
        ("visual", c_void_p), ("root", c_ulong), ("window_class", c_int), ("bit_gravity", c_int),
        ("win_gravity", c_int), ("backing_store", c_int), ("backing_planes", c_ulong), ("backing_pixel", c_ulong),
        ("save_under", c_int), ("colormap", c_ulong), ("map_installed", c_int), ("map_state", c_int),
        ("all_event_masks", c_long), ("your_event_mask", c_long), ("do_not_propagate_mask", c_long),
        ("override_redirect", c_int), ("screen", c_void_p)]


class _Event(ctypes.Union):
    _fields_ = [("type", c_int), ("padding", c_long * 24)]


class _Image(ctypes.Structure):
    _fields_ = [
        ("width", c_int), ("height", c_int), ("xoffset", c_int), ("format", c_int), ("data", c_void_p),
        ("byte_order", c_int), ("bitmap_unit", c_int), ("bitmap_bit_order", c_int), ("bitmap_pad", c_int),
        ("depth", c_int), ("bytes_per_line", c_int)]


_ErrorHandler = ctypes.CFUNCTYPE(c_int, c_void_p, c_void_p)
_ExitHandler = ctypes.CFUNCTYPE(None, c_void_p, c_void_p)
# Neither a window that vanishes between two requests nor a dying server may end the process.
_ignore_error = _ErrorHandler(lambda display, event: 0)
_ignore_exit = _ExitHandler(lambda display, data: None)


def _load():
    x11 = ctypes.CDLL("libX11.so.6")
    xtst = ctypes.CDLL("libXtst.so.6")
    window, atom = c_ulong, c_ulong
    signatures = {
        "XOpenDisplay": (c_void_p, [c_char_p]),
        "XCloseDisplay": (c_int, [c_void_p]),
        "XDefaultRootWindow": (window, [c_void_p]),
        "XInternAtom": (atom, [c_void_p, c_char_p, c_int]),
        "XGetSelectionOwner": (window, [c_void_p, atom]),
        "XGetWindowProperty": (c_int, [c_void_p, window, atom, c_long, c_long, c_int, atom, POINTER(atom),
                                       POINTER(c_int), POINTER(c_ulong), POINTER(c_ulong), POINTER(c_void_p)]),
        "XGetWindowAttributes": (c_int, [c_void_p, window, POINTER(_WindowAttributes)]),
        "XTranslateCoordinates": (c_int, [c_void_p, window, window, c_int, c_int, POINTER(c_int), POINTER(c_int),
                                          POINTER(window)]),
        "XQueryTree": (c_int, [c_void_p, window, POINTER(window), POINTER(window), POINTER(POINTER(window)),
                               POINTER(c_uint)]),
        "XResizeWindow": (c_int, [c_void_p, window, c_uint, c_uint]),
        "XGetImage": (POINTER(_Image), [c_void_p, window, c_int, c_int, c_uint, c_uint, c_ulong, c_int]),
        "XFree": (c_int, [c_void_p]),
        "XPending": (c_int, [c_void_p]),
        "XNextEvent": (c_int, [c_void_p, POINTER(_Event)]),
        "XRefreshKeyboardMapping": (c_int, [POINTER(_Event)]),
        "XStringToKeysym": (c_ulong, [c_char_p]),
        "XKeysymToKeycode": (ctypes.c_ubyte, [c_void_p, c_ulong]),
        "XQueryKeymap": (c_int, [c_void_p, ctypes.c_char * 32]),
        "XGrabKey": (c_int, [c_void_p, c_int, c_uint, window, c_int, c_int, c_int]),
        "XGrabKeyboard": (c_int, [c_void_p, window, c_int, c_int, c_int, c_ulong]),
        "XUngrabKeyboard": (c_int, [c_void_p, c_ulong]),
        "XUngrabKey": (c_int, [c_void_p, c_int, c_uint, window]),
        "XSync": (c_int, [c_void_p, c_int]),
        "XSetErrorHandler": (c_void_p, [_ErrorHandler]),
        "XSetIOErrorExitHandler": (None, [c_void_p, _ExitHandler, c_void_p]),
    }
    for name, (result, arguments) in signatures.items():
        function = getattr(x11, name)
        function.restype, function.argtypes = result, arguments
    xtst.XTestFakeKeyEvent.argtypes = [c_void_p, c_uint, c_int, c_ulong]
    return x11, xtst


@dataclass(frozen=True)
class Window:
    """A mapped window; positions are in screen pixels."""

    id: int
    instance: str
    wm_class: str
    title: str
    x: int
    y: int
    width: int
    height: int


class XDisplay:
    """One connection. Not thread-safe."""

    def __init__(self, name):
        self._x11, self._xtst = _load()
        self._x11.XSetErrorHandler(_ignore_error)
        self._display = self._x11.XOpenDisplay(name.encode())
        if not self._display:
            raise ConnectionError(f"no X server answers at {name}")
        self._x11.XSetIOErrorExitHandler(self._display, _ignore_exit, None)
        self.root = self._x11.XDefaultRootWindow(self._display)
        self._atoms = {}

    def close(self):
        if self._display:
            self._x11.XCloseDisplay(self._display)
            self._display = None

    # --- windows

    def property_bytes(self, window, name):
        """A property's raw contents, None if the window lacks it. Items of 32 bits have the size of a C long."""
        kind, item_bits, items, left, data = c_ulong(), c_int(), c_ulong(), c_ulong(), c_void_p()
        status = self._x11.XGetWindowProperty(
            self._display, window, self._atom(name), 0, _PROPERTY_LIMIT_WORDS, False, _ANY_PROPERTY_TYPE,
            byref(kind), byref(item_bits), byref(items), byref(left), byref(data))
        if status != 0 or not data.value:
            return None
        item_bytes = ctypes.sizeof(c_long) if item_bits.value == 32 else item_bits.value // 8
        contents = ctypes.string_at(data, items.value * item_bytes) if kind.value else None
        self._x11.XFree(data)
        return contents

    def numbers(self, window, name):
        contents = self.property_bytes(window, name) or b""
        return list((c_ulong * (len(contents) // ctypes.sizeof(c_ulong))).from_buffer_copy(contents))

    def text(self, window, name):
        return (self.property_bytes(window, name) or b"").decode(errors="replace")

    def title(self, window):
        return self.text(window, "_NET_WM_NAME") or self.text(window, "WM_NAME")

    def pixels(self, window):
        """The pixels of the screen where a Window is, as bytes; None where it reaches over the edge."""
        image = self._x11.XGetImage(self._display, self.root, window.x, window.y, window.width, window.height, _ALL_PLANES,
                                    _Z_PIXMAP)
        if not image:
            return None
        size = image.contents.bytes_per_line * image.contents.height
        contents = ctypes.string_at(image.contents.data, size)
        self._x11.XFree(image.contents.data)
        self._x11.XFree(image)
        return contents

    def resize(self, window, width, height):
        """Asks the window manager, which keeps to the limits that the window has set."""
        self._x11.XResizeWindow(self._display, window.id, width, height)
        self._x11.XSync(self._display, False)

    def active_window(self):
        """The active window according to the window manager; 0 if there is none."""
        return next(iter(self.numbers(self.root, "_NET_ACTIVE_WINDOW")), 0)

    def window_manager_runs(self):
        return bool(self.numbers(self.root, "_NET_SUPPORTING_WM_CHECK"))

    def selection_owner(self, name):
        return self._x11.XGetSelectionOwner(self._display, self._atom(name))

    def windows(self):
        """The visible windows of all programs, bottom of the stack first."""
        return [self._describe(window, attributes) for window, attributes in self._visible_clients(self.root, 3)]

    def _visible_clients(self, parent, depth):
        for child in self._children(parent):
            attributes = _WindowAttributes()
            if not self._x11.XGetWindowAttributes(self._display, child, byref(attributes)):
                continue
            if attributes.map_state != _IS_VIEWABLE:
                continue
            if self.property_bytes(child, "WM_CLASS") is not None:
                yield child, attributes
            elif depth > 1:
                yield from self._visible_clients(child, depth - 1)

    def _children(self, parent):
        root, above, children, count = c_ulong(), c_ulong(), POINTER(c_ulong)(), c_uint()
        if not self._x11.XQueryTree(self._display, parent, byref(root), byref(above), byref(children), byref(count)):
            return []
        found = children[:count.value]
        if children:
            self._x11.XFree(children)
        return found

    def _describe(self, window, attributes):
        names = self.text(window, "WM_CLASS").split("\0")
        x, y, child = c_int(), c_int(), c_ulong()
        self._x11.XTranslateCoordinates(self._display, window, self.root, 0, 0, byref(x), byref(y), byref(child))
        return Window(window, names[0], (names + [""])[1], self.title(window), x.value, y.value,
                      attributes.width, attributes.height)

    def _atom(self, name):
        if name not in self._atoms:
            self._atoms[name] = self._x11.XInternAtom(self._display, name.encode(), False)
        return self._atoms[name]

    # --- keys

    @contextmanager
    def grabbed(self, chord):
        """Grabs a chord as a hot key during the context, like another program."""
        *modifiers, key = chord.split("+")
        keycode = self._x11.XKeysymToKeycode(self._display, self._x11.XStringToKeysym(key.encode()))
        mask = sum(_MODIFIER_MASKS[name] for name in modifiers)
        self._x11.XGrabKey(self._display, keycode, mask, self.root, True, _GRAB_MODE_ASYNC, _GRAB_MODE_ASYNC)
        self._x11.XSync(self._display, False)
        yield
        self._x11.XUngrabKey(self._display, keycode, mask, self.root)
        self._x11.XSync(self._display, False)

    def keyboard_taken(self):
        """Whether a program has the keyboard to itself, as a locker has."""
        refused = self._x11.XGrabKeyboard(self._display, self.root, False, _GRAB_MODE_ASYNC, _GRAB_MODE_ASYNC, 0)
        if not refused:
            self._x11.XUngrabKeyboard(self._display, 0)
            self._x11.XSync(self._display, False)
        return refused != 0

    def key(self, name, down):
        """Presses or releases one key, given by its keysym's name or as ctrl, alt, shift, super."""
        self._follow_layout()
        keysym = self._x11.XStringToKeysym(_MODIFIERS.get(name.lower(), name).encode())
        keycode = self._x11.XKeysymToKeycode(self._display, keysym) if keysym else 0
        if not keycode:
            raise ValueError(f"the current layout has no key {name}")
        self.key_code(keycode, down)

    def key_code(self, code, down):
        """Presses or releases a key by its key code, independently of the layout."""
        self._xtst.XTestFakeKeyEvent(self._display, code, down, 0)
        self._x11.XSync(self._display, False)

    def chord_down(self, chord):
        """Presses the keys of a chord like "ctrl+alt+d", in this order."""
        for name in chord.split("+"):
            self.key(name, True)

    def chord_up(self, chord):
        for name in reversed(chord.split("+")):
            self.key(name, False)

    def keys_held(self):
        """The key codes that are down at the moment."""
        bits = (ctypes.c_char * 32)()
        self._x11.XQueryKeymap(self._display, bits)
        return [code for code in range(256) if bits.raw[code // 8] >> (code % 8) & 1]

    def _follow_layout(self):
        event = _Event()
        while self._x11.XPending(self._display):
            self._x11.XNextEvent(self._display, byref(event))
            if event.type == _MAPPING_NOTIFY:
                self._x11.XRefreshKeyboardMapping(byref(event))
