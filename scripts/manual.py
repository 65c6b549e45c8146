#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the manual: a book as PDF and as PostScript, set by the command-line host, and a site.

usage: manual.py HOST BUILD [--without-site]

mkdocs.yml has the pages and their order. They are copied into BUILD/manual/pages, where a link to a
file of the tree that is not a page becomes the text that it has. Everything that leads nowhere ends
the making: links and pictures of the book, which the host tells, and those of the site.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import unicodedata

import yaml

ROOT = pathlib.Path(__file__).resolve().parent.parent
HOST, BUILD = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
PAGES = BUILD / "manual" / "pages"
# Pages that lie beside the folder docs, where readers of the tree look for them.
BESIDE = {"security.md": "SECURITY.md", "changelog.md": "CHANGELOG.md"}
LINK = re.compile(r"(!?)\[((?:[^\[\]]|\[[^\]]*\])*)\]\(([^)\s]+)\)")
CODE = re.compile(r"(^```.*?^```|`[^`\n]+`)", re.DOTALL | re.MULTILINE)


# What the book's fonts lack, so that it does not depend on the fonts of the machine
# (fonts-dejavu-core, fonts-noto-cjk).
FALLBACK_FONTS = ("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
                  "/usr/share/fonts/opentype/noto/NotoSansCJK-Regular.ttc")


def run(*command, **options):
    """Runs a program that must have nothing to say but what an example of a lost character makes it
    say."""
    done = subprocess.run(list(map(str, command)), stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, check=False, **options)
    told = [line for line in done.stdout.splitlines() if not only_other_scripts_are_lost(line)]
    if done.returncode != 0 or told:
        raise SystemExit(f"{command[0]} ended with {done.returncode}:\n{done.stdout}")


def only_other_scripts_are_lost(line):
    """Letters without case, and their marks: the pages have no others that the fonts lack."""
    lost = [chr(int(code, 16)) for code in re.findall(r"U\+([0-9A-F]+)", line)]
    return '"?" stands for' in line and all(unicodedata.category(character) in ("Lo", "Mn", "Mc")
                                            for character in lost)


def listed(entries):
    """The names of the pages in a part of the table of mkdocs.yml."""
    for entry in entries:
        if isinstance(entry, str):
            yield entry
        else:
            for inside in entry.values():
                yield from listed(inside)


def read_settings():
    return yaml.safe_load((ROOT / "mkdocs.yml").read_text(encoding="utf-8"))


def source_of(page):
    return ROOT / BESIDE[page] if page in BESIDE else ROOT / "docs" / page


def relinked(text, source, pages):
    """The text of a page with its links as they are among the pages."""
    names = {source_of(page).resolve(): page for page in pages}

    def link(found):
        mark, words, target = found.groups()
        path, sharp, place = target.partition("#")
        if ":" in path or not path:
            return found[0]
        there = (source.parent / path).resolve()
        if there in names:
            if words in (path, names[there]):    # a file's name says little in a book
                words = there.read_text(encoding="utf-8").partition("\n")[0].lstrip("# ")
            return f"{mark}[{words}]({names[there]}{sharp}{place})"
        if mark and there.is_relative_to(ROOT / "docs"):
            return f"![{words}]({there.relative_to(ROOT / 'docs')})"
        if not there.exists():
            raise SystemExit(f"{source}: {path} does not exist")
        return words

    parts = CODE.split(text)
    # Links may have code in them: what is code alone is kept apart by its place in the list.
    whole = "".join(part if at % 2 == 0 else f"\0{at}\0" for at, part in enumerate(parts))
    whole = LINK.sub(link, whole)
    return re.sub(r"\0(\d+)\0", lambda found: parts[int(found[1])], whole)


def copy_pages(pages):
    shutil.rmtree(PAGES, ignore_errors=True)
    shutil.copytree(ROOT / "docs" / "pictures", PAGES / "pictures")
    for page in pages:
        source = source_of(page)
        (PAGES / page).write_text(relinked(source.read_text(encoding="utf-8"), source, pages),
                                  encoding="utf-8")


def main():
    pages = list(listed(read_settings()["nav"]))
    forgotten = {path.name for path in (ROOT / "docs").glob("*.md")} - set(pages)
    if forgotten:
        raise SystemExit(f"mkdocs.yml does not name {', '.join(sorted(forgotten))}")
    copy_pages(pages)
    if "--without-site" not in sys.argv:
        run("mkdocs", "build", "--quiet", "--strict", "--config-file", ROOT / "mkdocs.yml", cwd=ROOT,
            env={**os.environ, "PYTHONWARNINGS": "ignore"})
    version = subprocess.run([HOST, "--version"], capture_output=True, text=True, check=True).stdout
    version = version.split()[1]
    for ending in ("pdf", "ps"):
        run(HOST, *pages, "-o", BUILD / f"manual.{ending}", "--cover", "--toc",
            "--title", "Vellumark", "--author", f"Manual of version {version}",
            "--size", "10", "--margins", "52,60,52,60", *(f"--fallback-font={font}" for font in FALLBACK_FONTS),
            "--subject", "PDF and PostScript documents from drawing, text and picture calls",
            cwd=PAGES)


if __name__ == "__main__":
    main()
