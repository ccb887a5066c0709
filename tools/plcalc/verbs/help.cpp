#include "verbs/help.h"

#include "plcalc/version.h"

namespace tool {
namespace {

// Which parcel a verb reads that takes only one.
std::string one_feature()
{
    return R"(  --layer NAME          reads only this layer of the file
  --feature FID         reads only the feature with this number
  --where FILTER        reads only the feature that matches, as in
                        "owner = 'Rossi'"
)";
}

// How every verb reads its file.
std::string how_to_read()
{
    return R"(  --part N              reads only this polygon of a feature with several
  --columns NAMES       names of a table's columns, as in P,N,E,Z,D
  --crs CRS             the CRS of a file that states none, as EPSG:25832
  --axes en|ne          columns X and Y of a table: en where X is East, ne where
                        X is North; without it, the CRS decides
  --ground-factor F     areas and lengths are on the ground, where a length of 1
                        is F in the plane of the coordinates
  --arcs DISTANCE       puts chords in the place of arcs, no farther from them
                        than this; without it a boundary with arcs is refused
  --join GAP            joins lines of a drawing whose ends are this close; by
                        default, 0.001 where it has no closed boundary
  --inner hole|overlap  what a closed line of a drawing is that lies in another
                        on its layer: a hole of it, or a parcel over it; without
                        it, the outer one is refused. Closed lines on the layer
                        holes are holes
  --name-layer NAME     takes a parcel's name from the text inside it on this
                        layer of a drawing; any layer by default, if there is
                        one text only
  --angles UNIT         how angles are given and told: gon, deg, dms as in
                        12d34'56" or quadrant as in N12d34'56"E; a number alone
                        counts in degrees for the last three, else in gons
  --name-column COLUMN  takes the parcel's name from this column: tables and
                        messages call it feature 3 '1234/5', and its pieces are
                        1234/5a, 1234/5b, ...
  --any-scale           accepts a CRS whose lengths differ by more than a
                        thousandth from those on the ground, and what looks
                        like degrees without a CRS
)";
}

}  // namespace

std::string version_line()
{
    return "plcalc " + std::string(PlFunz_version()) + "\n";
}

std::string general_help()
{
    return R"(plcalc: plane surveying and land parcels

Usage: plcalc VERB ...

Verbs
  divide      finds the lines that cut requested areas off a parcel
  measure     prints area, perimeter, sides, bearings and angles of a parcel
  stakeout    prints angles, distances and right-angle offsets for setting out

Options
  -h, --help  prints this text; plcalc VERB --help explains a verb
  --version   prints the version

Messages on a terminal are coloured unless NO_COLOR is set.

Exit status
  0  done; every number printed is right
  1  out of memory, or the output could not be written
  2  wrong use: options, or a side, vertex, layer or feature that does not exist
  3  the file, its geometry or its coordinates cannot be used
  4  the parcel cannot be cut as asked
  With many parcels the output counts the refused ones by reason, and the
  status is the smallest of theirs.
)";
}

