#!/usr/bin/env python3
"""other_client.py manager <file> | silent | endless | both <folder> | await-manager | drop <window> <file>...: a second program, of
a kind that no package brings.

manager: a clipboard manager. It takes over what a program leaves at its end, as image/png, goes on offering it, and
keeps a copy in the file.
silent: owns the clipboard and offers two bitmap formats and text, but never gives any.
endless: owns the clipboard and offers a bitmap in pieces, of which there is always one more.
both: asks for image/bmp and image/png in one question and writes what comes to files of these names.
await-manager: waits until there is a clipboard manager.
drop: drops files, or what is named with a scheme, in the middle of a window, and prints what it is told: "copied", "moved" or
"refused".

All but the last print a line once they are ready.
"""
import ctypes
import sys
import time
from ctypes import POINTER, Structure, Union, byref, c_char_p, c_int, c_long, c_ubyte, c_uint, c_ulong, c_void_p
from pathlib import Path

PROPERTY_NOTIFY, SELECTION_REQUEST, SELECTION_NOTIFY, CLIENT_MESSAGE = 28, 30, 31, 33
PROPERTY_CHANGE_MASK = 1 << 22
NEW_VALUE, DELETED, REPLACE, ANY_TYPE = 0, 1, 0, 0
ATOM = 4


class SelectionRequest(Structure):
    _fields_ = [("type", c_int), ("serial", c_ulong), ("send_event", c_int), ("display", c_void_p), ("owner", c_ulong),
                ("requestor", c_ulong), ("selection", c_ulong), ("target", c_ulong), ("property", c_ulong), ("time", c_ulong)]


class SelectionNotify(Structure):
    _fields_ = [("type", c_int), ("serial", c_ulong), ("send_event", c_int), ("display", c_void_p),
                ("requestor", c_ulong), ("selection", c_ulong), ("target", c_ulong), ("property", c_ulong), ("time", c_ulong)]


class PropertyNotify(Structure):
    _fields_ = [("type", c_int), ("serial", c_ulong), ("send_event", c_int), ("display", c_void_p), ("window", c_ulong),
                ("atom", c_ulong), ("time", c_ulong), ("state", c_int)]


class ClientMessage(Structure):
    _fields_ = [("type", c_int), ("serial", c_ulong), ("send_event", c_int), ("display", c_void_p), ("window", c_ulong),
                ("message", c_ulong), ("format", c_int), ("data", c_long * 5)]


class Event(Union):
    _fields_ = [("message", ClientMessage), ("type", c_int), ("request", SelectionRequest), ("notify", SelectionNotify), ("change", PropertyNotify),
                ("room", c_long * 24)]


X = ctypes.CDLL("libX11.so.6")
X.XOpenDisplay.restype = c_void_p
X.XDefaultRootWindow.argtypes = [c_void_p]
X.XDefaultRootWindow.restype = c_ulong
X.XCreateSimpleWindow.argtypes = [c_void_p, c_ulong] + [c_int] * 2 + [c_uint] * 3 + [c_ulong] * 2
X.XCreateSimpleWindow.restype = c_ulong
X.XSelectInput.argtypes = [c_void_p, c_ulong, c_long]
X.XInternAtom.argtypes = [c_void_p, c_char_p, c_int]
X.XInternAtom.restype = c_ulong
X.XGetSelectionOwner.argtypes = [c_void_p, c_ulong]
X.XGetSelectionOwner.restype = c_ulong
X.XSetSelectionOwner.argtypes = [c_void_p, c_ulong, c_ulong, c_ulong]
X.XConvertSelection.argtypes = [c_void_p] + [c_ulong] * 5
X.XNextEvent.argtypes = [c_void_p, POINTER(Event)]
X.XSendEvent.argtypes = [c_void_p, c_ulong, c_int, c_long, POINTER(Event)]
X.XChangeProperty.argtypes = [c_void_p, c_ulong, c_ulong, c_ulong, c_int, c_int, c_void_p, c_int]
X.XGetWindowProperty.argtypes = [c_void_p, c_ulong, c_ulong, c_long, c_long, c_int, c_ulong, POINTER(c_ulong), POINTER(c_int),
                                 POINTER(c_ulong), POINTER(c_ulong), POINTER(c_void_p)]
X.XTranslateCoordinates.argtypes = [c_void_p, c_ulong, c_ulong, c_int, c_int, POINTER(c_int), POINTER(c_int), POINTER(c_ulong)]
X.XGetGeometry.argtypes = [c_void_p, c_ulong, POINTER(c_ulong)] + [POINTER(c_int)] * 2 + [POINTER(c_uint)] * 4
X.XFree.argtypes = [c_void_p]
X.XFlush.argtypes = [c_void_p]
IGNORED = ctypes.CFUNCTYPE(c_int, c_void_p, c_void_p)(lambda display, error: 0)


