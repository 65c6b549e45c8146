#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Installs the library and builds README's example against it, as a stranger would.

usage: install_test.py SOURCE_FOLDER BUILD_FOLDER
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

SOURCE, BUILD = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
EXAMPLE = SOURCE / "examples" / "first_page.cpp"


def run(*command, **options):
    done = subprocess.run(list(map(str, command)), capture_output=True, text=True, check=False,
                          **options)
    if done.returncode != 0:
        raise AssertionError(f"{command}\n{done.stdout}{done.stderr}")
    return done.stdout


class Install(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.folder = pathlib.Path(cls.temporary.name)
        # Another prefix than the configured one: the package must work wherever it lies.
        cls.prefix = cls.folder / "prefix"
        run("cmake", "--install", BUILD, "--prefix", cls.prefix)

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

    def test_the_example_in_the_readme_is_the_one_that_is_built(self):
        shown = re.search(r"```cpp\n(.*?)```", (SOURCE / "README.md").read_text(), re.S)[1]
        built = "".join(line for line in EXAMPLE.read_text().splitlines(keepends=True)
                        if not line.startswith("//"))
        self.assertEqual(shown, built)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
