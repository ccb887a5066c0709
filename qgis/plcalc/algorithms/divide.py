from qgis.core import (QgsField, QgsGeometry, QgsProcessing, QgsProcessingOutputNumber, QgsProcessingParameterFeatureSink,
                       QgsWkbTypes)
from qgis.PyQt.QtCore import QVariant

from ..parcels import line_of, polygon_of
from ..requests import Request, amount_parameters, line_parameters
from ..styles import Styled
from ..words import marked, tr
from .base import OfParcels, Refusal, answers_in_order, as_high, joined, parcels

PIECE_FIELDS = [QgsField("parcel", QVariant.LongLong), QgsField("piece", QVariant.Int), QgsField("amount", QVariant.Int),
                QgsField("area", QVariant.Double), QgsField("asked", QVariant.Double),
                QgsField("residual", QVariant.Double), QgsField("status", QVariant.String)]
LINE_FIELDS = [QgsField("parcel", QVariant.LongLong), QgsField("line", QVariant.Int), QgsField("length", QVariant.Double),
               QgsField("bearing", QVariant.Double)]
POINT_FIELDS = [QgsField("parcel", QVariant.LongLong), QgsField("name", QVariant.String), QgsField("E", QVariant.Double),
                QgsField("N", QVariant.Double)]
REFUSED_FIELDS = [QgsField("parcel", QVariant.LongLong), QgsField("status", QVariant.String),
                  QgsField("reason", QVariant.String)]


class Divide(OfParcels):
    """Divides each parcel of a layer as asked, with proof.

    The line runs parallel to a side, at right angles to one, from a vertex, at a bearing or through a point. The side or the
    vertex has a number, is named by a column, or by what it is: the longest, the nearest to a point, the one that faces a
    bearing or lies along another layer. Sides are counted from 1: side 1 runs from the first vertex to the second. Those of holes
    are numbered on.

    The amounts are areas in square units of the CRS, shares of the parcel, equal parts, widths, or a list of them with
    semicolons between them. Each can come from a column. Decimals have a point before them.

    Pieces: with the columns of their parcel, its id, the piece's number and the number of its amount (the last one is what
    is left), the area, what was asked, and the difference. Lines: with length and bearing in gons. Points: the ends of the lines.
    Refused: parcels that no such line divides as asked, with the reason and what can be had.

    What is answered is proven: each piece holds its amount to a billionth of the parcel, or, with decimals, within the part of
    the parcel that is asked for. Vertices keep their heights; along a side heights change evenly.
    """

    NAME = "divide"
    TITLE = marked("Divide parcels")
    TAGS = ("split", "subdivide", "area", "share")
    PICTURES = ("parallel", "right-angles", "vertex", "bearing", "point", "two-pieces", "any-pieces")

    def initAlgorithm(self, config=None):
        super().initAlgorithm(config)
        self.addOutput(QgsProcessingOutputNumber("DIVIDED", tr("Number of parcels that are divided")))
        self.addOutput(QgsProcessingOutputNumber("NOT_DIVIDED", tr("Number of parcels that are refused")))

    def what_is_asked(self):
        return [*line_parameters(), *amount_parameters()]

    def results(self):
        sink = QgsProcessingParameterFeatureSink
        yield sink("PIECES", tr("Pieces"), QgsProcessing.TypeVectorPolygon)
        yield sink("LINES", tr("Lines"), QgsProcessing.TypeVectorLine, None, True)
        yield sink("POINTS", tr("Points"), QgsProcessing.TypeVectorPoint, None, True, False)
        yield sink("REFUSED", tr("Refused"), QgsProcessing.TypeVectorPolygon, None, True)

    def processAlgorithm(self, parameters, context, feedback):
        computes, source, plane = self.begin(parameters, context, feedback)
        if QgsWkbTypes.hasM(source.wkbType()):
            feedback.pushWarning(tr("The measures (M) of the vertices are left out."))
        request = Request(self, parameters, context, source, plane)
        sinks = Sinks(self, parameters, context, source, plane)
        given = parcels(source, plane, feedback)
        for feature, polygon, division in answers_in_order(given, lambda feature, shape: (shape, request.of(feature)),
                                                           computes.divide_all):
            if isinstance(division, Refusal) or not division:
                sinks.refuse(feature, polygon, division.status, division.reason)
            else:
                sinks.add(feature, division)
        feedback.pushInfo(tr("{divided} parcels are divided, {refused} are refused.").format(divided=sinks.divided,
                                                                                              refused=sinks.refused))
        if sinks.first_refused is not None:
            feedback.pushWarning(tr("The first one that is refused, {parcel}: {reason}").format(parcel=sinks.first_refused[0],
                                                                                             reason=sinks.first_refused[1]))
        if sinks.without_height:
            feedback.pushWarning(tr("{count} corners of pieces have no height, for a vertex at one of the two ends of their side has none, "
                                    "or they lie inside the parcel.").format(count=sinks.without_height))
        return {**sinks.ids, "DIVIDED": sinks.divided, "NOT_DIVIDED": sinks.refused}


class Sinks:
    """Where the results go."""

    def __init__(self, algorithm, parameters, context, source, plane):
        self.ids, self._sinks = {}, {}
        self.divided = self.refused = self.without_height = 0
        self.first_refused = None
        run = {}
        for name, own, flat in (("PIECES", PIECE_FIELDS, QgsWkbTypes.Polygon), ("LINES", LINE_FIELDS, QgsWkbTypes.MultiLineString),
                                ("POINTS", POINT_FIELDS, QgsWkbTypes.Point), ("REFUSED", REFUSED_FIELDS, QgsWkbTypes.Polygon)):
            fields = joined(source.fields(), own)
            kind = as_high(flat, source, measures=name == "REFUSED")
            sink, where = algorithm.sink(parameters, name, context, fields, kind, plane.crs)
            if sink is not None:
                self._sinks[name], self.ids[name] = sink, where
                self._style(name, own, where, context, run)

    def _style(self, name, own, where, context, run):
        if not context.willLoadLayerOnCompletion(where):
            return
        fields = self._sinks[name].fields
        first = fields.count() - len(own)
        names = {field.name(): fields.at(first + number).name() for number, field in enumerate(own)}
        context.layerToLoadOnCompletionDetails(where).setPostProcessor(Styled(name, names, run))

    def _put(self, name, feature, own, geometry=None):
        if name in self._sinks:
            self._sinks[name].add([*feature.attributes(), *own], geometry)

    def add(self, feature, division):
        self.divided += 1
        for number, piece in enumerate(division.pieces, 1):
            self._put("PIECES", feature, [feature.id(), number, piece.amount + 1, piece.area, piece.asked, piece.residual,
                                          division.status], polygon_of(piece.shape))
            self.without_height += sum(height is None for ring in piece.shape.heights or () for height in ring)
        point = 0
        for number, line in enumerate(division.lines, 1):
            self._put("LINES", feature, [feature.id(), number, line.length, line.bearing], line_of(line))
            ends = line_of(line)  # owns what its vertices lie in
            for end in ends.vertices():
                point += 1
                self._put("POINTS", feature, [feature.id(), f"P{point}", end.x(), end.y()], QgsGeometry(end.clone()))

    def refuse(self, feature, polygon, status, reason):
        self.refused += 1
        self.first_refused = self.first_refused or (feature.id(), reason)
        self._put("REFUSED", feature, [feature.id(), status, reason], polygon)
