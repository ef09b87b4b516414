#!/usr/bin/python3
"""A bare X window: no toolkit, no accessibility, no desktop file. Its title is its only argument."""
import ctypes
import json
import os
import struct
import sys

STRUCTURE_NOTIFY = 1 << 17
MAP_NOTIFY = 19
XA_CARDINAL = 6
REPLACE = 0


def main():
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XDefaultRootWindow.restype = x11.XCreateSimpleWindow.restype = x11.XInternAtom.restype = ctypes.c_ulong
    display = ctypes.c_void_p(x11.XOpenDisplay(None))
    root = ctypes.c_ulong(x11.XDefaultRootWindow(display))
    window = ctypes.c_ulong(x11.XCreateSimpleWindow(display, root, 100, 100, 300, 200, 0, 0, 0))
    x11.XStoreName(display, window, sys.argv[1].encode())
    process = ctypes.c_ulong(x11.XInternAtom(display, b"_NET_WM_PID", False))
    x11.XChangeProperty(display, window, process, ctypes.c_ulong(XA_CARDINAL), 32, REPLACE, struct.pack("l", os.getpid()), 1)
    x11.XSelectInput(display, window, ctypes.c_long(STRUCTURE_NOTIFY))
    x11.XMapWindow(display, window)
    event = ctypes.create_string_buffer(192)
    while True:
        x11.XNextEvent(display, event)
        if struct.unpack_from("i", event)[0] == MAP_NOTIFY:
            print(json.dumps("ready"), flush=True)


if __name__ == "__main__":
    main()
