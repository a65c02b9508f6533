"""drag_source.py WINDOW X Y PATH...: drags files from a program of the screen's own over a window and
drops them there, by the protocol of the desktops (XDND). WINDOW is the screen's number of it, X and
Y a place on the screen. Ends with 0 once the window has taken them."""
import ctypes
import pathlib
import sys

CLIENT_MESSAGE, SELECTION_NOTIFY, SELECTION_REQUEST = 33, 31, 30
VERSION = 5
WHOLE_BYTES, LONGS = 8, 32
CURRENT_TIME = 0
# Where an event has what, in units of a long.
EVENT_SIZE = 24
DISPLAY, WINDOW, MESSAGE, FORMAT, DATA = 3, 4, 5, 6, 7
REQUESTOR, SELECTION, TARGET, PROPERTY, TIME = 5, 6, 7, 8, 9

x11 = ctypes.CDLL("libX11.so.6")
for function in (x11.XOpenDisplay, x11.XDefaultRootWindow, x11.XCreateSimpleWindow, x11.XInternAtom):
    function.restype = ctypes.c_void_p
display = ctypes.c_void_p(x11.XOpenDisplay(None))


def long(number):
    return ctypes.c_long(number)


def atom(name):
    return x11.XInternAtom(display, name.encode(), 0)


def send(window, event):
    event[DISPLAY] = display.value
    x11.XSendEvent(display, long(window), 0, long(0), ctypes.byref(event))
    x11.XFlush(display)


class Drag:
    def __init__(self, target, files):
        root = x11.XDefaultRootWindow(display)
        self.window = x11.XCreateSimpleWindow(display, long(root), 0, 0, 1, 1, 0, long(0), long(0))
        self.target = target
        self.list = "".join(pathlib.Path(file).absolute().as_uri() + "\r\n" for file in files).encode()
        x11.XSetSelectionOwner(display, long(atom("XdndSelection")), long(self.window),
                               long(CURRENT_TIME))

    def say(self, message, *data):
        event = (ctypes.c_long * EVENT_SIZE)(CLIENT_MESSAGE)
        event[WINDOW], event[MESSAGE], event[FORMAT] = self.target, atom(message), LONGS
        for place, value in enumerate((self.window, *data), DATA):
            event[place] = value
        send(self.target, event)

    def wait_for(self, message):
        """Gives the list of files to whoever asks meanwhile; the message's data."""
        event = (ctypes.c_long * EVENT_SIZE)()
        while True:
            x11.XNextEvent(display, ctypes.byref(event))
            kind = event[0] & 0xFF
            if kind == SELECTION_REQUEST:
                self.give(event)
            elif kind == CLIENT_MESSAGE and event[MESSAGE] == atom(message):
                return event[DATA:]

    def give(self, request):
        requestor, place = request[REQUESTOR], request[PROPERTY]
        x11.XChangeProperty(display, long(requestor), long(place), long(request[TARGET]),
                            WHOLE_BYTES, 0, self.list, len(self.list))
        answer = (ctypes.c_long * EVENT_SIZE)(SELECTION_NOTIFY)
        answer[4:9] = [requestor, request[SELECTION], request[TARGET], place, request[TIME]]
        send(requestor, answer)

    def drop(self, x, y):
        self.say("XdndEnter", VERSION << 24, atom("text/uri-list"))
        self.say("XdndPosition", 0, x << 16 | y, CURRENT_TIME, atom("XdndActionCopy"))
        if not self.wait_for("XdndStatus")[1] & 1:
            self.say("XdndLeave")
            sys.exit("The window takes no files.")
        self.say("XdndDrop", 0, CURRENT_TIME)
        self.wait_for("XdndFinished")


number, left, top = map(int, sys.argv[1:4])
Drag(number, sys.argv[4:]).drop(left, top)
