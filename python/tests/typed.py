"""What a type checker must know of the package: mypy reads this file, and nobody runs it."""

from typing import Any, Dict, Optional, Tuple

import numpy
import numpy.typing

import plcalc
from plcalc import core, plparcel

yard = [(0, 0), (60, 0), (60, 20), (40, 20), (40, 50), (0, 50)]
division: plcalc.Division = plcalc.divide(yard, perpendicular_to=0, parts=3)
first: plcalc.Line = division.lines[0]
end: Tuple[float, float] = first.end
area: float = division.pieces[0].area
ring: "numpy.typing.NDArray[numpy.float64]" = division.pieces[0].ring
decimals: Optional[int] = division.decimals
others: Tuple[Dict[str, Any], ...] = division.alternatives
every: Tuple[plcalc.Division, ...] = plcalc.all_divisions("POLYGON ((0 0, 1 0, 1 1, 0 0))", through_vertex=(0, 0), share="1/3")
plcalc.divide(numpy.array(yard), parallel_to=plcalc.facing(200), amounts=["1000", plcalc.width(3)], decimals=2)
plcalc.divide({"type": "Polygon", "coordinates": []}, through_point=(1.5, 2), bearing=50, area=[100, 200])
report: plparcel.RingReport = plcalc.measure(plcalc.parcel(yard))
choice: plparcel.Choice = plparcel.longest_side(plcalc.parcel(yard))
index: int = choice.candidates[0].place.index
point: core.PL_PNT2D_record = core.CalcPtAngDist((10, 10), (10, 20), 100, 5)

# Each of these is wrong: a checker that finds nothing to say here tells so, because the remark is then unused.
plcalc.divide(yard, parallel_to="the longest", parts=2)  # type: ignore[arg-type]
plcalc.divide(yard, parallel_to=0, half=True)  # type: ignore[call-arg]
plcalc.divide(5, parallel_to=0, parts=2)  # type: ignore[arg-type]
wrong: str = division.pieces[0].area  # type: ignore[assignment]
plparcel.longest_side(yard)  # type: ignore[arg-type]
