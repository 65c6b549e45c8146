#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Installs the library as README and docs/cpp.md tell, and builds hosts against it.

usage: install_test.py SOURCE_FOLDER BUILD_FOLDER
"""
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile
import unittest

from exported_symbols import LIST, exported_symbols, packaged_symbols, shortened

SOURCE, BUILD = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
EXAMPLE = SOURCE / "examples" / "first_page.cpp"
FAST = "-DCMAKE_UNITY_BUILD=ON"  # the library is compiled several times


def run(*command, **options):
    done = subprocess.run(list(map(str, command)), capture_output=True, text=True, check=False,
                          **options)
    if done.returncode != 0:
        raise AssertionError(f"{command}\n{done.stdout}{done.stderr}")
    return done.stdout


def blocks(file, language):
    return re.findall(rf"```{language}\n(.*?)```", (SOURCE / file).read_text(), re.S)


class Install(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.folder = pathlib.Path(cls.temporary.name)
        # Not the configured prefix, and moved: the package must work wherever it lies.
        cls.prefix = cls.folder / "prefix"
        run("cmake", "--install", BUILD, "--prefix", cls.folder / "first")
        (cls.folder / "first").rename(cls.prefix)

    @classmethod
    def tearDownClass(cls):
        cls.temporary.cleanup()

    def check_page(self, program):
        folder = program.parent
        run(program, cwd=folder)
        self.assertIn("Hello from Vellumark", run("pdftotext", folder / "first_page.pdf", "-"))

    def test_a_cmake_project_finds_the_package(self):
        build = self.folder / "cmake"
        run("cmake", "-G", "Ninja", "-S", SOURCE / "tests/install/stranger", "-B", build,
            f"-DCMAKE_PREFIX_PATH={self.prefix}", f"-DEXAMPLE={EXAMPLE}")
        run("cmake", "--build", build)
        self.check_page(build / "stranger")
        run(build / "same_names")

    def test_a_cmake_project_takes_the_tree_in(self):
        """Without the picture libraries, which are hidden from it."""
        build = self.folder / "tree"
        run("cmake", "-G", "Ninja", "-S", SOURCE / "tests/install/stranger", "-B", build,
            f"-DTREE={SOURCE}", f"-DEXAMPLE={EXAMPLE}", "-DCMAKE_BUILD_TYPE=Debug",
            "-DVELLUMARK_PICTURE_DECODERS=OFF", "-DCMAKE_DISABLE_FIND_PACKAGE_GIF=ON",
            "-DCMAKE_DISABLE_FIND_PACKAGE_JPEG=ON")
        commands = run("ninja", "-C", build, "-t", "commands", "same_names").splitlines()
        own = next(line for line in commands if line.endswith("same_names.cpp"))
        self.assertEqual(re.findall(r"-(?:I|isystem ?)(\S+)", own),
                         [str(SOURCE / "tests/install/stranger"), str(SOURCE / "include")])
        run("cmake", "--build", build, "--target", "draw_pictures")
        pictures = SOURCE / "examples" / "pictures"
        bmp, gif, jpg = run(build / "draw_pictures", pictures / "landscape_24.bmp",
                            pictures / "landscape.gif", pictures / "landscape.jpg").splitlines()
        self.assertEqual(bmp, "drawn")
        self.assertIn("this build cannot read GIF files", gif)
        self.assertIn("this build cannot read JPG files", jpg)

    def test_the_include_folder_alone_is_enough(self):
        run("g++", "-std=c++20", "-fsyntax-only", "-I", self.prefix / "include", EXAMPLE)

    def test_pkg_config_gives_the_flags(self):
        found = next(self.prefix.rglob("vellumark.pc")).parent
        flags = run("pkg-config", "--cflags", "--libs", "--static", "vellumark",
                    env=dict(os.environ, PKG_CONFIG_PATH=str(found))).split()
        program = self.folder / "stranger"
        run("g++", "-std=c++20", EXAMPLE, *flags, "-o", program)
        self.check_page(program)

    def test_the_programs_of_the_pages_by_task_do_what_they_say(self):
        flags = run("pkg-config", "--cflags", "--libs", "--static", "vellumark",
                    env=dict(os.environ, PKG_CONFIG_PATH=str(
                        next(self.prefix.rglob("vellumark.pc")).parent))).split()
        for page in ("first_document", "service"):
            source, program = self.folder / f"{page}.cpp", self.folder / page
            source.write_text(blocks(f"docs/{page}.md", "cpp")[0])
            run("g++", "-std=c++20", "-Wall", "-Wextra", "-Werror", source, *flags, "-o", program)
            done = subprocess.run([program], cwd=self.folder, capture_output=True, text=True, check=True)
        self.assertEqual(done.stdout.splitlines()[0], "100 labels")
        self.assertIn("the logo: ", done.stdout.splitlines()[1])
        self.assertEqual(done.stderr, "")
        self.assertIn("Hello, Łódź!", run("pdftotext", self.folder / "hello.pdf", "-"))

    def test_the_other_pages_compile(self):
        for page, before in (("cpp", None), ("web_answers", None), ("fonts", ""), ("reliability", "vellumark::PDF doc;")):
            block = blocks(f"docs/{page}.md", "cpp")[0]
            if before is not None:  # a part of a function
                block = f"""#include <filesystem>
                    #include <vellumark/vellumark.h>
                    int Fail(const std::string& reason) {{ return reason.empty() ? 0 : 1; }}
                    int main() {{ {before} {block} return Fail(doc.LastRefusal().sentence); }}"""
            source = self.folder / f"{page}.cpp"
            source.write_text(block)
            run("g++", "-std=c++20", "-fsyntax-only", "-Wall", "-Wextra", "-Werror", "-I", self.prefix / "include", source)

    def test_the_example_in_the_readme_is_the_one_that_is_built(self):
        shown = blocks("README.md", "cpp")[0]
        built = "".join(line for line in EXAMPLE.read_text().splitlines(keepends=True)
                        if not line.startswith("//"))
        self.assertEqual(shown, built)


class SharedLibrary(unittest.TestCase):
    """A shared library, built and installed by the lines of docs/cpp.md."""

    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.folder = pathlib.Path(cls.temporary.name)
        cls.prefix = cls.folder / "prefix"
        places = {"build": str(cls.folder / "build"), "/usr/local": str(cls.prefix)}
        lines = [shlex.split(line) for line in blocks("docs/cpp.md", "sh")[0].replace("\\\n", " ").splitlines()]
        configure, build, install = ([places.get(word, word) for word in line]
                                     for line in lines if line[0] == "cmake")
        run(*configure, "-S", SOURCE, "-DBUILD_SHARED_LIBS=ON", "-DVELLUMARK_EXAMPLES=OFF", FAST)
        run(*build, "--target", "vellumark")  # what is installed; the rest takes as long again
        run(*install)
        cls.library = next(cls.prefix.rglob("libvellumark.so")).resolve()

    @classmethod
    def tearDownClass(cls):
        cls.temporary.cleanup()

    def test_it_has_the_major_version_in_its_name(self):
        self.assertIn("[libvellumark.so.1]", run("readelf", "-d", self.library))

    def test_it_exports_the_names_of_the_list(self):
        self.assertEqual(exported_symbols(self.library), LIST.read_text().splitlines(),
                         "if the change is meant: tests/install/exported_symbols.py LIBRARY")

    def test_the_debian_package_has_the_same_names(self):
        self.assertEqual(sorted({shortened(name) for name in packaged_symbols()}),
                         LIST.read_text().splitlines(),
                         "if the change is meant: tests/install/exported_symbols.py LIBRARY")

    def test_it_exports_only_what_public_headers_declare(self):
        headers = "".join(header.read_text() for header in SOURCE.glob("include/vellumark/*.h"))
        declared = set(re.findall(r"\w+", headers))
        for name in exported_symbols(self.library):
            path = re.fullmatch(r"(?:vtable for |typeinfo (?:name )?for )?vellumark::([\w:~=]+)"
                                r"(?:\(.*)?", name)
            self.assertIsNotNone(path, name)
            self.assertLessEqual(set(re.findall(r"\w+", path[1])), declared, name)

    def test_the_readme_has_the_same_lines(self):
        self.assertIn(blocks("docs/cpp.md", "sh")[0], blocks("README.md", "sh"))

    def host(self, name, cmake, *options, page="docs/cpp.md"):
        folder = self.folder / name
        folder.mkdir()
        (folder / "CMakeLists.txt").write_text(cmake)
        (folder / "host.cpp").write_text(blocks(page, "cpp")[0])
        (folder / "vellumark").symlink_to(SOURCE)
        run("cmake", "-G", "Ninja", "-S", folder, "-B", folder / "build", FAST, *options)
        return folder / "build"

    def test_the_page_about_cpp_tells_how_to_link(self):
        installed, fetched, added = blocks("docs/cpp.md", "cmake")
        build = self.host("installed", installed, f"-DCMAKE_PREFIX_PATH={self.prefix}")
        run("cmake", "--build", build)
        done = subprocess.run([build / "host"], capture_output=True, check=True)
        self.assertTrue(done.stdout.startswith(b"%PDF-1.2"))
        self.assertIn(b"text is ", done.stderr)
        build = self.host("web", installed, f"-DCMAKE_PREFIX_PATH={self.prefix}",
                          page="docs/web_answers.md")
        run("cmake", "--build", build)
        picture = (SOURCE / "examples" / "pictures" / "landscape_alpha.png").read_bytes()
        for sent, answer in [(picture, rb"Content-Type: application/pdf\r\nContent-Length: (\d+)"
                                       rb"\r\n\r\n(%PDF-1\.4[^\0]*.*)"),
                             (b"nothing", b"Status: 400 Bad Request.*7 bytes in memory.*")]:
            done = subprocess.run([build / "host"], input=sent, capture_output=True, check=True,
                                  env={**os.environ, "VELLUMARK_NOTICE": "off"})
            found = re.fullmatch(answer, done.stdout, re.DOTALL)
            self.assertTrue(found, done.stdout[:200])
            self.assertTrue(sent == b"nothing" or int(found[1]) == len(found[2]))
            self.assertEqual(done.stderr, b"")
        for name, cmake in [("fetched", fetched), ("added", added)]:
            build = self.host(name, cmake, f"-DFETCHCONTENT_SOURCE_DIR_VELLUMARK={SOURCE}")
            self.assertIn("libvellumark.a", run("ninja", "-C", build, "-t", "query", "host"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
