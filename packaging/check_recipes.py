#!/usr/bin/env python3
"""check_recipes.py [source folder]: follows the recipes for vcpkg and Conan without either, as far as that goes: what
the recipe takes from the sources is configured, built and installed with the options that the recipe gives, and each
option must be one that the project knows. Their own functions are played by the few lines here that stand for them.
Of Homebrew's formula only the names are compared: what the program's build looks for, and the options. Without an argument
the recipes are those among which this file lies.
"""

import argparse
import json
import pathlib
import re
import subprocess
import sys
import tempfile
import types

VCPKG = """
set(CURRENT_PORT_DIR "{port}")
set(CURRENT_PACKAGES_DIR "{prefix}")
set(PORT plcalc)
function(vcpkg_cmake_configure)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "SOURCE_PATH" "OPTIONS")
  execute_process(COMMAND ${{CMAKE_COMMAND}} -G Ninja -S ${{arg_SOURCE_PATH}} -B {build} -DCMAKE_BUILD_TYPE=Release
    -DCMAKE_INSTALL_PREFIX={prefix} -DBUILD_SHARED_LIBS=OFF -DCMAKE_INSTALL_LIBDIR=lib
    ${{arg_OPTIONS}} COMMAND_ERROR_IS_FATAL ANY)
endfunction()
function(vcpkg_cmake_install)
  execute_process(COMMAND ${{CMAKE_COMMAND}} --build {build} --target install COMMAND_ERROR_IS_FATAL ANY)
endfunction()
function(vcpkg_cmake_config_fixup)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "CONFIG_PATH" "")
  if(NOT EXISTS ${{CURRENT_PACKAGES_DIR}}/${{arg_CONFIG_PATH}}/plcalcConfig.cmake)
    message(FATAL_ERROR "no package file in ${{arg_CONFIG_PATH}}")
  endif()
endfunction()
function(vcpkg_fixup_pkgconfig)
endfunction()
include({port}/portfile.cmake)
"""


def run(*command):
    """Runs it; what it printed is shown when it fails or leaves an option unused."""
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
    if done.returncode != 0 or "were not used by the project" in done.stdout:
        sys.exit(done.stdout + "\nfailed: " + " ".join(map(str, command)))


def expect(prefix, *names):
    for name in names:
        if not (prefix / name).is_file():
            sys.exit(f"{name} was not installed")


def check_vcpkg(source, work, version):
    port = source / "packaging/vcpkg/plcalc"
    manifest = json.loads((port / "vcpkg.json").read_text(encoding="utf-8"))
    if manifest["version"] != version:
        sys.exit(f"vcpkg.json has version {manifest['version']}, the header {version}")
    (work / "vcpkg.cmake").write_text(
        VCPKG.format(port=port, prefix=work / "vcpkg", build=work / "vcpkg-build"), encoding="utf-8")
    run("cmake", "-P", work / "vcpkg.cmake")
    expect(work / "vcpkg", "include/plparcel/division.h", "lib/libplcalc.a", "share/plcalc/copyright", "share/plcalc/usage")


