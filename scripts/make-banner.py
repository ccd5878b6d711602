#!/usr/bin/env python3
"""Draws the banner of the main window and writes it as an animated GIF.

    python3 scripts/make-banner.py data/program/banner.gif

Everything is drawn here, pixel by pixel, with the standard library only: a stack of law pages, the
title in a block letter face, a gold light that sweeps across the title, and the list of what the
library holds with one word lit at a time. The GIF is written by the small encoder at the end.
"""
import struct
import sys

WIDTH, HEIGHT = 1110, 120
FRAMES = 42
DELAY_CS = 9  # hundredths of a second per frame

NAVY = (31, 78, 121)
INK = (38, 52, 70)
GOLD = (200, 155, 44)
LIGHT = (255, 244, 214)
PAGE = (251, 248, 238)
RULE = (160, 172, 186)
SEAL = (139, 30, 30)

# A block letter face, five columns by seven rows.
FONT = {
    "A": ["01110", "10001", "10001", "11111", "10001", "10001", "10001"],
    "B": ["11110", "10001", "10001", "11110", "10001", "10001", "11110"],
    "C": ["01110", "10001", "10000", "10000", "10000", "10001", "01110"],
    "D": ["11110", "10001", "10001", "10001", "10001", "10001", "11110"],
    "E": ["11111", "10000", "10000", "11110", "10000", "10000", "11111"],
    "F": ["11111", "10000", "10000", "11110", "10000", "10000", "10000"],
    "G": ["01110", "10001", "10000", "10111", "10001", "10001", "01111"],
    "H": ["10001", "10001", "10001", "11111", "10001", "10001", "10001"],
    "I": ["01110", "00100", "00100", "00100", "00100", "00100", "01110"],
    "J": ["00111", "00010", "00010", "00010", "00010", "10010", "01100"],
    "K": ["10001", "10010", "10100", "11000", "10100", "10010", "10001"],
    "L": ["10000", "10000", "10000", "10000", "10000", "10000", "11111"],
    "M": ["10001", "11011", "10101", "10101", "10001", "10001", "10001"],
    "N": ["10001", "11001", "10101", "10011", "10001", "10001", "10001"],
    "O": ["01110", "10001", "10001", "10001", "10001", "10001", "01110"],
    "P": ["11110", "10001", "10001", "11110", "10000", "10000", "10000"],
    "R": ["11110", "10001", "10001", "11110", "10100", "10010", "10001"],
    "S": ["01111", "10000", "10000", "01110", "00001", "00001", "11110"],
    "T": ["11111", "00100", "00100", "00100", "00100", "00100", "00100"],
    "U": ["10001", "10001", "10001", "10001", "10001", "10001", "01110"],
    "V": ["10001", "10001", "10001", "10001", "10001", "01010", "00100"],
    "W": ["10001", "10001", "10001", "10101", "10101", "10101", "01010"],
    "Y": ["10001", "10001", "01010", "00100", "00100", "00100", "00100"],
    "'": ["00100", "00100", "01000", "00000", "00000", "00000", "00000"],
    ".": ["00000", "00000", "00000", "00000", "00000", "01100", "01100"],
    " ": ["00000"] * 7,
}

TITLE = "VAT LAWS OF KERALA"
WORDS = ["ACTS", "RULES", "CIRCULARS", "NOTIFICATIONS", "SCHEDULES", "JUDGEMENTS", "FORMS", "RETURNS"]


def mix(a, b, t):
    return tuple(round(x + (y - x) * t) for x, y in zip(a, b))


def background(y):
    # A soft fall from a pale sky to a paper blue, in even steps so the colours stay few.
    return mix((236, 242, 248), (207, 221, 236), round(y / (HEIGHT - 1) * 15) / 15)


def text_cells(text, scale, left, top):
    """The pixels of a text, each with the index of the letter it belongs to."""
    cells = []
    x = left
    for i, ch in enumerate(text):
        for row, bits in enumerate(FONT[ch]):
            for col, bit in enumerate(bits):
                if bit == "1":
                    for dy in range(scale):
                        for dx in range(scale):
                            cells.append((x + col * scale + dx, top + row * scale + dy, i))
        x += 6 * scale
    return cells, x


def draw_pages(img):
    # Three law pages fanned behind each other, the front one ruled and sealed.
    for n, (ox, oy) in enumerate([(52, 14), (44, 20), (36, 26)]):
        for y in range(oy, oy + 78):
            for x in range(ox, ox + 60):
                edge = x in (ox, ox + 59) or y in (oy, oy + 77)
                img[y][x] = NAVY if edge else PAGE
        if n == 2:
            for ry in range(oy + 14, oy + 62, 8):
                for x in range(ox + 8, ox + 52):
                    img[ry][x] = RULE
            cx, cy = ox + 46, oy + 66
            for y in range(cy - 9, cy + 10):
                for x in range(cx - 9, cx + 10):
                    d = (x - cx) ** 2 + (y - cy) ** 2
                    if d <= 81:
                        img[y][x] = SEAL if d >= 49 else GOLD


