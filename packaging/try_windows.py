#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Unpacks the archive for Windows in a fresh Wine, registers the server, and runs what is in it.

usage: try_windows.py WORK DIST      DIST has the archive; what was written is left in WORK/tried

What it writes is compared with what the host and the Python module of build/ write here.
"""
import pathlib
import re
import shutil
import subprocess
import sys
import unittest
import zipfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path[:0] = [str(ROOT / "tests" / "windows"), str(ROOT / "build" / "python")]
from dll_file import DllFile, SYSTEM_LIBRARIES  # noqa: E402
import vellumark  # noqa: E402
from wine_session import WineSession, loader, windows_path  # noqa: E402

WORK, DIST = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
OUT = WORK / "tried"
FONTS = pathlib.Path("/usr/share/fonts")
# A font, its face, and a text that it shapes, in paragraphs of several lines: kerning and ligatures,
# Cyrillic, right to left with numbers, syllables, words without blanks, CFF outlines of a collection.
PARAGRAPHS = [
    ("truetype/noto/NotoSerif-Regular.ttf", 0, "AVATAR, efficient fjords: Привет, мир! "),
    ("truetype/noto/NotoNaskhArabic-Regular.ttf", 0, "يولد جميع الناس أحرارا 123 متساوين في الكرامة. "),
    ("truetype/noto/NotoSerifDevanagari-Regular.ttf", 0, "सभी मनुष्यों को गौरव और अधिकारों के मामले में। "),
    ("truetype/noto/NotoSerifThai-Regular.ttf", 0, "มนุษย์ทั้งหลายเกิดมามีอิสระและเสมอภาคกันในเกียรติศักดิ์และสิทธิ"),
    ("opentype/noto/NotoSansCJK-Regular.ttc", 2, "人人生而自由，在尊严和权利上一律平等。"),
]
SCRIPT = """Dim doc, texts, paragraph, number
texts = Split(CreateObject("Scripting.FileSystemObject").OpenTextFile("texts.txt", 1, False, -1).ReadAll, "|")
Set doc = CreateObject("Vellumark.KIND")
doc.Conforming = True
doc.Create "script.KIND"
doc.NewPage 50, 50, 50, 50, 255, 255, 255
For paragraph = 0 To UBound(texts) Step 3
  number = doc.LoadFont(texts(paragraph), texts(paragraph + 1))
  doc.AddFallbackFont number
  doc.SetFont number, 12, 1, 0
  doc.WriteMultiText texts(paragraph + 2), 2, , True