std::string divide_help()
{
    return R"(plcalc divide: finds the lines that cut requested areas off a parcel

Usage: plcalc divide FILE CUT AREA [OPTION ...]

FILE  any vector file that GDAL opens: GeoPackage, GeoJSON, Shapefile, DXF, ...,
      and LandXML.
      "-" stands for the standard input. Parcels are polygons, with holes or
      without, or closed lines; each polygon of a feature with several is a
      parcel. A text table needs a column WKT, or a vertex per row in
      columns E and N (or East and North, Easting and Northing, Est and Nord,
      Ost and Nord, Rechtswert and Hochwert, Este and Norte, X and Y), with Z
      for heights; there, rows with the same lot, parcel or plot are a parcel.
      Coordinates are plane, E to the East and N to the North, in any unit. Of
      a drawing, parcels are in model space, on layers that are shown.

CUT, one of
  --parallel SIDE       a line parallel to the side; the area lies along it
  --perpendicular SIDE  a line at right angles to the side; the area lies ahead
                        of the line, where the side runs to
  --vertex N            a line from vertex N; the area lies along side N, which
                        starts there
  --vertex-near E,N     the same from the vertex nearest to this point
  --vertex-from COLUMN  the same from the vertex whose number this column holds
  --bearing ANGLE       a line in this direction, clockwise from North; the area
                        lies on its right. ANGLE is in gons, as in 112.5, or in
                        degrees, as in 101.25d, 101d15'00" or S78-45-00E
  --along-segment E,N,E,N
                        a line in the direction from the first point to the
                        second, wherever they lie; the area lies on its right
  --place SIDE,DISTANCE a line from the place that lies so far along the side;
                        the area lies towards the side's end
  --through E,N         a line through a point inside, or from a point on the
                        boundary; the area lies on its right. The output says
                        how many such lines there are
  --alternative N       takes the N-th of the lines that hold the area
  --pieces two|any      any: the whole straight line cuts, and the area is all
                        that lies on its side of it, in however many pieces; a
                        point that it goes through may lie anywhere. Two by
                        default: the line makes exactly two pieces
  Vertices and sides count from 1 in the order of the file, without the vertex
  that closes the ring. Side 1 runs from vertex 1 to vertex 2, the last side
  from the last vertex to vertex 1. The vertices of holes are numbered on.

SIDE by what it is, with --parallel or --perpendicular and no number
  --side longest|shortest
                        by its length from vertex to vertex
  --side-near E,N       the side nearest to this point
  --facing ANGLE        the side that faces this bearing, out of the parcel: 200
                        faces South
  --along FILE[:LAYER]  the side along a road or a neighbour's boundary: the one
                        with the greatest length before which there is a line of
                        FILE, near enough and turned no more than 25 gons away
  --side-from COLUMN    the side whose number this column of the parcels holds,
                        or longest or shortest
  --within DISTANCE     how near that line must come; 20 m without it
  The output says which side it is, by how much, and which comes next. Lengths
  within 0.001 and bearings within 0.01 gon of each other are a tie: the parcel
  is refused, and the sides are named.

AREA, one of
  --area A              the area, in the square of the file's unit
  --product A B         the area as the product of two lengths
  --share S             a share of the parcel: 1/3 or 25%
  --width W             a strip so wide, or so much frontage along the side of
                        --perpendicular; the area follows from it
  --areas LIST          several of these, cut off one after another, a width as
                        w12: 1000,1/4,20x35,w12
  --areas FILE.csv      the areas of each parcel from a table: its first column
                        names the parcels, and has the name of a column of
                        theirs, or feature for their numbers; the others hold
                        the areas. See --name-column
  --area-from COLUMN    the area of each parcel from this column of theirs, or
                        several, as in 1200; 800
  --share-from COLUMN   the share of each parcel: 0.25, 1/4 or 25%
  --parts COUNT         equal parts
  --opposite            puts the area on the other side: beyond the line, behind
                        it, on its left, or along the side that ends at the
                        vertex

Options
  --decimals N          rounds the ends of the lines to N decimals, or to more
                        if those do not hold the areas; without it to 4, or to
                        more in a small parcel
  --tolerance SHARE     how far an area may be off, as a share of the parcel:
                        1/10000 or 0.01%; a millionth without it
  --layer NAME          reads only this layer of the file, or of the drawing
  --feature FID         reads only the feature with this number, as ogrinfo -al
                        FILE lists it; without it, every parcel is divided
  --where FILTER        reads only features that match, as in "owner = 'Rossi'"
)" + how_to_read() +
           R"(  -o, --output OUT      writes the pieces and the lines as layers of OUT. The
                        ending of OUT chooses the format, GeoPackage if there is
                        none; a format of one layer gets the lines in a second
                        file. Columns and CRS of the parcels come along, and
                        lines and areas are those printed. OUT.dxf is a drawing
                        with closed polylines, lines, new points and labels on
                        layers of their own, in the unit of the CRS; OUT.xml is
                        LandXML, with parcels and points.
  --format ENDING       with -o -, which writes the pieces to the standard
                        output: their format, as geojson; formats of one layer
                        leave the lines out
  --plan PLAN           draws a plan at a round scale to PLAN.pdf, PLAN.svg or
                        PLAN.png, with tables of pieces, lines and points.
                        What one sheet does not hold goes to further sheets:
                        pages of the PDF, or PLAN-2.svg, PLAN-3.svg, ...
  --paper A4|A3         the paper of the plan; A4 by default
  --area-decimals N     decimals of the areas on the plan; without it they are
                        whole, or show two digits of a small piece
  --title KEY=VALUE     an entry of the plan's title block, as in Client=Rossi;
                        may be given several times
  --title-block FILE    the same from a text file, an entry in every line
  --report REPORT       writes a report to REPORT.txt or REPORT.md: parcel,
                        request, method, new points, pieces, checks; or why the
                        parcel cannot be cut as asked
  --points POINTS.csv   writes name, E, N, Z where the parcel has heights, and
                        code of all points: NEW or CORNER
  --neighbours          inserts new points on a side that neighbours share
                        there too, so that no gap and no overlap is left:
                        parcels of the layer that are not divided go to the
                        layer neighbours of OUT, or to OUT-neighbours
  --shared-within D     boundaries no farther apart are one; 0.001 without it
  --overwrite           replaces files that exist, but never FILE; in a
                        GeoPackage or SQLite file only the layers that are
                        written
  --jobs N              divides so many parcels at a time; by default as many as
                        the machine has processors; the results are the same
  --json                prints JSON with the same numbers
  -h, --help            prints this text

