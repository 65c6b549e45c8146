# SPDX-License-Identifier: MIT
"""What the tests of the Python module share; tests/CMakeLists.txt sets the environment."""
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
    """A document with a page, which is flushed in the end."""
    with document_class() as made:
        assert made.Create("doc")
        made.NewPage(50, 50, 50, 50, 255, 255, 255)
        yield made


def from_cmake(name):
    """A path that the build knows; a test without it is skipped."""
    if name not in os.environ:
        pytest.skip(f"{name} is not set")
    return pathlib.Path(os.environ[name])
