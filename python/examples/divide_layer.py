#!/usr/bin/env python3
"""divide_layer.py IN.gpkg OUT_FOLDER [SCHEDULER]: divides a layer that is larger than a machine's memory, in partitions.

Every partition reads its own rows of the layer, divides them, and writes its own GeoPackage. The numbers of the files keep
the order of the rows. SCHEDULER is the address of a Dask cluster; without it, two workers start on this machine.
"""

import math
import pathlib
import sys

import dask
import geopandas
from distributed import Client, LocalCluster
from fiona import open as open_layer

import plcalc

ROWS = 50000  # of one partition


def divide_rows(source, first, last, target, request):
    """Divides some rows, writes the pieces, and returns (parcels, pieces, refused)."""
    lots = geopandas.read_file(source, rows=slice(first, last))
    pieces = plcalc.divide_frame(lots, **request)
    refused = int((pieces["status"] != "divided").sum())
    pieces.to_file(target, driver="GPKG", layer="pieces")
    return len(lots), len(pieces) - refused, refused


def divide_layer(client, source, folder, rows=ROWS, **request):
    """Divides a layer on a cluster. Returns (parcels, pieces, refused)."""
    with open_layer(source) as layer:
        parts = math.ceil(len(layer) / rows)
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    tasks = [dask.delayed(divide_rows)(source, part * rows, (part + 1) * rows, str(folder / f"pieces-{part:05}.gpkg"),
                                       request) for part in range(parts)]
    counts = client.gather(client.compute(tasks))
    return tuple(map(sum, zip(*counts)))


def main():
    source, folder, *scheduler = sys.argv[1:]
    cluster = scheduler[0] if scheduler else LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None)
    with Client(cluster) as client:
        parcels, pieces, refused = divide_layer(client, source, folder, parallel_to=0, share="1/3", decimals=3)
    print(f"{parcels} parcels: {pieces} pieces, {refused} refused")


if __name__ == "__main__":
    main()
