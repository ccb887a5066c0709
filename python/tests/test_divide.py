"""Surveyors' Python: what a parcel may come as, every line and amount, refusals, results."""

import copy
import os
import pathlib
import pickle
import subprocess
import sys
import threading
from fractions import Fraction
from xml.etree import ElementTree

import numpy
import pytest
from shapely.geometry import LineString, MultiPolygon, Point, Polygon, mapping, shape

import plcalc
from plcalc import plparcel

LOT = [(0, 0), (100, 0), (100, 50), (0, 50)]
POND = [(45, 20), (55, 20), (55, 30), (45, 30)]
YARD = [(0, 0), (60, 0), (60, 20), (40, 20), (40, 50), (0, 50)]
# Its back to the South, two teeth to the North.
COMB = [(0, 0), (30, 0), (30, 30), (20, 30), (20, 10), (10, 10), (10, 30), (0, 30)]
GEOJSON = {"type": "Polygon", "coordinates": [[*LOT, LOT[0]]]}


class Geometry:
    __geo_interface__ = GEOJSON


@pytest.mark.parametrize("given", [
    LOT,
    numpy.array(LOT),
    numpy.array(LOT, dtype=float),
    numpy.asfortranarray(numpy.array(LOT, dtype=float)),
    numpy.array(LOT, dtype=float)[::-1][::-1],
    numpy.array([(x, y, 7.5) for x, y in LOT]),
    GEOJSON,
    {"type": "Feature", "geometry": GEOJSON, "properties": {}},
    {"type": "FeatureCollection", "features": [{"type": "Feature", "geometry": GEOJSON}]},
    {"type": "MultiPolygon", "coordinates": [GEOJSON["coordinates"]]},
    Geometry(),
    Polygon(LOT),
    "POLYGON ((0 0, 100 0, 100 50, 0 50))",
    "POLYGON((0 0,1e2 0,100. 50.0,0 50,0 0))",
    " SRID=32632;polygon z ((0 0 1, 100 0 2, 100 50 3, 0 50 4, 0 0 1)) ",
    "MULTIPOLYGON (((0 0, 100 0, 100 50, 0 50, 0 0)))",
    plcalc.parcel(LOT),
    Polygon(LOT).wkb,
    bytearray(MultiPolygon([Polygon(LOT)]).wkb),
    Polygon([(x, y, 7.5) for x, y in LOT]).wkb,
    b"\0\0\0\0\3\0\0\0\1\0\0\0\4" + numpy.array(LOT, dtype=">f8").tobytes(),
])
def test_what_a_parcel_may_come_as(given):
    line, = plcalc.divide(given, parallel_to=0, area=1000).lines
    assert (line.start, line.end) == ((0, 10), (100, 10))


@pytest.mark.parametrize("given", [
    Polygon(LOT, [POND]),
    mapping(Polygon(LOT, [POND])),
    Polygon(LOT, [POND]).wkt,
])
def test_holes_come_with_it(given):
    assert plcalc.measure(given).area == 4900
    division = plcalc.divide(given, parallel_to=0, area=1000)
    assert len(division.pieces[1].holes) == 1 and division.pieces[1].area == 3900
    assert shape(division.pieces[1]).area == pytest.approx(3900)


@pytest.mark.parametrize("given, error", [
    ("POINT (1 2)", ValueError),
    ("POLYGON ((0 0, 1 1, 2 0)", ValueError),
    ("POLYGON ((0 0, 1 1, 2 x))", ValueError),
    ("POLYGON EMPTY", ValueError),
    ("MULTIPOLYGON (((0 0, 1 0, 1 1)), ((5 5, 6 5, 6 6)))", ValueError),
    ({"type": "LineString", "coordinates": LOT}, ValueError),
    ({"type": "MultiPolygon", "coordinates": [[LOT], [POND]]}, ValueError),
    ({"type": "FeatureCollection", "features": []}, ValueError),
    ({}, ValueError),
    ([1, 2, 3], ValueError),
    (numpy.zeros((3, 4, 5)), ValueError),
    ("", ValueError),
    (Polygon(LOT).wkb[:-1], ValueError),
    (Polygon(LOT).wkb[:11], ValueError),
    (Point(1, 2).wkb, ValueError),
    (b"", ValueError),
    (None, TypeError),
    (object(), TypeError),
])
def test_what_is_no_parcel(given, error):
    with pytest.raises(error):
        plcalc.divide(given, parallel_to=0, area=1000)


