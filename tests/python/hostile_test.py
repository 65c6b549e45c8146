# SPDX-License-Identifier: MIT
"""Every member, called with what nobody should pass: a Python exception or a refusal, never a crash."""
import itertools
import random

import pytest
import vellumark


class Raises:
    def __index__(self):
        raise ZeroDivisionError

    __float__ = __bool__ = __str__ = __fspath__ = __buffer__ = __len__ = __index__


class Lies:
    def __index__(self):
        return "seven"

    __float__ = __bool__ = __fspath__ = __index__


RELEASED = memoryview(b"GIF89a")
RELEASED.release()
HOSTILE = [
    None, True, -1, 0, 1, 255, 256, 32767, 32768, -2**31 - 1, 2**64, 10**400, 0.5, -1e308, float("nan"),
    float("inf"), 1j, "", "x", "a\0b", "\ud800", "\U0010FFFF" * 50, "(" * 5000, b"", b"\xff\xd8\xff",
    bytearray(b"BM" + bytes(60)), memoryview(b"GIF89a")[::2], RELEASED, [], {}, object, Raises(), Lies(),
    vellumark.PDF, lambda: None, ...]
EXPECTED = (TypeError, ValueError, OverflowError, RuntimeError, ZeroDivisionError, BufferError, OSError)


def members(document_class):
    for name in dir(document_class):
        if not name.startswith("_"):
            yield name, isinstance(getattr(document_class, name), property)


@pytest.mark.parametrize("conforming", [False, True])
def test_members_take_or_refuse_whatever_is_passed(document_class, conforming):
    choose = random.Random(20260101)
    for name, is_property in members(document_class):
        calls = [()] + [(each,) for each in HOSTILE]
        calls += [tuple(choose.choices(HOSTILE, k=k)) for k in range(2, 9) for _ in range(12)]
        document = document_class(Conforming=conforming)
        document.Create("doc")
        document.NewPage(50, 50, 50, 50, 255, 255, 255)
        for arguments in itertools.islice(calls, 36 if is_property else None):
            try:
                if is_property:
                    setattr(document, name, *arguments)
                else:
                    getattr(document, name)(*arguments)
            except EXPECTED:
                pass
            except AttributeError:
                assert is_property    # which cannot be set
        document.Flush()
        assert isinstance(document.LastRefusal, str)


def a_document(document):
    document.Create("doc")
    document.NewPage(50, 50, 50, 50, 255, 255, 255)
    document.Title = "Bücherei"
    document.WriteText("text", True, dy=2)
    document.WriteMultiText("some more words " * 20, 2, 0, True)
    document.SetFont(2, 12, 1, 1)
    found = document.TextWidth("Żółw"), document.LostCharacters, document.GetColor()
    document.Flush()
    return found


def test_each_allocation_of_the_interpreter_may_fail(document_class):
    hook = pytest.importorskip("_testcapi", reason="an interpreter without its own tests")
    expected = a_document(document_class(Conforming=True))
    failed = whole = 0
    number = 0
    while whole < 20:
        number += 1
        document = document_class(Conforming=True)
        error = found = None
        hook.set_nomemory(number, number + 1)
        try:
            found = a_document(document)
        except (MemoryError, RuntimeError) as raised:
            error = raised
        hook.remove_mem_hooks()
        if error is None:
            whole += 1
            assert found == expected
        else:
            failed += 1
            assert isinstance(error, MemoryError) or "allocate" in str(error)
    assert failed > 3
