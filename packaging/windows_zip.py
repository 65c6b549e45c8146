#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes vellumark-VERSION-windows.zip of the present commit.

usage: windows_zip.py WORK OUT

In it: the automation server for 64-bit and for 32-bit hosts, scripts that register and unregister
it, the keys that registering writes, the command-line host, examples, the manual, licenses. Server and
host are linked with libraries that packaging/windows_libraries.py builds and keeps.
"""
import pathlib
import shutil
import sys

from release import ROOT, Release, run
from windows_libraries import windows_libraries

SYSTEMS = {"x64": "64-bit", "x86": "32-bit"}

release = Release(pathlib.Path(sys.argv[1]))
out = pathlib.Path(sys.argv[2]).resolve()
libraries = windows_libraries(ROOT / "build" / "windows-libraries")
tree = release.unpacked("windows")
files = tree / "packaging" / "windows"
builds = tree.parent

# Nothing that is built depends on the folder; the linker writes no moment into the files, and the IDL
# compiler that of the commit.
release.environment["WIDL_TIME_OVERRIDE"] = str(release.moment)
FLAGS = [f"-DCMAKE_CXX_FLAGS=-ffile-prefix-map={tree}=/vellumark",
         "-DCMAKE_EXE_LINKER_FLAGS=-Wl,--no-insert-timestamp",
         "-DCMAKE_SHARED_LINKER_FLAGS=-Wl,--no-insert-timestamp"]
STATIC = " -static -static-libgcc -static-libstdc++"


def build(folder, target, *options):
    run("cmake", "-G", "Ninja", "-S", tree, "-B", builds / folder, "-DCMAKE_BUILD_TYPE=Release",
        "-DVELLUMARK_EXAMPLES=OFF", "-DVELLUMARK_TESTS=OFF", "-DPython3_EXECUTABLE=/usr/bin/python3",
        *options, env=release.environment)
    run("cmake", "--build", builds / folder, "--target", *target, env=release.environment)


def build_for_windows(folder, system, target, *options):
    flags = [flag + STATIC if "LINKER" in flag else flag for flag in FLAGS]
    build(folder, [target], *flags, f"-DCMAKE_TOOLCHAIN_FILE={tree}/cmake/toolchains/windows-{system}.cmake",
          f"-DVELLUMARK_WINDOWS_LIBRARIES={libraries / system}", "-DVELLUMARK_FONTS=ON",
          "-DBUILD_SHARED_LIBS=OFF", "-DCMAKE_UNITY_BUILD=ON",
          f"-DVELLUMARK_GENERATE={builds}/native/automation/vellumark_generate", *options)


build("native", ["vellumark_generate", "vellumark_cli"], "-DVELLUMARK_PYTHON=OFF")
for system in SYSTEMS:
    build_for_windows(system, system, "vellumark_server", "-DVELLUMARK_TOOLS=OFF")
build_for_windows("host", "x64", "vellumark_cli", "-DVELLUMARK_TOOLS=ON")
run(sys.executable, tree / "scripts" / "manual.py", builds / "native/tools/vellumark", builds,
    "--without-site", env=release.environment)

top = builds / "zip"
folder = top / f"{release.name}-windows"
folder.mkdir(parents=True)
for system, words in SYSTEMS.items():
    (folder / words).mkdir()
    shutil.copy(builds / system / "automation/server/vellumark.dll", folder / words)
shutil.copy(builds / "host/tools/vellumark.exe", folder)
shutil.copy(builds / "manual.pdf", folder)
shutil.copytree(libraries / "licenses", folder / "licenses")
shutil.copy(tree / "LICENSE", folder / "licenses" / "vellumark.txt")
for path in files.rglob("*"):
    if path.is_file():
        text = path.read_text(encoding="utf-8").replace("@VERSION@", release.version)
        target = folder / path.relative_to(files)
        target.parent.mkdir(exist_ok=True)
        target.write_text(text, encoding="utf-8", newline="\r\n")
shutil.copy(tree / "examples/pictures/landscape.jpg", folder / "examples")
release.zip(out / f"{folder.name}.zip", top)
