#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The automation server under Wine, driven by the hosts that people use.

usage: wine_test.py BUILD      BUILD holds windows-x64, windows-x86 and release

Leaves the documents and a picture of the message box in BUILD/windows.
"""
import pathlib
import re
import shutil
import subprocess
import sys
import unittest

from dll_file import DllFile, SYSTEM_LIBRARIES
from wine_session import WineSession, windows_path

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
BUILD = pathlib.Path(sys.argv[1]).resolve()
OUT = BUILD / "windows"
PROGRAMS = {bits: BUILD / f"windows-{name}" for bits, name in ((64, "x64"), (32, "x86"))}
DLLS = {bits: folder / "automation" / "server" / "vellumark.dll"
        for bits, folder in PROGRAMS.items()}
SYSTEM = {64: r"C:\windows\system32", 32: r"C:\windows\syswow64"}
SERVER = windows_path(DLLS[64])
LIBRARY_ID = "{26FA760F-475E-47DB-A28F-E675FC3BE490}"
CLASS_IDS = {"PDF": "{11BB1275-8FE8-4DC3-93D5-63DFF6FC283E}",
             "PS": "{8AE21F1F-CCEC-472B-B55D-12218DEFB762}",
             "Enumerations": "{31AB29F9-5DB0-4228-9694-15A4C31E4C6F}"}

wine = WineSession(OUT)


def setUpModule():
    OUT.mkdir(parents=True, exist_ok=True)
    for old in OUT.iterdir():
        shutil.rmtree(old) if old.is_dir() else old.unlink()
    unittest.addModuleCleanup(wine.stop)
    wine.start()
    for picture in (ROOT / "examples" / "pictures").glob("landscape*"):
        shutil.copy(picture, OUT)


def classes(root):
    """What is registered below HKLM or HKCU: the values of each key."""
    wine.run("reg", "add", root + r"\Software\Classes", "/f")    # a new user has none
    wine.run("reg", "export", root + r"\Software\Classes", "classes.reg", "/y")
    text = (OUT / "classes.reg").read_text(encoding="utf-16")
    (OUT / "classes.reg").unlink()
    keys = re.findall(r"^\[[^\]\\]*\\Software\\Classes\\?(.*)\]\n((?:.+\n)*)", text,
                      re.MULTILINE | re.IGNORECASE)
    return {key.casefold(): values.replace("\\\\", "\\") for key, values in keys
            if not key.startswith("Wow6432Node")            # Wine's own copies
            and key not in ("CLSID", "Interface", "TypeLib", "Typelib")}


def skip_without_wine_of(bits):
    if bits == 32 and not (wine.prefix / "drive_c" / "windows" / "syswow64" / "ntdll.dll").exists():
        raise unittest.SkipTest("no 32-bit Wine here; the file was checked")


def run_script(script, boxes, cwd=OUT, bits=64):
    """Returns what a script printed; its last line shows that nothing stopped it."""
    text = wine.run(SYSTEM[bits] + r"\cscript.exe", "//nologo", windows_path(script), cwd=cwd,
                    boxes=boxes)
    assert text.endswith("end of script\n"), f"{script} stopped before its end:\n{text}"
    return text


class Files(unittest.TestCase):
    def test_both_are_what_windows_and_installers_expect(self):
        for bits, path in DLLS.items():
            with self.subTest(bits=bits):
                dll = DllFile(path)
                self.assertEqual(dll.bits(), bits)
                self.assertEqual(dll.exports(), {"DllCanUnloadNow", "DllGetClassObject",
                                                 "DllInstall", "DllRegisterServer",
                                                 "DllUnregisterServer"})
                self.assertLessEqual(dll.imports(), SYSTEM_LIBRARIES)
                self.assertEqual(dll.resources(), {"TYPELIB 1", "VERSIONINFO 1",
                                                   *(f"RCDATA {i}" for i in range(101, 111))})
                for text in ("Vellumark 1.0 Type Library", "SetPictureDimensions"):
                    self.assertTrue(dll.holds(text), text)


class Registration(unittest.TestCase):
    def register(self, root, *options):
        """Registers and unregisters; returns the keys between, which go without a trace."""
        before = classes(root)
        wine.run("regsvr32", "/s", *options, SERVER)
        between = classes(root)
        wine.run("regsvr32", "/s", "/u", *options, SERVER)
        self.assertEqual(classes(root), before)
        return {key: values for key, values in between.items()
                if before.get(key) != values}

    def test_for_the_machine_and_for_a_user_writes_the_same_keys_and_removes_them(self):
        keys = self.register("HKLM")
        for name, class_id in CLASS_IDS.items():
            class_key = rf"clsid\{class_id.casefold()}"
            server = keys[rf"{class_key}\inprocserver32"]
            self.assertIn(f'@="{SERVER}"', server)
            self.assertIn('"ThreadingModel"="Apartment"', server)
            self.assertIn(LIBRARY_ID, keys[rf"{class_key}\typelib"])
            for program_id in (f"vellumark.{name}", f"vellumark.{name}.1"):
                self.assertIn(class_id, keys[rf"{program_id}\clsid".casefold()])
        self.assertIn(SERVER, keys[rf"typelib\{LIBRARY_ID}\1.0\0\win64".casefold()])
        self.assertEqual(self.register("HKCU", "/n", "/i:user"), keys)


class Registered(unittest.TestCase):
    """What follows needs a registered server."""
    bits = 64

    @classmethod
    def setUpClass(cls):
        skip_without_wine_of(cls.bits)
        cls.register()
        cls.addClassCleanup(cls.register, "/u")

    @classmethod
    def register(cls, *options):
        wine.run(SYSTEM[cls.bits] + r"\regsvr32.exe", "/s", *options, windows_path(DLLS[cls.bits]))


class Errors(Registered):
    def expect_all_to_hold(self, script, boxes):
        text = run_script(HERE / script, boxes, bits=self.bits)
        self.assertNotIn("FAILED", text)
        self.assertIn("holds: ", text)

    def test_vbscript_learns_what_went_wrong(self):
        self.expect_all_to_hold("errors.vbs", boxes=2)

    def test_jscript_learns_what_went_wrong(self):
        self.expect_all_to_hold("errors.js", boxes=1)


class ErrorsIn32Bits(Errors):
    bits = 32


class Documents(Registered):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        subprocess.run([BUILD / "release" / "tests" / "reference_document", OUT], check=True,
                       capture_output=True)
        (OUT / "letters.txt").write_bytes("\ufeffĀ 中 😀 €".encode("utf-16-le"))
        for script in ("document.vbs", "document.js"):
            run_script(HERE / script, boxes=2, bits=cls.bits)

    def expect_reference(self, ending, host):
        # The identifier of a conforming PDF is made from its contents, with the date in it.
        written, expected = (re.sub(rb"(CreationDate|/ID).*", rb"\1", (OUT / name).read_bytes())
                             for name in (host + ending, "reference" + ending))
        for number, pair in enumerate(zip(written.split(b"\n"), expected.split(b"\n")), 1):
            self.assertEqual(*pair, f"line {number} of {host}{ending}")
        self.assertEqual(len(written), len(expected))

    def test_are_those_of_the_library_elsewhere_byte_for_byte(self):
        for ending in (".pdf", ".ps", "_conforming.pdf", "_plain.pdf", "_conforming.ps"):
            for host in ("vbscript", "jscript"):
                with self.subTest(host=host, ending=ending):
                    self.expect_reference(ending, host)

    def pages(self, name):
        """The pages as pixels, as a reader shows them."""
        self.assertTrue((OUT / name).exists(), name)
        subprocess.run(["gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=ppmraw", "-r72",
                        f"-sOutputFile={name}-%d.ppm", name], cwd=OUT, check=True)
        pictures = sorted(OUT.glob(f"{name}-*.ppm"))
        pages = [picture.read_bytes() for picture in pictures]
        for picture in pictures:
            picture.unlink()
        return pages

    def test_show_the_same_pictures(self):
        for kind in ("pdf", "ps"):
            expected, = self.pages(f"reference_picture.{kind}")
            for host in ("vbscript", "jscript"):
                with self.subTest(host=host, kind=kind):
                    page, = self.pages(f"{host}_picture.{kind}")
                    self.assertEqual(len(page), len(expected))
                    differ = [abs(one - other) for one, other in zip(page, expected)]
                    # Two decoders of JPG disagree a little at edges of colors, and nothing else.
                    self.assertLessEqual(max(differ), 40)
                    self.assertLess(sum(amount > 3 for amount in differ), 400)

    def test_open_in_readers(self):
        for host in ("vbscript", "jscript"):
            self.assertEqual(len(self.pages(f"{host}.ps")), 3)
            for name in (f"{host}.pdf", f"{host}_picture.pdf"):
                done = subprocess.run(["qpdf", "--check", OUT / name], check=False,
                                      capture_output=True)
                self.assertIn(done.returncode, (0, 3), done.stderr)     # 3: warnings only
            info = subprocess.run(["pdfinfo", OUT / f"{host}.pdf"], check=False,
                                  capture_output=True, text=True).stdout
            self.assertRegex(info, r"Pages: +3\n")
            self.assertRegex(info, r"Title: +Pages of a script\n")

    def test_conforming_ones_are_taken_without_a_word(self):
        for name in ("reference_conforming.pdf", "reference_plain.pdf", "vbscript_conforming.pdf",
                     "jscript_plain.pdf"):
            done = subprocess.run(["qpdf", "--check", OUT / name], check=False, capture_output=True)
            self.assertEqual((done.returncode, done.stderr), (0, b""), name)
        for command in (["pdftotext", "jscript_conforming.pdf", "-"],
                        ["gs", "-q", "-dSAFER", "-dNOPAUSE", "-dBATCH", "-sDEVICE=txtwrite",
                         "-sOutputFile=-", "jscript_conforming.ps"]):
            done = subprocess.run(command, cwd=OUT, check=True, capture_output=True)
            self.assertEqual(done.stderr, b"")
            for words in ("Straße (€, ?)", "Ā ? ? € a) (b \\ c", "4 of 4"):
                self.assertIn(words, done.stdout.decode())
        info = subprocess.run(["pdfinfo", OUT / "vbscript_plain.pdf"], check=True,
                              capture_output=True).stdout.decode()
        self.assertRegex(info, "Creator: +Ā 中 😀 €\n")
        self.assertRegex(info, "Subject: +中😀\n")

    def test_the_message_box_was_seen(self):
        self.assertGreater((OUT / "message_box.png").stat().st_size, 1000)


class DocumentsIn32Bits(Documents):
    bits = 32


class Clients(unittest.TestCase):
    """Programs of this folder that check what scripts cannot; they need no registration."""

    def expect_all_to_hold(self, bits):
        for name, arguments in (("platform_client", [ROOT / "examples" / "pictures"]),
                                ("automation_client", [DLLS[bits], DLLS[64], DLLS[32]])):
            program = PROGRAMS[bits] / "tests" / "windows" / f"{name}.exe"
            text = wine.run(program, *map(windows_path, arguments), boxes=None)
            self.assertTrue(text.endswith("all facts hold\n"), text)

    def test_find_all_facts_to_hold(self):
        self.expect_all_to_hold(64)

    def test_find_all_facts_to_hold_in_32_bits(self):
        skip_without_wine_of(32)
        self.expect_all_to_hold(32)


class Manual(Registered):
    def test_the_examples_run(self):
        manual = "".join((ROOT / page).read_text(encoding="utf-8")
                         for page in ("docs/windows.md", "README.md"))
        examples = re.findall(r"```(vb|js)\n(.*?)```", manual, re.DOTALL)
        self.assertGreater(len(examples), 2)
        for number, (language, code) in enumerate(examples, 1):
            folder = OUT / f"manual_{number}"
            folder.mkdir()
            shutil.copy(OUT / "landscape.jpg", folder)
            echo = 'WScript.Echo("end of script")'
            script = folder / f"example.{language.replace('vb', 'vbs')}"
            script.write_text(f"{code}\n{echo}\n", encoding="cp1252")
            run_script(script, len(re.findall(r'"Vellumark\.(?:PDF|PS)"', code)), cwd=folder)
            for file in re.findall(r'Create[ (]"(.*?)"', code):
                self.assertRegex((folder / file).read_bytes()[:5], rb"%PDF-|%!PS-", file)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
