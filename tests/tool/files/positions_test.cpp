// How many numbers the positions of a geometry have, and heights that are missing beside others.

#include "files/positions.h"

#include <cmath>
#include <memory>

#include "program.h"

namespace {

using Sizes = std::vector<int>;

TEST(Positions, OfJsonHaveAsManyNumbersAsStandThere)
{
    const struct {
        const char* what;
        const char* json;
        Sizes sizes;
    } rows[] = {
        {"a point", R"({"type":"Point","coordinates":[1,2]})", {2}},
        {"a line", R"({"coordinates":[[1,2],[3,4,5],[6,7]]})", {2, 3, 2}},
        {"rings", R"({"coordinates":[[[1,2],[3,4,5]],[[6,7,8],[9,10]]]})", {2, 3, 3, 2}},
        {"blanks and lines", "{ \"coordinates\" :\n[ [ 1 , 2 ] ,\t[ 3 , 4 , 5 ] ]\r\n}", {2, 3}},
        {"numbers of every form", R"({"coordinates":[[-1.5e+3,+2E-1],[0,.5,-6]]})", {2, 3}},
        {"nothing in it", R"({"coordinates":[]})", {}},
        {"other lists before", R"({"bbox":[1,2,3,4],"coordinates":[[1,2],[3,4]]})", {2, 2}},
        {"other lists behind", R"({"coordinates":[[1,2],[3,4]],"bbox":[[1,2,3],[3,4,5]]})", {2, 2}},
        {"the name as a value", R"({"a":"coordinates","b":[7,8,9],"coordinates":[1,2]})", {2}},
        {"in a list of names", R"({"a":["coordinates",[7,8,9]],"coordinates":[1,2]})", {2}},
        {"no list", R"({"coordinates":null,"b":[7,8,9]})", {}},
        {"a longer name", R"({"coordinates of something":[7,8,9],"coordinates":[1,2]})", {2}},
        {"a longer name before", R"({"my coordinates":[7,8,9],"coordinates":[1,2]})", {2}},
        {"behind an escaped quote", R"({"a\":\"coordinates":[7,8,9],"coordinates":[1,2]})", {2}},
        {"behind an escaped backslash", R"({"a":"\\","coordinates":[1,2]})", {2}},
        {"brackets in a text", R"({"a":"[[","coordinates":[[1,2],[3,4,5]]})", {2, 3}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(tool::position_sizes_of_json(row.json), row.sizes) << row.what;
}

TEST(Positions, OfWktHaveAsManyNumbersAsStandThere)
{
    const struct {
        const char* wkt;
        Sizes sizes;
    } rows[] = {
        {"POINT (1 2)", {2}},
        {"POINT Z (1 2 3)", {3}},
        {"LINESTRING(1 2,3 4 5,-6 .7)", {2, 3, 2}},
        {"POLYGON ((1 2, 3 4 5), (6 7 8, 9 10))", {2, 3, 3, 2}},
        {"MULTIPOINT (EMPTY, (1 2))", {2}},
        {"POLYGON EMPTY", {}},
        {"", {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(tool::position_sizes_of_wkt(row.wkt), row.sizes) << row.wkt;
}

TEST(Positions, HeightsThatAreMissingAreNone)
{
    const double none = std::nan("");
    const struct {
        const char* what;
        Sizes sizes;
        bool told;
        std::vector<double> heights;
    } rows[] = {
        {"all have heights", {3, 3, 3, 3}, true, {0, 5, 6, 7}},
        {"none has", {2, 2, 2, 2}, true, {0, 5, 6, 7}},
        {"the first has none", {2, 3, 3, 3}, true, {none, 5, 6, 7}},
        {"the last has none", {3, 3, 3, 2}, true, {0, 5, 6, none}},
        {"of two lines", {3, 2, 2, 3}, true, {0, none, none, 7}},
        {"one size is missing", {3, 2, 3}, false, {0, 5, 6, 7}},
        {"one is too many", {3, 2, 3, 3, 3}, false, {0, 5, 6, 7}},
    };
    for (const auto& row : rows) {
        OGRMultiLineString lines;
        OGRLineString line;
        line.addPoint(1, 2, 0);
        line.addPoint(1, 3, 5);
        lines.addGeometry(&line);
        line.setPoint(0, 2, 3, 6);
        line.setPoint(1, 2, 4, 7);
        lines.addGeometry(&line);
        EXPECT_EQ(tool::mark_missing_heights(lines, row.sizes), row.told) << row.what;
        std::size_t next = 0;
        for (const OGRLineString* const one : lines)
            for (int i = 0; i < 2; ++i, ++next) {
                if (std::isnan(row.heights.at(next)))
                    EXPECT_TRUE(std::isnan(one->getZ(i))) << row.what << " " << next;
                else
                    EXPECT_EQ(one->getZ(i), row.heights.at(next)) << row.what << " " << next;
            }
    }
}

class PositionsOfFiles : public test::ProgramTest {};

TEST_F(PositionsOfFiles, OfAFileAreMixedWithinOneGeometryOnly)
{
    const auto mixes = [&](const std::string& coordinates) {
        write("lots.geojson", "{\"features\":[" + coordinates + "]}");
        return tool::mixes_heights(path("lots.geojson"));
    };
    const std::string flat = R"({"coordinates":[[1,2],[3,4]]})";
    const std::string high = R"({"coordinates":[[1,2,3],[3,4,5]]})";
    const std::string mixed = R"({"coordinates":[[1,2,3],[3,4]]})";
    EXPECT_FALSE(mixes(flat));
    EXPECT_FALSE(mixes(high));
    EXPECT_FALSE(mixes(flat + "," + high));
    EXPECT_TRUE(mixes(mixed));
    EXPECT_TRUE(mixes(flat + "," + mixed));
    EXPECT_TRUE(mixes(mixed + "," + high));
    std::string many = flat;
    for (int i = 0; i < 5000; ++i)
        many += "," + flat;
    EXPECT_FALSE(mixes(many));
    EXPECT_TRUE(mixes(many + "," + mixed));
    EXPECT_FALSE(tool::mixes_heights(path("missing.geojson")));
    // The file is read in blocks: a number that runs from one into the next is one, wherever the blocks end.
    std::string line = R"({"coordinates":[[1000000,2000000])";
    for (int i = 0; i < 5000; ++i)
        line += ",[1000000,2000000]";
    line += "]}";
    for (std::size_t blanks = 0; blanks < 18; ++blanks)
        EXPECT_FALSE(mixes(std::string(blanks, ' ') + line)) << blanks;
}

}  // namespace
