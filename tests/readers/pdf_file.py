# SPDX-License-Identifier: MIT
"""A strict reader of the PDF files that this library writes: whatever is not exactly right raises.

    file = PdfFile(path)
    file.objects[5]                      # Name, Reference, bytes, number, NULL, list, dict or Stream
    for operator, operands in operations(stream.data): ...

It shares nothing with the library: the rules are those of the PDF Reference.
"""
import re
import zlib

TOKEN = re.compile(rb"[\0\t\n\f\r ]*(?:(?P<number>[+-]?(?:\d+\.?\d*|\.\d+))(?![^\0\t\n\f\r ()<>\[\]{}/%])"
                   rb"|(?P<name>/[^\0\t\n\f\r ()<>\[\]{}/%]*)|(?P<mark><<|>>|\[|\]|\(|<)"
                   rb"|(?P<word>[^\0\t\n\f\r ()<>\[\]{}/%]+))")
STRING_PART = re.compile(rb"[^()\\\r\n]+|\\[()\\rn]|\n|[()\r]")
ESCAPES = {b"\\(": b"(", b"\\)": b")", b"\\\\": b"\\", b"\\r": b"\r", b"\\n": b"\n"}


NULL = object()


class Name(str):
    pass


class Word(str):
    pass


class Reference(int):
    pass


class Stream:
    def __init__(self, dictionary, raw):
        self.dictionary, self.raw = dictionary, raw

    @property
    def data(self):
        if self.dictionary.get("Filter") != "FlateDecode":
            return self.raw
        inflater = zlib.decompressobj()
        data = inflater.decompress(self.raw)
        assert inflater.eof and not inflater.unused_data
        return data


class Scanner:
    def __init__(self, data, at=0):
        self.data, self.at = data, at

    def string(self):
        parts = []
        while True:
            part = STRING_PART.match(self.data, self.at)
            assert part and part[0] not in (b"(", b"\r"), self.data[self.at:self.at + 20]
            self.at = part.end()
            if part[0] == b")":
                return b"".join(parts)
            parts.append(ESCAPES.get(part[0], part[0]))

    def value(self):
        """The next value; Word for a keyword or operator; None at the end."""
        token = TOKEN.match(self.data, self.at)
        if not token:
            assert not self.data[self.at:].strip(b"\n"), self.data[self.at:self.at + 30]
            return None
        self.at = token.end()
        text = token[token.lastgroup]
        if token.lastgroup == "number":
            return float(text) if b"." in text else int(text)
        if token.lastgroup == "name":
            return Name(text[1:].decode("ascii"))
        if token.lastgroup == "word":
            if text == b"null":
                return NULL
            return Word(text.decode("ascii"))
        if text == b"(":
            return self.string()
        if text == b"<":
            end = self.data.index(b">", self.at)
            digits, self.at = self.data[self.at:end], end + 1
            return bytes.fromhex(digits.decode("ascii"))
        if text == b"[":
            return self.until("]")
        if text == b"<<":
            values = self.until(">>")
            keys = values[::2]
            assert len(values) % 2 == 0 and all(isinstance(key, Name) for key in keys), values
            assert len(set(keys)) == len(keys), keys
            return dict(zip(keys, values[1::2]))
        return Word(text.decode("ascii"))

    def until(self, end):
        values = []
        while (value := self.value()) != Word(end) or not isinstance(value, Word):
            assert value is not None
            if isinstance(value, Word) and value == "R":
                assert values.pop() == 0
                value = Reference(values.pop())
            assert not isinstance(value, Word), value
            values.append(value)
        return values


def operations(data):
    """The operators of a content stream with their operands."""
    scanner, operands = Scanner(data), []
    while (value := scanner.value()) is not None:
        if isinstance(value, Word):
            yield str(value), operands
            operands = []
        else:
            operands.append(value)
    assert not operands, operands


class PdfFile:
    def __init__(self, path):
        self.data = data = path.read_bytes()
        head = re.match(rb"%PDF-1\.([234])\n%[\x80-\xff]{4}\n", data)
        self.version = int(head[1])
        tail = re.search(rb"\nstartxref\n(\d+)\n%%EOF\n\Z", data)
        xref = int(tail[1])
        table = re.compile(rb"xref\n0 (\d+)\n0000000000 65535 f \n").match(data, xref)
        count = int(table[1]) - 1
        entries = data[table.end():table.end() + 20 * count]
        assert re.fullmatch(rb"(\d{10} 00000 n \n)*", entries), "entries of 20 bytes"
        offsets = [int(entries[at:at + 10]) for at in range(0, len(entries), 20)]
        end = table.end() + 20 * count
        assert data.startswith(b"trailer\n<<\n", end)
        self.trailer = Scanner(data, end + len(b"trailer")).value()
        assert self.trailer["Size"] == count + 1
        self.objects = {}
        reached = head.end()
        for offset, number in sorted(zip(offsets, range(1, count + 1))):
            assert offset == reached, f"{number} 0 obj at {offset}, expected at {reached}"
            reached = self.read_object(number, offset)
        assert reached == xref, "the cross-reference table follows the last object"
        self.references = set()
        for value in [self.trailer, *self.objects.values()]:
            self.collect(value)
        assert self.references == set(self.objects), "every object is used, and none else"

    def read_object(self, number, offset):
        head = b"%d 0 obj\n" % number
        assert self.data.startswith(head, offset), self.data[offset:offset + 20]
        scanner = Scanner(self.data, offset + len(head))
        value = scanner.value()
        at = scanner.at
        if self.data.startswith(b"\nstream\n", at):
            start = at + len(b"\nstream\n")
            at = start + value["Length"]
            value = Stream(value, self.data[start:at])
            assert self.data.startswith(b"\nendstream", at), "the length is exact"
            at += len(b"\nendstream")
        assert self.data.startswith(b"\nendobj\n", at), self.data[at:at + 20]
        self.objects[number] = value
        return at + len(b"\nendobj\n")

    def collect(self, value):
        if isinstance(value, Reference):
            self.references.add(int(value))
        elif isinstance(value, Stream):
            self.collect(value.dictionary)
        elif isinstance(value, (list, dict)):
            for inner in value.values() if isinstance(value, dict) else value:
                self.collect(inner)

    def get(self, value):
        return self.objects[value] if isinstance(value, Reference) else value
