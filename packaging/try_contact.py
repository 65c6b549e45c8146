#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The first contact: a bare Debian with git, and the first lines of README.

usage: try_contact.py BARE      BARE keeps the bare Debian
"""
import pathlib
import re
import sys

from bare_debian import BareDebian
from release import ROOT, git

with BareDebian(pathlib.Path(sys.argv[1])) as debian:
    debian.install("git")
    bundle = pathlib.Path(sys.argv[1]) / "vellumark.bundle"
    git("bundle", "create", bundle.resolve(), "HEAD")
    debian.copy(bundle)
    readme = (ROOT / "README.md").read_text(encoding="utf-8")
    first = re.search(r"```sh\n(\./dev demo.*?)```", readme, re.DOTALL)[1].splitlines()[0]
    print(debian.run(f"git clone -q vellumark.bundle vellumark\ncd vellumark\n{first}")[-1500:])
    documents = sorted(path.name for path in (debian.root / "root/vellumark/build/demo").glob("*.pdf"))
    assert documents == ["gallery.pdf", "gpl-3.pdf", "invoice.pdf", "languages.pdf", "readme.pdf",
                         "report.pdf"], documents
    print(debian.run("cd vellumark\ngit status --porcelain\n"
                     "build/release/tools/vellumark --version"), end="")
