#include "help.h"

namespace tool {

std::string version_line()
{
    return "plcalc " PLCALC_VERSION "\n";
}

std::string general_help()
{
    return R"(plcalc: plane surveying and land parcels

Usage: plcalc VERB ...

Verbs
  divide      the line that cuts a requested area off a parcel
  measure     area, perimeter, sides, bearings and angles of a parcel

Options
  -h, --help  this text; plcalc VERB --help tells about a verb
  --version   the version

Exit status
  0  done, every number printed is right
  1  out of memory, or the output could not be written
  2  wrong use: options, or a side, vertex, layer or feature that is not there
  3  input that cannot be used: the file, its geometry or its coordinates
  4  a parcel that cannot be cut as asked
)";
}

std::string divide_help()
{
    return R"(plcalc divide: the line that cuts a requested area off a parcel

Usage: plcalc divide FILE CUT AREA [--layer NAME] [--feature FID]

FILE  any vector file that GDAL opens: GeoPackage, GeoJSON, Shapefile, DXF, ...
      with the parcel as a polygon without holes or as a closed line;
      or CSV with a column WKT, or with a vertex per row in columns E and N
      (also East and North, Easting and Northing, Est and Nord, X and Y).
      Plane coordinates, E to the East and N to the North, in any unit.

CUT, one of
  --parallel SIDE       line parallel to the side; the area lies along the side
  --perpendicular SIDE  line at right angles to the side; the area lies ahead,
                        where the side runs to
  --vertex N            line from the vertex; the area lies along side N,
                        the one that starts there
  Vertices and sides count from 1 in the order of the file; the vertex that
  closes the ring is not counted. Side 1 runs from vertex 1 to vertex 2, the
  last side from the last vertex to vertex 1.

AREA, one of
  --area A              the area, in the square of the file's unit
  --product A B         the area as the product of two lengths

Options
  --layer NAME          only this layer of the file
  --feature FID         only the feature with this number; needed where the
                        file holds several parcels (ogrinfo -al FILE lists them)
  -h, --help            this text

Printed are the ends of the line, the areas on both sides of it as measured
afterwards, and the parcel's area and perimeter. The line is right as it is
printed, with its four decimals or, in a small parcel, more: it parts the
parcel in exactly two, and the piece holds the requested area to within a
millionth of the parcel's. Otherwise nothing is printed but one line on
stderr, and the exit status is not 0 (see plcalc --help).

Examples
  plcalc divide examples/published.csv --perpendicular 4 --area 9000
  plcalc divide examples/lot.dxf --vertex 3 --area 2500
  plcalc divide lots.gpkg --feature 12 --parallel 1 --product 20 35.5
)";
}

std::string measure_help()
{
    return R"(plcalc measure: area, perimeter, sides, bearings and angles of a parcel

Usage: plcalc measure FILE [--layer NAME] [--feature FID] [--json]

FILE  a parcel as plcalc divide takes it (see plcalc divide --help)

Printed are the area, the perimeter and the direction of the ring; for every
side its length and its bearing, from North towards East; for every vertex the
angle inside the parcel. Angles are in gons, 400 to the circle, and in degrees.
A side whose two vertices are one point has no bearing: "-".

Options
  --layer NAME          only this layer of the file
  --feature FID         only the feature with this number
  --json                for programs, with the same numbers
  -h, --help            this text

Examples
  plcalc measure examples/published.csv
  plcalc measure examples/utm-convex.geojson --feature 17 --json
)";
}

}  // namespace tool