class Client:
    def __init__(self):
        self.display = X.XOpenDisplay(None)
        self.window = X.XCreateSimpleWindow(self.display, X.XDefaultRootWindow(self.display), 0, 0, 1, 1, 0, 0, 0)
        X.XSelectInput(self.display, self.window, PROPERTY_CHANGE_MASK)
        self.offer = {}  # format -> bytes, or None for one that is never given

    def atom(self, name):
        return X.XInternAtom(self.display, name.encode(), 0)

    def own(self, selection):
        X.XSetSelectionOwner(self.display, self.atom(selection), self.window, 0)
        X.XFlush(self.display)

    def next_event(self):
        event = Event()
        X.XNextEvent(self.display, byref(event))
        return event

    def answer(self, request, kind=None, size=8, data=b""):
        """Gives the data, items of this size in bits, or without a kind only the word that the work is done."""
        target = request.property or request.target
        if kind is not None:
            X.XChangeProperty(self.display, request.requestor, target, kind, size, REPLACE, ctypes.cast(data, c_void_p),
                              len(data))
        self.notify(request, target)

    def notify(self, request, prop):
        event = Event()
        event.notify = SelectionNotify(SELECTION_NOTIFY, 0, 1, self.display, request.requestor, request.selection,
                                       request.target, prop, request.time)
        X.XSendEvent(self.display, request.requestor, 0, 0, byref(event))
        X.XFlush(self.display)

    def serve(self, request):
        if request.target == self.atom("TARGETS"):
            formats = [self.atom("TARGETS")] + [self.atom(name) for name in self.offer]
            self.answer(request, ATOM, 32, (c_ulong * len(formats))(*formats))
            return
        for name, data in self.offer.items():
            if request.target == self.atom(name):
                if data is not None:
                    self.answer(request, request.target, 8, data)
                return
        self.notify(request, 0)

    def take_property(self, prop):
        """(type, bytes) of a property of our window, which is deleted."""
        kind, size, count, rest, place = c_ulong(), c_int(), c_ulong(), c_ulong(), c_void_p()
        X.XGetWindowProperty(self.display, self.window, prop, 0, 1 << 28, 1, ANY_TYPE, byref(kind), byref(size), byref(count),
                             byref(rest), byref(place))
        data = ctypes.string_at(place.value, count.value) if place.value and size.value == 8 else b""
        if place.value:
            X.XFree(place)
        return kind.value, data

    def fetch(self, selection, target):
        """What the owner gives, in one piece or in many; requests by others wait meanwhile."""
        prop = self.atom("FETCHED")
        X.XConvertSelection(self.display, self.atom(selection), self.atom(target), prop, self.window, 0)
        while True:
            event = self.next_event()
            if event.type == SELECTION_NOTIFY:
                break
        if event.notify.property == 0:
            return b""
        kind, data = self.take_property(prop)
        if kind != self.atom("INCR"):
            return data
        return self.take_pieces([prop])[prop]

    def take_pieces(self, properties):
        """What is given in many pieces, side by side, by property."""
        pieces = {prop: [] for prop in properties}
        going_on = set(properties)
        while going_on:
            event = self.next_event()
            if event.type == PROPERTY_NOTIFY and event.change.atom in going_on and event.change.state == NEW_VALUE:
                _, piece = self.take_property(event.change.atom)
                pieces[event.change.atom].append(piece)
                if not piece:
                    going_on.remove(event.change.atom)
        return {prop: b"".join(all_pieces) for prop, all_pieces in pieces.items()}

    def fetch_both(self, *targets):
        """What the owner of the clipboard gives under several formats asked for at once."""
        properties = [self.atom(f"FETCHED_{i}") for i in range(len(targets))]
        pairs = [atom for target, prop in zip(targets, properties) for atom in (self.atom(target), prop)]
        question = self.atom("QUESTION")
        X.XChangeProperty(self.display, self.window, question, self.atom("ATOM_PAIR"), 32, REPLACE,
                          ctypes.cast((c_ulong * len(pairs))(*pairs), c_void_p), len(pairs))
        X.XConvertSelection(self.display, self.atom("CLIPBOARD"), self.atom("MULTIPLE"), question, self.window, 0)
        while self.next_event().type != SELECTION_NOTIFY:
            pass
        given = {prop: self.take_property(prop) for prop in properties}
        in_pieces = self.take_pieces([prop for prop, (kind, _) in given.items() if kind == self.atom("INCR")])
        return [in_pieces.get(prop, given[prop][1]) for prop in properties]