Next
doc.Flush
WScript.Echo doc.LastRefusal & "end of script"
"""
wine = WineSession(OUT)


def setUpModule():
    global folder
    shutil.rmtree(OUT, ignore_errors=True)
    OUT.mkdir(parents=True)
    archive, = DIST.glob("vellumark-*-windows.zip")
    zipfile.ZipFile(archive).extractall(OUT)
    (OUT / archive.stem).rename(OUT / "with blanks")
    folder = OUT / "with blanks"
    unittest.addModuleCleanup(wine.stop)
    wine.start()


def classes():
    """The keys below Classes of the machine, with their values, as reg.exe exports them."""
    wine.run("reg", "export", r"HKLM\Software\Classes", "classes.reg", "/y")
    text = (OUT / "classes.reg").read_text(encoding="utf-16")
    keys = re.findall(r"^\[HKEY_LOCAL_MACHINE\\Software\\Classes\\(.*)\]\n((?:.+\n)*)", text,
                      re.MULTILINE | re.IGNORECASE)
    return {f"{key}\n{values}" for key, values in keys if not key.startswith("Wow6432Node")}


def write_paragraphs(kind):
    """The document that SCRIPT writes."""
    doc = getattr(vellumark, kind)()
    doc.Conforming = True
    doc.Create(str(OUT / f"module.{kind}"))
    doc.NewPage(50, 50, 50, 50, 255, 255, 255)
    for font, face, text in PARAGRAPHS:
        number = doc.LoadFont(str(FONTS / font), face)
        doc.AddFallbackFont(number)
        doc.SetFont(number, 12, 1, 0)
        doc.WriteMultiText(text * 8, 2, justified=True)
    doc.Flush()


def without_dates(name):
    return re.sub(rb"(CreationDate|/ID).*", rb"\1", (OUT / name).read_bytes())


class Archive(unittest.TestCase):
    def test_programs_need_windows_only_and_do_not_name_where_they_were_built(self):
        for path in (folder / "64-bit/vellumark.dll", folder / "32-bit/vellumark.dll",
                     folder / "vellumark.exe"):
            with self.subTest(path=path.name):
                program = DllFile(path)
                self.assertLessEqual(program.imports(), SYSTEM_LIBRARIES)
                for place in (ROOT, WORK):
                    self.assertFalse(program.holds(str(place)), place)

    def test_registering_writes_the_listed_keys_and_unregistering_removes_them(self):
        before = classes()
        told = wine.run("cmd", "/c", "register.cmd", cwd=folder)
        self.assertIn("Registered for 64-bit programs.", told)
        written = "\n".join(sorted(classes() - before, key=str.casefold))
        place = windows_path(folder / "64-bit").replace("\\", "\\\\")
        written = written.replace(place, "FOLDER\\\\64-bit")
        (OUT / "registry_keys.txt").write_text(written)
        text = (folder / "registry_keys.txt").read_text(encoding="utf-8")
        self.assertEqual(text.partition("\n\n")[2].strip().casefold(), written.strip().casefold())
        wine.run("cmd", "/c", "unregister.cmd", cwd=folder)
        self.assertEqual(classes(), before)

    def test_the_example_runs_with_the_registered_server(self):
        wine.run("cmd", "/c", "register.cmd", cwd=folder)
        self.addCleanup(wine.run, "cmd", "/c", "unregister.cmd", cwd=folder)
        wine.run("cscript", "//nologo", windows_path(folder / "examples/first.vbs"),
                 cwd=folder / "examples", boxes=1)
        shown = subprocess.run(["pdftotext", folder / "examples/first.pdf", "-"], check=True,
                               capture_output=True, text=True).stdout
        self.assertIn("Hello from Vellumark", shown)

    def test_loaded_fonts_are_shaped_broken_and_embedded_as_elsewhere(self):
        wine.run("cmd", "/c", "register.cmd", cwd=folder)
        self.addCleanup(wine.run, "cmd", "/c", "unregister.cmd", cwd=folder)
        texts = "|".join(f"{windows_path(FONTS / font)}|{face}|{text * 8}"
                         for font, face, text in PARAGRAPHS)
        (OUT / "texts.txt").write_bytes(("\ufeff" + texts).encode("utf-16-le"))
        for system in ("system32", "syswow64"):
            script_host = wine.prefix / "drive_c/windows" / system / "cscript.exe"
            if not script_host.exists():
                continue  # no 32-bit Wine here
            for kind in ("PDF", "PS"):
                with self.subTest(system=system, kind=kind):
                    (OUT / "fonts.vbs").write_text(SCRIPT.replace("KIND", kind), encoding="ascii")
                    told = wine.run(rf"C:\windows\{system}\cscript.exe", "//nologo", "fonts.vbs",
                                    boxes=1)
                    self.assertEqual(told, "end of script\n")
                    write_paragraphs(kind)
                    self.assertEqual(without_dates(f"script.{kind}"), without_dates(f"module.{kind}"))

    def test_the_host_writes_the_bytes_that_it_writes_elsewhere(self):
        wine.environment["SOURCE_DATE_EPOCH"] = "1000000000"
        wine.environment["FONTCONFIG_FILE"] = str(ROOT / "tests/tools/no_fonts.conf")
        name = "bücher €.pdf"
        texts = [ROOT / "README.md", *sorted((ROOT / "docs").glob("*.md"))]
        host = windows_path(folder / "vellumark.exe")
        wine.run(host, *map(windows_path, texts), "-o", name, "--toc", "--cover")
        subprocess.run([ROOT / "build/release/tools/vellumark", *texts, "-o", "here.pdf", "--toc",
                        "--cover"], cwd=OUT, check=True, env=wine.environment, capture_output=True)
        # The host for Windows does not look for fonts of the system.
        self.assertEqual((OUT / name).read_bytes(), (OUT / "here.pdf").read_bytes())
        wine.run(host, windows_path(ROOT / "examples/report.txt"), "-o", name)  # over an old one
        self.assertTrue((OUT / name).read_bytes().startswith(b"%PDF-"))
        self.assertEqual(list(OUT.glob(".vellumark-*")), [])
        code, told = wine.execute(loader(), host, "missing.md")
        self.assertEqual(code, 2)
        self.assertIn("cannot read missing.md: No such file or directory", told)

    def test_the_host_takes_fonts_from_files(self):
        wine.environment["SOURCE_DATE_EPOCH"] = "1000000000"
        font = OUT / "schöne Schrift.ttf"
        shutil.copy(FONTS / "truetype/noto/NotoSerif-Regular.ttf", font)
        fallback = str(FONTS / "opentype/noto/NotoSansCJK-Regular.ttc") + "#2"
        text = OUT / "text.md"
        text.write_text("# Заглавие\n\n" + PARAGRAPHS[0][2] * 20 + "“人人生而自由”\n", encoding="utf-8")
        options = ["-o", "fonts.pdf", "--font-file"]
        host = windows_path(folder / "vellumark.exe")
        wine.run(host, "text.md", *options, font.name, "--fallback-font", windows_path(fallback))
        written = (OUT / "fonts.pdf").read_bytes()
        subprocess.run([ROOT / "build/release/tools/vellumark", text, *options, font,
                        "--fallback-font", fallback], cwd=OUT, check=True, env=wine.environment)
        self.assertEqual(written, (OUT / "fonts.pdf").read_bytes())
        told = wine.run(host, "text.md", *options, font.name)
        self.assertIn("5 characters that the fonts lack", told)

    def test_the_manual_is_whole(self):
        done = subprocess.run(["qpdf", "--check", folder / "manual.pdf"], capture_output=True,
                              text=True, check=False)
        self.assertEqual((done.returncode, done.stderr), (0, ""))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
