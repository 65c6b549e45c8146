# SPDX-License-Identifier: MIT
"""`cmake --install --component python` installs the module where Python finds it."""
import os
import subprocess
import sys
import sysconfig

import pytest
from conftest import from_cmake

VERSION = sysconfig.get_python_version()


def install(prefix, folder):
    done = subprocess.run(["cmake", "--install", from_cmake("VELLUMARK_BUILD"), "--component",
                           "python", "--prefix", prefix], capture_output=True, text=True,
                          check=False, env=dict(os.environ, DESTDIR=str(folder)))
    assert done.returncode == 0, done.stderr


@pytest.mark.parametrize("prefix, expected", [
    ("/usr", "usr/lib/python3/dist-packages"),
    ("/usr/local", f"usr/local/lib/python{VERSION}/dist-packages"),
    ("/opt/host", f"opt/host/lib/python{VERSION}/dist-packages")])
def test_it_lies_where_debian_looks(tmp_path, prefix, expected):
    install(prefix, tmp_path)
    if prefix != "/opt/host":
        assert f"/{expected}" in sysconfig.get_paths("deb_system")["platlib"] + "".join(sys.path)
    done = subprocess.run([sys.executable, "-c", "import vellumark; print(vellumark.__file__)"],
                          env={"PYTHONPATH": str(tmp_path / expected)}, capture_output=True,
                          text=True, check=True)
    assert done.stdout.startswith(str(tmp_path))
    names = {file.name for file in (tmp_path / expected / "vellumark").iterdir()}
    assert {"__init__.py", "__init__.pyi", "_vellumark.pyi", "py.typed"} < names
