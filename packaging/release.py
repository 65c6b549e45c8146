# SPDX-License-Identifier: MIT
"""What every package is made from: a commit as git has it, the present one or the one that
VELLUMARK_COMMIT names, at the moment of that commit.

    release = Release(pathlib.Path("build/package"))
    folder = release.unpacked("debian")       # a fresh copy of the tree, without changes of the user
    run("make", cwd=folder, env=release.environment)
"""
import os
import pathlib
import re
import shutil
import subprocess
import zipfile

ROOT = pathlib.Path(__file__).resolve().parent.parent


def run(*command, **options):
    """Runs a command that must succeed; what it prints is shown only if it does not."""
    done = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, check=False, **options)
    if done.returncode != 0:
        words = " ".join(map(str, command))
        raise SystemExit(f"{done.stdout[-8000:]}\n{words} ended with {done.returncode}")
    return done.stdout


def git(*command):
    return run("git", *command, cwd=ROOT).strip()


class Release:
    def __init__(self, work):
        header = (ROOT / "include/vellumark/version.h").read_text(encoding="utf-8")
        self.version = ".".join(
            re.findall(r"define VELLUMARK_VERSION_(?:MAJOR|MINOR|PATCH) ([0-9]+)", header))
        self.name = f"vellumark-{self.version}"
        # One commit for all packages, though somebody commits meanwhile.
        self.commit = git("rev-parse", os.environ.get("VELLUMARK_COMMIT", "HEAD"))
        self.moment = int(git("log", "-1", "--format=%ct", self.commit))
        self.environment = dict(os.environ, SOURCE_DATE_EPOCH=str(self.moment), LC_ALL="C.UTF-8",
                                TZ="UTC", PYTHONDONTWRITEBYTECODE="1")
        self.work = work.resolve()
        self.work.mkdir(parents=True, exist_ok=True)

    def source_archive(self, *without):
        """The whole tree, which knows its commit (cmake/Commit.cmake)."""
        archive = self.work / f"{self.name}.tar.xz"
        tar = archive.with_suffix("")
        git("archive", "--format=tar", f"--prefix={self.name}/", f"--output={tar}", self.commit,
            "--", ".", *(f":!{path}" for path in without))
        run("xz", "-9", "-T1", "--force", tar)
        return archive

    def unpacked(self, purpose):
        """The tree in a new folder of that purpose."""
        folder = self.work / purpose
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir()
        run("tar", "-xf", self.source_archive(), "-C", folder)
        return folder / self.name

    def zip(self, archive, folder):
        """Packs what is in `folder`, in the order of the names, at the moment of the commit."""
        import time
        moment = time.gmtime(self.moment)[:6]
        with zipfile.ZipFile(archive, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as packed:
            for path in sorted(folder.rglob("*")):
                if path.is_dir():
                    continue
                entry = zipfile.ZipInfo(path.relative_to(folder).as_posix(), moment)
                entry.compress_type = zipfile.ZIP_DEFLATED
                entry.external_attr = (0o755 if path.stat().st_mode & 0o100 else 0o644) << 16
                packed.writestr(entry, path.read_bytes())