def frame(index, title, title_end, words):
    img = [[background(y) for _ in range(WIDTH)] for y in range(HEIGHT)]
    draw_pages(img)
    # The gold light: a slanted band that crosses the title in the first half of the loop.
    sweep = index / (FRAMES * 0.5)
    centre = 150 + sweep * (title_end - 150 + 160) - 80
    for x, y, _ in title:
        img[y + 2][x + 2] = (170, 185, 202)  # shadow
    for x, y, _ in title:
        d = abs((x + (y - 20) * 0.6) - centre)
        glow = round(max(0.0, 1 - d / 55) * 8) / 8 if sweep <= 1 else 0.0
        # Navy warms to gold at the edge of the light, and gold to a pale flame at its heart.
        img[y][x] = mix(NAVY, GOLD, min(1.0, 2 * glow)) if glow <= 0.5 else mix(GOLD, LIGHT, 2 * glow - 1)
    lit = (index * len(WORDS)) // FRAMES
    for x, y, word in words:
        img[y][x] = GOLD if word == lit else INK
    # A thin gold rule under the title, growing with the light and held for the rest of the loop.
    reach = 150 + min(1.0, sweep) * (title_end - 150)
    for x in range(150, int(reach)):
        img[58][x] = GOLD
        img[59][x] = GOLD
    return img


def word_cells(left, top, scale):
    cells = []
    x = left
    for w, word in enumerate(WORDS):
        c, x = text_cells(word, scale, x, top)
        cells += [(cx, cy, w) for cx, cy, _ in c]
        x += 4 * scale
    return cells


def lzw(indices, min_size=8):
    clear, end = 1 << min_size, (1 << min_size) + 1
    table = {(i,): i for i in range(clear)}
    size, next_code = min_size + 1, end + 1
    out, bits, nbits = bytearray(), 0, 0

    def emit(code):
        nonlocal bits, nbits
        bits |= code << nbits
        nbits += size
        while nbits >= 8:
            out.append(bits & 0xFF)
            bits >>= 8
            nbits -= 8

    emit(clear)
    run = (indices[0],)
    for px in indices[1:]:
        longer = run + (px,)
        if longer in table:
            run = longer
            continue
        emit(table[run])
        if next_code < 4096:
            table[longer] = next_code
            next_code += 1
            if next_code > (1 << size) and size < 12:
                size += 1
        else:
            emit(clear)
            table = {(i,): i for i in range(clear)}
            size, next_code = min_size + 1, end + 1
        run = (px,)
    emit(table[run])
    emit(end)
    if nbits:
        out.append(bits & 0xFF)
    return bytes(out)


def blocks(data):
    return b"".join(bytes([len(data[i:i + 255])]) + data[i:i + 255] for i in range(0, len(data), 255)) + b"\0"


def write_gif(path, frames):
    colours = sorted({c for f in frames for row in f for c in row})
    if len(colours) > 256:
        sys.exit(f"{len(colours)} colours: more than a GIF holds")
    palette = {c: i for i, c in enumerate(colours)}
    table = b"".join(bytes(c) for c in colours) + b"\0" * (3 * (256 - len(colours)))
    out = bytearray(b"GIF89a" + struct.pack("<HHBBB", WIDTH, HEIGHT, 0xF7, 0, 0) + table)
    out += b"\x21\xFF\x0BNETSCAPE2.0\x03\x01\x00\x00\x00"  # loop for ever
    previous = None
    for f in frames:
        # Each frame after the first carries only the rectangle that changed.
        if previous is None:
            x0, y0, x1, y1 = 0, 0, WIDTH - 1, HEIGHT - 1
        else:
            changed = [(x, y) for y in range(HEIGHT) for x in range(WIDTH) if f[y][x] != previous[y][x]]
            if changed:
                xs, ys = [p[0] for p in changed], [p[1] for p in changed]
                x0, y0, x1, y1 = min(xs), min(ys), max(xs), max(ys)
            else:
                x0 = y0 = x1 = y1 = 0
        out += b"\x21\xF9\x04" + struct.pack("<BHBB", 1 << 2, DELAY_CS, 0, 0)
        out += b"\x2C" + struct.pack("<HHHHB", x0, y0, x1 - x0 + 1, y1 - y0 + 1, 0)
        pixels = [palette[f[y][x]] for y in range(y0, y1 + 1) for x in range(x0, x1 + 1)]
        out += b"\x08" + blocks(lzw(pixels))
        previous = f
    out += b"\x3B"
    with open(path, "wb") as fh:
        fh.write(out)


def main():
    path = sys.argv[1] if len(sys.argv) > 1 else "banner.gif"
    title, title_end = text_cells(TITLE, 5, 150, 20)
    words = word_cells(150, 72, 2)
    write_gif(path, [frame(i, title, title_end, words) for i in range(FRAMES)])


if __name__ == "__main__":
    main()
