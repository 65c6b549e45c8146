# SPDX-License-Identifier: MIT
"""The stub agrees with the module."""
import pathlib
import subprocess

import vellumark
from conftest import SOURCE

PACKAGE = pathlib.Path(vellumark.__file__).parent
# These are private: one is filled from the table at run time, the other is made by pybind11.
PRIVATE = "vellumark\\._documents\\..*\nvellumark\\._vellumark\\..*\n"


def run(*command):
    done = subprocess.run(list(map(str, command)), capture_output=True, text=True, check=False)
    assert done.returncode == 0, done.stdout + done.stderr
    return done.stdout


def mypy(*arguments):
    return run("/usr/bin/mypy", "--strict", "--cache-dir", "cache", *arguments)


def test_the_stub_is_strictly_typed_and_marked():
    assert (PACKAGE / "py.typed").exists()
    mypy(PACKAGE / "__init__.pyi", PACKAGE / "_vellumark.pyi")
    mypy("-p", "vellumark._documents")


def test_the_stub_is_what_the_module_has():
    pathlib.Path("private").write_text(PRIVATE)
    run("/usr/bin/stubtest", "vellumark", "--allowlist", "private", "--ignore-unused-allowlist")


def test_a_program_is_checked_against_the_stub():
    for example in ("invoice.py", "report.py"):
        mypy(SOURCE / "examples" / example)
    pathlib.Path("wrong.py").write_text("""import vellumark
doc = vellumark.PDF()
doc.Version = "1.3"
doc.WriteText(7)
doc.SetFont(vellumark.FontNumberConstants.Times, 12, 1)
vellumark.PS().WriteText("x", hyperlink="")
red, green = doc.GetColor()
def page(doc: vellumark.PDF | vellumark.PS) -> None: ...
def answer(language: type[vellumark.PDF] | type[vellumark.PS]) -> bytes:
    return vellumark.render(language, page)
vellumark.render(vellumark.PS, lambda doc: doc.WriteText("x", hyperlink=""))
vellumark.PDF(Conforming=True, Title="x", PaperSize=vellumark.PaperSizeConstants.A5)
vellumark.PS(Compressed=False)
vellumark.PDF(Titel="x")
""")
    done = subprocess.run(["/usr/bin/mypy", "--cache-dir", "cache", "wrong.py"],
                          capture_output=True, text=True, check=False)
    found = [int(line.split(":")[1]) for line in done.stdout.splitlines() if "error:" in line]
    assert found == [3, 4, 5, 6, 7, 11, 13, 14], done.stdout
