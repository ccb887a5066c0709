"""The wheel: CMake builds the extension with the libraries inside it, from the sources around this folder."""

import os
import pathlib
import re
import shutil
import subprocess
import sys

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

HERE = pathlib.Path(__file__).resolve().parent
SOURCE = HERE.parent
VERSION = re.search(r'define PLCALC_VERSION "([^"]+)"', (SOURCE / "include/plcalc/version.h").read_text())[1]
# Nothing is left among the sources.
BUILD = SOURCE / "build/wheel-build"
BUILD.mkdir(parents=True, exist_ok=True)


class BuildWithCMake(build_ext):
    def build_extension(self, ext):
        build = pathlib.Path(self.build_temp).resolve() / "cmake"
        off = ["BUILD_SHARED_LIBS", "PLCALC_BUILD_C", "PLCALC_BUILD_TESTS", "PLCALC_BUILD_TOOL", "PLCALC_INSTALL"]
        # A machine with Ninja need not have make. CMAKE_GENERATOR in the environment says otherwise; a folder keeps its own.
        begun = (build / "CMakeCache.txt").exists() or "CMAKE_GENERATOR" in os.environ
        generator = ["-G", "Ninja"] if shutil.which("ninja") and not begun else []
        subprocess.run(["cmake", *generator, "-S", SOURCE, "-B", build, "-DCMAKE_BUILD_TYPE=Release", "-DPLCALC_BUILD_PYTHON=ON",
                        f"-DPython3_EXECUTABLE={sys.executable}", *(f"-D{name}=OFF" for name in off)], check=True)
        subprocess.run(["cmake", "--build", build, "--parallel", "2", "--target", "plcalc_python_package"], check=True)
        package = pathlib.Path(self.get_ext_fullpath(ext.name)).resolve().parent
        package.mkdir(parents=True, exist_ok=True)
        built = build / "python/plcalc"
        for path in [*built.glob("_plcalc*.so"), *built.glob("*.pyi")]:
            shutil.copy2(path, package)


setup(name="plcalc", version=VERSION, description="Plane surveying and land parcels", packages=["plcalc"],
      package_data={"plcalc": ["py.typed", "*.pyi"]}, ext_modules=[Extension("plcalc._plcalc", [])],
      cmdclass={"build_ext": BuildWithCMake},
      options={"build": {"build_base": str(BUILD)}, "egg_info": {"egg_base": str(BUILD)}}, python_requires=">=3.9", install_requires=["numpy"],
      extras_require={"frames": ["geopandas"]}, zip_safe=False)
