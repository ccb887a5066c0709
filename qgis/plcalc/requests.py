"""What is asked of each parcel: the line, the side that it follows, and the amounts."""

import math
import re

from qgis.core import (QgsFeatureRequest, QgsGeometry, QgsProcessing, QgsProcessingException,
                       QgsProcessingParameterBoolean, QgsProcessingParameterDistance, QgsProcessingParameterEnum,
                       QgsProcessingParameterFeatureSource, QgsProcessingParameterField, QgsProcessingParameterNumber,
                       QgsProcessingParameterPoint, QgsProcessingParameterString)

from .answers import (ALONG, COLUMN, FACING, NEAREST, NUMBER, PARALLEL, PERPENDICULAR, POINT, LONGEST, SHORTEST, VERTEX, Alongside,
                      Asked, Line)
from .parcels import Unusable, features_of, with_chords
from .words import marked, tr

LINES = [marked("parallel to a side"), marked("at right angles to a side"), marked("from a vertex"), marked("at a bearing"),
         marked("through a point")]

CHOICES = [marked("by its number"), marked("by a column with its number"), marked("the longest side"), marked("the shortest side"),
           marked("nearest to a point"), marked("the side that faces a bearing"), marked("the side along another layer")]

AMOUNTS = [marked("area"), marked("share: 1/3 or 25%"), marked("equal parts"), marked("width of a strip"),
           marked("a list: 1000; 40x25; w12; 1/3")]
AREA, SHARE, PARTS, WIDTH, LIST = range(len(AMOUNTS))

# As many as the program takes. More would be a slip of the hand, and the memory of the machine.
_MOST_PARTS = 1000

# More are in no parcel, and no engine counts beyond.
_MOST_SIDES = 10 ** 9

_NUMBER = re.compile(r"\+?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)?")


def translated(texts):
    return [tr(text) for text in texts]


def line_parameters():
    yield QgsProcessingParameterEnum("LINE", tr("The line runs"), translated(LINES), defaultValue=PARALLEL)
    yield QgsProcessingParameterEnum("CHOICE", tr("The side, or the vertex, is"), translated(CHOICES), defaultValue=LONGEST)
    yield QgsProcessingParameterNumber("NUMBER", tr("its number, from 1"), defaultValue=1, minValue=1, optional=True)
    yield QgsProcessingParameterField("COLUMN", tr("its column"), parentLayerParameterName="INPUT", optional=True)
    yield QgsProcessingParameterPoint("POINT", tr("the point: nearest to it, or the line runs through it"), optional=True)
    yield QgsProcessingParameterNumber("BEARING", tr("the bearing, gons from North"), QgsProcessingParameterNumber.Double,
                                       defaultValue=0.0, optional=True)
    yield QgsProcessingParameterFeatureSource("ALONG", tr("the other layer: roads, neighbours"),
                                              [QgsProcessing.TypeVectorLine, QgsProcessing.TypeVectorPolygon],
                                              optional=True)
    yield QgsProcessingParameterDistance("DISTANCE", tr("which lies no farther away than"), defaultValue=10.0,
                                         parentParameterName="INPUT", optional=True)
    yield QgsProcessingParameterBoolean("OPPOSITE", tr("What is asked lies on the far side of the line"), defaultValue=False)
    yield QgsProcessingParameterBoolean("ANY_PIECES", tr("The whole straight line cuts, into however many pieces"),
                                        defaultValue=False)


def amount_parameters():
    yield QgsProcessingParameterEnum("AMOUNT", tr("What is asked"), translated(AMOUNTS), defaultValue=SHARE)
    yield QgsProcessingParameterString("VALUE", tr("how much"), defaultValue="1/2", optional=True)
    yield QgsProcessingParameterField("VALUE_COLUMN", tr("or the column that says how much"), parentLayerParameterName="INPUT",
                                      optional=True)
    yield QgsProcessingParameterNumber("DECIMALS", tr("Decimals to which lines are staked out (none: all digits)"), optional=True,
                                       minValue=0, maxValue=17)
    yield QgsProcessingParameterNumber("TOLERANCE", tr("with decimals, a piece may miss this part of the parcel"),
                                       QgsProcessingParameterNumber.Double, defaultValue=1e-6, minValue=0.0)


