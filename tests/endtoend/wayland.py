"""A Wayland client without libraries: as much of the wire as a pointer, a keyboard and a list of windows need."""
import array
import ctypes
import os
import select
import socket
import struct
import tempfile
import time

BUTTONS = {"left": 0x110, "right": 0x111, "middle": 0x112}


def integer(value):
    return struct.pack("<i", value)


def unsigned(value):
    return struct.pack("<I", value)


def fixed(value):
    return struct.pack("<i", round(value * 256))


def text(value):
    data = value.encode() + b"\0"
    return struct.pack("<I", len(data)) + data + b"\0" * (-len(data) % 4)


class Arguments:
    """Of an event, taken one after the other."""

    def __init__(self, data):
        self.data, self.at = data, 0

    def unsigned(self):
        self.at += 4
        return struct.unpack_from("<I", self.data, self.at - 4)[0]

    def integer(self):
        self.at += 4
        return struct.unpack_from("<i", self.data, self.at - 4)[0]

    def text(self):
        size = self.unsigned()
        begin, self.at = self.at, self.at + size + -size % 4
        return self.data[begin:begin + size - 1].decode()


class Wayland:
    def __init__(self):
        self.socket = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        self.socket.connect(os.path.join(os.environ["XDG_RUNTIME_DIR"], os.environ["WAYLAND_DISPLAY"]))
        self.received, self.last_object, self.handlers, self.globals = b"", 1, {1: self._display}, {}
        self.registry = self.new(self._registry)
        self.send(1, 1, unsigned(self.registry))
        self.roundtrip()

    def new(self, handler=None):
        self.last_object += 1
        self.handlers[self.last_object] = handler
        return self.last_object

    def send(self, target, request, arguments=b"", descriptors=()):
        message = struct.pack("<II", target, ((len(arguments) + 8) << 16) | request) + arguments
        rights = [(socket.SOL_SOCKET, socket.SCM_RIGHTS, array.array("i", descriptors))] if descriptors else []
        self.socket.sendmsg([message], rights)

    def _display(self, event, arguments):
        if event == 0:
            raise AssertionError(f"the compositor refused {arguments.unsigned()}, {arguments.unsigned()}: {arguments.text()}")

    def _registry(self, event, arguments):
        if event == 0:
            name, interface, version = arguments.unsigned(), arguments.text(), arguments.unsigned()
            self.globals[interface] = name, version

    def bind(self, interface, version, handler=None):
        name, offered = self.globals[interface]
        bound = self.new(handler)
        self.send(self.registry, 0, unsigned(name) + text(interface) + unsigned(min(version, offered)) + unsigned(bound))
        return bound

    def dispatch(self, patience):
        if not select.select([self.socket], [], [], patience)[0]:
            return
        data, descriptors, _, _ = socket.recv_fds(self.socket, 65536, 16)
        assert data, "the compositor has gone"
        for descriptor in descriptors:
            os.close(descriptor)
        self.received += data
        while len(self.received) >= 8:
            target, word = struct.unpack_from("<II", self.received)
            if len(self.received) < word >> 16:
                break
            body, self.received = self.received[8:word >> 16], self.received[word >> 16:]
            handler = self.handlers.get(target)
            if handler:
                handler(word & 0xffff, Arguments(body))

    def roundtrip(self, patience=10):
        done = []
        self.send(1, 0, unsigned(self.new(lambda *_: done.append(True))))
        end = time.monotonic() + patience
        while not done:
            assert time.monotonic() < end, "the compositor does not answer"
            self.dispatch(0.2)


def keymap_of_layout(layout):
    """As a text, which the compositor is to be given."""
    library = ctypes.CDLL("libxkbcommon.so.0")
    for function in (library.xkb_context_new, library.xkb_keymap_new_from_names):
        function.restype = ctypes.c_void_p
    library.xkb_keymap_get_as_string.restype = ctypes.c_char_p
    names = (ctypes.c_char_p * 5)(b"evdev", b"pc105", layout.encode(), None, None)
    keymap = library.xkb_keymap_new_from_names(ctypes.c_void_p(library.xkb_context_new(0)), names, 0)
    return library.xkb_keymap_get_as_string(ctypes.c_void_p(keymap), 1)


class VirtualInput:
    """Pointer and keyboard of compositors such as sway."""

    def __init__(self, wayland, width, height):
        self.wayland, self.extent = wayland, unsigned(width) + unsigned(height)
        pointers = wayland.bind("zwlr_virtual_pointer_manager_v1", 1)
        keyboards = wayland.bind("zwp_virtual_keyboard_manager_v1", 1)
        seat = wayland.bind("wl_seat", 1)
        self.pointer = wayland.new()
        wayland.send(pointers, 0, unsigned(0) + unsigned(self.pointer))
        self.keyboard = wayland.new()
        wayland.send(keyboards, 0, unsigned(seat) + unsigned(self.keyboard))
        keymap = keymap_of_layout("us") + b"\0"
        with tempfile.TemporaryFile() as file:
            file.write(keymap)
            file.flush()
            wayland.send(self.keyboard, 0, unsigned(1) + unsigned(len(keymap)), [file.fileno()])
        wayland.roundtrip()

    @staticmethod
    def now():
        return unsigned(int(time.monotonic() * 1000) & 0xffffffff)

    def send_to_pointer(self, request, arguments):
        self.wayland.send(self.pointer, request, arguments)
        self.wayland.send(self.pointer, 4)
        self.wayland.roundtrip()

    def move(self, x, y):
        self.send_to_pointer(1, self.now() + unsigned(x) + unsigned(y) + self.extent)

    def button(self, name, is_pressed):
        self.send_to_pointer(2, self.now() + unsigned(BUTTONS[name]) + unsigned(is_pressed))

    def key(self, code, is_pressed, modifiers):
        self.wayland.send(self.keyboard, 1, self.now() + unsigned(code) + unsigned(is_pressed))
        self.wayland.send(self.keyboard, 2, unsigned(modifiers) + 3 * unsigned(0))
        self.wayland.roundtrip()


class FakeInput:
    """Pointer and keyboard of KWin."""

    def __init__(self, wayland, *_):
        self.wayland = wayland
        self.input = wayland.bind("org_kde_kwin_fake_input", 4)
        wayland.send(self.input, 0, text("test") + text("test"))

    def send(self, request, arguments):
        self.wayland.send(self.input, request, arguments)
        self.wayland.roundtrip()

    def move(self, x, y):
        self.send(9, fixed(x) + fixed(y))

    def button(self, name, is_pressed):
        self.send(2, unsigned(BUTTONS[name]) + unsigned(is_pressed))

    def key(self, code, is_pressed, _):
        self.send(10, unsigned(code) + unsigned(is_pressed))
