"""Counts programs' resources in the X server (windows, pixmaps, grabs, ...) through the X-Resource extension."""

import ctypes
from ctypes import POINTER, byref, c_char_p, c_int, c_long, c_uint, c_ulong, c_void_p

_LOCAL_CLIENT_PID = 2


class _IdSpec(ctypes.Structure):
    _fields_ = [("client", c_ulong), ("mask", c_uint)]


class _IdValue(ctypes.Structure):
    _fields_ = [("spec", _IdSpec), ("length", c_long), ("value", c_void_p)]


class _Type(ctypes.Structure):
    _fields_ = [("resource_type", c_ulong), ("count", c_uint)]


class XResources:
    """Has its own connection to the display."""

    def __init__(self, display_name):
        self._x11 = ctypes.CDLL("libX11.so.6")
        self._xres = ctypes.CDLL("libXRes.so.1")
        self._x11.XOpenDisplay.restype, self._x11.XOpenDisplay.argtypes = c_void_p, [c_char_p]
        self._x11.XCloseDisplay.argtypes = self._x11.XFree.argtypes = [c_void_p]
        self._xres.XResQueryClientIds.argtypes = [c_void_p, c_long, POINTER(_IdSpec), POINTER(c_long),
                                                  POINTER(POINTER(_IdValue))]
        self._xres.XResGetClientPid.argtypes = [POINTER(_IdValue)]
        self._xres.XResClientIdsDestroy.argtypes = [c_long, POINTER(_IdValue)]
        self._xres.XResQueryClientResources.argtypes = [c_void_p, c_ulong, POINTER(c_int), POINTER(POINTER(_Type))]
        self._display = self._x11.XOpenDisplay(display_name.encode())
        if not self._display:
            raise ConnectionError(f"no X server answers at {display_name}")

    def close(self):
        self._x11.XCloseDisplay(self._display)

    def count(self, pid):
        """The number of resources held by all connections of a process."""
        return sum(self._count_client(client) for client in self._clients(pid))

    def _clients(self, pid):
        number, values = c_long(), POINTER(_IdValue)()
        spec = _IdSpec(0, _LOCAL_CLIENT_PID)
        self._xres.XResQueryClientIds(self._display, 1, byref(spec), byref(number), byref(values))
        found = [values[i].spec.client for i in range(number.value)
                 if self._xres.XResGetClientPid(byref(values[i])) == pid]
        self._xres.XResClientIdsDestroy(number, values)
        return found

    def _count_client(self, client):
        number, types = c_int(), POINTER(_Type)()
        self._xres.XResQueryClientResources(self._display, client, byref(number), byref(types))
        total = sum(types[i].count for i in range(number.value))
        self._x11.XFree(types)
        return total
