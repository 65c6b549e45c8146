# SPDX-License-Identifier: MIT
"""How Python arguments and results are converted."""
import array
import decimal
import pathlib

import pytest
import vellumark
from conftest import PICTURE
from vellumark import FontNumberConstants, PaperSizeConstants, PDF, PS


class Indexed:
    def __index__(self):
        return 7


@pytest.mark.parametrize("member, arguments, error, words", [
    ("DrawLine", (0, 0, 1.0, 0), TypeError, "argument 'x2' must be int, not float"),
    ("DrawLine", (0, "1", 1, 0), TypeError, "argument 'y1' must be int, not str"),
    ("DrawLine", (0, 0, 1, None), TypeError, "argument 'y2' must be int, not NoneType"),
    ("DrawLine", (0, 0, 32768, 0), OverflowError, "argument 'x2' must be in -32768 to 32767"),
    ("DrawLine", (-32769, 0, 0, 0), OverflowError, "argument 'x1'"),
    ("DrawLine", (0, 0, 0, 10 ** 5000), OverflowError, "argument 'y2'"),
    ("SetColor", (0, 256, 0), OverflowError, "argument 'green' must be in 0 to 255"),
    ("SetColor", (0, 0, -1), OverflowError, "argument 'blue'"),
    ("SetFillStyle", ("True",), TypeError, "argument 'fillstyle' must be bool, not str"),
    ("SetFillStyle", (None,), TypeError, "argument 'fillstyle'"),
    ("SetFillStyle", (1.0,), TypeError, "argument 'fillstyle'"),
    ("DrawArc", (50, 50, 9, "0", 90), TypeError, "argument 'th1' must be float, not str"),
    ("DrawArc", (50, 50, 9, 0, 3.5e38), OverflowError, "argument 'th2' is too large"),
    ("DrawArc", (50, 50, 9, 0, 10 ** 400), OverflowError, "argument 'th2' is too large"),
    ("WriteText", (b"bytes",), TypeError, "argument 'text' must be str, not bytes"),
    ("SetFont", (1 << 31, 8, 1, 0), OverflowError, "argument 'fontnumber'"),
    ("SetFont", (1, 8, 1, "0"), TypeError, "argument 'fonteffect' must be int, not str"),
    ("Create", (3,), TypeError, "argument 'file' must be str, bytes or os.PathLike, not int"),
    ("DrawPicture", (3,), TypeError,
     "argument 'file' must be str, os.PathLike or a bytes-like object, not int"),
    ("Create", (bytearray(b"x"),), TypeError, "argument 'file' must be str, bytes or os.PathLike"),
    ("Create", ("\ud800",), UnicodeEncodeError, "surrogates not allowed"),
    ("DrawLine", (0, 0, 1), TypeError, "missing 1 required positional argument: 'y2'"),
    ("Flush", (1,), TypeError, "takes 1 positional argument but 2 were given"),
])
def test_a_wrong_argument_names_member_and_parameter(doc, member, arguments, error, words):
    with pytest.raises(error) as raised:
        getattr(doc, member)(*arguments)
    assert words in str(raised.value)
    if error in (TypeError, OverflowError):
        assert f"{type(doc).__name__}.{member}()" in str(raised.value)


def test_keyword_arguments_are_bound_as_python_does(doc):
    assert doc.DrawLine(y2=4, x1=1, x2=3, y1=2)
    doc.SetPosition(y=30)
    assert doc.GetPosition() == (0, 30)
    for keywords, words in [({"x1": 1}, "multiple values for argument 'x1'"),
                            ({"x9": 1}, "unexpected keyword argument 'x9'"),
                            ({"X2": 1}, "unexpected keyword argument 'X2'")]:
        with pytest.raises(TypeError, match=words):
            doc.DrawLine(0, **keywords)


def test_numbers_of_other_classes_are_taken(doc):
    doc.SetThickness(Indexed())
    assert doc.GetThickness() == 7
    doc.SetThickness(True)
    assert doc.GetThickness() == 1
    assert doc.DrawArc(100, 100, 10, decimal.Decimal("12.5"), Indexed())
    for given, found in [(True, True), (-1, True), (2, True), (0, False), (Indexed(), True)]:
        doc.SetFillStyle(given)
        assert doc.GetFillStyle() is found
    doc.DrawArc(100, 100, 10, float("inf"), float("nan"))


def test_in_out_arguments_come_back_as_a_tuple_in_declared_order(doc):
    doc.SetColor(1, 2, 3)
    assert doc.GetColor() == (1, 2, 3)
    assert doc.GetPageMargins() == (50, 50, 50, 50)
    doc.SetFont(3, 12, 4, 2)
    font = doc.GetFont()
    assert font == (3, 12, 4, 2)
    assert font[0] is FontNumberConstants.Times


def test_enumerations_take_any_number_and_give_members(document_class):
    made = document_class()
    assert made.PaperSize is PaperSizeConstants.A4
    for value in (5, PaperSizeConstants.Legal):
        made.PaperSize = value
        assert made.PaperSize is PaperSizeConstants.Legal
    for value in (-(1 << 31), (1 << 31) - 1):
        made.PaperSize = value
        assert made.PaperSize == value and type(made.PaperSize) is int
    assert made.Create("never") is False
    assert "paper size" in made.LastRefusal
    assert made.GetFont()[0] == 0


def test_texts_go_through_unchanged_but_for_surrogates(document_class):
    made = document_class()
    for given, found in [("Ünïcode 中\0文 😀", "Ünïcode 中\0文 😀"), ("a\ud800b\udfff", "a?b?"), ("", "")]:
        made.Title = given
        assert made.Title == found
    assert type(made.Rotated) is bool
    with pytest.raises(TypeError, match=r"Title must be str, not int"):
        made.Title = 3
    with pytest.raises(AttributeError, match="Version"):
        made.Version = "1.3"
    with pytest.raises(AttributeError, match="Titel"):
        made.Titel = "a name without a member"


