#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Unpacks the archive for Windows in a fresh Wine, registers the server, and runs what is in it.

usage: try_windows.py WORK DIST      DIST has the archive; what was written is left in WORK/tried
"""
import pathlib
import re
import shutil
import subprocess
import sys
import unittest
import zipfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "windows"))
from wine_session import WineSession, loader, windows_path  # noqa: E402

WORK, DIST = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
OUT = WORK / "tried"
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


class Archive(unittest.TestCase):
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

    def test_the_host_writes_the_bytes_that_it_writes_elsewhere(self):
        wine.environment["SOURCE_DATE_EPOCH"] = "1000000000"
        wine.environment["FONTCONFIG_FILE"] = str(ROOT / "tests/tools/no_fonts.conf")
        name = "bücher €.pdf"
        texts = [ROOT / "README.md", *sorted((ROOT / "docs").glob("*.md"))]
        host = windows_path(folder / "vellumark.exe")
        wine.run(host, *map(windows_path, texts), "-o", name, "--toc", "--cover")
        subprocess.run([ROOT / "build/release/tools/vellumark", *texts, "-o", "here.pdf", "--toc",
                        "--cover"], cwd=OUT, check=True, env=wine.environment, capture_output=True)
        # The host for Windows has the standard fonts only.
        self.assertEqual((OUT / name).read_bytes(), (OUT / "here.pdf").read_bytes())
        wine.run(host, windows_path(ROOT / "examples/report.txt"), "-o", name)  # over an old one
        self.assertTrue((OUT / name).read_bytes().startswith(b"%PDF-"))
        self.assertEqual(list(OUT.glob(".vellumark-*")), [])
        code, told = wine.execute(loader(), host, "missing.md")
        self.assertEqual(code, 2)
        self.assertIn("cannot read missing.md: No such file or directory", told)

    def test_the_manual_is_whole(self):
        done = subprocess.run(["qpdf", "--check", folder / "manual.pdf"], capture_output=True,
                              text=True, check=False)
        self.assertEqual((done.returncode, done.stderr), (0, ""))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
