#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the sample pictures beside this script: one small landscape in every format and depth, and
the logo of the invoice.

usage: make_pictures.py          (needs python3-pil, for GIF, JPG and the logo)

BMP and PNG files are written byte by byte, so that every depth and header can be made.
"""
import math
import pathlib
import struct
import zlib

from PIL import Image, ImageDraw

HERE = pathlib.Path(__file__).resolve().parent
WIDTH, HEIGHT = 94, 62      # neither rows of 24 nor of 8 bits end on a multiple of 4 bytes


def landscape(x, y):
    """Red, green and blue of a pixel: an evening sky, the sun, its path on the sea, two hills."""
    horizon = HEIGHT * 0.62
    sun = math.hypot(x - WIDTH * 0.68, y - HEIGHT * 0.46)
    near = HEIGHT * 0.74 - 9 * math.sin(x / 17) - x * 0.06
    far = HEIGHT * 0.58 - 7 * math.sin(x / 23 + 2)
    if y > near:
        return 18, 40 + int(y - near), 34
    if y < horizon and y > far and x < WIDTH * 0.55:
        return 84, 66, 104
    if sun < 8 and y < horizon:
        return 255, 240, 190
    if y < horizon:
        glow = max(0.0, 1 - sun / 60)
        return (int(90 + 160 * y / horizon * (0.4 + 0.6 * glow)), int(70 + 110 * glow),
                int(150 - 40 * glow))
    shine = abs(x - WIDTH * 0.68) < 3 + (y - horizon) * 0.6 and (x + 3 * y) % 5 < 3
    return (250, 200, 140) if shine else (60, 70 + int(y - horizon), 130)


def bmp(name, bits, rows, palette=(), compression=0, masks=(), top_down=False):
    """Writes a BMP file; `rows` are the rows as bytes, from the top."""
    order = rows if top_down else rows[::-1]
    data = b"".join(row + bytes(-len(row) % 4) for row in order)
    colors = b"".join(bytes((blue, green, red, 0)) for red, green, blue in palette)
    extra = b"".join(struct.pack("<I", mask) for mask in masks)
    offset = 14 + 40 + len(extra) + len(colors)
    head = b"BM" + struct.pack("<IHHI", offset + len(data), 0, 0, offset)
    info = struct.pack("<IiiHHIIiiII", 40, WIDTH, -HEIGHT if top_down else HEIGHT, 1, bits,
                       compression, len(data), 2835, 2835, len(palette), 0)
    (HERE / name).write_bytes(head + info + extra + colors + data)


def png(name, colors, rows):
    """Writes a PNG file of 8 bits a sample without filters; `rows` are the rows as bytes."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I",
                                                                        zlib.crc32(kind + data))

    head = struct.pack(">IIBBBBB", WIDTH, HEIGHT, 8, colors, 0, 0, 0)
    data = zlib.compress(b"".join(b"\0" + row for row in rows), 9)
    (HERE / name).write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", data)
                              + chunk(b"IEND", b""))


def opacity(x, y):
    """Opaque in the middle, and less and less from there to the corners."""
    away = math.hypot((x - WIDTH / 2) / WIDTH, (y - HEIGHT / 2) / HEIGHT)
    return max(0, min(255, int(255 * (1.8 - 3.2 * away))))


def packed(indices, bits):
    """Palette indices as bytes, the first in the highest bits."""
    per_byte = 8 // bits
    padded = list(indices) + [0] * (-len(indices) % per_byte)
    return bytes(sum(padded[i + k] << (8 - bits * (k + 1)) for k in range(per_byte))
                 for i in range(0, len(padded), per_byte))


