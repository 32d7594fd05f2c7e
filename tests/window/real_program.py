"""What tests of the real program share: they start it on a copy of the example installation, on an
accessibility bus of its own, and work it by keys and by what a screen reader is told. Need a
display with a window manager, such as that of scripts/with-display."""

import ctypes
import os
import shutil
import subprocess
import sys
import tempfile
import time

if 'VELQUIST_BUS' not in os.environ:  # on a bus of its own
    os.environ['VELQUIST_BUS'] = 'here'
    os.execvp('dbus-run-session', ['dbus-run-session', '--', sys.executable, *sys.argv])

import gi

gi.require_version('Atspi', '2.0')
from gi.repository import Atspi, GLib

PROJECT = os.path.realpath(os.path.join(os.path.dirname(__file__), '..', '..'))
LAUNCHER = '/usr/libexec/at-spi-bus-launcher'
_passed = _failed = 0


def check(what, good, seen=''):
    global _passed, _failed
    if good:
        _passed += 1
        return True
    _failed += 1
    print(f'FAILED: {what}' + (f': {seen}' if seen else ''), flush=True)
    return False


def totals():
    """Ends with "N passed, N failed"."""
    print(f'{_passed} passed, {_failed} failed')
    sys.exit(1 if _failed else 0)


def until(done, seconds=10.0):
    """What `done` says at last, true or not."""
    end = time.monotonic() + seconds
    while True:
        try:
            result = done()
        except GLib.Error:  # what was looked at has gone
            result = None
        if result or time.monotonic() > end:
            return result
        time.sleep(0.1)


def children(thing):
    return [child for child in (thing.get_child_at_index(i)
                                for i in range(thing.get_child_count())) if child is not None]


def everything(thing):
    yield thing
    for child in children(thing):
        yield from everything(child)


def shows(thing):
    return thing.get_state_set().contains(Atspi.StateType.SHOWING)


def labels_of(thing):
    """The names of those that label it."""
    return [relation.get_target(i).get_name()
            for relation in thing.get_relation_set()
            if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY
            for i in range(relation.get_n_targets())]


def described(window, start):
    """What is shown and described so."""
    return [thing for thing in everything(window)
            if shows(thing) and thing.get_description().startswith(start)]


def named(window, name):
    return next((thing for thing in everything(window) if thing.get_name() == name), None)


def press(button):
    Atspi.Action.do_action(button, 0)


def focus(control):
    Atspi.Component.grab_focus(control)


def middle_of(control):
    """As texts, for xdotool."""
    place = Atspi.Component.get_extents(control, Atspi.CoordType.SCREEN)
    return [str(place.x + place.width // 2), str(place.y + place.height // 2)]


class _ClientMessage(ctypes.Structure):
    _fields_ = [('type', ctypes.c_int), ('serial', ctypes.c_ulong), ('send_event', ctypes.c_int),
                ('display', ctypes.c_void_p), ('window', ctypes.c_ulong),
                ('message_type', ctypes.c_ulong), ('format', ctypes.c_int),
                ('data', ctypes.c_long * 5), ('room', ctypes.c_long * 24)]


def ask_to_close(title):
    """As the close button of the window's frame does, whatever lies over the window. `title` is a
    regular expression."""
    client_message, substructure = 33, 3 << 19
    # The search fails where another window goes at that moment.
    found = until(lambda: subprocess.run(
        ['xdotool', 'search', '--onlyvisible', '--name', title], capture_output=True, check=False,
        text=True).stdout.split())
    x11 = ctypes.CDLL('libX11.so.6')
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XInternAtom.restype = x11.XDefaultRootWindow.restype = ctypes.c_ulong
    display = ctypes.c_void_p(x11.XOpenDisplay(None))
    event = _ClientMessage(type=client_message, window=int(found[-1]), format=32,
                           message_type=x11.XInternAtom(display, b'_NET_CLOSE_WINDOW', 0))
    x11.XSendEvent(display, ctypes.c_ulong(x11.XDefaultRootWindow(display)), 0,
                   ctypes.c_long(substructure), ctypes.byref(event))
    x11.XCloseDisplay(display)


class RunningProgram:
    """The program with a setup of 1966, whose code says so, and what is read of its windows."""

    def __init__(self, program):
        self.work = tempfile.mkdtemp()
        self.game = os.path.join(self.work, 'GPL')
        directory = os.path.join(self.work, 'program')
        shutil.copytree(os.path.join(PROJECT, 'assets/program'), directory)
        shutil.copytree(os.path.join(PROJECT, 'examples/GPL'), self.game)
        settings = os.path.join(directory, 'Velquist Program Settings.ini')
        with open(settings, 'w', encoding='utf-8', newline='') as out:
            out.write(f'"{self.game}"\r\n' + '0\r\n' * 7 + f'"{self.game}"\r\n')
        self.setups = os.path.join(self.game, 'Players/Tobin Ferrant/Setups')
        self.setup = os.path.join(self.setups, 'spa/rain.lp1')
        environment = dict(os.environ, GSETTINGS_BACKEND='memory')
        environment.pop('NO_AT_BRIDGE', None)
        self.launcher = subprocess.Popen([LAUNCHER, '--launch-immediately'], env=environment,
                                         stderr=subprocess.DEVNULL)
        Atspi.init()
        self.process = subprocess.Popen([os.path.realpath(program),
                                         f'--program-directory={directory}', self.setup],
                                        env=environment)
        self.main = until(lambda: self.window('Velquist v'), 20)
        check('the window is told', self.main is not None)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        self.launcher.terminate()  # and its bus
        self.launcher.wait()
        shutil.rmtree(self.work, ignore_errors=True)

    def windows(self):
        """All that are shown."""
        return [window for program in children(Atspi.get_desktop(0))
                if program.get_process_id() == self.process.pid
                for window in children(program) if shows(window)]

    def window(self, start):
        return next((each for each in self.windows() if each.get_name().startswith(start)), None)

    def alert(self):
        return next((each for each in self.windows() if each.get_role() == Atspi.Role.ALERT), None)