def test_long_wkt_is_read_in_one_go():
    angles = numpy.linspace(0.0, 2.0 * numpy.pi, 20000, endpoint=False)
    wkt = "POLYGON ((" + ", ".join(f"{x!r} {y!r}" for x, y in zip(numpy.cos(angles), numpy.sin(angles))) + "))"
    assert plcalc.measure(wkt).area == pytest.approx(numpy.pi, rel=1e-6)
    with pytest.raises(ValueError):
        plcalc.parcel(wkt[:-2])


@pytest.mark.parametrize("line", [
    {"parallel_to": 1}, {"perpendicular_to": 1}, {"through_vertex": 1}, {"at_bearing": 33.3},
    {"along": [(0, 0), (100, 57.5)]}, {"along": LineString([(0, 0), (100, 57.5)])}, {"through_place": (5, 25)},
    {"through_point": (20, 20), "bearing": 10}, {"through_point": Point(20, 20)}, {"parallel_to": (1, 0)},
])
def test_every_kind_of_line(line):
    division = plcalc.divide(YARD, **line, share="1/3", raise_on_refusal=False)
    assert [round(piece.area, 6) for piece in division.pieces] == [800, 1600], division.reason
    assert sum(shape(piece).area for piece in division.pieces) == pytest.approx(2400)


@pytest.mark.parametrize("amount, first", [
    ({"area": 1000}, 1000), ({"area": [1000, 500]}, 1000), ({"area": numpy.array([1000, 500])}, 1000),
    ({"product": (20, 50)}, 1000), ({"product": [(20, 50), (1, 2)]}, 1000), ({"share": "1/5"}, 1000),
    ({"share": " 20 % "}, 1000), ({"share": Fraction(1, 5)}, 1000), ({"share": (1, 5)}, 1000), ({"share": 0.2}, 1000),
    ({"share": ["1/5", "1/5"]}, 1000), ({"width": 10}, 1000), ({"parts": 5}, 1000),
    ({"amounts": ["1000", "1/5", "20x50", "10%", plcalc.width(3)]}, 1000), ({"amounts": [plcalc.share(1, 5)]}, 1000),
    ({"amounts": [1000.0]}, 1000),
])
def test_every_kind_of_amount(amount, first):
    division = plcalc.divide(LOT, parallel_to=0, **amount)
    assert division.pieces[0].area == pytest.approx(first, abs=5e-6)
    assert len(division.pieces) == len(division.lines) + 1


@pytest.mark.parametrize("wrong, error", [
    ({"share": "1/3"}, TypeError),
    ({"parallel_to": 0}, TypeError),
    ({"parallel_to": 0, "perpendicular_to": 1, "share": "1/3"}, TypeError),
    ({"parallel_to": 0, "share": "1/3", "area": 5}, TypeError),
    ({"parallel_to": 0, "bearing": 5, "area": 5}, TypeError),
    ({"parallel_to": -1, "area": 5}, ValueError),
    ({"parallel_to": 1.5, "area": 5}, TypeError),
    ({"parallel_to": 0, "share": "a third"}, ValueError),
    ({"parallel_to": 0, "share": "1/3/4"}, ValueError),
    ({"parallel_to": 0, "parts": 1}, ValueError),
    ({"parallel_to": 0, "amounts": ["x"]}, ValueError),
])
def test_what_is_no_request(wrong, error):
    with pytest.raises(error):
        plcalc.divide(LOT, **wrong)


