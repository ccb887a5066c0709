from ._plcalc import plparcel as _plparcel
from ._plcalc.plparcel import *  # noqa: F401,F403

__doc__ = _plparcel.__doc__
__all__ = [name for name in dir(_plparcel) if not name.startswith("_")]
