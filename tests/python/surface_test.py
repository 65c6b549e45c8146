# SPDX-License-Identifier: MIT
"""The module has the members of docs/reference.md. Another test compares that with the table."""
import enum
import inspect
import re

import pytest
import vellumark
from conftest import SOURCE

REFERENCE = (SOURCE / "docs" / "reference.md").read_text()
CLASSES = [vellumark.PDF, vellumark.PS]


def entries(section):
    text = REFERENCE.split(f"\n## {section}\n")[1].split("\n## ")[0]
    return dict(re.findall(r"### (\w+)\n\n(.*?)(?=\n### |\Z)", text, re.S))


def signatures(section, class_name):
    """The line of each member in the reference, if the class has it."""
    for name, text in entries(section).items():
        for line in re.search(r"```\n(.*?)```", text, re.S)[1].splitlines():
            only, found = re.match(r"(?:(PDF|PS): )?(.*)", line).groups()
            if only in (None, class_name):
                yield name, found


def public(thing):
    return {name for name in dir(thing) if not name.startswith("_")}


@pytest.mark.parametrize("document_class", CLASSES)
def test_no_member_is_missing_and_none_is_extra(document_class):
    told = {name for section in ("Properties", "Methods")
            for name, _ in signatures(section, document_class.__name__)}
    assert len(told) > 35
    assert public(document_class) == told | {"greatest_picture"}
    assert public(vellumark.Enumerations()) == set()


@pytest.mark.parametrize("document_class", CLASSES)
def test_methods_take_the_parameters_of_the_reference(document_class):
    for name, line in signatures("Methods", document_class.__name__):
        expected = []
        for parameter in filter(None, re.search(r"\((.*)\)", line)[1].split(", ")):
            found = re.fullmatch(r"\[?(?P<out>out )?(?P<name>\w+) As (?P<type>\w+(?: or \w+)?)"
                                 r"(?: = (?P<default>[^]]*)\])?", parameter)
            if not found["out"]:
                expected.append((found["name"], found["default"]))
        method = getattr(document_class, name)
        parameters = list(inspect.signature(method).parameters.values())[1:]
        assert [(p.name, shown(p.default)) for p in parameters] == expected, name
        assert method.__qualname__ == f"{document_class.__name__}.{name}"


def shown(default):
    """A default as the reference shows it."""
    if default is inspect.Parameter.empty:
        return None
    if isinstance(default, enum.Enum):
        return default.name
    return f'"{default}"' if isinstance(default, str) else str(default)


@pytest.mark.parametrize("document_class", CLASSES)
def test_properties_are_attributes_and_read_only_where_they_are(document_class):
    for name, line in signatures("Properties", document_class.__name__):
        found = inspect.getattr_static(document_class, name)
        assert isinstance(found, property)
        assert (found.fset is None) == ("read-only" in line), name


def test_docstrings_are_those_of_the_reference():
    for section in ("Properties", "Methods"):
        for name, text in entries(section).items():
            words = text.split("```")[2].split()
            for document_class in CLASSES:
                if hasattr(document_class, name):
                    assert getattr(document_class, name).__doc__.split() == words, name


def test_enumerations_have_the_members_of_the_reference():
    told = {name: {member: int(value) for member, value in
                   re.findall(r"^\| (\w+) \| (\d+) \|$", text, re.M)}
            for name, text in entries("Enumerations").items()}
    assert len(told) == 8
    found = {name: {member.name: member.value for member in getattr(vellumark, name)}
             for name in told}
    assert found == told
    assert all(issubclass(getattr(vellumark, name), enum.IntEnum) for name in told)
    assert public(vellumark) == {*told, "PDF", "PS", "Enumerations", "RunTimeError", "render"}


def test_the_version_is_that_of_the_library():
    text = (SOURCE / "include" / "vellumark" / "version.h").read_text()
    numbers = [re.search(rf"VELLUMARK_VERSION_{part} (\d+)", text)[1]
               for part in ("MAJOR", "MINOR", "PATCH")]
    assert vellumark.__version__ == ".".join(numbers)
