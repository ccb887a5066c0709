"""The package plcalc, which computes everything, or what to do where it is missing.

QGIS loads a plug-in under the name of its folder, which therefore must not be that of the package: the zip has it as
plcalc_qgis.
"""

MISSING = ("The Python package plcalc is not installed where QGIS looks for packages. Install the wheel that scripts/python "
           "builds with the Python of QGIS (python3 -m pip install plcalc-*.whl), and start QGIS again.")


def package():
    """The package, or None."""
    try:
        import plcalc
    except ImportError:
        return None
    return plcalc