@pytest.mark.parametrize("request_, status", [
    ({"parallel_to": 0, "area": 5000}, "amount_too_large"),
    ({"parallel_to": 0, "area": float("nan")}, "unusable_amount"),
    ({"parallel_to": 9, "area": 5}, "no_such_index"),
    ({"parallel_to": 0, "share": "1/3", "decimals": 40}, "unusable_rounding"),
    ({"through_point": (50, 25), "share": "1/3"}, "no_line_through_point"),
])
def test_refusals(request_, status):
    with pytest.raises(plcalc.Refused) as caught:
        plcalc.divide(LOT, **request_)
    refused = caught.value
    division = plcalc.divide(LOT, **request_, raise_on_refusal=False)
    assert not division and division.status == refused.status == status
    assert refused.reason == division.reason and refused.reason in str(refused) and status in repr(division)
    assert division.lines == division.pieces == ()


def test_what_could_be_had():
    with pytest.raises(plcalc.Refused) as caught:
        plcalc.divide(LOT, through_point=(50, 25), share="1/3")
    (least, most), = caught.value.feasible
    assert least == pytest.approx(2500) and most == pytest.approx(2500) and "2500" in str(caught.value)
    assert plcalc.feasible(LOT, through_point=(50, 25)) == ((least, most),)
    assert plcalc.feasible(LOT, parallel_to=0) == ((0, 5000),)
    # The line from (60, 0) past the corner (40, 20): 200 on this side of the corner, 450 more beyond it.
    yard = plcalc.divide(YARD, through_vertex=1, area=400, raise_on_refusal=False)
    assert not yard and yard.feasible == ((0, 200), (650, 2400))
    assert plcalc.feasible([(0, 0), (10, 10), (10, 0), (0, 10)], parallel_to=0) == ()


def test_other_lines_that_can_hold_it():
    with pytest.raises(plcalc.Refused) as caught:
        plcalc.divide(COMB, parallel_to=0, area=450)
    assert caught.value.alternatives == caught.value.division.alternatives
    assert {"perpendicular_to": 0, "opposite": False} in caught.value.alternatives
    for line in caught.value.alternatives:
        assert plcalc.divide(COMB, **line, area=450).pieces[0].area == pytest.approx(450)
    assert plcalc.divide(COMB, parallel_to=0, width=900, raise_on_refusal=False).alternatives == ()
    assert plcalc.divide(COMB, parallel_to=0, amounts=[], raise_on_refusal=False).alternatives == ()


def test_every_line_that_holds_it():
    halves = plcalc.all_divisions(COMB, parallel_to=0, opposite=True, area=100)
    assert sorted(line.start[0] + line.end[0] for half in halves for line in half.lines) == [10, 50]
    for number, half in enumerate(halves):
        assert plcalc.divide(COMB, parallel_to=0, opposite=True, area=100, alternative=number).lines[0].start == \
            half.lines[0].start
    refused, = plcalc.all_divisions(COMB, parallel_to=plcalc.facing(200), area=450)
    assert not refused and refused.status == "line_leaves_parcel" and refused.feasible == ((0, 300), (500, 700))


def test_lines_from_a_hole():
    lot = Polygon(LOT, [POND])
    for line in ({"through_vertex": (2, 1)}, {"through_vertex": plcalc.nearest_to((54, 29))},
                 {"through_place": (1, 10, 1)}, {"parallel_to": (0, 1)}):
        division = plcalc.divide(lot, **line, share="1/2", any_pieces=True)
        assert division.held[0][1] == pytest.approx(2450)
    with pytest.raises(TypeError):
        plcalc.divide(lot, through_place=(1, 10, 1, 1), share="1/3", any_pieces=True)


def test_a_refusal_names_the_boundary():
    division = plcalc.divide([(0, 0), (10, 10), (10, 0), (0, 10)], parallel_to=0, area=1, raise_on_refusal=False)
    assert division.status == "unusable_boundary" and "crosses" in division.reason
    assert division.report.meeting_sides == (0, 2)


def test_answers_are_frozen():
    division = plcalc.divide(LOT, parallel_to=0, area=1000)
    for thing, name in ((division, "parcel"), (division.lines[0], "start"), (division.pieces[0], "area")):
        with pytest.raises(AttributeError):
            setattr(thing, name, 1)
    with pytest.raises(ValueError):
        division.pieces[0].ring[0, 0] = 7.0


