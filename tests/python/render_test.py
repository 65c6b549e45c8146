# SPDX-License-Identifier: MIT
"""render(): documents as bytes."""
import gc
import pathlib
import warnings

import pytest
import vellumark
from conftest import PICTURE


def page(doc):
    doc.Title = "A page"
    assert doc.Create("page")
    doc.NewPage(50, 50, 50, 50, 255, 255, 255)
    doc.DrawPicture(PICTURE)
    doc.WriteText("Text")


def test_the_bytes_are_those_of_a_file(document_class, capfd):
    rendered = vellumark.render(document_class, page)
    assert not pathlib.Path("page").exists()
    assert capfd.readouterr().err == ""
    with document_class() as doc:
        page(doc)
    assert capfd.readouterr().err == "Vellumark: Initialize()\n"
    assert pathlib.Path("page").read_bytes() == rendered


def test_the_notice_can_be_switched_off(document_class, capfd, monkeypatch):
    for wish, written in (("off", ""), ("OFF", ""), ("on", "Vellumark: Initialize()\n"),
                          ("", "Vellumark: Initialize()\n")):
        monkeypatch.setenv("VELLUMARK_NOTICE", wish)
        document_class()
        assert capfd.readouterr().err == written, wish


def test_the_function_may_flush_or_create_again(document_class):
    def flushes(doc):
        with doc:
            page(doc)

    def creates_twice(doc):
        doc.Create("first")
        doc.Flush()
        page(doc)

    expected = vellumark.render(document_class, page)
    assert vellumark.render(document_class, flushes) == expected
    assert vellumark.render(document_class, creates_twice) == expected


def test_what_goes_wrong_is_raised(document_class):
    def refused(doc):
        doc.Orientation = 9
        doc.Create("x")

    def raises(doc):
        doc.Create("x")
        raise KeyError("from the function")

    with warnings.catch_warnings():
        warnings.simplefilter("error")
        with pytest.raises(RuntimeError, match="left no created document"):
            vellumark.render(document_class, lambda doc: None)
        with pytest.raises(RuntimeError, match="orientation"):
            vellumark.render(document_class, refused)
        with pytest.raises(KeyError, match="from the function"):
            vellumark.render(document_class, raises)
        for other in (vellumark.Enumerations, str, None, document_class()):
            with pytest.raises(TypeError, match="takes PDF or PS"):
                vellumark.render(other, page)
        gc.collect()
