# SPDX-License-Identifier: MIT
"""The public classes, made from the member table that _vellumark provides."""
from __future__ import annotations

import enum
import operator
import types
import warnings
from collections.abc import Callable
from typing import Any, NoReturn, TypeVar

from . import _vellumark

_Self = TypeVar("_Self", bound="_Document")
_AnyDocument = TypeVar("_AnyDocument", "PDF", "PS")

VERSION = _vellumark.version
RunTimeError = _vellumark.RunTimeError
ENUMERATIONS: dict[str, type[enum.IntEnum]] = {
    each.__name__: each for each in _vellumark.enumerations}


class _Document:
    """What a document has in Python besides the members of the table.

    There is no __dict__, so a misspelled property is an AttributeError.
    """

    __slots__ = ("_document", "__weakref__")
    _class_name = ""  # "PDF" or "PS", also in a class that is derived from one of them

    def __init__(self, **properties: Any) -> None:
        """Sets these properties of the new document, in their order."""
        for name in properties:
            found = getattr(type(self), name, None)
            if not isinstance(found, property):
                raise TypeError(f"{type(self).__name__}() has no property {name!r}")
            if found.fset is None:
                raise TypeError(f"{type(self).__name__}() cannot set {name!r}, which is read-only")
        self._document = _vellumark.new_document(self._class_name, in_memory=False)
        for name, value in properties.items():
            setattr(self, name, value)

    @property
    def greatest_picture(self) -> int:
        return self._document.greatest_picture

    @greatest_picture.setter
    def greatest_picture(self, value: int) -> None:
        number = operator.index(value)
        if not 0 <= number < 2**31:
            raise OverflowError("greatest_picture must be in range(0, 2**31)")
        self._document.greatest_picture = number

    def __enter__(self: _Self) -> _Self:
        return self

    def __exit__(self, error_class: type[BaseException] | None, error: BaseException | None,
                 trace: types.TracebackType | None) -> None:
        """Flushes a created document, unless the block raised."""
        if error_class is not None:
            self._document.give_up()
        elif self._document.unflushed:
            _flush(self)

    def __del__(self, warn: Callable[..., None] = warnings.warn) -> None:
        document = getattr(self, "_document", None)
        if document is not None and document.unflushed:
            warn(f"unflushed document {self!r}", ResourceWarning, source=self)

    def __reduce__(self) -> NoReturn:
        raise TypeError(f"cannot copy or pickle {type(self).__name__!r} object")


class PDF(_Document):
    __slots__ = ()
    _class_name = "PDF"


class PS(_Document):
    __slots__ = ()
    _class_name = "PS"


class Enumerations:
    __slots__ = ()


def render(document_class: type[_AnyDocument],
           function: Callable[[_AnyDocument], object]) -> bytes:
    if document_class not in (PDF, PS):
        raise TypeError(f"render() takes PDF or PS, not {document_class!r}")
    document = document_class.__new__(document_class)
    native = document._document = _vellumark.new_document(document_class._class_name, in_memory=True)
    try:
        function(document)
        if native.create_refusal:
            raise RuntimeError(native.create_refusal)
        if native.unflushed:
            _flush(document)
        content: bytes | None = native.take_file()
    finally:
        native.give_up()
    if content is None:
        raise RuntimeError("the function that render() called left no created document")
    return content


def _flush(document: Any) -> None:
    """Flushes, and raises if that fails, because no caller can read LastRefusal."""
    document.Flush()
    if document.LastRefusal:
        raise RuntimeError(document.LastRefusal)


def _method(owner: type, member: _vellumark.Member) -> types.FunctionType:
    """A function with the signature of the member.

    So the interpreter itself binds the arguments and reports wrong calls, and help() and
    inspect.signature() show the parameters.
    """
    names = "".join(f", {parameter[0]}" for parameter in member.parameters)
    source = f"def {member.name}(self{names}): return _call(self._document{names})"
    namespace: dict[str, Any] = {"__name__": "vellumark", "_call": member.call}
    exec(compile(source, f"<vellumark.{owner.__name__}>", "exec"), namespace)
    function: types.FunctionType = namespace[member.name]
    function.__defaults__ = tuple(parameter[1] for parameter in member.parameters if parameter[1:])
    function.__qualname__ = f"{owner.__name__}.{member.name}"
    function.__doc__ = member.doc
    return function


def _property(member: _vellumark.Member) -> property:
    def get(self: _Document) -> Any:
        return member.call(self._document)

    def let(self: _Document, value: Any) -> None:
        member.let(self._document, value)

    return property(get, let if member.writable else None, doc=member.doc)


def _add_members(owner: type) -> None:
    for member in _vellumark.members(owner.__name__):
        if member.is_property:
            attribute: Any = _property(member)
            attribute.__set_name__(owner, member.name)  # so that its errors name it
            setattr(owner, member.name, attribute)
        else:
            setattr(owner, member.name, _method(owner, member))


_add_members(PDF)
_add_members(PS)
for _public in (PDF, PS, Enumerations):
    _public.__doc__ = _vellumark.class_help[_public.__name__]
    _public.__module__ = "vellumark"
_Document.greatest_picture.__doc__ = _vellumark.greatest_picture_help
render.__doc__ = _vellumark.render_help
render.__module__ = "vellumark"