def test_rings_lie_in_the_answer_and_outlive_it():
    division = plcalc.divide(LOT, parallel_to=0, area=1000)
    ring = division.pieces[0].ring
    assert ring.base is not None and not ring.flags.owndata
    del division
    assert sorted(map(tuple, ring.tolist())) == [(0, 0), (0, 10), (100, 0), (100, 10)]


def test_figures_of_a_line():
    line, = plcalc.divide(LOT, parallel_to=0, area=1000).lines
    assert line.length == 100 and line.bearing == 100 and line.segments == (((0, 10), (100, 10)),)
    assert shape(line).length == 100 and not line.meets_again
    parted, = plcalc.divide(Polygon(LOT, [POND]), parallel_to=0, share="1/2", any_pieces=True).lines
    assert shape(parted).geom_type == "MultiLineString" and shape(parted).length == 90


def test_as_it_is_staked_out():
    division = plcalc.divide(LOT, parallel_to=0, share="1/3", decimals=2, tolerance=1e-3)
    assert division.decimals == 2 and division.lines[0].start == (0, 16.67)
    assert division.lines[0].segments == (((0, 16.67), (100, 16.67)),)
    assert division.pieces[0].residual == pytest.approx(1667 - 5000 / 3)


def test_geo_interface_reads_as_a_layer():
    division = plcalc.divide(YARD, perpendicular_to=0, parts=3)
    features = division.__geo_interface__["features"]
    assert [feature["properties"]["piece"] for feature in features] == [0, 1, 2]
    assert sum(shape(feature["geometry"]).area for feature in features) == pytest.approx(2400)


def test_plan_is_drawn():
    for division in (plcalc.divide(YARD, perpendicular_to=0, parts=3),
                     plcalc.divide(Polygon(LOT, [POND]), parallel_to=0, share="1/2", any_pieces=True),
                     plcalc.divide(LOT, parallel_to=0, area=5000, raise_on_refusal=False),
                     plcalc.divide([(0, float("nan")), (1, 1), (2, 2)], parallel_to=0, area=1, raise_on_refusal=False)):
        drawing = ElementTree.fromstring(division._repr_svg_())
        assert drawing.tag.endswith("svg")
    text = plcalc.divide(YARD, perpendicular_to=0, parts=3)._repr_svg_()
    # A closing vertex has no number of its own, and what was refused says why.
    assert ">3<" in plcalc.divide(Polygon(LOT), parallel_to=0, parts=2)._repr_svg_()
    assert ">4<" not in plcalc.divide(Polygon(LOT), parallel_to=0, parts=2)._repr_svg_()
    refused = plcalc.divide(LOT, parallel_to=0, area=5000, raise_on_refusal=False)
    assert f">{refused.reason}<" in refused._repr_svg_()
    assert text.count("800.00") == 3 and text.count("<line ") == 2
    assert "800.00" in plcalc.divide(YARD, perpendicular_to=0, parts=3).pieces[0]._repr_svg_()


def test_reprs_say_what_it_is():
    division = plcalc.divide(YARD, perpendicular_to=0, parts=3)
    assert repr(division) == "Division(2 lines, areas 800.0000, 800.0000, 800.0000)"
    assert repr(division.lines[0]) == "Line((32.0, 0.0) to (32.0, 50.0))"
    assert repr(division.pieces[2]) == "Piece(rest, area 800.0000, 4 vertices)"
    assert repr(plcalc.divide(LOT, parallel_to=0, parts=2)) == "Division(1 line, areas 2500.0000, 2500.0000)"
    many = repr(plcalc.divide(LOT, parallel_to=0, parts=100))
    assert many.startswith("Division(99 lines, areas 50.0000, ") and many.endswith("50.0000, and 94 more)")
    assert repr(plcalc.parcel(Polygon(LOT, [POND]))) == "Parcel(outer=<5 vertices>, holes=(<5 vertices>,))"
    assert repr(plcalc.width(3)) == "Amount(given=Given.as_width, first=3.0, second=1.0)"
    assert repr(plparcel.feasible(plcalc.parcel(LOT), plparcel.parallel_to(0))).startswith(
        "Feasible(refusal=None, ranges=(AmountRange(least=0.0, most=5000.0, ")


