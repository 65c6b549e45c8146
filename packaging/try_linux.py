#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Installs the packages in a bare Debian, and runs README's examples against them.

usage: try_linux.py BARE DIST      BARE keeps the bare Debian; DIST has the packages
"""
import pathlib
import re
import sys
import unittest

from bare_debian import BareDebian

ROOT = pathlib.Path(__file__).resolve().parent.parent
BARE, DIST = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
PICTURES = ROOT / "examples" / "pictures"

FONT = ROOT / "tests" / "fonts" / "boxes.ttf"

# Pictures of all kinds and a font: what is missing in a package would be missed here.
DRAW_PICTURES = """
import glob, vellumark
with vellumark.PDF(Conforming=True) as doc:
    doc.Create("pictures.pdf")
    doc.NewPage(50, 50, 50, 50, 255, 255, 255)
    for name in sorted(glob.glob("pictures/landscape*.*")):
        doc.SetPosition(0, 0)
        assert doc.DrawPicture(name), doc.LastRefusal
    font = doc.LoadFont("boxes.ttf")
    assert font, doc.LastRefusal
    doc.SetFont(font, 12, 0, 0)
    assert doc.WriteText("AB"), doc.LastRefusal
print(vellumark.__version__)
"""


def blocks(file, language):
    return re.findall(rf"```{language}\n(.*?)```", (ROOT / file).read_text(encoding="utf-8"), re.S)


def version():
    return re.search(r"vellumark-(.*)\.tar\.xz", next(DIST.glob("vellumark-*.tar.xz")).name)[1]


class Fresh(unittest.TestCase):
    """A Debian for each class."""

    @classmethod
    def setUpClass(cls):
        cls.debian = cls.enterClassContext(BareDebian(BARE))
        cls.debian.copy(PICTURES, FONT)

    def check_pdf(self, name):
        content = (self.debian.root / "root" / name).read_bytes()
        self.assertTrue(content.startswith(b"%PDF-"), content[:20])
        self.assertTrue(content.endswith(b"%%EOF\n"))


class DebianPackages(Fresh):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.debian.copy(*DIST.glob("*.deb"), ROOT / "README.md", ROOT / "docs")
        cls.debian.install("./libvellumark1_*.deb", "./vellumark_*.deb", "./python3-vellumark_*.deb")

    def test_the_host_typesets_and_has_a_manual_page_and_completions(self):
        told = self.debian.run("vellumark --version")
        self.assertRegex(told, rf"\Avellumark {re.escape(version())} \(commit [0-9a-f]{{12}}\)\n\Z")
        self.debian.run("vellumark README.md docs/*.md -o readme.pdf --toc --cover")
        self.check_pdf("readme.pdf")
        self.debian.run("""
            zcat /usr/share/man/man1/vellumark.1.gz | grep -q 'picture.*memory'
            source /usr/share/bash-completion/completions/vellumark""")

    def test_the_module_runs_the_examples_of_the_documentation(self):
        for block in (*blocks("README.md", "python"), blocks("docs/python.md", "python")[0]):
            self.debian.run(f"python3 -W error - <<'END'\n{block}END")
            self.check_pdf("first_page.pdf")
        self.assertEqual(self.debian.run(f"python3 -W error - <<'END'\n{DRAW_PICTURES}END",
                                         VELLUMARK_NOTICE="off"), version() + "\n")

    def test_the_library_is_found_by_pkg_config_and_cmake(self):
        debian = self.debian
        debian.install("g++", "pkg-config", "./libvellumark-dev_*.deb")
        (debian.root / "root" / "host.cpp").write_text(blocks("README.md", "cpp")[0], encoding="utf-8")
        for options in ("", "--static"):
            debian.run(f"""
                g++ -std=c++20 host.cpp $(pkg-config --cflags --libs {options} vellumark) -o host
                rm -f first_page.pdf
                ./host""")
            self.check_pdf("first_page.pdf")
        debian.install("cmake", "make")
        (debian.root / "root" / "CMakeLists.txt").write_text(blocks("docs/cpp.md", "cmake")[0],
                                                            encoding="utf-8")
        debian.run("cmake -S . -B built && cmake --build built && ./built/host")

    def test_they_go_without_a_trace(self):
        debian = self.debian
        debian.run("apt-get purge -y -qq vellumark python3-vellumark libvellumark1")
        left = debian.run("find / -xdev -name '*vellumark*' -not -path '/root/*'")
        self.assertEqual(left, "")


class Wheel(Fresh):
    def test_it_installs_into_an_empty_environment(self):
        debian = self.debian
        debian.install("python3-venv")
        debian.copy(*DIST.glob("*.whl"))
        debian.run("python3 -m venv here && here/bin/pip install --no-index *.whl")
        for block in blocks("README.md", "python"):
            debian.run(f"here/bin/python -W error - <<'END'\n{block}END")
            self.check_pdf("first_page.pdf")
        self.assertEqual(debian.run(f"here/bin/python -W error - <<'END'\n{DRAW_PICTURES}END",
                                    VELLUMARK_NOTICE="off"), version() + "\n")
        self.assertEqual(debian.run("dpkg-query -W -f '${Package}\\n' | grep -c '^lib.*\\(gif\\|jpeg\\|png\\)' || true"),
                         "0\n")


class SourceArchive(Fresh):
    def test_it_builds_by_the_lines_of_the_readme(self):
        debian = self.debian
        debian.copy(*DIST.glob("vellumark-*.tar.xz"))
        debian.install("xz-utils")
        lines = blocks("docs/cpp.md", "sh")[0].replace("sudo apt-get install", "apt-get install -y -qq")
        debian.run("tar -xf vellumark-*.tar.xz\ncd vellumark-*/\n" + lines)
        self.assertIn("libvellumark.a", debian.run("find /usr/local -name 'libvellumark*'"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