class LineRequest:
    """The line that the parameters ask for, parcel by parcel."""

    def __init__(self, algorithm, parameters, context, source, plane):
        self._line = algorithm.parameterAsEnum(parameters, "LINE", context)
        self._choice = algorithm.parameterAsEnum(parameters, "CHOICE", context)
        self._number = algorithm.parameterAsInt(parameters, "NUMBER", context)
        self._column = _column(algorithm, parameters, "COLUMN", context, source)
        self._bearing = algorithm.parameterAsDouble(parameters, "BEARING", context)
        has_point = parameters.get("POINT") not in (None, "")
        point = algorithm.parameterAsPoint(parameters, "POINT", context, plane.crs) if has_point else None
        self._point = (point.x(), point.y()) if has_point else None
        self.opposite = algorithm.parameterAsBoolean(parameters, "OPPOSITE", context)
        self.any_pieces = algorithm.parameterAsBoolean(parameters, "ANY_PIECES", context)
        self._other = algorithm.parameterAsSource(parameters, "ALONG", context)
        self._check()
        self._value = self._value_of_choice(algorithm, parameters, context, plane)

    def _value_of_choice(self, algorithm, parameters, context, plane):
        """What the choice needs to be told; None when that differs from parcel to parcel, or there is nothing."""
        if self._choice == FACING:
            return self._bearing
        if self._choice == NEAREST:
            return self._point
        if self._choice == ALONG and self._has_choice():
            distance = algorithm.parameterAsDouble(parameters, "DISTANCE", context)
            if not 0.0 < distance < math.inf:
                raise QgsProcessingException(tr("Say how far away the other layer may lie, as a number above 0."))
            lines = lines_of(self._other, plane, context)
            if not lines["coordinates"]:
                raise QgsProcessingException(tr("The other layer has no lines and no boundaries."))
            return Alongside(lines, distance)
        return None

    def _check(self):
        if self._point is None and (self._line == POINT or (self._has_choice() and self._choice == NEAREST)):
            raise QgsProcessingException(tr("Say where the point is."))
        if self._has_choice() and self._choice == COLUMN and self._column is None:
            raise QgsProcessingException(tr("Say which column has the number of the side or the vertex."))
        if self._has_choice() and self._choice == ALONG and self._other is None:
            raise QgsProcessingException(tr("Say which other layer the side runs along."))
        if self._line == VERTEX and self._choice not in (NUMBER, COLUMN, NEAREST):
            raise QgsProcessingException(tr("A vertex is named by its number, by a column, or as the nearest to a point; '{choice}' names "
                                            "sides.").format(choice=tr(CHOICES[self._choice])))

    def _has_choice(self):
        return self._line in (PARALLEL, PERPENDICULAR, VERTEX)

    def line(self, feature):
        """The line of one parcel. Raises Unusable where its column does not name a side."""
        if not self._has_choice():
            return Line(self._line, bearing=self._bearing, point=self._point)
        if self._choice == COLUMN:
            return Line(self._line, *self._by_column(feature))
        if self._choice == NUMBER:
            return Line(self._line, NUMBER, _counted(self._number))
        return Line(self._line, self._choice, self._value)

    def _by_column(self, feature):
        """How its column names a side or a vertex: by number, or as the longest or the shortest side."""
        given = str(_in_column(feature, self._column)).strip()
        if given in _EXTREMES and self._line != VERTEX:
            return _EXTREMES[given], None
        number = float(given) if _NUMBER.fullmatch(given) else math.nan
        if not number.is_integer():
            raise Unusable(tr("its column {column} has no number: {given}").format(column=self._column, given=given))
        return NUMBER, _counted(int(number))


_EXTREMES = {"longest": LONGEST, "shortest": SHORTEST}


def _counted(number):
    if number > _MOST_SIDES:
        raise Unusable(tr("there is no side or vertex {number}").format(number=number))
    if number < 1:
        raise Unusable(tr("sides and vertices are counted from 1, not {number}").format(number=number))
    return number


def _column(algorithm, parameters, name, context, source):
    """The column that a parameter names, as the layer writes it, or None."""
    columns = algorithm.parameterAsFields(parameters, name, context)
    if not columns:
        return None
    at = source.fields().lookupField(columns[0])
    if at < 0:
        raise QgsProcessingException(tr("The layer has no column {column}.").format(column=columns[0]))
    return source.fields().at(at).name()


def _in_column(feature, column):
    """What a column holds. Raises Unusable where that is nothing."""
    given = feature[column]
    if given is None or str(given).strip() in ("", "NULL"):
        raise Unusable(tr("its column {column} is empty").format(column=column))
    return given


