#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Small picture files that ask for much memory or time.

    hungry_pictures_test.py VELLUMARK_EXECUTABLE

Each is drawn, or left out with a reason, within the memory that the host allows by default.
"""
import os
import struct
import subprocess
import unittest
import zlib

from command_line import TOOL, HostTest

MOST_MEMORY = 256 << 20
MOST_SECONDS = 8  # of the processor; about one is usual, and sanitizers are slower
SANITIZED = b"__asan_init" in open(TOOL, "rb").read()


def gif(screen, frame, data=b"\x02\x02\x44\x01\0"):
    return (b"GIF89a" + struct.pack("<HHBBB", *screen, 0x80, 0, 0) + bytes(6) + b","
            + struct.pack("<HHHHB", 0, 0, *frame, 0) + data + b";")


def bmp(width, height, bits, compression, data):
    palette = bytes(4 << bits if bits <= 8 else 0)
    return struct.pack("<2sIIIIiiHHIIiiII", b"BM", 0, 0, 54 + len(palette), 40, width, height, 1, bits,
                       compression, 0, 0, 0, 0, 0) + palette + data


def png(width, height, depth, colors, rows, interlaced=0):
    """With `rows` bytes of 0, compressed."""
    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))
    packer = zlib.compressobj(9)
    data = b"".join(packer.compress(bytes(min(1 << 20, rows - at))) for at in range(0, rows, 1 << 20))
    header = struct.pack(">IIBBBBB", width, height, depth, colors, 0, 0, interlaced)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", data + packer.flush())
            + chunk(b"IEND", b""))


class Jpeg:
    """A JPG of components that are all the same, made of scans that the caller adds."""

    def __init__(self, frame, width, height, components=1, sampling=0x11):
        self.ids = range(1, components + 1)
        self.arithmetic = frame >= 0xC9
        self.bytes = b"\xff\xd8" + self.segment(0xDB, b"\0" + b"\1" * 64)
        self.bytes += self.segment(frame, struct.pack(">BHHB", 8, height, width, components) + b"".join(
            bytes((each, sampling if each == 1 else 0x11, 0)) for each in self.ids))
        if not self.arithmetic:
            # A code of one bit, 0: an unchanged brightness, and with 14 bits more a run of 16,384 or
            # more empty blocks.
            code = b"\1" + bytes(15)
            self.bytes += self.segment(0xC4, b"\0" + code + b"\0" + b"\x10" + code + b"\xe0")

    @staticmethod
    def segment(marker, data):
        return struct.pack(">BBH", 0xFF, marker, len(data) + 2) + data

    def scan(self, ids, first, last, data=b"", times=1, bits=0):
        header = bytes((len(ids),)) + b"".join(bytes((each, 0)) for each in ids)
        self.bytes += (self.segment(0xDA, header + bytes((first, last, bits))) + data) * times
        return self

    def whole(self, data=b""):
        return self.scan(list(self.ids), 0, 63, data).end()

    def end(self):
        return self.bytes + b"\xff\xd9"


def scans(jpeg, times, first=b"", data=b""):
    """Each component's first coefficients, then the others over and over."""
    jpeg.scan(list(jpeg.ids), 0, 0, first)
    for _ in range(times):
        for each in jpeg.ids:
            jpeg.scan([each], 1, 63, data)
    return jpeg.end()


