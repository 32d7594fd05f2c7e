#!/usr/bin/python3
"""tests/window/keys.py KEY...: strokes keys on the display, each such as "a", "Return" or
"ctrl+shift+s". A key goes down and up again in one message to the display: however busy the machine
is, it is never a held key, which would step or be typed twice. Tests of the real program also take
clicks of the mouse from here."""

import ctypes
import sys
import time

_MODIFIERS = {'ctrl': 'Control_L', 'shift': 'Shift_L', 'alt': 'Alt_L'}
_SIGNS = {' ': 'space', '/': 'slash', '.': 'period', '-': 'minus', '_': 'shift+minus'}
_NOW = ctypes.c_ulong(0)  # no delay
_PAUSE = 0.15  # until what the last key did is seen

_x11 = ctypes.CDLL('libX11.so.6')
_test = ctypes.CDLL('libXtst.so.6')
_x11.XOpenDisplay.restype = ctypes.c_void_p
_x11.XStringToKeysym.restype = ctypes.c_ulong
_x11.XKeysymToKeycode.restype = ctypes.c_ubyte


class _Display:
    """For as long as it takes: the connection to the display of the test."""

    def __enter__(self):
        self._display = ctypes.c_void_p(_x11.XOpenDisplay(None))
        if not self._display:
            sys.exit('no display')
        unused = [ctypes.byref(ctypes.c_int()) for _ in range(4)]
        _test.XTestQueryExtension(self._display, *unused)  # the first event would ask in between
        return self

    def __exit__(self, *_):
        _x11.XCloseDisplay(self._display)

    def sync(self):
        _x11.XSync(self._display, 0)

    def key(self, name, down):
        symbol = _x11.XStringToKeysym(_MODIFIERS.get(name, name).encode())
        if not symbol:
            sys.exit(f'no key is called {name}')
        code = _x11.XKeysymToKeycode(self._display, ctypes.c_ulong(symbol))
        _test.XTestFakeKeyEvent(self._display, code, down, _NOW)

    def button(self, down):
        _test.XTestFakeButtonEvent(self._display, 1, down, _NOW)

    def move(self, x, y):
        _test.XTestFakeMotionEvent(self._display, -1, x, y, _NOW)


def stroke(*keys, pause=_PAUSE):
    with _Display() as display:
        for key in keys:
            names = key.split('+')
            for name in names:
                display.key(name, 1)
            for name in reversed(names):
                display.key(name, 0)
            display.sync()
            time.sleep(pause)


def write(text):
    stroke(*(_SIGNS.get(sign, 'shift+' + sign.lower() if sign.isupper() else sign)
             for sign in text), pause=0.02)


def click(x, y, times=1):
    with _Display() as display:
        display.move(int(x), int(y))
        for _ in range(times):
            display.button(1)
            display.button(0)
            display.sync()
            time.sleep(0.08)


if __name__ == '__main__':
    stroke(*sys.argv[1:])
