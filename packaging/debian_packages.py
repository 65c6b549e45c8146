#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Builds the Debian packages of the present commit, and checks them with lintian.

usage: debian_packages.py WORK OUT      the packages and the source archive are then in OUT
"""
import pathlib
import shutil
import sys

from release import Release, run

release = Release(pathlib.Path(sys.argv[1]))
out = pathlib.Path(sys.argv[2])

tree = release.unpacked("debian")
packaged = run("dpkg-parsechangelog", "-S", "Version", cwd=tree).strip()
if packaged.rpartition("-")[0] != release.version:
    raise SystemExit(f"debian/changelog is of {packaged}, and the library of {release.version}: "
                     "add an entry")
release.source_archive("debian").rename(tree.parent / f"vellumark_{release.version}.orig.tar.xz")
run("dpkg-buildpackage", "-us", "-uc", cwd=tree, env=release.environment)
changes, = tree.parent.glob("*.changes")
# The packages are not made for the archive of a distribution, which would have a bug to close.
told = run("lintian", "--fail-on", "error,warning", "--allow-root", "--tag-display-limit", "0",
           "--suppress-tags", "initial-upload-closes-no-bugs", changes)
print(told, end="")
for package in tree.parent.glob("*.deb"):
    if "-dbgsym_" not in package.name:
        shutil.copy(package, out)
shutil.copy(release.source_archive(), out)
