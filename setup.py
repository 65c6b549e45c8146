# SPDX-License-Identifier: MIT
"""Builds the Python module with CMake, for the Python that runs this."""
import os
import pathlib
import re
import shutil
import subprocess
import sys

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

ROOT = pathlib.Path(__file__).resolve().parent
SWITCHED_OFF = ["TOOLS", "EXAMPLES", "TESTS"]


class BuildWithCMake(build_ext):
    def run(self):
        build = pathlib.Path(self.build_temp).resolve() / "cmake"
        generator = ["-G", "Ninja"] if shutil.which("ninja") else []
        subprocess.run(
            ["cmake", "-S", ROOT, "-B", build, *generator, "-DVELLUMARK_PYTHON=ON", "-DCMAKE_UNITY_BUILD=ON",
             "-DBUILD_SHARED_LIBS=OFF",
             f"-DPython3_EXECUTABLE={sys.executable}",
             f"-DVELLUMARK_PYTHON_DESTINATION={pathlib.Path(self.build_lib).resolve()}",
             *(f"-DVELLUMARK_{name}=OFF" for name in SWITCHED_OFF),
             *os.environ.get("CMAKE_ARGS", "").split()], check=True)
        subprocess.run(["cmake", "--build", build, "--parallel", str(os.cpu_count()),
                        "--target", "vellumark_python"], check=True)
        subprocess.run(["cmake", "--install", build, "--component", "python"], check=True)


def version():
    """The version number has its one place in the public version header."""
    header = (ROOT / "include" / "vellumark" / "version.h").read_text()
    return ".".join(re.findall(r"define VELLUMARK_VERSION_(?:MAJOR|MINOR|PATCH) ([0-9]+)", header))


(ROOT / "build").mkdir(exist_ok=True)
setup(version=version(), packages=[], cmdclass={"build_ext": BuildWithCMake},
      options={"egg_info": {"egg_base": "build"}},
      ext_modules=[Extension("vellumark._vellumark", sources=[])])  # so the wheel names its platform
