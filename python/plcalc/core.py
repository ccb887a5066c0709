from ._plcalc import core as _core
from ._plcalc.core import *  # noqa: F401,F403

__doc__ = _core.__doc__
__all__ = [name for name in dir(_core) if not name.startswith("_")]
