// Where the labels of a plan stand: lengths beside what they measure, names at their points, areas in their pieces.

#include "plan/labels.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "plan/drawn_sheet.h"
#include "plan/layout.h"
#include "plan/plan.h"
#include "program.h"

namespace {

using test::DrawnText;
using tool::SheetPoint;

constexpr double kDegree = M_PI / 180.0;

// A plan, and what of it stands on its sheet.
struct Labelled {
    tool::Plan plan;
    tool::View view;
    std::vector<DrawnText> texts;
    std::vector<test::DrawnPath> paths;
    std::vector<SheetPoint> dots;
    tool::WithoutLabel without;

    SheetPoint point(std::size_t number) const { return view.at(plan.points[number].at); }

    // The only one with this content.
    const DrawnText& text(const std::string& content) const
    {
        static const DrawnText none = {"none", std::vector<SheetPoint>(4, {NAN, NAN}), NAN, false, ""};
        const auto is_it = [&](const DrawnText& text) { return text.text == content; };
        EXPECT_EQ(std::count_if(texts.begin(), texts.end(), is_it), 1) << content;
        const auto found = std::find_if(texts.begin(), texts.end(), is_it);
        return found == texts.end() ? none : *found;
    }
};

class Labels : public test::ProgramTest {
protected:
    Labelled labelled(const tool::Parcel& parcel, plparcel::Cut cut, long long number,
                      const std::vector<plparcel::Amount>& amounts) const
    {
        tool::Asked asked;
        asked.request.line.cut = cut;
        asked.request.amounts = amounts;
        asked.number = number;
        asked.amounts.assign(amounts.size(), "a part");
        const tool::Answer answer = tool::answer(parcel, asked);
        Labelled done;
        EXPECT_TRUE(answer.printed.done());
        if (!answer.printed.done())
            return done;
        done.plan = tool::plan_of(answer);
        const tool::PlanLayout layout(done.plan.corners.at, 1.0, tool::Paper::a4,
                                      [](const tool::SheetBox&) { return 120.0; });
        done.view = layout.view();
        tool::Canvas canvas(path("labels.svg"), layout.sheet(), "", "labels.svg");
        done.without = tool::PlanLabels(done.plan, done.view, canvas).draw();
        canvas.finish();
        std::ostringstream svg;
        svg << std::ifstream(path("labels.svg")).rdbuf();
        const test::DrawnSheet sheet = test::read_sheet(svg.str());
        done.texts = sheet.texts;
        done.paths = sheet.free.paths;
        done.dots = sheet.free.dots;
        return done;
    }
};

tool::Parcel parcel_of(const plparcel::Ring& ring, const std::vector<plparcel::Ring>& holes = {})
{
    tool::Parcel parcel;
    parcel.ring = ring;
    parcel.holes = holes;
    return parcel;
}

// No two of its sides, or of their parts where it is cut into three, are as long as each other.
const plparcel::Ring kUneven = {{0, 0}, {82, 11}, {91, 63}, {-11, 47}};

// From the middle of a segment to the middle of a text: along the segment, and to its right as one looks from a to b,
// which is outside a parcel that runs anticlockwise. The sheet's y runs down.
struct Beside {
    double along;
    double right;
};

Beside beside(const SheetPoint& a, const SheetPoint& b, const SheetPoint& p)
{
    const SheetPoint run = tool::direction(a, b);
    const SheetPoint from = {p.x - 0.5 * (a.x + b.x), p.y - 0.5 * (a.y + b.y)};
    return {from.x * run.x + from.y * run.y, from.y * run.x - from.x * run.y};
}

// Between two directions, 0 to 90 degrees.
double turn_between(const SheetPoint& a, const SheetPoint& b)
{
    return std::asin(std::min(1.0, std::fabs(a.x * b.y - a.y * b.x)));
}

SheetPoint reading(const DrawnText& text)
{
    return tool::direction(text.left(), text.right());
}

TEST_F(Labels, EachFigureStandsOnce)
{
    const Labelled drawn = labelled(parcel_of({{0, 0}, {90, 0}, {90, 50}, {0, 50}}),
                                    plparcel::Cut::perpendicular, 1, plparcel::equal_parts(3));
    std::multiset<std::string> texts;
    for (const DrawnText& text : drawn.texts)
        texts.insert(text.text);
    EXPECT_EQ(texts, (std::multiset<std::string>{"1",
                                                 "2",
                                                 "3",
                                                 "4",
                                                 "P1",
                                                 "P2",
                                                 "P3",
                                                 "P4",  // points
                                                 "30.00",
                                                 "30.00",
                                                 "30.00",
                                                 "30.00",
                                                 "30.00",
                                                 "30.00",  // parts of the sides that are cut
                                                 "1\u20132: 90.00",
                                                 "3\u20134: 90.00",
                                                 "50.00",
                                                 "50.00",  // sides
                                                 "50.00   0.0000 gon",
                                                 "50.00   0.0000 gon",  // lines
                                                 "A",
                                                 "1500",
                                                 "B",
                                                 "1500",
                                                 "C",
                                                 "1500"}));  // pieces
}

// Along the part, in its middle, outside the parcel; the length of the whole farther out.
TEST_F(Labels, LengthsStandAlongTheirSides)
{
    const Labelled drawn =
        labelled(parcel_of(kUneven), plparcel::Cut::perpendicular, 1, plparcel::equal_parts(3));
    for (const tool::PlanSide& side : drawn.plan.sides) {
        for (const tool::PlanPart& part : side.parts) {
            const SheetPoint a = drawn.point(part.from);
            const SheetPoint b = drawn.point(part.to);
            const DrawnText& text = drawn.text(part.length);
            const Beside at = beside(a, b, text.middle());
            EXPECT_NEAR(at.along, 0.0, 0.01) << part.length;
            EXPECT_GT(at.right, 5.0) << part.length;
            EXPECT_LT(at.right, 9.0) << part.length;
            EXPECT_LT(turn_between(reading(text), tool::direction(a, b)), 0.01 * kDegree) << part.length;
        }
        if (side.parts.size() == 1)
            continue;
        const SheetPoint a = drawn.point(side.parts.front().from);
        const SheetPoint b = drawn.point(side.parts.back().to);
        const DrawnText& text = drawn.text(drawn.plan.points[side.parts.front().from].name + "\u2013" +
                                           drawn.plan.points[side.parts.back().to].name + ": " + side.whole);
        const Beside at = beside(a, b, text.middle());
        EXPECT_LT(std::fabs(at.along), 0.5 * std::hypot(b.x - a.x, b.y - a.y)) << text.text;
        EXPECT_GT(at.right, 15.0) << text.text;
        EXPECT_LT(at.right, 22.0) << text.text;
        EXPECT_LT(turn_between(reading(text), tool::direction(a, b)), 0.01 * kDegree) << text.text;
    }
}

// On either side of the line, in its middle.
TEST_F(Labels, LengthsStandAlongTheirLines)
{
    const Labelled drawn =
        labelled(parcel_of(kUneven), plparcel::Cut::perpendicular, 1, plparcel::equal_parts(3));
    ASSERT_EQ(drawn.plan.lines.size(), 2u);
    for (const tool::PlanLine& line : drawn.plan.lines) {
        const SheetPoint a = drawn.point(line.from);
        const SheetPoint b = drawn.point(line.to);
        const DrawnText& text = drawn.text(line.length + "   " + line.bearing + " gon");
        const Beside at = beside(a, b, text.middle());
        EXPECT_NEAR(at.along, 0.0, 0.01);
        EXPECT_NEAR(std::fabs(at.right), 6.5, 1.5);
        EXPECT_LT(turn_between(reading(text), tool::direction(a, b)), 0.01 * kDegree);
    }
}

// Outside, in the direction that halves the angle at the corner; at a corner of a hole, into the parcel.
TEST_F(Labels, NamesStandBeforeTheirCorners)
{
    const plparcel::Ring hole = {{30, 22}, {34, 40}, {52, 44}, {49, 27}};
    const Labelled drawn =
        labelled(parcel_of(kUneven, {hole}), plparcel::Cut::parallel, 2, {plparcel::area(300)});
    for (std::size_t i = 0; i < 8; ++i) {
        const std::size_t first = i < 4 ? 0 : 4;
        const SheetPoint corner = drawn.point(i);
        const SheetPoint before = tool::direction(corner, drawn.point(first + (i - first + 3) % 4));
        const SheetPoint after = tool::direction(corner, drawn.point(first + (i - first + 1) % 4));
        const SheetPoint away = tool::direction({0, 0}, {-before.x - after.x, -before.y - after.y});
        const DrawnText& name = drawn.text(std::to_string(i + 1));
        const SheetPoint to = tool::direction(corner, name.middle());
        EXPECT_NEAR(to.x, away.x, 0.001) << name.text;
        EXPECT_NEAR(to.y, away.y, 0.001) << name.text;
        const double off = std::hypot(name.middle().x - corner.x, name.middle().y - corner.y);
        EXPECT_GT(off, 0.5 * name.size) << name.text;
        EXPECT_LT(off, 0.5 * name.size + 6.0) << name.text;
    }
}

// At right angles to the side, outside.
TEST_F(Labels, NewPointsAreNamedBeyondTheEndsOfTheirLines)
{
    const Labelled drawn =
        labelled(parcel_of(kUneven), plparcel::Cut::perpendicular, 1, plparcel::equal_parts(3));
    std::size_t ends = 0;
    for (const tool::PlanSide& side : drawn.plan.sides)
        for (std::size_t i = 0; i + 1 < side.parts.size(); ++i, ++ends) {
            const SheetPoint end = drawn.point(side.parts[i].to);
            const SheetPoint run =
                tool::direction(drawn.point(side.parts.front().from), drawn.point(side.parts.back().to));
            const DrawnText& name = drawn.text(drawn.plan.points[side.parts[i].to].name);
            const SheetPoint to = tool::direction(end, name.middle());
            EXPECT_NEAR(to.x, -run.y, 0.001) << name.text;
            EXPECT_NEAR(to.y, run.x, 0.001) << name.text;
            EXPECT_LT(std::hypot(name.middle().x - end.x, name.middle().y - end.y), 20.0) << name.text;
        }
    EXPECT_EQ(ends, 4u);
}

// Two new points 5 metres from each other, which are 14 on paper: both names across the side, though its first part is long.
TEST_F(Labels, NamesOfNewPointsThatAreNearStandAcross)
{
    const Labelled drawn =
        labelled(parcel_of({{0, 0}, {120, 0}, {120, 80}, {0, 80}}), plparcel::Cut::perpendicular, 1,
                 {plparcel::area(1600), plparcel::area(400)});
    for (const char* name : {"P1", "P2", "P3", "P4"})
        EXPECT_LT(turn_between(reading(drawn.text(name)), {0, 1}), 0.1 * kDegree) << name;
}

// A text along a part is no longer than it; that of a shorter part stands across it.
TEST_F(Labels, LengthsAreNoLongerThanTheirParts)
{
    std::size_t across = 0;
    for (std::size_t parts = 20; parts <= 44; ++parts) {
        const Labelled drawn = labelled(parcel_of({{0, 0}, {80, 0}, {80, 50}, {0, 50}}),
                                        plparcel::Cut::perpendicular, 1, plparcel::equal_parts(parts));
        const double part = 80.0 / static_cast<double>(parts) * drawn.view.points_per_unit;
        const std::string length = drawn.plan.sides.at(0).parts.at(0).length;
        for (const DrawnText& text : drawn.texts) {
            if (text.text != length || text.bold || text.colour == "#b81c1c")
                continue;
            const bool is_along = turn_between(reading(text), {1, 0}) < 0.1 * kDegree;
            across += is_along ? 0 : 1;
            EXPECT_TRUE(!is_along || text.right().x - text.left().x < part) << parts;
        }
    }
    EXPECT_GT(across, 100u);
}

// The sides of a star leave no room in its notches.
TEST_F(Labels, NamesOfManyCornersCrossNoSide)
{
    plparcel::Ring star;
    for (int i = 0; i < 60; ++i) {
        const double radius = i % 2 == 0 ? 100.0 : 70.0;
        star.push_back({radius * std::cos(i * M_PI / 30.0), radius * std::sin(i * M_PI / 30.0)});
    }
    const Labelled drawn = labelled(parcel_of(star), plparcel::Cut::parallel, 1, {plparcel::share(1, 2)});
    std::size_t names = 0;
    for (const DrawnText& text : drawn.texts) {
        if (text.text.find_first_not_of("0123456789") != std::string::npos || text.size > 7.0)
            continue;
        ++names;
        for (std::size_t i = 0; i < star.size(); ++i)
            EXPECT_GT(test::gap_between(text.corners, {drawn.point(i), drawn.point((i + 1) % star.size())}),
                      0.0)
                << text.text;
    }
    EXPECT_GT(names, 25u) << "the tips have theirs";
}

// Name and area below each other, in the middle of the place that both take.
TEST_F(Labels, PiecesHaveTheirAreaUnderTheirName)
{
    const Labelled drawn = labelled(parcel_of(kUneven), plparcel::Cut::parallel, 1,
                                    {plparcel::share(1, 4), plparcel::share(1, 3)});
    for (const tool::PlanPiece& piece : drawn.plan.pieces) {
        const DrawnText& name = drawn.text(piece.name);
        const DrawnText& area = drawn.text(drawn.plan.area_text(piece.area));
        EXPECT_NEAR(name.middle().x, area.middle().x, 0.01);
        EXPECT_GT(area.middle().y, name.middle().y + name.size);
        EXPECT_LT(area.middle().y, name.middle().y + 1.5 * name.size);
        std::vector<SheetPoint> outline;
        for (const PL_PNT2D_record& p : piece.ring)
            outline.push_back(drawn.view.at(p));
        for (const DrawnText* text : {&name, &area})
            for (const SheetPoint& corner : text->corners)
                EXPECT_TRUE(tool::is_inside(outline, corner)) << text->text;
        // The place is where its edges are farthest: as far above the name as below the area.
        double above = INFINITY;
        double below = INFINITY;
        for (std::size_t i = 0; i < outline.size(); ++i) {
            const SheetPoint& a = outline[i];
            const SheetPoint& b = outline[(i + 1) % outline.size()];
            const double x = name.middle().x;
            if (std::min(a.x, b.x) > x || std::max(a.x, b.x) < x || a.x == b.x)
                continue;
            const double y = a.y + (b.y - a.y) * (x - a.x) / (b.x - a.x);
            if (y < name.middle().y)
                above = std::min(above, name.middle().y - y);
            else
                below = std::min(below, y - area.middle().y);
        }
        EXPECT_NEAR(above, below, 0.15 * (above + below)) << piece.name;
    }
}

// A hair line goes from a dot in the piece to the label outside, also in a lane so narrow and bent that no place of a grid
// lies in it, wherever its ring begins.
TEST_F(Labels, HairLinesBeginInTheirPiece)
{
    const plparcel::Ring strip = {{0, 0}, {120, 0}, {120, 80}, {0, 80}};
    const plparcel::Ring lane = {{0, 0}, {1000, 0}, {1000, 1}, {1, 1}, {1, 1000}, {0, 1000}};
    const plparcel::Ring zigzag = {{0, 0}, {400, 700}, {800, 0}, {801, 0}, {400, 702}, {-1, 0}};
    const struct {
        const char* what;
        plparcel::Ring ring;
        plparcel::Cut cut;
        std::size_t side;
        std::vector<plparcel::Amount> amounts;
        std::size_t hair_lines;
    } rows[] = {
        {"a strip", strip, plparcel::Cut::parallel, 1, {plparcel::area(20)}, 1},
        {"a bent lane", lane, plparcel::Cut::perpendicular, 1, {plparcel::share(1, 4)}, 2},
        {"a zigzag", zigzag, plparcel::Cut::perpendicular, 5, {plparcel::share(1, 5)}, 2},
    };
    for (const auto& row : rows) {
        tool::Parcel parcel = parcel_of(row.ring);
        for (std::size_t first = 0; first < row.ring.size(); ++first) {
            SCOPED_TRACE(row.what + std::string(", from vertex ") + std::to_string(first + 1));
            const std::size_t side = (row.side + row.ring.size() - first - 1) % row.ring.size() + 1;
            const Labelled drawn = labelled(parcel, row.cut, static_cast<long long>(side), row.amounts);
            std::rotate(parcel.ring.begin(), parcel.ring.begin() + 1, parcel.ring.end());
            EXPECT_TRUE(drawn.without.pieces.empty());
            ASSERT_EQ(drawn.dots.size(), row.hair_lines);
            ASSERT_EQ(drawn.paths.size(), row.hair_lines);
            std::size_t found = 0;
            for (const tool::PlanPiece& piece : drawn.plan.pieces) {
                std::vector<SheetPoint> outline;
                for (const PL_PNT2D_record& p : piece.ring)
                    outline.push_back(drawn.view.at(p));
                const std::string text = piece.name + "  " + drawn.plan.area_text(piece.area);
                const auto label = std::find_if(drawn.texts.begin(), drawn.texts.end(),
                                                [&](const DrawnText& one) { return one.text == text; });
                if (label == drawn.texts.end())
                    continue;
                const test::DrawnPath& line = drawn.paths.at(found);
                const SheetPoint dot = drawn.dots.at(found++);
                EXPECT_NEAR(line.points.at(0).x, dot.x, 0.001);
                EXPECT_NEAR(line.points.at(0).y, dot.y, 0.001);
                // A thousandth of a point is rounded away in an SVG.
                double off = INFINITY;
                for (std::size_t i = 0; i < outline.size(); ++i) {
                    const SheetPoint& a = outline[i];
                    const SheetPoint& b = outline[(i + 1) % outline.size()];
                    const Beside at = beside(a, b, dot);
                    if (std::fabs(at.along) <= 0.5 * std::hypot(b.x - a.x, b.y - a.y))
                        off = std::min(off, std::fabs(at.right));
                }
                EXPECT_TRUE(tool::is_inside(outline, dot) || off < 0.001)
                    << text << " from " << dot.x << " " << dot.y;
                // It leaves the piece, and crosses no other line.
                std::size_t crossed = 0;
                for (const tool::PlanLine& other : drawn.plan.lines)
                    crossed += test::gap_between({dot, line.points.at(1)},
                                                 {drawn.point(other.from), drawn.point(other.to)}) < 0.0;
                EXPECT_LE(crossed, 1u) << text;
                // From there straight to the label's middle, as far as its edge.
                const SheetPoint end = line.points.at(1);
                const SheetPoint middle = label->middle();
                EXPECT_LT(turn_between(tool::direction(dot, end), tool::direction(dot, middle)),
                          0.1 * kDegree);
                EXPECT_LT(std::hypot(end.x - dot.x, end.y - dot.y),
                          std::hypot(middle.x - dot.x, middle.y - dot.y));
                EXPECT_GT(test::gap_between({end, end}, label->corners), 0.0) << text;
                EXPECT_LT(std::fabs(end.x - middle.x), 0.5 * (label->right().x - label->left().x) + 4.0);
                EXPECT_LT(std::fabs(end.y - middle.y), label->size);
            }
            EXPECT_EQ(found, row.hair_lines);
        }
    }
}

// Where many corners lie close, the names of tens come first: one counts on from them.
TEST_F(Labels, TensOfManyCornersAreNamed)
{
    plparcel::Ring ring;
    for (int i = 0; i < 500; ++i)
        ring.push_back({100.0 * std::cos(i * M_PI / 250.0), 100.0 * std::sin(i * M_PI / 250.0)});
    const Labelled drawn = labelled(parcel_of(ring), plparcel::Cut::parallel, 1, {plparcel::share(1, 2)});
    const auto is_near_a_new_point = [&](const SheetPoint& p) {
        for (std::size_t i = 500; i < drawn.plan.points.size(); ++i)
            if (std::hypot(p.x - drawn.point(i).x, p.y - drawn.point(i).y) < 30.0)
                return true;
        return false;
    };
    std::map<std::string, const DrawnText*> named;
    for (const DrawnText& text : drawn.texts)
        named[text.text] = &text;
    for (const int number :
         {1, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110, 120, 130, 200, 250, 330, 390, 410, 490}) {
        const SheetPoint corner = drawn.point(static_cast<std::size_t>(number - 1));
        if (is_near_a_new_point(corner))
            continue;
        const auto name = named.find(std::to_string(number));
        ASSERT_NE(name, named.end()) << number;
        // Out from the middle of the circle, right before the corner.
        const SheetPoint middle = drawn.view.at({0, 0});
        const SheetPoint out = tool::direction(middle, corner);
        const SheetPoint to = tool::direction(corner, name->second->middle());
        EXPECT_NEAR(to.x, out.x, 0.02) << number;
        EXPECT_NEAR(to.y, out.y, 0.02) << number;
        EXPECT_LT(std::hypot(name->second->middle().x - corner.x, name->second->middle().y - corner.y), 16.0);
    }
    // Every corner has its name and every side its length, or they are counted.
    std::size_t corners = 0;
    for (std::size_t number = 1; number <= 500; ++number)
        corners += named.count(std::to_string(number));
    EXPECT_EQ(corners + drawn.without.corners, 500u);
    EXPECT_LT(drawn.without.corners, 420u) << "some fives and others have room";
}

// Parts and sides that have no room for their length are counted, each once.
TEST_F(Labels, LengthsAreShownOrCounted)
{
    for (const std::size_t parts : {2U, 10U, 40U, 90U}) {
        const Labelled drawn = labelled(parcel_of({{0, 0}, {90, 1}, {91, 50}, {0, 52}}),
                                        plparcel::Cut::perpendicular, 1, plparcel::equal_parts(parts));
        std::size_t asked = 0;
        std::set<std::string> lengths;
        for (const tool::PlanSide& side : drawn.plan.sides) {
            for (const tool::PlanPart& part : side.parts)
                lengths.insert(part.length);
            asked += side.parts.size() + (side.parts.size() > 1 ? 1 : 0);
        }
        asked += drawn.plan.lines.size();
        std::size_t shown = 0;
        for (const DrawnText& text : drawn.texts)
            shown += !text.bold && (lengths.count(text.text) > 0 ||
                                    text.text.find(": ") != std::string::npos || text.colour == "#b81c1c");
        EXPECT_EQ(shown + drawn.without.lengths, asked) << parts;
    }
}

}  // namespace