def play_conan(work, seen):
    """The modules that the recipe imports."""

    def copy(_recipe, pattern, src, dst):
        folder, name = pathlib.Path(src), pathlib.Path(pattern)
        found = folder.glob(str(name.parent / "**/*")) if name.name == "*" else [folder / name]
        files = [file for file in found if file.is_file()]
        if not files:
            sys.exit(f"the Conan recipe copies {pattern}, and there is none")
        for file in files:
            target = pathlib.Path(dst) / file.relative_to(folder)
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(file.read_bytes())

    class CMakeToolchain:
        def __init__(self, _recipe):
            self.variables = {}

        def generate(self):
            seen.update(self.variables)

    class CMake:
        def __init__(self, recipe):
            self.recipe = recipe

        def configure(self):
            options = [f"-D{name}={'ON' if value else 'OFF'}" for name, value in seen.items()]
            run("cmake", "-G", "Ninja", "-S", self.recipe.source_folder, "-B", work / "conan-build",
                "-DCMAKE_BUILD_TYPE=Release", "-DBUILD_SHARED_LIBS=OFF", "-DCMAKE_INSTALL_LIBDIR=lib",
                f"-DCMAKE_INSTALL_PREFIX={self.recipe.package_folder}", *options)

        def build(self):
            run("cmake", "--build", work / "conan-build")

        def install(self):
            run("cmake", "--install", work / "conan-build")

    modules = {
        "conan": {"ConanFile": object},
        "conan.tools": {},
        "conan.tools.cmake": {"CMake": CMake, "CMakeToolchain": CMakeToolchain, "cmake_layout": lambda recipe: None},
        "conan.tools.files": {"copy": copy},
    }
    for name, members in modules.items():
        sys.modules[name] = types.ModuleType(name)
        vars(sys.modules[name]).update(members)


def check_conan(source, work, version):
    seen = {}
    play_conan(work, seen)
    recipe_file = source / "packaging/conan/conanfile.py"
    scope = {}
    exec(compile(recipe_file.read_text(encoding="utf-8"), recipe_file, "exec"), scope)  # a recipe is a program
    recipe = scope["PlcalcConan"]()
    recipe.recipe_folder = recipe_file.parent
    recipe.export_sources_folder = recipe.source_folder = work / "conan-sources"
    recipe.package_folder = work / "conan"
    recipe.set_version()
    if recipe.version != version:
        sys.exit(f"the Conan recipe reads version {recipe.version}, the header has {version}")
    recipe.export_sources()
    recipe.layout()
    recipe.generate()
    recipe.build()
    recipe.package()
    expect(work / "conan", "licenses/copyright", "include/plcalc/plcalc.h", "include/plcalc_c.h",
           *(f"lib/lib{library}.a" for library in recipe.libraries))


def check_homebrew(source):
    formula = (source / "packaging/homebrew/plcalc.rb").read_text(encoding="utf-8")
    named = set(re.findall(r'(?:depends_on|uses_from_macos) "(.*?)"', formula))
    formulae = {"CLI11": "cli11", "GDAL": "gdal", "LibXml2": "libxml2", "PkgConfig": "pkg-config", "cairo": "cairo",
                "nlohmann_json": "nlohmann-json", "Threads": None}
    program = (source / "tools/plcalc/CMakeLists.txt").read_text(encoding="utf-8")
    wanted = re.findall(r"find_package\((\w+)", program)
    for modules in re.findall(r"pkg_check_modules\(\w+ (?:REQUIRED |IMPORTED_TARGET )*([^)]*)\)", program):
        wanted += re.findall(r"^\w+", modules)
    for name in wanted:
        if name not in formulae or formulae[name] and formulae[name] not in named:
            sys.exit(f"the program's build looks for {name}, which Homebrew's formula does not name")
    known = (source / "CMakeLists.txt").read_text(encoding="utf-8")
    for option in re.findall(r"-D(PLCALC_\w+)=", formula):
        if f"option({option} " not in known:
            sys.exit(f"Homebrew's formula sets {option}, which the project does not know")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("source", nargs="?", type=pathlib.Path, default=pathlib.Path(__file__).resolve().parents[1])
    source = parser.parse_args().source.resolve()
    version_file = source / "include/plcalc/version.h"
    if not version_file.is_file():
        parser.error(f"{source} does not hold the sources of plcalc")
    header = version_file.read_text(encoding="utf-8")
    version = re.search(r'PLCALC_VERSION "(.*)"', header).group(1)
    check_homebrew(source)
    with tempfile.TemporaryDirectory() as work:
        check_vcpkg(source, pathlib.Path(work), version)
        check_conan(source, pathlib.Path(work), version)
    print("the recipes for vcpkg and Conan build and install what they say")


main()
