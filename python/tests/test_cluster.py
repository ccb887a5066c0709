"""A layer on two workers: the same results in the same order as in one process."""

import pathlib
import sys

import geopandas
import pandas
import pytest
from shapely.geometry import Polygon

import plcalc

distributed = pytest.importorskip("distributed", reason="python3-distributed is needed")
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "examples"))

PAGE = pathlib.Path(__file__).resolve().parents[2] / "docs/clusters.md"


def test_two_workers_answer_as_one_process(tmp_path):
    import divide_layer

    shapes = [Polygon([(i * 100, 0), (i * 100 + 90, 0), (i * 100 + 80 + i % 7, 50 + i % 11), (i * 100, 40)])
              for i in range(500)]
    shapes[123] = Polygon([(0, 0), (10, 10), (10, 0), (0, 10)])
    lots = geopandas.GeoDataFrame({"number": range(500)}, geometry=shapes, crs=32632)
    source = str(tmp_path / "lots.gpkg")
    lots.to_file(source, driver="GPKG")

    request = {"parallel_to": 0, "share": "1/3", "decimals": 3}
    with distributed.LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None,
                                  local_directory=str(tmp_path)) as cluster, distributed.Client(cluster) as client:
        assert divide_layer.divide_layer(client, source, tmp_path / "pieces", rows=64, **request) == (500, 998, 1)
        page = PAGE.read_text(encoding="utf-8").split("```python\n")[1].split("```")[0]
        for shown, here in (("tcp://scheduler:8786", cluster.scheduler_address), ("country.gpkg", source),
                            ('"pieces"', repr(str(tmp_path / "by_the_page")))):
            assert shown in page
            page = page.replace(shown, here)
        said = {}
        exec(page, said)
        assert (said["parcels"], said["pieces"], said["refused"]) == (500, 998, 1)

    parts = sorted((tmp_path / "pieces").iterdir())
    assert len(parts) == 8
    together = pandas.concat([geopandas.read_file(part) for part in parts], ignore_index=True)
    alone = plcalc.divide_frame(geopandas.read_file(source), **request).reset_index(drop=True)
    assert together["number"].tolist() == alone["number"].tolist()
    assert together["status"].tolist() == alone["status"].tolist()
    for column in ("area", "asked", "residual"):
        assert together[column].fillna(-1).tolist() == alone[column].fillna(-1).tolist()
    mine = [shape.wkb if shape is not None else None for shape in together.geometry]
    assert mine == [shape.wkb if shape is not None else None for shape in alone.geometry]
