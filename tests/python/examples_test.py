# SPDX-License-Identifier: MIT
"""The code in the documentation, the invoice and the report, and what C++ makes of them too."""
import io
import json
import pathlib
import re
import subprocess
import sys

import pytest
import vellumark
from conftest import SOURCE, from_cmake

EXAMPLES = SOURCE / "examples"
INVOICE = EXAMPLES / "invoice.py"


def run(*command):
    done = subprocess.run(list(map(str, command)), capture_output=True, text=True, check=False)
    assert done.returncode == 0, done.stderr
    return done.stdout


def blocks(file):
    return re.findall(r"```python\n(.*?)```", (SOURCE / file).read_text(), re.S)


def test_code_in_the_documentation_runs_and_prints_what_it_says():
    program = "".join(blocks("docs/python.md"))
    printed = run(sys.executable, "-W", "error", "-c", program).splitlines()
    told = re.findall(r"print\(.*# (.*)", program)
    assert len(told) == len(printed) == 3
    for line, expected in zip(printed, told):
        assert line.startswith(expected.removesuffix("...")), line
    for block in blocks("README.md") + blocks("docs/first_document.md"):
        run(sys.executable, "-W", "error", "-c", block)


def test_the_web_answer_is_a_document_or_says_why():
    namespace = {}
    exec(blocks("docs/web_answers.md")[0], namespace)

    def answer(logo):
        said = []
        environ = {"wsgi.input": io.BytesIO(logo), "CONTENT_LENGTH": str(len(logo))}
        body = namespace["application"](environ, lambda *arguments: said.append(arguments))
        (status, _), = said
        return status, b"".join(body)

    picture = SOURCE / "examples" / "pictures" / "landscape_alpha.png"
    status, body = answer(picture.read_bytes())
    assert status == "200 OK" and body.startswith(b"%PDF-1.4")
    status, body = answer(b"nothing")
    assert status == "400 Bad Request" and b"7 bytes in memory" in body


def test_python_and_cpp_make_the_same_bytes():
    run(from_cmake("VELLUMARK_FIRST_PAGE"))
    made = pathlib.Path("first_page.pdf")
    from_cpp = made.read_bytes()
    made.unlink()
    run(sys.executable, "-c", blocks("docs/python.md")[0])
    assert made.read_bytes() == from_cpp


@pytest.mark.parametrize("name", ["invoice", "report"])
def test_the_examples_are_the_same_in_python_and_cpp(name):
    for folder in ("cpp", "python"):
        pathlib.Path(folder).mkdir()
    run(from_cmake(f"VELLUMARK_{name.upper()}"), "cpp")
    run(sys.executable, "-W", "error", EXAMPLES / f"{name}.py", "python")
    for kind in ("pdf", "ps"):
        cpp, python = (pathlib.Path(folder, f"{name}.{kind}") for folder in ("cpp", "python"))
        assert cpp.read_bytes() == python.read_bytes()


def test_the_constants_to_paste_are_those_of_the_enumerations():
    text = (SOURCE / "docs/windows.md").read_text()
    told = {name: int(value) for line in re.findall(r"^Const (.*)", text, re.M)
            for name, value in re.findall(r"(\w+) = (\d+)", line)}
    enumerations = [value for name, value in vars(vellumark).items() if name.endswith("Constants")]
    assert told == {member.name: member.value for group in enumerations for member in group}


def test_each_topic_is_the_same_in_python_and_cpp():
    programs = from_cmake("VELLUMARK_TOPICS")
    topics = sorted((EXAMPLES / "topics").glob("*.py"))
    assert len(topics) >= 15
    for topic in topics:
        made = []
        for command in ([programs / topic.stem], [sys.executable, "-W", "error", topic]):
            answer = subprocess.run(command, capture_output=True, check=True).stdout
            files = list(pathlib.Path().iterdir())
            made.append((answer, [(file.name, file.read_bytes()) for file in files]))
            for file in files:
                file.unlink()
        assert made[0] == made[1] and (made[0][0] or made[0][1]), topic.stem