def test_threads_divide_at_the_same_time():
    """The lock is released: while one thread divides a large parcel, others go on."""
    angles = numpy.linspace(0.0, 2.0 * numpy.pi, 20000, endpoint=False)
    parcel = plcalc.parcel(numpy.column_stack((1000 * numpy.cos(angles), 500 * numpy.sin(angles))))
    wanted = plcalc.divide(parcel, parallel_to=0, parts=5).lines
    answers, ticks, done = [None] * 4, [0], threading.Event()

    def work(i):
        answers[i] = plcalc.divide(parcel, parallel_to=0, parts=5).lines

    def tick():
        while not done.is_set():
            ticks[0] += 1

    ticker = threading.Thread(target=tick)
    ticker.start()
    workers = [threading.Thread(target=work, args=(i,)) for i in range(4)]
    for worker in workers:
        worker.start()
    for worker in workers:
        worker.join()
    done.set()
    ticker.join()
    assert ticks[0] > 1000
    for lines in answers:
        assert [line.start for line in lines] == [line.start for line in wanted]


def test_layer_below_gives_the_same():
    request = plparcel.Request(plparcel.perpendicular_to(0), plparcel.equal_parts(3))
    answer = plparcel.divide(numpy.array(YARD, dtype=float), request)
    division = plcalc.divide(YARD, perpendicular_to=0, parts=3)
    assert answer.status == plparcel.Status.divided
    for mine, theirs in zip(division.pieces, answer.pieces):
        assert mine.area == theirs.area and numpy.array_equal(mine.ring, theirs.ring)
    alone, = plparcel.all_divisions(numpy.array(YARD, dtype=float), request)
    assert alone.pieces[0].area == division.pieces[0].area


@pytest.mark.skipif("PLCALC_ANSWERS" not in os.environ, reason="PLCALC_ANSWERS names the program that asks the C++ libraries")
def test_same_bits_as_the_libraries():
    source = pathlib.Path(__file__).resolve().parents[2]
    requests = source / "c/tests/hosts/requests.txt"
    wanted = subprocess.run([os.environ["PLCALC_ANSWERS"], requests], capture_output=True, text=True, check=True).stdout
    sys.path.insert(0, str(pathlib.Path(__file__).parent))
    import answers
    got = [*answers.answers(requests)]
    unknown = [i for i, line in enumerate(got) if line is None]
    wanted = wanted.splitlines()
    assert len(unknown) == 2 and all("no such kind" in wanted[i] for i in unknown)
    assert [line for line in got if line] == [line for i, line in enumerate(wanted) if i not in unknown]


def test_package_is_typed():
    assert (pathlib.Path(plcalc.__file__).parent / "py.typed").exists()
    assert copy.copy(plcalc.plparcel.Status.divided) == plparcel.Status.divided
    assert pickle.loads(pickle.dumps(plparcel.Status.divided)) == plparcel.Status.divided


SOUTH_ROAD = LineString([(-500, -8), (500, -8)])


@pytest.mark.parametrize("named, start, end", [
    (plcalc.facing(200), (0, 10), (100, 10)),
    (plcalc.facing(100), (90, 0), (90, 50)),
    (plcalc.nearest_to((50, -3)), (0, 10), (100, 10)),
    (plcalc.nearest_to(Point(120, 25)), (80, 0), (80, 50)),
    (plcalc.beside(SOUTH_ROAD, 10), (0, 10), (100, 10)),
    (plcalc.beside(Polygon([(0, -8), (100, -8), (50, -90)]), 10), (0, 10), (100, 10)),
])
def test_a_side_by_what_it_is(named, start, end):
    area = 1000 if start[0] != 90 else 500
    line, = plcalc.divide(LOT, parallel_to=named, area=area).lines
    assert (line.start, line.end) == (start, end)
    assert plcalc.feasible(LOT, parallel_to=named) == ((0, 5000),)