def with_palette(picture, colors, dither):
    """Rows of indices and the palette of `picture` in so many colors."""
    mode = Image.Dither.FLOYDSTEINBERG if dither else Image.Dither.NONE
    if colors == 2:
        reduced = picture.convert("1")
        rows = [[1 if reduced.getpixel((x, y)) else 0 for x in range(WIDTH)] for y in range(HEIGHT)]
        return rows, [(40, 30, 70), (255, 236, 200)]
    reduced = picture.quantize(colors, dither=mode)
    flat = reduced.getpalette()[:3 * colors]
    flat += [0] * (3 * colors - len(flat))
    rows = [[reduced.getpixel((x, y)) for x in range(WIDTH)] for y in range(HEIGHT)]
    return rows, [tuple(flat[3 * i:3 * i + 3]) for i in range(colors)]


def logo(size):
    """An open book on a disc, transparent around it, drawn four times as large and made smaller."""
    scale = size * 4
    picture = Image.new("RGBA", (scale, scale), (255, 255, 255, 0))
    draw = ImageDraw.Draw(picture)

    def points(*pairs):
        return [(x * scale, y * scale) for x, y in pairs]

    def curve(start, bend, end):
        for step in range(25):
            t = step / 24
            yield tuple((1 - t) ** 2 * a + 2 * t * (1 - t) * b + t * t * c
                        for a, b, c in zip(start, bend, end))

    draw.ellipse(points((0, 0), (0.998, 0.998)), fill=(122, 30, 44))
    for mirror in (lambda x: x, lambda x: 1 - x):
        for drop, color in ((0.07, (214, 178, 150)), (0, (255, 252, 246))):
            top = list(curve((0.48, 0.36 + drop), (0.34, 0.24 + drop), (0.16, 0.32 + drop)))
            bottom = list(curve((0.16, 0.66 + drop), (0.34, 0.58 + drop), (0.48, 0.70 + drop)))
            draw.polygon(points(*((mirror(x), y) for x, y in top + bottom)), fill=color)
        for line in (0.42, 0.50, 0.58):
            text = list(curve((0.43, line), (0.34, line - 0.07), (0.22, line - 0.03)))
            draw.line(points(*((mirror(x), y) for x, y in text)), fill=(170, 120, 118),
                      width=scale // 60)
    return picture.resize((size, size), Image.LANCZOS)


def main():
    picture = Image.new("RGB", (WIDTH, HEIGHT))
    pixels = [[landscape(x, y) for x in range(WIDTH)] for y in range(HEIGHT)]
    for y, row in enumerate(pixels):
        for x, color in enumerate(row):
            picture.putpixel((x, y), color)

    for bits in (1, 4, 8):
        indices, palette = with_palette(picture, 1 << bits, bits < 8)
        bmp(f"landscape_{bits}.bmp", bits, [packed(row, bits) for row in indices], palette)
    bmp("landscape_16.bmp", 16, [b"".join(struct.pack("<H", r >> 3 << 10 | g >> 3 << 5 | b >> 3)
                                          for r, g, b in row) for row in pixels])
    bmp("landscape_24.bmp", 24, [b"".join(bytes((b, g, r)) for r, g, b in row) for row in pixels])
    bmp("landscape_32.bmp", 32, [b"".join(bytes((b, g, r, 0)) for r, g, b in row)
                                 for row in pixels], top_down=True)

    png("landscape.png", 2, [b"".join(bytes(color) for color in row) for row in pixels])
    png("landscape_alpha.png", 6, [b"".join(bytes((*color, opacity(x, y)))
                                            for x, color in enumerate(row))
                                   for y, row in enumerate(pixels)])
    picture.quantize(200).save(HERE / "landscape.gif", interlace=0)
    picture.quantize(12).save(HERE / "landscape_interlaced.gif", interlace=1)
    picture.save(HERE / "landscape.jpg", quality=92)
    picture.save(HERE / "landscape_progressive.jpg", quality=92, progressive=True)
    picture.convert("L").save(HERE / "landscape_gray.jpg", quality=92)
    picture.convert("CMYK").save(HERE / "landscape_cmyk.jpg", quality=95)
    logo(208).save(HERE / "logo.png", optimize=True)


if __name__ == "__main__":
    main()
