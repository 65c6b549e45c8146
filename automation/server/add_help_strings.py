#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Gives each enumeration value of a type library its own name as help string, in place.

usage: add_help_strings.py LIBRARY.tlb

The IDL compiler drops help strings of enumeration values. This adds them to the file that it wrote;
all numbers are little-endian and 32 bits wide:

    file      = header [help-file] type-at* entry{15} segment* members*
    header    = 84 bytes: "MSFT", flags at 20 (0x100: help-file is there), count of types at 32
    entry     = offset length 0xFFFFFFFF 15             of a segment in the file
    segment 0 = types of 100 bytes: kind in the low 4 bits (0 is an enumeration), place of the
                members in the file at 4, count of functions (low) and variables (high) at 24
    segment 7 = names: 8 bytes, length in the low 8 bits of a number, text, padding
    segment 8 = strings: length in 16 bits, text, padded with "W" to 4 bytes and to 8 in all
    members   = size record* id* name* record-at*       size of all records; functions come first
    record    = number-and-size type flags kind value [help-context [help ...]]
                                                        size in the low 16 bits, help in segment 8

Offsets in segments stay as they are; those in the file are written anew.
"""
import pathlib
import struct
import sys

HEADER_SIZE = 84
HELP_FILE_FLAG = 0x100
SEGMENTS = 15
TYPES, NAMES, STRINGS = 0, 7, 8
TYPE_SIZE = 100
ENUMERATION = 0
PLAIN_RECORD = 20           # a variable's record up to its value
RECORD_WITH_HELP = 28


def number(data, at):
    return struct.unpack_from("<I", data, at)[0]


def put(data, at, value):
    struct.pack_into("<I", data, at, value)


class TypeLibrary:
    def __init__(self, data):
        if data[:4] != b"MSFT":
            raise ValueError("this is not a type library of the MSFT format")
        front = HEADER_SIZE + (4 if number(data, 20) & HELP_FILE_FLAG else 0)
        self.directory = front + 4 * number(data, 32)
        self.front = bytearray(data[:self.directory + 16 * SEGMENTS])
        entries = [struct.unpack_from("<II", data, self.directory + 16 * i)
                   for i in range(SEGMENTS)]
        self.segments = [bytearray(data[at:at + length] if length else b"")
                         for at, length in entries]
        self.order = sorted((i for i in range(SEGMENTS) if entries[i][1]),
                            key=lambda i: entries[i][0])
        end = len(self.front)
        for i in self.order:
            if entries[i][0] != end:
                raise ValueError(f"segment {i} does not begin at the end of the one before")
            end += entries[i][1]
        self.members = [bytearray(self.read_members(data, at)) for at in self.types()]
        if end + sum(map(len, self.members)) != len(data):
            raise ValueError("there is something in the file that this program does not know")

    def types(self):
        return range(0, len(self.segments[TYPES]), TYPE_SIZE)

    def counts(self, type_at):
        counts = number(self.segments[TYPES], type_at + 24)
        return counts & 0xFFFF, counts >> 16

    def read_members(self, data, type_at):
        count = sum(self.counts(type_at))
        if count == 0:
            return b""
        at = number(self.segments[TYPES], type_at + 4)
        return data[at:at + 4 + number(data, at) + 12 * count]

    def name(self, at):
        names = self.segments[NAMES]
        return bytes(names[at + 12:at + 12 + (number(names, at + 8) & 0xFF)])

    def add_string(self, text):
        """Returns the place of the text among the strings."""
        at = len(self.segments[STRINGS])
        padded = struct.pack("<H", len(text)) + text
        padded += b"W" * (max(8, (len(padded) + 3) // 4 * 4) - len(padded))
        self.segments[STRINGS] += padded
        if STRINGS not in self.order:
            raise ValueError("the library has no strings at all")
        return at

    def add_help(self, old, count):
        """The members of an enumeration, each with its name as help string."""
        size = number(old, 0)
        ids, names, _ = (old[4 + size + 4 * count * i:][:4 * count] for i in range(3))
        records, places = bytearray(), bytearray()
        at = 4
        for i in range(count):
            info = number(old, at)
            if info & 0xFFFF != PLAIN_RECORD:
                raise ValueError(f"the record of a value has {info & 0xFFFF} bytes instead of 20")
            places += struct.pack("<I", len(records))
            records += struct.pack("<I", info & 0xFFFF0000 | RECORD_WITH_HELP)
            records += old[at + 4:at + PLAIN_RECORD]
            records += struct.pack("<II", 0, self.add_string(self.name(number(names, 4 * i))))
            at += PLAIN_RECORD
        return bytearray(struct.pack("<I", len(records)) + records + ids + names + places)

    def add_help_strings(self):
        for i, type_at in enumerate(self.types()):
            functions, variables = self.counts(type_at)
            kind = number(self.segments[TYPES], type_at) & 0xF
            if kind == ENUMERATION and functions == 0 and variables != 0:
                self.members[i] = self.add_help(self.members[i], variables)

    def write(self):
        end = len(self.front)
        for i in self.order:
            put(self.front, self.directory + 16 * i, end)
            put(self.front, self.directory + 16 * i + 4, len(self.segments[i]))
            end += len(self.segments[i])
        for type_at, members in zip(self.types(), self.members):
            if members:
                put(self.segments[TYPES], type_at + 4, end)
            end += len(members)
        return b"".join([self.front, *(self.segments[i] for i in self.order), *self.members])


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__.split("\n\n")[1])
    path = pathlib.Path(sys.argv[1])
    try:
        library = TypeLibrary(path.read_bytes())
        library.add_help_strings()
    except ValueError as error:
        sys.exit(f"{path}: {error}")
    path.write_bytes(library.write())


if __name__ == "__main__":
    main()