def test_a_vertex_by_what_it_is():
    line, = plcalc.divide(LOT, through_vertex=plcalc.nearest_to((-1, -1)), area=1000).lines
    assert (line.start, line.end) == ((0, 0), (100, 20))
    line, = plcalc.divide(LOT, through_vertex=plcalc.farthest(350), area=1000).lines
    assert line.start == (0, 50)
    with pytest.raises(TypeError, match="names vertices"):
        plcalc.divide(LOT, parallel_to=plcalc.farthest(0), area=1000)
    with pytest.raises(TypeError, match="names sides"):
        plcalc.divide(LOT, through_vertex=plcalc.longest, area=1000)


TURNED = [(500000.300, 4500000.700), (500060.194, 4500004.258), (500058.712, 4500029.214), (499998.817, 4500025.656)]


def test_sides_that_differ_by_rounding_are_tied():
    for named in (plcalc.longest, plcalc.shortest, plcalc.nearest_to((500029.5, 4500014.957))):
        with pytest.raises(plcalc.Undecided, match="several fit equally well"):
            plcalc.divide(TURNED, parallel_to=named, area=500)


def test_a_boundary_in_which_no_side_can_be_named():
    with pytest.raises(plcalc.Undecided, match="crosses or touches itself"):
        plcalc.divide([(0, 0), (10, 10), (10, 0), (0, 10)], parallel_to=plcalc.longest, area=5)


@pytest.mark.parametrize("named", [
    plcalc.longest, plcalc.shortest, plcalc.facing(200), plcalc.farthest(350), plcalc.nearest_to((1, 2)),
    plcalc.beside(SOUTH_ROAD, 10),
])
def test_names_and_what_they_miss_go_to_other_processes(named):
    assert repr(pickle.loads(pickle.dumps(named))) == repr(named)
    missed = plcalc.Undecided("tied", ((0, 0), (2, 0)), "several fit")
    again = pickle.loads(pickle.dumps(missed))
    assert (again.status, again.places, str(again)) == ("tied", ((0, 0), (2, 0)), "several fit")


def test_amounts_go_to_other_processes():
    for amount in (plcalc.area(5), plcalc.share("1/3"), plcalc.width(3), plcalc.product(2, 3)):
        again = pickle.loads(pickle.dumps(amount))
        assert (again.given, again.first, again.second) == (amount.given, amount.first, amount.second)


def digits(division):
    return [(piece.amount, piece.area, piece.ring.tolist(), [hole.tolist() for hole in piece.holes])
            for piece in division.pieces], [(line.start, line.end, line.segments) for line in division.lines]


@pytest.mark.parametrize("asked", [
    {"parallel_to": 1, "share": "1/3"},
    {"parallel_to": (2, 1), "area": 700, "any_pieces": True},
    {"perpendicular_to": 0, "amounts": ["500", "1/7", plcalc.width(3)], "decimals": 2},
    {"through_vertex": 2, "share": "40%", "opposite": True},
    {"at_bearing": 17.25, "area": 1234.5, "any_pieces": True},
    {"along": [(3, 4), (17, 29)], "area": 1100, "any_pieces": True},
    {"through_place": (0, 33.3), "share": "1/3"},
    {"through_point": (21, 33), "bearing": 40, "area": 1500},
])
def test_divisions_go_to_other_processes(asked):
    lot = plcalc.parcel({"type": "Polygon", "coordinates": [LOT, POND]})
    division = plcalc.divide(lot, **asked)
    again = pickle.loads(pickle.dumps(division))
    assert digits(again) == digits(division) and again.status == "divided" and again.decimals == division.decimals
    for piece in division.pieces:
        with pytest.raises(TypeError, match="division"):
            pickle.dumps(piece)


def test_refusals_go_to_other_processes():
    refused = plcalc.divide(LOT, parallel_to=0, area=6000, raise_on_refusal=False)
    again = pickle.loads(pickle.dumps(refused))
    assert not again and (again.status, again.reason, again.feasible) == (refused.status, refused.reason, refused.feasible)
    with pytest.raises(plcalc.Refused) as raised:
        plcalc.divide(LOT, parallel_to=0, area=6000)
    again = pickle.loads(pickle.dumps(raised.value))
    assert (str(again), again.status, again.alternatives) == (str(raised.value), raised.value.status, raised.value.alternatives)


