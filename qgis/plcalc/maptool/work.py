"""The work on one parcel: which side or corner is chosen, what is asked, and what plcalc answers. Nothing here draws or writes."""

import collections
import decimal
import math

from qgis.core import QgsGeometry, QgsPointXY

from ..answers import BEARING, NUMBER, PARALLEL, PERPENDICULAR, POINT, VERTEX, Asked, Line
from ..parcels import line_of
from ..requests import AREA, amount_of
from ..words import tr
from .parcel import Corner, Side, area_from_corner, bearing_of_line, dragged_area, round_to, rounded

# line: PARALLEL to POINT; bearing: gons, of the line, or from which on lines through the point are looked for; point: a text,
# E and N; kind and text: of the amount, as requests.amount_of takes them; decimals: None for all digits; tolerance: with decimals,
# the part of the parcel by which a piece may miss its amount.
Wishes = collections.namedtuple("Wishes", "line bearing point kind text opposite any_pieces decimals tolerance")


class Work:
    """A parcel, the side or corner that is chosen, and the answer.

    place: the side or the corner, or None; point: (x, y) of a line through a point, or None; division: the answer, or None before anything is asked; problem: why there is no division, or ""
    """

    def __init__(self, engine, parcel):
        self.parcel = parcel
        self.engine = engine
        self.measure = engine.measure(parcel.rings)
        self.place = self.point = self.division = None
        self.problem = ""
        if not self.usable():
            self.problem = self.measure.status

    def usable(self):
        return self.measure.status == "usable"

    def described(self, place):
        """What stands in the dock about a side or a corner."""
        if isinstance(place, Corner):
            x, y = self.parcel.corner(place.number)
            return tr("Corner {number}: E {x:.3f}, N {y:.3f}").format(number=place.number, x=x, y=y)
        side = [side for ring in self.measure.sides for side in ring][place.number - 1]
        return tr("Side {number}: length {length:.3f}, bearing {bearing:.4f} gon").format(
            number=place.number, length=side.length, bearing=side.bearing)

    def bearing_of(self, side):
        """Gons."""
        return [side for ring in self.measure.sides for side in ring][side.number - 1].bearing

    def ask(self, place, wishes):
        """Asks anew; nothing where a side, a corner or a point is still to be chosen."""
        self.place, self.point, self.division, self.problem = place, None, None, ""
        if not self.usable():
            self.problem = self.measure.status
            return
        try:
            self.point = point_of(wishes.point) if wishes.line == POINT and wishes.point else None
        except ValueError:
            self.problem = tr("The point cannot be read: write it as E, N.")
            return
        line = self._line(wishes)
        if line is None:
            return
        try:
            answer = self._divide(line, wishes, amount_of(wishes.kind, wishes.text))
        except ValueError as why:
            self.problem = tr("How much is asked cannot be read: {why}").format(why=why)
            return
        lost = self._lost_corner(answer) if answer else None
        if lost is not None:
            number, decimals = lost
            self.problem = tr("A rounded point would take the place of corner {number}, and corners are not moved. That corner has "
                              "{decimals} decimals: ask for as many, for all digits, or for another amount.").format(
                number=number, decimals=decimals)
        elif answer:
            self.division = answer
        else:
            self.problem = answer.reason

    def _lost_corner(self, division):
        """The first corner that no piece has, because a rounded end lies in its place: its number and decimals; None where all are
        there."""
        kept = {vertex for piece in division.pieces for ring in piece.shape.rings for vertex in ring}
        corners = [vertex for ring in self.parcel.rings for vertex in ring]
        return next(((number, max(map(_decimals, vertex))) for number, vertex in enumerate(corners, 1) if vertex not in kept), None)

    def _line(self, wishes):
        """The line that is asked for, or None where its side, corner or point is not known yet."""
        if wishes.line == BEARING:
            return Line(BEARING, bearing=wishes.bearing)
        if wishes.line == POINT:
            return Line(POINT, bearing=wishes.bearing, point=self.point) if self.point else None
        if isinstance(self.place, Corner if wishes.line == VERTEX else Side):
            return Line(wishes.line, NUMBER, self.place.number)
        return None

    def _divide(self, line, wishes, amount):
        return self.engine.divide(self.parcel.shape, Asked(line, amount, wishes.opposite, wishes.any_pieces, wishes.decimals,
                                                            wishes.tolerance))

    def dragged_to(self, at, pixel, wishes):
        """The wishes with the amount that a line through (x, y) cuts off, or with the point through which it runs, in as many digits
        as the cursor can tell apart; None where there is no such line.

        pixel: how long one of the screen is in the plane
        """
        if wishes.line == POINT:
            return wishes._replace(point=written(at, pixel))
        found = self._area_at(at, wishes)
        if found is None:
            return None
        area = self.measure.area - found if wishes.opposite else found
        length = self.division.lines[0].length if self.division else None
        area = rounded(area, length or self.measure.area ** 0.5, pixel)
        return wishes._replace(kind=AREA, text=f"{area:.15g}") if 0.0 < area < self.measure.area else None

    def _area_at(self, at, wishes):
        """What a line through (x, y) cuts off, whether it is asked for there or opposite."""
        if wishes.line == VERTEX:
            return area_from_corner(self.parcel, self.place.number, at)
        bearing = wishes.bearing if wishes.line == BEARING else bearing_of_line(self.parcel, self.place.number,
                                                                                wishes.line == PERPENDICULAR)
        one_sided = wishes._replace(opposite=False)
        return dragged_area(self.parcel, bearing, at,
                            lambda width: self._divide(Line(BEARING, bearing=bearing), one_sided, ("width", width)))

    def is_on_line(self, at, reach):
        """Whether (x, y) is no farther than reach from a dividing line."""
        if self.division is None:
            return False
        point = QgsGeometry.fromPointXY(QgsPointXY(*at))
        return any(line_of(line).distance(point) <= reach for line in self.division.lines)


def point_of(text):
    """(x, y) of a text. Raises ValueError for one that is none."""
    x, y = (float(part) for part in text.replace(";", " ").replace(",", " ").split())
    if not math.isfinite(x) or not math.isfinite(y):
        raise ValueError(text)
    return x, y


def written(at, pixel):
    """(x, y) as point_of() reads it, with as many digits as a pixel tells apart."""
    return ", ".join(repr(round_to(value, pixel)) for value in at)


def _decimals(value):
    """How many it has."""
    return max(0, -decimal.Decimal(repr(value)).normalize().as_tuple().exponent)