# What, the file, and what the host says of it; nothing if it is drawn.
FILES = [
    ("gif, a gigapixel", gif((32767, 32767), (32767, 32767)), "takes 1,073,709,056 bytes"),
    ("gif, 200 megapixels around a pixel", gif((20000, 10000), (1, 1)),
     "a file of 35 bytes cannot fill the 20,000 x 10,000 pixels"),
    ("gif, 16 megapixels around a pixel", gif((4096, 4096), (1, 1)), ""),
    ("gif, a great frame on a small screen", gif((9, 9), (30000, 8000)), "cut off"),
    ("gif, beyond the sides", gif((65535, 65535), (1, 1)), "32,767 pixels a side"),
    ("bmp, RLE8, a gigapixel", bmp(32767, 32767, 8, 1, b"\0\1"), "takes 1,073,709,056 bytes"),
    ("bmp, RLE8, 200 megapixels", bmp(20000, 10000, 8, 1, b"\0\1"),
     "a file of 1,080 bytes cannot fill the 20,000 x 10,000 pixels"),
    ("bmp, RLE4, 400 megapixels", bmp(20000, 20000, 4, 2, b"\0\1"), "cannot fill"),
    ("bmp, RLE8, 16 megapixels", bmp(4096, 4096, 8, 1, b"\0\1"), ""),
    ("bmp, a bit a pixel", bmp(32767, 32767, 1, 0, b""), "cut off"),
    ("png, a gigapixel", png(32767, 32767, 1, 0, 99), "cut off"),
    ("png, 64 megapixels of a bit", png(8000, 8000, 1, 0, 1001 * 8000), ""),
    ("png, 16 megapixels with alpha, interlaced", png(4096, 4096, 8, 6, 4 * 4096 * 4096 + 8000, 1), ""),
    ("png, 16 bits and alpha", png(32000, 8000, 16, 6, 99), "takes 1,024,000,000 bytes"),
    ("jpg, 400 megapixels", Jpeg(0xC0, 20000, 20000).whole(bytes(900)), "takes 1,200,000,000 bytes"),
    ("jpg, 80 megapixels", Jpeg(0xC0, 8900, 8900).whole(bytes(900)), "cut off"),
    ("jpg, arithmetic, 429 megapixels", Jpeg(0xC9, 20723, 20723).whole(), "takes 1,288,"),
    ("jpg, arithmetic, 80 megapixels", Jpeg(0xC9, 8900, 8900).whole(), "cannot fill"),
    ("jpg, arithmetic, 16 megapixels", Jpeg(0xC9, 4096, 4096).whole(), ""),
    ("jpg, arithmetic, four inks", Jpeg(0xC9, 4096, 4096, 4, 0x22).whole(), ""),
    ("jpg, progressive, arithmetic, coefficients", scans(Jpeg(0xCA, 8000, 5400, 3), 1),
     "takes 388,800,000 bytes"),
    ("jpg, progressive, arithmetic, 33 times", scans(Jpeg(0xCA, 4096, 4096, 3), 33),
     "more than 16 times"),
    ("jpg, progressive, arithmetic, 102 scans", scans(Jpeg(0xCA, 64, 64), 101), "more than 100 scans"),
    ("jpg, progressive, 30 times", scans(Jpeg(0xC2, 4000, 4000), 30, bytes(31250), bytes(30)), ""),
    ("jpg, progressive, 99 times", scans(Jpeg(0xC2, 4000, 4000), 99, bytes(31250), bytes(30)),
     "more than 16 times"),
]


class HungryPictures(HostTest):
    def run_alone(self, name):
        """The host's exit status, standard error, and what it used."""
        arguments = (name, "--markdown", "-o", "out.pdf")
        with open(self.path("said"), "wb") as said:
            child = subprocess.Popen([TOOL, *arguments], cwd=self.here, stderr=said)
            _, status, used = os.wait4(child.pid, 0)
            child.returncode = os.waitstatus_to_exitcode(status)
        with open(self.path("said"), encoding="utf-8") as said:
            return child.returncode, said.read(), used

    def test_none_takes_more_memory_or_time_than_the_host_allows(self):
        self.put("in.md", "![the picture](picture)\n")
        for what, file, reason in FILES:
            with self.subTest(what):
                self.put("picture", file)
                status, said, used = self.run_alone("in.md")
                self.assertEqual(status, 1 if reason else 0, said)
                self.assertIn(reason, said)
                self.assertLess(used.ru_utime + used.ru_stime, MOST_SECONDS)
                if not SANITIZED:
                    self.assertLess(used.ru_maxrss << 10, MOST_MEMORY)

    def test_the_option_sets_the_memory(self):
        self.put("picture", png(2000, 1000, 8, 2, 6001 * 1000))
        self.put("in.md", "![the picture](picture)\n")
        self.assertEqual(self.run_tool("in.md", "--picture-memory", "6").returncode, 0)
        done = self.run_tool("in.md", "--picture-memory", "5")
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"2,000 x 1,000 pixels takes 6,000,000 bytes, but the limit is 5,242,880 bytes", done.stderr)
        for wrong in ("0", "2048", "-1", "all"):
            self.assertIn("--picture-memory", self.refused("in.md", "--picture-memory", wrong))


if __name__ == "__main__":
    unittest.main()