def test_the_constructor_takes_properties_by_keyword(document_class):
    made = document_class(Title="Bücherei", Conforming=True, PaperSize=5)
    assert (made.Title, made.Conforming, made.PaperSize) == ("Bücherei", True, 5)
    assert document_class().Conforming is False
    for keywords, words in [({"Titel": ""}, "has no property 'Titel'"),
                            ({"WriteText": ""}, "has no property 'WriteText'"),
                            ({"_document": 1}, "has no property '_document'"),
                            ({"Title": "", "Version": ""}, "cannot set 'Version', which is read-only"),
                            ({"LostCharacters": ""}, "read-only"),
                            ({"Title": 3}, "Title must be str, not int")]:
        with pytest.raises(TypeError, match=words):
            document_class(**keywords)
    with pytest.raises(TypeError, match="PS.. has no property 'Compressed'"):
        PS(Compressed=True)
    with pytest.raises(TypeError):
        document_class("title")


@pytest.mark.filterwarnings("error")
def test_a_class_of_ones_own_takes_them_too():
    class Letter(PDF):
        def __init__(self, name, **properties):
            super().__init__(Conforming=True, **properties)
            self.Subject = name
    made = Letter("Grüße", Compressed=False)
    assert (made.Subject, made.Conforming, made.Compressed) == ("Grüße", True, False)
    with pytest.raises(TypeError, match="Letter.. has no property 'Papersize'"):
        Letter("", Papersize=1)


def test_conforming_documents_show_every_latin_letter_and_tell_what_they_lose(document_class):
    def write(doc):
        doc.Conforming = True
        doc.Create("x")
        doc.NewPage(50, 50, 50, 50, 255, 255, 255)
        assert doc.WriteText("Bücherei, été, Łódź") and doc.LostCharacters == ""
        assert doc.WriteText("日本, 日") and doc.LostCharacters == "日本"
    vellumark.render(document_class, write)


def test_compression_makes_conforming_documents_smaller():
    sizes = {}
    for name, keywords in {"small": {}, "plain": {"Compressed": False}}.items():
        with PDF(Conforming=True, **keywords) as doc:
            doc.Create(name)
            doc.NewPage(50, 50, 50, 50, 255, 255, 255)
            for i in range(60):
                doc.WriteText(f"line {i} of the page", True)
        sizes[name] = pathlib.Path(name).stat().st_size
    assert b"(line 7 of the page)" in pathlib.Path("plain").read_bytes()
    assert sizes["small"] < sizes["plain"] * 0.7


def test_a_surrogate_in_a_text_is_written_as_one_question_mark():
    def write(doc):
        doc.Create("x")
        doc.NewPage(0, 0, 0, 0, 255, 255, 255)
        assert doc.WriteText("<\ud83d|\ude00>")
    assert b"<?|?>" in vellumark.render(PDF, write)


@pytest.mark.parametrize("name", ["plain", "mit Umläut 中.pdf", b"\xff\xfe.pdf", "\udcff.ps",
                                  pathlib.Path("a path")])
def test_any_file_name_works_where_open_takes_it(document_class, name):
    with document_class() as made:
        assert made.Create(name), made.LastRefusal
    with open(name, "rb") as file:
        assert file.read(2) in (b"%P", b"%!")


def test_pictures_are_found_by_path(doc):
    class Path:
        def __fspath__(self):
            return bytes(PICTURE)
    for name in (PICTURE, str(PICTURE), Path()):
        doc.SetPosition(0, 0)
        assert doc.DrawPicture(name, encoding=vellumark.EncodingConstants.Flate), doc.LastRefusal
    assert doc.DrawPicture("nowhere\udcff.gif") is False
    assert "nowhere" in doc.LastRefusal
    assert doc.Create("a\0b") is False


def test_pictures_are_taken_from_bytes(doc):
    content = PICTURE.read_bytes()
    flat = vellumark.EncodingConstants.Flate
    spaced = bytearray(2 * len(content))
    spaced[::2] = content
    for picture in (content, bytearray(content), memoryview(content), array.array("B", content),
                    memoryview(spaced)[::2]):
        doc.SetPosition(0, 0)
        assert doc.DrawPicture(picture, encoding=flat), doc.LastRefusal
    for picture in (b"", b"logo.gif"):
        assert doc.DrawPicture(picture) is False
        assert doc.LastRefusal == (f"the picture cannot be loaded: {len(picture)} bytes in memory: "
                                   "not a BMP, GIF, JPG or PNG file")


def test_bytes_make_the_document_of_their_file(document_class):
    def with_picture(picture):
        def draw(doc):
            doc.Create("x")
            doc.NewPage(0, 0, 0, 0, 255, 255, 255)
            assert doc.DrawPicture(picture)
        return vellumark.render(document_class, draw)
    assert with_picture(PICTURE.read_bytes()) == with_picture(PICTURE)


def test_an_exception_of_a_path_is_passed_on(doc):
    class Bad:
        def __fspath__(self):
            raise LookupError("no path today")
    with pytest.raises(LookupError, match="no path today"):
        doc.DrawPicture(Bad())


def test_run_time_errors_have_their_number(document_class):
    with pytest.raises(vellumark.RunTimeError, match="subscript out of range") as raised:
        document_class().GetColor()
    assert raised.value.number == 9
    assert isinstance(raised.value, RuntimeError)


def test_members_of_the_other_class_are_not_called():
    with pytest.raises(TypeError, match="other class"):
        PS.WriteText(PDF(), "text")
    with pytest.raises(AttributeError):
        PDF.WriteText("no document", "text")