class EndlessClient(Client):
    """Gives a piece whenever the one before was taken."""
    PIECE = b"\x89PNG\r\n\x1a\n" + bytes(1000)

    def serve(self, request):
        if request.target != self.atom("image/png"):
            super().serve(request)
            return
        X.XSelectInput(self.display, request.requestor, PROPERTY_CHANGE_MASK)
        self.put(request.requestor, request.property, self.atom("INCR"), 32, (c_ulong * 1)(1))
        self.notify(request, request.property)

    def put(self, window, prop, kind, size, data):
        X.XChangeProperty(self.display, window, prop, kind, size, REPLACE, ctypes.cast(data, c_void_p), len(data))
        X.XFlush(self.display)

    def go_on(self, change):
        if change.state == DELETED and change.window != self.window:
            time.sleep(0.05)
            self.put(change.window, change.atom, self.atom("image/png"), 8, self.PIECE)


class Drag:
    """A drag by the X drag-and-drop protocol, from its entry into a window to its drop."""

    def __init__(self, client, window, addresses):
        self.client, self.window = client, window
        client.offer = {"text/uri-list": "".join(address + "\r\n" for address in addresses).encode()}
        client.own("XdndSelection")

    def tell(self, name, *data):
        event = Event()
        event.message = ClientMessage(CLIENT_MESSAGE, 0, 1, self.client.display, self.window, self.client.atom(name), 32,
                                      (c_long * 5)(self.client.window, *data))
        X.XSendEvent(self.client.display, self.window, 0, 0, byref(event))
        X.XFlush(self.client.display)

    def wait_for(self, name):
        """The data of the next message of this name; meanwhile the files are given to who asks for them."""
        while True:
            event = self.client.next_event()
            if event.type == SELECTION_REQUEST:
                self.client.serve(SelectionRequest.from_buffer_copy(event.request))
            elif event.type == CLIENT_MESSAGE and event.message.message == self.client.atom(name):
                return list(event.message.data)

    def middle(self):
        """The window's middle on the display, as the messages have it."""
        root, x, y, width, height = c_ulong(), c_int(), c_int(), c_uint(), c_uint()
        X.XGetGeometry(self.client.display, self.window, byref(root), byref(x), byref(y), byref(width), byref(height),
                       byref(c_uint()), byref(c_uint()))
        X.XTranslateCoordinates(self.client.display, self.window, root, width.value // 2, height.value // 2, byref(x), byref(y),
                                byref(c_ulong()))
        return x.value << 16 | y.value

    def drop(self):
        copy = self.client.atom("XdndActionCopy")
        self.tell("XdndEnter", 5 << 24, self.client.atom("text/uri-list"))
        self.tell("XdndPosition", 0, self.middle(), 0, copy)
        if not self.wait_for("XdndStatus")[1] & 1:
            self.tell("XdndLeave")
            return "refused"
        self.tell("XdndDrop", 0, 0)
        told = self.wait_for("XdndFinished")
        if not told[1] & 1:
            return "refused"
        return "copied" if told[2] == copy else "moved"


def main():
    client = EndlessClient() if sys.argv[1] == "endless" else Client()
    if sys.argv[1] == "endless":
        # Whoever asks may have gone meanwhile.
        X.XSetErrorHandler(IGNORED)
    if sys.argv[1] == "drop":
        addresses = [name if "://" in name else Path(name).as_uri() for name in sys.argv[3:]]
        print(Drag(client, int(sys.argv[2]), addresses).drop())
        return
    if sys.argv[1] == "both":
        kinds = ("bmp", "png")
        for kind, data in zip(kinds, client.fetch_both(*("image/" + kind for kind in kinds))):
            Path(sys.argv[2], "both." + kind).write_bytes(data)
        return
    if sys.argv[1] == "await-manager":
        while X.XGetSelectionOwner(client.display, client.atom("CLIPBOARD_MANAGER")) == 0:
            time.sleep(0.05)
        print("ready")
        return
    if sys.argv[1] == "manager":
        client.own("CLIPBOARD_MANAGER")
    else:
        client.offer = {"image/png": None, "image/bmp": None, "UTF8_STRING": None} if sys.argv[1] == "silent" else {"image/png": None}
        client.own("CLIPBOARD")
    print("ready", flush=True)
    while True:
        event = client.next_event()
        if event.type == PROPERTY_NOTIFY and isinstance(client, EndlessClient):
            client.go_on(event.change)
        if event.type != SELECTION_REQUEST:
            continue
        request = SelectionRequest.from_buffer_copy(event.request)
        if request.target == client.atom("SAVE_TARGETS"):
            client.offer = {"image/png": client.fetch("CLIPBOARD", "image/png")}
            client.own("CLIPBOARD")
            with open(sys.argv[2], "wb") as file:
                file.write(client.offer["image/png"])
            client.answer(request, client.atom("NULL"))
        else:
            client.serve(request)


if __name__ == "__main__":
    main()
