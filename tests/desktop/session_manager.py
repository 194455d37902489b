#!/usr/bin/env python3
"""session_manager.py: a session manager by the X session protocol, of a kind that no package brings: one that a test can tell
what to do.

Prints its address for the variable SESSION_MANAGER, then a line for each thing that its client does: "registered", "asks",
"done asking" or "cancels the log-out", "saved", "gone". Reads a command a line: "logout" lets the client ask the user,
"logout silently" does not; "die" ends the connection.
"""
import ctypes
import os
import select
import sys
from ctypes import CFUNCTYPE, POINTER, byref, c_char_p, c_int, c_ulong, c_void_p

ICE, SM = ctypes.CDLL("libICE.so.6"), ctypes.CDLL("libSM.so.6")
SAVE_BOTH, INTERACT_NONE, INTERACT_ANY = 2, 0, 2

ICE.IceComposeNetworkIdList.restype = c_char_p
ICE.IceAcceptConnection.restype = c_void_p
ICE.IceGetListenConnectionNumber.argtypes = [c_void_p]
ICE.IceAcceptConnection.argtypes = [c_void_p, POINTER(c_int)]
ICE.IceConnectionNumber.argtypes = [c_void_p]
ICE.IceProcessMessages.argtypes = [c_void_p, c_void_p, c_void_p]
SM.SmsClientHostName.argtypes = [c_void_p]
SM.SmsGenerateClientID.argtypes = [c_void_p]
SM.SmsGenerateClientID.restype = c_void_p
SM.SmsRegisterClientReply.argtypes = [c_void_p, c_void_p]
SM.SmsSaveYourself.argtypes = [c_void_p] + [c_int] * 4
for name in ("SmsInteract", "SmsDie", "SmsSaveComplete"):
    getattr(SM, name).argtypes = [c_void_p]

clients = []


def say(text):
    print(text, flush=True)


def register(client, _data, _previous):
    clients.append(client)
    SM.SmsRegisterClientReply(client, SM.SmsGenerateClientID(client))
    say("registered")
    return 1


def interact_done(_client, _data, cancel):
    say("cancels the log-out" if cancel else "done asking")


def wants_to_ask(client, _data, _kind):
    say("asks")
    SM.SmsInteract(client)


def closed(client, _data, _count, _reasons):
    clients.remove(client)
    say("gone")


NOTHING = CFUNCTYPE(None, c_void_p, c_void_p)
# In the order of the library's structure; the numbers say how many arguments follow the first two.
CALLBACKS = [
    CFUNCTYPE(c_int, c_void_p, c_void_p, c_void_p)(register),
    CFUNCTYPE(None, c_void_p, c_void_p, c_int)(wants_to_ask),
    CFUNCTYPE(None, c_void_p, c_void_p, c_int)(interact_done),
    CFUNCTYPE(None, c_void_p, c_void_p, c_int, c_int, c_int, c_int, c_int)(lambda *_: None),
    NOTHING(lambda *_: None),
    CFUNCTYPE(None, c_void_p, c_void_p, c_int)(lambda *_: say("saved")),
    CFUNCTYPE(None, c_void_p, c_void_p, c_int, c_void_p)(closed),
    CFUNCTYPE(None, c_void_p, c_void_p, c_int, c_void_p)(lambda *_: None),
    CFUNCTYPE(None, c_void_p, c_void_p, c_int, c_void_p)(lambda *_: None),
    NOTHING(lambda *_: None),
]


@CFUNCTYPE(c_int, c_void_p, c_void_p, POINTER(c_ulong), POINTER(c_void_p), c_void_p)
def new_client(_client, _data, mask, callbacks, _reason):
    mask[0] = (1 << len(CALLBACKS)) - 1
    for place, callback in enumerate(CALLBACKS):
        callbacks[2 * place] = ctypes.cast(callback, c_void_p)
        callbacks[2 * place + 1] = None
    return 1


@CFUNCTYPE(c_int, c_char_p)
def let_in(_host):
    return 1


@CFUNCTYPE(None, c_void_p)
def client_died(_connection):
    """The library would end this program, too."""


def listen():
    """The library's listeners, by the number of their file."""
    reason = ctypes.create_string_buffer(256)
    ICE.IceSetIOErrorHandler(client_died)
    assert SM.SmsInitialize(b"test", b"1", new_client, None, let_in, 256, reason), reason.value
    count, listeners = c_int(), POINTER(c_void_p)()
    assert ICE.IceListenForConnections(byref(count), byref(listeners), 256, reason), reason.value
    for place in range(count.value):
        ICE.IceSetHostBasedAuthProc(c_void_p(listeners[place]), let_in)
    say(ICE.IceComposeNetworkIdList(count, listeners).decode())
    return {ICE.IceGetListenConnectionNumber(listeners[place]): listeners[place] for place in range(count.value)}


def obey(command):
    for client in list(clients):
        if command.startswith("logout"):
            style = INTERACT_NONE if command.endswith("silently") else INTERACT_ANY
            SM.SmsSaveYourself(client, SAVE_BOTH, 1, style, 0)
        elif command == "die":
            SM.SmsDie(client)


def main():
    listeners = listen()
    connections = {}
    while True:
        ready, _, _ = select.select([0, *listeners, *connections], [], [])
        for number in ready:
            if number == 0:
                command = os.read(0, 100).decode()
                if not command:
                    return
                obey(command.strip())
            elif number in listeners:
                status = c_int()
                connection = ICE.IceAcceptConnection(listeners[number], byref(status))
                if connection:
                    connections[ICE.IceConnectionNumber(connection)] = connection
            elif ICE.IceProcessMessages(connections[number], None, None) != 0:
                del connections[number]


if __name__ == "__main__":
    sys.exit(main())
