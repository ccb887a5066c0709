"""The work on one parcel: which side or corner is chosen, what is asked, and what plcalc answers. Nothing here draws or writes."""

import collections
import decimal

from qgis.core import QgsGeometry, QgsPointXY

from ..answers import NUMBER, PARALLEL, PERPENDICULAR, VERTEX, Asked, Line
from ..parcels import line_of
from ..requests import AREA, amount_of
from ..words import tr
from .parcel import Corner, dragged_area, rounded

# kind and text: of the amount, as requests.amount_of takes them; decimals: None for all digits; tolerance: with decimals, the part of
# the parcel by which a piece may miss its amount.
Wishes = collections.namedtuple("Wishes", "at_right_angles kind text opposite any_pieces decimals tolerance")


class Work:
    """A parcel, the place that is chosen, and the answer.

    division: the answer, or None before anything is asked; problem: why there is no division, or ""
    """

    def __init__(self, engine, parcel):
        self.parcel = parcel
        self._engine = engine
        self.measure = engine.measure(parcel.rings)
        self.place = None
        self.division, self.problem = None, ""
        if not self.usable():
            self.problem = self.measure.status

    def usable(self):
        return self.measure.status == "usable"

    def described(self, place):
        """What stands in the dock about a side or a corner."""
        if isinstance(place, Corner):
            x, y = self.parcel.corner(place.number)
            return tr("Corner {number}: E {x:.3f}, N {y:.3f}").format(number=place.number, x=x, y=y)
        side = self.measure.sides[0][place.number - 1]
        return tr("Side {number}: length {length:.3f}, bearing {bearing:.4f} gon").format(
            number=place.number, length=side.length, bearing=side.bearing)

    def ask(self, place, wishes):
        """Asks anew."""
        self.place, self.division, self.problem = place, None, ""
        if not self.usable():
            self.problem = self.measure.status
            return
        try:
            answer = self._divide(place, wishes, amount_of(wishes.kind, wishes.text))
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
        kept = {vertex for piece in division.pieces for ring in piece.rings for vertex in ring}
        corners = [vertex for ring in self.parcel.rings for vertex in ring]
        return next(((number, max(map(_decimals, vertex))) for number, vertex in enumerate(corners, 1) if vertex not in kept), None)

    def forget(self):
        """No place is chosen, and nothing asked."""
        self.place, self.division, self.problem = None, None, ""

    def _divide(self, place, wishes, amount):
        kind = VERTEX if isinstance(place, Corner) else PERPENDICULAR if wishes.at_right_angles else PARALLEL
        return self._engine.divide(self.parcel.rings, Asked(Line(kind, NUMBER, place.number), amount, wishes.opposite,
                                                            wishes.any_pieces, wishes.decimals, wishes.tolerance))

    def dragged_to(self, at, pixel, wishes):
        """The wishes with the amount that a line through (x, y) cuts off, in as many digits as the cursor can tell apart; None where
        there is no such line.

        pixel: how long one of the screen is in the plane
        """
        one_sided = wishes._replace(opposite=False)
        found = dragged_area(self.parcel, self.place, wishes.at_right_angles, at,
                             lambda width: self._divide(self.place, one_sided, ("width", width)))
        if found is None:
            return None
        area = self.measure.area - found if wishes.opposite else found
        length = self.division.lines[0].length if self.division else None
        area = rounded(area, length or self.measure.area ** 0.5, pixel)
        return wishes._replace(kind=AREA, text=f"{area:.15g}") if 0.0 < area < self.measure.area else None

    def is_on_line(self, at, reach):
        """Whether (x, y) is no farther than reach from a dividing line."""
        if self.division is None:
            return False
        point = QgsGeometry.fromPointXY(QgsPointXY(*at))
        return any(line_of(line.segments).distance(point) <= reach for line in self.division.lines)


def _decimals(value):
    """How many it has."""
    return max(0, -decimal.Decimal(repr(value)).normalize().as_tuple().exponent)
