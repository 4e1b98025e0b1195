# Prints the X pointer's image as the server shows it now: "WIDTHxHEIGHT+HOTX+HOTY"
# and the number of distinct colours, read with XFixesGetCursorImage.
import ctypes
import ctypes.util
import time


class CursorImage(ctypes.Structure):
    _fields_ = [("x", ctypes.c_short), ("y", ctypes.c_short),
                ("width", ctypes.c_ushort), ("height", ctypes.c_ushort),
                ("xhot", ctypes.c_ushort), ("yhot", ctypes.c_ushort),
                ("cursor_serial", ctypes.c_ulong), ("pixels", ctypes.POINTER(ctypes.c_ulong)),
                ("atom", ctypes.c_ulong), ("name", ctypes.c_char_p)]


x11 = ctypes.CDLL(ctypes.util.find_library("X11"))
xfixes = ctypes.CDLL(ctypes.util.find_library("Xfixes"))
x11.XOpenDisplay.restype = ctypes.c_void_p
xfixes.XFixesGetCursorImage.restype = ctypes.POINTER(CursorImage)
xfixes.XFixesGetCursorImage.argtypes = [ctypes.c_void_p]
# A busy server may refuse a connection for a moment.
display = None
for _ in range(5):
    display = x11.XOpenDisplay(None)
    if display:
        break
    time.sleep(0.5)
if not display:
    raise SystemExit("no display")
image = xfixes.XFixesGetCursorImage(display).contents
pixels = {image.pixels[i] & 0xFFFFFFFF for i in range(image.width * image.height)}
print(f"{image.width}x{image.height}+{image.xhot}+{image.yhot} {len(pixels)}")
