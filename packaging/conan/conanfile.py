"""Conan 2 recipe of the libraries. It lies among the sources that it packages: conan create packaging/conan"""

import os
import re

from conan import ConanFile
from conan.tools.cmake import CMake, CMakeToolchain, cmake_layout
from conan.tools.files import copy


class PlcalcConan(ConanFile):
    name = "plcalc"
    description = "Plane surveying and land parcels: geometry, set-out, areas, and the division of parcels with proof"
    topics = ("surveying", "cadastre", "geometry")
    package_type = "library"
    settings = "os", "arch", "compiler", "build_type"
    options = {"shared": [True, False], "fPIC": [True, False]}
    default_options = {"shared": False, "fPIC": True}
    implements = ["auto_shared_fpic"]

    # One component of the package for each library, with those that it needs.
    libraries = {"plutil": [], "plcalc": ["plutil"], "plparcel": ["plcalc"], "plcalc_c": ["plparcel"]}

    @property
    def _root(self):
        return os.path.join(self.recipe_folder, "..", "..")

    def set_version(self):
        with open(os.path.join(self._root, "include", "plcalc", "version.h"), encoding="utf-8") as header:
            self.version = re.search(r'PLCALC_VERSION "(.*)"', header.read()).group(1)

    def export_sources(self):
        for folder in ("arcs", "bench/softfloat", "c", "cmake", "include", "kernel", "lines", "plparcel", "plutil",
                       "subdivision", "survey"):
            copy(self, folder + "/*", self._root, self.export_sources_folder)
        copy(self, "CMakeLists.txt", self._root, self.export_sources_folder)
        copy(self, "debian/copyright", self._root, self.export_sources_folder)

    def layout(self):
        cmake_layout(self)

    def generate(self):
        toolchain = CMakeToolchain(self)
        toolchain.variables["PLCALC_BUILD_TOOL"] = False
        toolchain.variables["PLCALC_BUILD_TESTS"] = False
        toolchain.variables["PLCALC_INSTALL"] = True
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        copy(self, "copyright", os.path.join(self.source_folder, "debian"), os.path.join(self.package_folder, "licenses"))

    def package_info(self):
        self.cpp_info.set_property("cmake_file_name", "plcalc")
        for library, needed in self.libraries.items():
            component = self.cpp_info.components[library]
            component.libs = [library]
            component.requires = needed
            component.set_property("cmake_target_name", "plcalc::" + library)
            component.set_property("pkg_config_name", library)
            if not self.options.shared:
                component.defines = [library.upper() + "_STATIC"]