The output gives the ends of the lines, the areas of the pieces, and the area
and perimeter of the parcel. The pieces have the rounded ends as corners, and
their areas are proven with them: every piece holds its area to within a
millionth of the parcel's. Print, JSON, OUT and PLAN show the same lines. Where
there is no such line, plcalc prints one line on stderr and nothing else, and
the exit status says why (see plcalc --help). With many parcels it lists those
that it could divide and counts the others by reason.

Examples
  plcalc divide examples/published.csv --perpendicular 4 --area 9000
  plcalc divide examples/convex.csv --parallel 2 --parts 3 --plan plan.pdf
  plcalc divide examples/utm-convex.geojson --parallel 2 --share 25% --json
  plcalc divide examples/convex.csv --bearing N45E --areas w20,1/4
  plcalc divide lots.gpkg --perpendicular 1 --share 1/2 -o halves.gpkg
  plcalc divide lots.gpkg --where "owner = 'Rossi'" --vertex 1 --product 20 35.5
)";
}

std::string measure_help()
{
    return R"(plcalc measure: prints area, perimeter, sides, bearings and angles of a parcel

Usage: plcalc measure FILE [OPTION ...]

FILE  parcels as plcalc divide takes it (see plcalc divide --help)

The output gives the area, the perimeter and the direction of the ring, the
length and the bearing of every side, and the angle inside the parcel at every
vertex. Bearings count from North towards East. Angles are in gons, 400 to the
circle, and in degrees. A side between two equal vertices has no bearing: "-".
Of several parcels it gives area and perimeter, a parcel in each row, and counts
those that it refuses by reason; JSON has the sides and angles of them all.

Options
)" + one_feature() +
           how_to_read() + R"(  --csv                 prints CSV for spreadsheets, a parcel in each row
  --json                prints JSON with the same numbers
  -h, --help            prints this text

Examples
  plcalc measure examples/published.csv
  plcalc measure examples/utm-convex.geojson --feature 17 --json
)";
}

std::string stakeout_help()
{
    return R"(plcalc stakeout: prints angles, distances and offsets for setting points out

Usage: plcalc stakeout FILE --station PLACE --orientation PLACE [OPTION ...]

FILE   a parcel as plcalc divide takes it (see plcalc divide --help)
PLACE  E,N in the file's coordinates, the name of a point in FILE or in one of
       the lists below, or the number of a vertex: 3, or "vertex 3" where a
       point has the name 3

What is set out
  CUT AREA              the ends of the dividing lines, with the options of
                        plcalc divide: --parallel SIDE --area A, ..., as well
                        as --decimals N and --tolerance SHARE
  --point PLACE         a point of your own; may be given several times
  --points-from LIST    all points of a text table with columns name, E and N,
                        as plcalc divide writes its new points
  Without any of these, the vertices of the parcel are set out.

Options
  --station PLACE       where the instrument stands
  --orientation PLACE   where its circle reads 0
  --control LIST        a table like that of --points-from, with points that are
                        named but not set out, such as stations
  --base SIDE           base line of the offsets; without it, the side of the
                        cut, or side 1 where nothing is cut
  --points POINTS.csv   writes name, E, N and code of the points, as field
                        controllers read them: P1, P2, ... as plcalc divide
                        calls them (NEW), corners (CORNER), others (POINT)
  --overwrite           replaces POINTS.csv if it exists
  --csv                 prints CSV for spreadsheets
  --json                prints JSON for programs
)" + one_feature() +
           how_to_read() + R"(  -h, --help            prints this text

Angles are in gons or as --angles says, clockwise from the orientation;
distances count from the station. "Along" counts from the first point of the
base line towards the second and is negative behind it. "Right" is the distance
at right angles to the line and is negative to its left. Angles have as many
decimals as the farthest point needs.

Examples
  plcalc stakeout examples/published.csv --station D --orientation A \
      --parallel 4 --area 6000
  plcalc stakeout examples/published.csv --station 360.5,290.25 \
      --orientation 3 --point 400,350 --csv
)";
}

}  // namespace tool
