#!/usr/bin/env python3
"""Sends an X window the window manager's ping (_NET_WM_PING), an event that the
program's event loop must take up and answer.

    ping.py WINDOW

The answer goes to the root window, where only the window manager may receive
it, so the caller watches the program's main thread wake up instead (see
monkey.sh). Uses libX11 through ctypes: nothing beyond the X libraries."""
import ctypes
import ctypes.util
import sys
import time

ClientMessage = 33
NoEventMask = 0


class XClientMessageEvent(ctypes.Structure):
    _fields_ = [
        ("type", ctypes.c_int),
        ("serial", ctypes.c_ulong),
        ("send_event", ctypes.c_int),
        ("display", ctypes.c_void_p),
        ("window", ctypes.c_ulong),
        ("message_type", ctypes.c_ulong),
        ("format", ctypes.c_int),
        ("data", ctypes.c_long * 5),
    ]


class XEvent(ctypes.Union):
    _fields_ = [("type", ctypes.c_int), ("xclient", XClientMessageEvent), ("pad", ctypes.c_long * 24)]


def main():
    window = int(sys.argv[1], 0)
    x = ctypes.cdll.LoadLibrary(ctypes.util.find_library("X11") or "libX11.so.6")
    x.XOpenDisplay.restype = ctypes.c_void_p
    x.XOpenDisplay.argtypes = [ctypes.c_char_p]
    x.XInternAtom.restype = ctypes.c_ulong
    x.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
    x.XSendEvent.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_long, ctypes.c_void_p]
    x.XFlush.argtypes = [ctypes.c_void_p]
    x.XCloseDisplay.argtypes = [ctypes.c_void_p]

    display = x.XOpenDisplay(None)
    if not display:
        print("ping: no X display", file=sys.stderr)
        return 2
    protocols = x.XInternAtom(display, b"WM_PROTOCOLS", 0)
    ping = x.XInternAtom(display, b"_NET_WM_PING", 0)
    stamp = int(time.monotonic() * 1000) & 0x7FFFFFFF
    event = XEvent()
    event.xclient.type = ClientMessage
    event.xclient.window = window
    event.xclient.message_type = protocols
    event.xclient.format = 32
    event.xclient.data[0] = ping
    event.xclient.data[1] = stamp
    event.xclient.data[2] = window
    x.XSendEvent(display, window, 0, NoEventMask, ctypes.byref(event))
    x.XFlush(display)
    x.XCloseDisplay(display)
    return 0


sys.exit(main())
