"""Who computes: the Python package plcalc, or where it is missing the program of that name on the path.

QGIS loads a plug-in under the name of its folder, which therefore must not be that of the package: the zip has it as
plcalc_qgis.
"""

import shutil

from .words import tr


def engine():
    """The package, else the program, else None."""
    try:
        import plcalc
    except ImportError:
        program = shutil.which("plcalc")
        if program is None:
            return None
        from .program import Program

        return Program(program)
    from .package import Package

    return Package(plcalc)


def missing():
    """What to install where there is neither."""
    return tr("plcalc is missing. Install the Python package with the Python of QGIS: build the wheel with scripts/python, then "
              "python3 -m pip install plcalc-*.whl. Or install the program plcalc, and see that it is on the path. Then start "
              "QGIS again.")
