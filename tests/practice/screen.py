#!/usr/bin/python3
"""Writes the screen of an Xvfb started with -fbdir as a PNG: screen.py <fbdir>/Xvfb_screen0 out.png [x y w h]."""
import struct, sys, zlib

def read_xwd(path):
    data = open(path, 'rb').read()
    header = struct.unpack('>25I', data[:100])
    header_size, _, _, depth, width, height = header[0:6]
    bits_per_pixel, bytes_per_line, ncolors = header[11], header[12], header[19]
    offset = header_size + ncolors * 12
    return data[offset:], width, height, bits_per_pixel, bytes_per_line

def png(path, width, height, rows):
    def chunk(kind, body):
        return struct.pack('>I', len(body)) + kind + body + struct.pack('>I', zlib.crc32(kind + body) & 0xffffffff)
    raw = b''.join(b'\x00' + r for r in rows)
    with open(path, 'wb') as f:
        f.write(b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', struct.pack('>IIBBBBB', width, height, 8, 2, 0, 0, 0))
                + chunk(b'IDAT', zlib.compress(raw, 6)) + chunk(b'IEND', b''))

pixels, width, height, bpp, stride = read_xwd(sys.argv[1])
x, y, w, h = (int(v) for v in sys.argv[3:7]) if len(sys.argv) >= 7 else (0, 0, width, height)
x, y = max(x, 0), max(y, 0)
w, h = min(w, width - x), min(h, height - y)   # a window may reach past the screen's edge
assert bpp == 32, bpp
rows = []
for r in range(y, y + h):
    line = pixels[r * stride + x * 4:r * stride + (x + w) * 4]
    rows.append(bytes(b for i in range(0, len(line), 4) for b in (line[i + 2], line[i + 1], line[i])))
png(sys.argv[2], w, h, rows)
