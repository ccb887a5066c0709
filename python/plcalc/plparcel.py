from ._plcalc import plparcel as _plparcel
from ._plcalc.plparcel import *  # noqa: F401,F403

__doc__ = _plparcel.__doc__
__all__ = [name for name in dir(_plparcel) if not name.startswith("_")]


def _shown(value):
    """A ring by how many vertices it has, anything else by its repr."""
    if hasattr(value, "shape"):
        return f"<{len(value)} vertices>"
    if isinstance(value, tuple):
        return "(" + ", ".join(map(_shown, value)) + ("," if len(value) == 1 else "") + ")"
    if hasattr(type(value), "__members__"):
        return f"{type(value).__name__}.{value.name}"
    return repr(value)


def _repr_of(names):
    def shown(record):
        return f"{type(record).__name__}({', '.join(f'{name}={_shown(getattr(record, name))}' for name in names)})"
    return shown


for _name in __all__:
    _kind = getattr(_plparcel, _name)
    if isinstance(_kind, type) and not hasattr(_kind, "__members__"):
        _fields = [name for name, value in vars(_kind).items() if isinstance(value, property)]
        if _fields:
            _kind.__repr__ = _repr_of(_fields)
