"""Whether what has the keyboard looks different: its pixels with the keyboard and without it, compared."""

import time

import numpy

MARGIN = 4  # pixels around a control that still are its own
LEAST_CONTRAST = 3  # between a pixel with and without the keyboard
LEAST_PIXELS = 60  # more than a text cursor has
SETTLED_TRIES = 6


class Sight:
    """The screen while @p node has the keyboard."""

    def __init__(self, desktop, window, node):
        self.node = node
        self.name = str(node).strip()
        self._window = window
        self.picture = self._settled(desktop)
        self.area = node.extents()

    @staticmethod
    def _settled(desktop):
        """What is being drawn is waited for, if it comes to rest."""
        former = None
        for _ in range(SETTLED_TRIES):
            picture = _luminance(desktop)
            if former is not None and numpy.array_equal(picture, former):
                break
            former = picture
            time.sleep(0.05)
        return picture

    def line(self, other):
        """How many of its pixels visibly differ from @p other, which is seen now; None if it is out of sight by now."""
        there = self.node.extents()
        if there[2:] != self.area[2:]:
            return None
        left, top, right, bottom = (
            choice(mine, its) for choice, mine, its in zip((max, max, min, min), self._seen(self.area), self._seen(there)))
        if right - left < min(self.area[2], 2 * MARGIN) or bottom - top < min(self.area[3], 2 * MARGIN):
            return None
        with_keyboard, without = (picture[y + top:y + bottom, x + left:x + right]
                                  for picture, (x, y, *_) in ((self.picture, self.area), (other.picture, there)))
        lighter, darker = numpy.maximum(with_keyboard, without), numpy.minimum(with_keyboard, without)
        return int(((lighter + 0.05) / (darker + 0.05) >= LEAST_CONTRAST).sum())

    def _seen(self, area):
        """The part of a control that the window shows, from the control's corner."""
        x, y, width, height = area
        window = self._window
        return (max(-MARGIN, window.x - x), max(-MARGIN, window.y - y),
                min(width + MARGIN, window.x + window.width - x), min(height + MARGIN, window.y + window.height - y))


def _luminance(desktop):
    """Of every pixel of the screen, as contrasts are computed from it."""
    file = desktop.folder / "screen.ppm"
    desktop.run("import", "-window", "root", "-depth", "8", f"ppm:{file}")
    _, size, _, pixels = file.read_bytes().split(b"\n", 3)
    width, height = map(int, size.split())
    levels = numpy.frombuffer(pixels, numpy.uint8).reshape(height, width, 3)
    return _LINEAR[levels] @ numpy.array([0.2126, 0.7152, 0.0722])


_LEVELS = numpy.arange(256) / 255
_LINEAR = numpy.where(_LEVELS <= 0.04045, _LEVELS / 12.92, ((_LEVELS + 0.055) / 1.055) ** 2.4)
