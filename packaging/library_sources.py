#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes vellumark-VERSION-library-sources.tar: the sources of the libraries under the GNU LGPL that the
wheel carries and that the Windows programs are linked with. Their license wants them offered in the
same place.

usage: library_sources.py WORK OUT      OUT has the wheel, which names the libraries

A library's source package is that of the version on this machine, which is the one inside. Where the
place of the packages lacks Debian's part of it, the authors' part goes in and the README says so.
"""
import pathlib
import re
import shutil
import subprocess
import sys
import tarfile
import zipfile

from debian_sources import Sources
from release import Release, run

README = """The sources of the libraries under the GNU Lesser General Public License that are in the wheel and in the
Windows programs of Vellumark {version}:

{rows}
In the wheel each is a file of its own in the folder vellumark.libs: put another build of it there,
under the same name. The Windows programs have FriBidi, libthai and libdatrie inside, unchanged but for
the header packaging/thai_dictionary/memory_file.h, which lets libdatrie read from memory. In
{name}.tar.xz packaging/windows_font_libraries.py builds these libraries from their sources, and
packaging/windows_zip.py the programs with them.
"""

# Of HarfBuzz only a macro of its build is under the LGPL.
OTHERWISE = {"libharfbuzz0b", "libharfbuzz-subset0"}

release = Release(pathlib.Path(sys.argv[1]))
out = pathlib.Path(sys.argv[2]).resolve()


def under_lgpl():
    """The packages in the wheel whose license names the LGPL, by the files of their licenses."""
    wheel, = out.glob("vellumark-*.whl")
    with zipfile.ZipFile(wheel) as opened:
        for name in sorted(opened.namelist()):
            found = re.search(r"/licenses/(lib.*)\.txt$", name)
            if found and found[1] not in OTHERWISE and b"LGPL" in opened.read(name):
                yield found[1]


def fetch(sources, name, version):
    """The files of a source package, and what is missing of it."""
    subprocess.run(["apt-get", *sources.options, "--download-only", "source", f"{name}={version}"],
                   cwd=sources.folder, check=False, capture_output=True)
    without_epoch = version.split(":")[-1]
    described = sources.folder / f"{name}_{without_epoch}.dsc"
    if not described.exists():
        raise SystemExit(f"the source of {name} {version} cannot be had: {described.name} is missing")
    parts = dict.fromkeys(re.findall(r"^ [0-9a-f]{64} \d+ (\S+)$", described.read_text(), re.M))
    missing = [part for part in parts if not (sources.folder / part).exists()]
    if any(".orig" in part for part in missing):
        raise SystemExit(f"the source of {name} {version} cannot be had: {', '.join(missing)}")
    there = [described, *(sources.folder / part for part in parts if part not in missing)]
    return there, missing


def at_the_commit(entry):
    """Nothing of the folder, the user and the moment."""
    entry.mtime, entry.uid, entry.gid, entry.uname, entry.gname = release.moment, 0, 0, "", ""
    entry.mode = 0o644
    return entry


folder = release.work / "library-sources"
shutil.rmtree(folder, ignore_errors=True)
folder.mkdir()
sources = Sources(folder)
files, rows = [], []
packages = {tuple(run("dpkg-query", "-W", "-f", "${source:Package} ${source:Version}\n", package)
                  .split()[:2]) for package in under_lgpl()}
for name, version in sorted(packages):
    there, missing = fetch(sources, name, version)
    files += there
    rows.append(f"  {name} {version}" + (f", without {' and '.join(missing)}" if missing else "") + "\n")
if not {"fribidi", "libthai", "libdatrie"} <= {name for name, _ in packages}:
    raise SystemExit(f"a library of the Windows programs is not among {packages}")
readme = folder / "README.txt"
readme.write_text(README.format(version=release.version, name=release.name, rows="".join(rows)),
                  encoding="utf-8")
top = f"{release.name}-library-sources"
with tarfile.open(out / f"{top}.tar", "w", format=tarfile.PAX_FORMAT) as archive:
    for path in sorted([readme, *files]):
        archive.add(path, f"{top}/{path.name}", filter=at_the_commit)
print("".join(rows), end="")
