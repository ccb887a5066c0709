"""Layers through GeoPandas."""

import geopandas
import pandas
import pytest
from shapely.geometry import Polygon

import plcalc

LOTS = [Polygon([(i * 100, 0), (i * 100 + 100, 0), (i * 100 + 100, 50 + i), (i * 100, 50)]) for i in range(4)]


def frame(**columns):
    return geopandas.GeoDataFrame({"owner": list("abcd"), **columns}, geometry=LOTS, crs=32632, index=[10, 20, 30, 40])


def test_pieces_in_order():
    pieces = plcalc.divide_frame(frame(), parallel_to=0, share="1/3")
    assert pieces.index.tolist() == [10, 10, 20, 20, 30, 30, 40, 40] and pieces.crs == 32632
    assert pieces["piece"].tolist() == [0, 1] * 4 and set(pieces["status"]) == {"divided"}
    for row, lot in zip(pieces.index.unique(), LOTS):
        own = pieces.loc[row]
        alone = plcalc.divide(lot, parallel_to=0, share="1/3")
        assert own["area"].tolist() == [piece.area for piece in alone.pieces]
        assert own.geometry.area.sum() == pytest.approx(lot.area)


def test_a_side_of_each_parcel():
    lots = frame()
    lots.loc[20, "geometry"] = Polygon([(200, 51), (100, 50), (100, 0), (200, 0)])
    pieces = plcalc.divide_frame(lots, parallel_to=plcalc.facing(200), share="1/2")
    assert pieces.index.tolist() == [10, 10, 20, 20, 30, 30, 40, 40]
    assert all(piece.bounds[1] == 0 for piece in pieces.geometry[::2])
    undecided = plcalc.divide_frame(frame(), parallel_to=plcalc.longest, share="1/2")
    assert undecided.loc[10, "status"] == "tied" and "sides 0, 2" in undecided.loc[10, "reason"]


def test_lines():
    lines = plcalc.divide_frame(frame(), lines=True, parallel_to=0, parts=3)
    assert len(lines) == 8 and lines["line"].tolist() == [0, 1] * 4
    assert lines.geometry.length.tolist() == pytest.approx(lines["length"].tolist())


def test_a_refused_parcel_is_a_row():
    lots = frame()
    lots.loc[20, "geometry"] = Polygon([(0, 0), (10, 10), (10, 0), (0, 10)])
    lots.loc[30, "geometry"] = None
    pieces = plcalc.divide_frame(lots, parallel_to=0, area=1000)
    assert pieces.index.tolist() == [10, 10, 20, 30, 40, 40]
    assert pieces.loc[20, "status"] == "unusable_boundary" and pieces.loc[20, "geometry"] is None
    assert pieces.loc[30, "status"] == "no_polygon" and "no geometry" in pieces.loc[30, "reason"]
    assert pandas.isna(pieces.loc[20, "area"]) and pieces.loc[20, "owner"] == "b"


def test_a_column_gives_each_row_its_own():
    lots = frame(wanted=[1000.0, 2000.0, 500.0, 1e9], area="kept")
    pieces = plcalc.divide_frame(lots, parallel_to=0, area=lots["wanted"])
    assert pieces[pieces["piece"] == 0]["area"].round(3).tolist() == [1000, 2000, 500]
    assert pieces.loc[40, "status"] == "amount_too_large" and pieces["parcel_area"].tolist() == ["kept"] * 7
    with pytest.raises(ValueError, match="index"):
        plcalc.divide_frame(frame(), parallel_to=0, area=pandas.Series([1, 2, 3, 4]))


def test_what_is_asked_wrongly_is_not_said_of_the_geometry():
    with pytest.raises(ValueError, match="parts are 2"):
        plcalc.divide_frame(frame(), parallel_to=0, parts=1)
    with pytest.raises(ValueError, match="counted from 0"):
        plcalc.divide_frame(frame(), parallel_to=-1, parts=2)
    lots = frame(wanted=pandas.Series([1000, None, "many", 500], index=[10, 20, 30, 40], dtype=object))
    pieces = plcalc.divide_frame(lots, parallel_to=0, area=lots["wanted"])
    assert pieces.index.tolist() == [10, 10, 20, 30, 40, 40]
    assert pieces.loc[20, "status"] == "no_amount" and pieces.loc[20, "reason"] == "area is empty"
    assert pieces.loc[30, "status"] == "unusable_request"


def test_a_column_called_geometry_is_kept():
    lots = frame(note="x").rename_geometry("geom")
    lots["geometry"] = "flat"
    pieces = plcalc.divide_frame(lots, parallel_to=0, share="1/2")
    assert set(pieces["parcel_geometry"]) == {"flat"} and pieces.geometry.notna().all()


def test_degrees_are_refused():
    with pytest.raises(ValueError, match="degrees"):
        plcalc.divide_frame(frame().set_crs(4326, allow_override=True), parallel_to=0, share="1/3")


def test_empty_frame():
    assert len(plcalc.divide_frame(frame().iloc[:0], parallel_to=0, share="1/3")) == 0
