#include "verbs/help.h"

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
  divide      the lines that cut requested areas off a parcel
  measure     area, perimeter, sides, bearings and angles of a parcel
  stakeout    angles, distances and right-angle offsets to set points out

Options
  -h, --help  this text; plcalc VERB --help tells about a verb
  --version   the version

Messages on a terminal are coloured unless NO_COLOR is set.

Exit status
  0  done, every number printed is right
  1  out of memory, or the output could not be written
  2  wrong use: options, or a side, vertex, layer or feature that is not there
  3  input that cannot be used: the file, its geometry or its coordinates
  4  a parcel that cannot be cut as asked
  Of many parcels the refused ones are counted by reason beside the divided
  ones, and the smallest of their statuses is returned.
)";
}

std::string divide_help()
{
    return R"(plcalc divide: the lines that cut requested areas off a parcel

Usage: plcalc divide FILE CUT AREA [OPTION ...]

FILE  any vector file that GDAL opens: GeoPackage, GeoJSON, Shapefile, DXF, ...
      with parcels as polygons without holes or as closed lines;
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
  --share S             a share of the parcel: 1/3 or 25%
  --areas LIST          several, cut off one after another: 1000,1/4,20x35
  --parts COUNT         equal parts
  --opposite            the area lies on the other side: beyond the line,
                        behind it, along the side before the vertex

Options
  --layer NAME          only this layer of the file
  --feature FID         only the feature with this number (ogrinfo -al FILE
                        lists them); otherwise every parcel of the layer
  --where FILTER        only features that fit, as in "owner = 'Rossi'"
  -o, --output OUT      writes the pieces and the lines as layers of OUT, in
                        the format of its ending (GeoPackage without one;
                        lines in a second file where a format holds one
                        layer), with the parcel's columns and CRS and with
                        all digits
  --plan PLAN           draws a plan, true to a round scale, to PLAN.pdf,
                        PLAN.svg or PLAN.png; --paper A3 instead of A4
  --overwrite           files that are there may be replaced
  --json                for programs, with the same numbers
  -h, --help            this text

Printed are the ends of the lines, the areas of the pieces as measured
afterwards, and the parcel's area and perimeter. A line is right as it is
printed, with its four decimals or, in a small parcel, more: it parts the
parcel in exactly two, and every piece holds its area to within a millionth of
the parcel's. Otherwise nothing is printed but one line on stderr, and the exit
status is not 0 (see plcalc --help). Of many parcels those that could be
divided are listed, the others counted by reason, and the exit status tells
that there were some.

Examples
  plcalc divide examples/published.csv --perpendicular 4 --area 9000
  plcalc divide examples/convex.csv --parallel 2 --parts 3 --plan plan.pdf
  plcalc divide examples/utm-convex.geojson --parallel 2 --share 25% --json
  plcalc divide lots.gpkg --perpendicular 1 --share 1/2 -o halves.gpkg
  plcalc divide lots.gpkg --where "owner = 'Rossi'" --vertex 1 --product 20 35.5
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
  --where FILTER        only the feature that fits, as in "owner = 'Rossi'"
  --json                for programs, with the same numbers
  -h, --help            this text

Examples
  plcalc measure examples/published.csv
  plcalc measure examples/utm-convex.geojson --feature 17 --json
)";
}

std::string stakeout_help()
{
    return R"(plcalc stakeout: angles, distances and right-angle offsets to set points out

Usage: plcalc stakeout FILE --station PLACE --orientation PLACE [OPTION ...]

FILE   a parcel as plcalc divide takes it (see plcalc divide --help)
PLACE  E,N in the file's coordinates, or the number of a vertex

Set out are
  the ends of the dividing lines, where a cut and an area are asked for as of
  plcalc divide: --parallel SIDE --area A, --vertex N --parts COUNT, ...
  --point PLACE         a point of your own; may be given several times
  the vertices of the parcel, without any of these

Options
  --station PLACE       where the instrument stands
  --orientation PLACE   where its circle reads 0
  --base SIDE           base line of the offsets; otherwise the side of the cut,
                        or side 1
  --csv                 for spreadsheets
  --json                for programs
  --layer NAME          only this layer of the file
  --feature FID         only the feature with this number
  --where FILTER        only the feature that fits, as in "owner = 'Rossi'"
  -h, --help            this text

Angles are in gons, clockwise from the orientation; distances from the station.
"Along" counts from the first point of the base line towards the second and is
negative behind it; "Right" is the distance at right angles, negative to the
left. Angles have as many decimals as the farthest point needs.

Examples
  plcalc stakeout examples/published.csv --station 4 --orientation 1 \
      --parallel 4 --area 6000
  plcalc stakeout examples/published.csv --station 360.5,290.25 \
      --orientation 3 --point 400,350 --csv
)";
}

}  // namespace tool