def test_every_alternative_goes_to_other_processes():
    lines = plcalc.all_divisions(LOT, through_point=(50, 25), share="1/2")
    assert len(lines) > 1
    for division in lines:
        assert digits(pickle.loads(pickle.dumps(division))) == digits(division)


def test_a_list_of_amounts_as_text():
    areas = [piece.area for piece in plcalc.divide(LOT, parallel_to=0, amounts="1000,500").pieces]
    assert areas == pytest.approx([1000, 500, 3500])
    whole, rest = plcalc.divide(LOT, parallel_to=0, amounts="1234").pieces
    assert whole.area == pytest.approx(1234)


def test_neighbours_get_the_new_points():
    lot = plcalc.parcel([(0, 0), (100, 0), (100, 33.7), (0, 40.2)])
    north = plcalc.parcel([(0, 40.2), (100, 33.7), (100, 90), (0, 90)])
    division = plparcel.divide(lot, plparcel.perpendicular_to(0), [plcalc.share("1/3")], False, 0, False, 1, 1e-2)
    points = plparcel.new_points(lot, division)
    assert len(points) == 2
    shared = plparcel.SharedSides(points, 0.001, [lot, north])
    told = shared.with_points(north)
    assert told.inserted == 1 and not told.left_out
    corners = {tuple(vertex) for piece in plparcel.pieces_with_corners(lot, division) for vertex in piece.outer}
    assert {tuple(vertex) for vertex in told.parcel.outer} - corners == {(100, 90), (0, 90)}


def test_heights_of_new_points():
    lot = plcalc.parcel([(0, 0), (100, 0), (100, 50), (0, 50)])
    heights = plparcel.Heights(lot, [10, 20, float("nan")])
    line, = plcalc.divide(lot, perpendicular_to=0, share="1/4").lines
    assert heights.at(line.start if line.start[1] == 0 else line.end) == pytest.approx(17.5)
    assert heights.at((0, 0)) == 10
    assert heights.at((100, 50)) is None and heights.at((50, 25)) is None
    assert heights.at((50, 0.009)) is None and plparcel.Heights(lot, [10, 20], 2).at((50, 0.009)) == pytest.approx(15)


def test_broken_text_of_many_vertices_is_refused_at_once():
    vertices = ",".join(f"{500000 + i} {4500000 + i * i}" for i in range(20000))
    with pytest.raises(ValueError, match="not the WKT"):
        plcalc.parcel(f"POLYGON(({vertices};500000 4500000))")


def test_a_masked_vertex_is_unknown():
    ring = numpy.ma.array([(0, 0), (9, 0), (9, 9), (0, 9)], mask=[(0, 0), (0, 0), (1, 1), (0, 0)])
    assert not plcalc.divide(ring, parallel_to=0, area=5, raise_on_refusal=False)


def test_a_division_is_its_own_copy():
    division = plcalc.divide(LOT, parallel_to=0, area=1000)
    assert copy.copy(division) is division and copy.deepcopy(division) is division


def test_a_parcel_beyond_drawing_is_not_drawn():
    far = plcalc.divide([(-1e308, 0), (1e308, 0), (1e308, 1), (-1e308, 1)], parallel_to=0, area=1, raise_on_refusal=False)
    assert "inf" not in far._repr_svg_() and "nan" not in far._repr_svg_()


def test_a_side_that_is_not_told():
    with pytest.raises(plcalc.Undecided, match="sides 1, 3") as caught:
        plcalc.divide(LOT, parallel_to=plcalc.shortest, area=1000)
    assert (caught.value.status, caught.value.places) == ("tied", ((1, 0), (3, 0)))
    with pytest.raises(plcalc.Undecided, match="near enough") as caught:
        plcalc.divide(LOT, parallel_to=plcalc.beside(SOUTH_ROAD, 5), area=1000)
    assert (caught.value.status, caught.value.places) == ("too_far", ())
    with pytest.raises(TypeError, match="not along a Point"):
        plcalc.beside(Point(0, 0), 5)
    assert repr(plcalc.nearest_to((1, 2))) == "plcalc.nearest_to((1.0, 2.0))"