def lines_of(source, plane, context):
    """Everything that runs in a layer, as the geometry that plcalc takes."""
    request = QgsFeatureRequest().setDestinationCrs(plane.crs, context.transformContext()).setNoAttributes()
    lines = {}
    for feature in features_of(source, request):
        geometry = with_chords(feature.geometry())
        for number, vertex in enumerate(geometry.vertices()):
            at = geometry.vertexIdFromVertexNr(number)[1]
            lines.setdefault((feature.id(), at.part, at.ring), []).append((vertex.x(), vertex.y()))
    return {"type": "MultiLineString", "coordinates": [line for line in lines.values() if len(line) > 1]}


class AmountRequest:
    """The amounts that the parameters ask for, parcel by parcel."""

    def __init__(self, algorithm, parameters, context, source):
        self._kind = algorithm.parameterAsEnum(parameters, "AMOUNT", context)
        self._value = algorithm.parameterAsString(parameters, "VALUE", context)
        self._column = _column(algorithm, parameters, "VALUE_COLUMN", context, source)
        if self._column is None:
            try:
                amount_of(self._kind, self._value)
            except ValueError as error:
                raise QgsProcessingException(tr("How much is asked cannot be read: {why}").format(why=error)) from None

    def amount(self, feature):
        """The amount of one parcel, as Asked has it. Raises Unusable where the column cannot be read."""
        if self._column is None:
            return amount_of(self._kind, self._value)
        given = _in_column(feature, self._column)
        try:
            return amount_of(self._kind, str(given), True)
        except ValueError as error:
            raise Unusable(tr("its column {column} cannot be read: {why}").format(column=self._column, why=error)) from None


def amount_of(kind, text, in_column=False):
    """What is asked, as Asked has it; kind is one of AMOUNTS. Raises ValueError for a text that is none.

    Semicolons part the amounts of a list, and in a column nothing else does, as for the program. Where there are none, commas do. A
    comma before decimals is refused: it could be read in two ways.
    """
    if not text.strip():
        raise ValueError(tr("nothing is there"))
    if kind == PARTS:
        return "parts", _parts(text)
    separator = "," if kind == LIST and not in_column and ";" not in text else ";"
    given = text.split(separator)
    if kind in (AREA, WIDTH) and len(given) == 1:
        return "area" if kind == AREA else "width", _positive(text)
    read = {SHARE: _share_in_column if in_column else _share, WIDTH: lambda one: f"w{_positive(one)!r}"}.get(kind, _listed)
    return "amounts", tuple("".join(read(one.strip()).split()) for one in given)


def _positive(text):
    value = float(text) if _NUMBER.fullmatch(text.strip()) else math.nan
    if not 0.0 < value < math.inf:
        raise ValueError(tr("'{text}' is not a number above 0, with a point before the decimals").format(text=text.strip()))
    return value


def _listed(text):
    """One of a list: an area, a width such as w5, a product of two lengths, or a share."""
    if text[:1] in ("w", "W"):
        return f"w{_positive(text[1:])!r}"
    if "/" in text or "%" in text:
        return _share(text)
    for length in text.split("x", 1):
        _positive(length)
    return text


def _share(text):
    part, slash, whole = text.partition("/")
    if not slash and not text.endswith("%"):
        raise ValueError(tr("'{text}' is not a share; write it as 1/3 or 25%").format(text=text))
    if not (_positive(part) < _positive(whole) if slash else _positive(text[:-1]) < 100.0):
        raise ValueError(tr("'{text}' is not less than the whole parcel").format(text=text))
    return text


def _share_in_column(text):
    """There a share may be a number below 1."""
    return _share(f"{text}/1" if _NUMBER.fullmatch(text) else text)


class Request:
    """All that the parameters ask for, parcel by parcel."""

    def __init__(self, algorithm, parameters, context, source, plane):
        self._line = LineRequest(algorithm, parameters, context, source, plane)
        self._amount = AmountRequest(algorithm, parameters, context, source)
        self._tolerance = algorithm.parameterAsDouble(parameters, "TOLERANCE", context)
        self.decimals = None
        if parameters.get("DECIMALS") is not None:
            self.decimals = algorithm.parameterAsInt(parameters, "DECIMALS", context)

    def of(self, feature):
        """What is asked of one parcel. Raises Unusable where its columns do not say it."""
        return Asked(self._line.line(feature), self._amount.amount(feature), self._line.opposite, self._line.any_pieces,
                     self.decimals, self._tolerance)


def _parts(text):
    number = float(text) if _NUMBER.fullmatch(text.strip()) else math.nan
    if not (number.is_integer() and 2 <= number <= _MOST_PARTS):
        raise ValueError(tr("parts are {least} to {most}").format(least=2, most=_MOST_PARTS))
    return int(number)
