# SPDX-License-Identifier: MIT
"""Fixtures of the tests of the Python module. tests/CMakeLists.txt sets the environment."""
import os
import pathlib

import pytest
import vellumark

SOURCE = pathlib.Path(__file__).resolve().parents[2]
PICTURE = SOURCE / "examples" / "pictures" / "landscape.gif"


@pytest.fixture(autouse=True)
def _in_an_empty_folder(tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)
    monkeypatch.setenv("SOURCE_DATE_EPOCH", "1700000000")


@pytest.fixture(params=[vellumark.PDF, vellumark.PS], ids=["PDF", "PS"])
def document_class(request):
    return request.param


@pytest.fixture
def doc(document_class):
    """A document with a page; it is flushed at the end."""
    with document_class() as made:
        assert made.Create("doc")
        made.NewPage(50, 50, 50, 50, 255, 255, 255)
        yield made


def from_cmake(name):
    """A path that CMake passes in the environment; without it the test is skipped."""
    if name not in os.environ:
        pytest.skip(f"{name} is not set")
    return pathlib.Path(os.environ[name])
