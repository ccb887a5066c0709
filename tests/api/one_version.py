"""one_version.py <source folder>: the version's home is include/plcalc/version.h; whatever must state it in a format of
its own states the same."""

import pathlib
import re
import sys

source = pathlib.Path(sys.argv[1])
header = (source / "include/plcalc/version.h").read_text(encoding="utf-8")
version = re.search(r'define PLCALC_VERSION "(\d+\.\d+\.\d+)"', header)[1]
# What programs are linked with before 1.0 bears the first two numbers, from 1.0 on the first.
major, minor, _ = version.split(".")
compatible = f"{major}.{minor}" if major == "0" else major

STATED = (  # file, what states it, the version that it must state
    ("CHANGELOG.md", r"^## (\d\S*?)(?:,| |$)", version),
    ("debian/changelog", r"\Aplcalc \((.*)\)", version),
    ("debian/rules", r"\.so\.(\S+) \$\(1\) #MINVER#", compatible),
    ("debian/control", r"^Package: libplcalc(\d\S*)$", compatible),
    ("debian/control", r"^Package: libplutil(\d\S*)$", compatible),
    ("debian/control", r"^Package: libplparcel(\d\S*)$", compatible),
    ("debian/control", r"^Package: libplcalc-c(\d\S*)$", compatible),
    ("packaging/vcpkg/plcalc/vcpkg.json", r'"version": "(.*)"', version),
    ("postgis/plcalc.control", r"^default_version = '(.*)'", f"{major}.{minor}"),
    ("qgis/plcalc/metadata.txt", r"^version=(.*)$", version),
    ("web/wasm/package.json", r'"version": "(.*)"', version),
)
wrong = []
for name, pattern, wanted in STATED:
    found = re.search(pattern, (source / name).read_text(encoding="utf-8"), re.MULTILINE)
    if not found or found[1] != wanted:
        wrong.append(f"{name} states {found[1] if found else 'no version'}, not {wanted}")
if wrong:
    sys.exit("\n".join([*wrong, f"include/plcalc/version.h has {version}"]))
print(f"{len(STATED)} places state {version}")