def test_the_gallery_shows_what_the_programs_draw():
    run(sys.executable, SOURCE / "scripts" / "gallery.py", from_cmake("VELLUMARK_TOPICS"), "--check")


def shown(page):
    return run("pdftotext", "-layout", "-f", page, "-l", page, "report.pdf", "-")


def test_the_contents_of_the_report_lead_to_its_chapters():
    run(sys.executable, "-W", "error", EXAMPLES / "report.py", ".")
    assert run("qpdf", "--check", "report.pdf").count("WARNING") == 0
    assert run("gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=nullpage", "report.ps") == ""
    entries = re.findall(r"^ *(\S.*?) [ .]+ (\d+)$", shown(2), re.M)
    assert len(entries) == 14
    for title, page in entries:
        assert title in shown(page)
    places = re.findall(r'^ *(\d+) .*"heading (\d+)"$', run("pdfinfo", "-dests", "report.pdf"), re.M)
    pages = {int(heading): page for page, heading in places}
    assert [pages[heading] for heading in range(len(entries))] == [page for _, page in entries]
    links = re.findall(rb"/A << /D \(heading (\d+)\)", pathlib.Path("report.pdf").read_bytes())
    assert [int(link) for link in links] == [entry // 2 for entry in range(2 * len(entries))]
    outline = [(entry["title"], str(page["pageposfrom1"]))
               for page in json.loads(run("qpdf", "--json", "--json-key=pages", "report.pdf"))["pages"]
               for entry in page["outlines"]]
    assert outline == [("Contents", "2"), *entries]
    assert shown(6).split()[:3] == ["Lending", "Other", "Libraries"]     # its running head


def test_the_invoice_is_good_in_both_languages():
    run(sys.executable, "-W", "error", INVOICE, ".")
    assert b"/URI (https://example.org/pay/2024-0117)" in pathlib.Path("invoice.pdf").read_bytes()
    text = run("pdftotext", "-layout", "invoice.pdf", "-")
    assert re.search(r"To pay, € +6,532\.63", text)
    for words in ("Bücherei Kirchberg", "Sülzgasse 4", "Atlas “Böhmen und Mähren”, half-linen"):
        assert words in text
    assert run("qpdf", "--check", "invoice.pdf").count("WARNING") == 0
    assert run("gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=nullpage", "invoice.ps") == ""


def write_rows(*rows):
    pathlib.Path("rows.csv").write_text("quantity,description,unit price\n" + "\n".join(rows),
                                        encoding="utf-8-sig")    # as spreadsheets do


def test_a_long_invoice_goes_over_pages_with_a_head_on_each():
    write_rows(*(f"{count},Thing {count} :) \\ ő,1.00" for count in range(1, 81)))
    run(sys.executable, INVOICE, ".", "rows.csv")
    assert run("gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=nullpage", "invoice.ps") == ""
    text = run("pdftotext", "-layout", "invoice.pdf", "-")
    assert text.count("Description") == text.count("\f") == 4
    assert re.findall(r"Page \d+ of \d+", text) == [f"Page {page} of 4" for page in range(1, 5)]
    assert [int(count) for count in re.findall(r"Thing (\d+) :\) \\ ő", text)] == list(range(1, 81))
    assert re.search(r"Net +3,240\.00", text)


def test_an_invoice_that_loses_a_letter_is_refused():
    write_rows("1,Thing 書,1.00")
    done = subprocess.run([sys.executable, INVOICE, ".", "rows.csv"], capture_output=True, text=True,
                          check=False)
    assert done.returncode == 1 and "no letters for 書" in done.stderr


def test_a_row_that_is_wrong_is_named():
    for row, words in [("1.5,Thing,1", "'1.5'"), ("1,Thing,NaN", "not a price: 'NaN'"),
                       ("1,Thing", "not a price: ''")]:
        write_rows("1,Thing,1", row)
        done = subprocess.run([sys.executable, INVOICE, ".", "rows.csv"], capture_output=True,
                              text=True, check=False)
        assert done.returncode == 1
        assert done.stderr.startswith("invoice.py: rows.csv:3: ") and words in done.stderr
