"""Plane surveying and land parcels: a parcel divided with proof, or the reason why it cannot be.

    >>> import plcalc
    >>> division = plcalc.divide([(0, 0), (100, 0), (100, 50), (0, 50)], parallel_to=0, share="1/5")
    >>> division.lines[0]
    Line((0.0, 10.0) to (100.0, 10.0))

`divide` takes anything that a parcel may come as, and every kind of line and amount. `plcalc.plparcel` has the same under
the names of the C++ layer, `plcalc.core` the library below it with all its functions.
"""

from . import core, plparcel
from ._divide import all_divisions, area, divide, feasible, measure, product, share, width
from ._parcels import parcel
from ._results import Division, Line, Piece, Refused
from ._sides import Undecided, beside, facing, farthest, longest, nearest_to, shortest

__version__ = core.PlFunz_version()
__all__ = ["Division", "Line", "Piece", "Refused", "Undecided", "all_divisions", "area", "beside", "core", "divide",
           "divide_frame", "facing", "farthest", "feasible", "longest", "measure", "nearest_to", "parcel", "plparcel", "product", "share", "shortest", "width"]


def __getattr__(name):
    # GeoPandas is needed for this one only.
    if name == "divide_frame":
        from .frames import divide_frame
        return divide_frame
    raise AttributeError(f"module {__name__!r} has no attribute {name!r}")
