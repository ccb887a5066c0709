// Where a label of a plan goes when something is in its way: to the next place of its list, and to no other. One
// coordinate is one point of the sheet here. What is in the way are dashes of three points: lines too short for a length
// of their own.

#include "plan/labels.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <set>
#include <sstream>

#include "plan/drawn_sheet.h"
#include "plan/layout.h"
#include "plan/plan.h"
#include "program.h"

namespace {

using test::DrawnText;
using tool::SheetPoint;

constexpr double kRounded = 0.002;  // an SVG tells thousandths of a point

// A square with its first side in the direction (4, 3), its middle in (0, 0); (0, 0) is in the middle of the sheet.
constexpr double kHalf = 100.0;
constexpr PL_PNT2D_record kAlong = {0.8, 0.6};
constexpr PL_PNT2D_record kAcross = {-0.6, 0.8};  // into the square, seen from its first side

// A place by how far it is from the middle along the first side, and how far outside that it is.
PL_PNT2D_record beside(double along, double outside)
{
    const double across = -kHalf - outside;
    return {along * kAlong.x + across * kAcross.x, along * kAlong.y + across * kAcross.y};
}

tool::Plan square()
{
    tool::Parcel parcel;
    parcel.ring = {beside(-kHalf, 0), beside(kHalf, 0), beside(kHalf, -2 * kHalf),
                   beside(-kHalf, -2 * kHalf)};
    tool::Plan plan;
    plan.corners = tool::corners_of(parcel);
    for (std::size_t i = 0; i < parcel.ring.size(); ++i)
        plan.points.push_back({std::to_string(i + 1), parcel.ring[i], false});
    return plan;
}

std::size_t add_point(tool::Plan& plan, const PL_PNT2D_record& p)
{
    plan.points.push_back({"P" + std::to_string(plan.points.size() - 3), p, true});
    return plan.points.size() - 1;
}

// Into the square.
void add_dash(tool::Plan& plan, const PL_PNT2D_record& p)
{
    const std::size_t from = add_point(plan, {p.x - 1.5 * kAcross.x, p.y - 1.5 * kAcross.y});
    const std::size_t to = add_point(plan, {p.x + 1.5 * kAcross.x, p.y + 1.5 * kAcross.y});
    plan.lines.push_back({from, to, "3.00", "0.0000"});
}

struct Drawn {
    test::DrawnSheet sheet;
    tool::WithoutLabel without;

    // How far the middle of the only text with this content is from the middle, along the first side, and how far outside.
    PL_PNT2D_record place_of(const std::string& content) const
    {
        const std::vector<DrawnText> found = sheet.with_text(content);
        if (found.size() != 1)
            return {NAN, NAN};
        const PL_PNT2D_record p = {found[0].middle().x - 400.0, 400.0 - found[0].middle().y};
        return {p.x * kAlong.x + p.y * kAlong.y, -kHalf - p.x * kAcross.x - p.y * kAcross.y};
    }

    double width_of(const std::string& content) const
    {
        const std::vector<DrawnText> found = sheet.with_text(content);
        if (found.empty())
            return NAN;
        return std::hypot(found[0].right().x - found[0].left().x, found[0].right().y - found[0].left().y);
    }
};

class LabelsInTheWay : public test::ProgramTest {
protected:
    template <class Draw> Drawn drawn_by(const tool::Plan& plan, const Draw& draw) const
    {
        const tool::View view = {{0, 0, 800, 800}, {0, 0}, 1.0};
        tool::Canvas canvas(path("labels.svg"), {800, 800}, "", "labels.svg");
        tool::PlanLabels labels(plan, view, canvas);
        Drawn done;
        done.without = draw(labels);
        canvas.finish();
        std::ostringstream svg;
        svg << std::ifstream(path("labels.svg")).rdbuf();
        done.sheet = test::read_sheet(svg.str());
        return done;
    }

    Drawn drawn(const tool::Plan& plan) const
    {
        return drawn_by(plan, [](tool::PlanLabels& labels) { return labels.draw(); });
    }
};

double width_of(const std::string& text, double size, bool bold = false)
{
    return tool::Canvas().size_of(text, size, bold).x;
}

// In the middle, then a tenth and two tenths of the side away, towards its start first; inside where the outside is full.
TEST_F(LabelsInTheWay, ALengthStaysBesideItsSide)
{
    tool::Plan plan = square();
    plan.sides.push_back({{{0, 1, "200.00"}}, "200.00"});
    std::size_t dashes = 0;
    for (const double outside : {7.0, -7.0})
        for (const double along : {0.0, -20.0, 20.0, -40.0, 40.0}) {
            const Drawn done = drawn(plan);
            EXPECT_NEAR(done.place_of("200.00").x, along, kRounded) << dashes;
            EXPECT_NEAR(done.place_of("200.00").y, outside, kRounded) << dashes;
            EXPECT_EQ(done.without.lengths, dashes) << "dashes have none";
            add_dash(plan, beside(along, outside));
            ++dashes;
        }
    const Drawn done = drawn(plan);
    EXPECT_TRUE(done.sheet.with_text("200.00").empty());
    EXPECT_EQ(done.without.lengths, dashes + 1);
}

// A length that is as long as its part, or four points shorter at most, stands across it, four points off.
TEST_F(LabelsInTheWay, ALengthOfAShortPartStandsAcross)
{
    const double width = width_of("9.99", tool::kSmallSize);
    for (const double longer : {-5.0, 3.9, 4.1}) {
        SCOPED_TRACE(longer);
        tool::Plan plan = square();
        const std::size_t from = add_point(plan, beside(-0.5 * (width + longer), 0));
        const std::size_t to = add_point(plan, beside(0.5 * (width + longer), 0));
        plan.sides.push_back({{{from, to, "9.99"}}, "9.99"});
        const double off = longer > 4.0 ? 7.0 : 0.5 * width + 4.0;
        const Drawn outside = drawn(plan);
        EXPECT_NEAR(outside.place_of("9.99").x, 0.0, kRounded);
        EXPECT_NEAR(outside.place_of("9.99").y, off, kRounded);
        if (longer > 4.0)
            continue;
        add_dash(plan, beside(0, off));
        const Drawn inside = drawn(plan);
        EXPECT_NEAR(inside.place_of("9.99").x, 0.0, kRounded);
        EXPECT_NEAR(inside.place_of("9.99").y, -off, kRounded);
        add_dash(plan, beside(0, -off));
        EXPECT_EQ(drawn(plan).without.lengths, 3u) << "with those of the dashes";
    }
    // Of less than four points there is none.
    for (const double length : {3.99, 4.01}) {
        tool::Plan plan = square();
        const std::size_t to = add_point(plan, beside(length, 0));
        plan.sides.push_back({{{add_point(plan, beside(0, 0)), to, "4.00"}}, "4.00"});
        EXPECT_EQ(drawn(plan).without.lengths, length < 4.0 ? 1u : 0u);
    }
}

// Farther out than the lengths of the parts, in four distances; in each of them in the middle first.
TEST_F(LabelsInTheWay, TheLengthOfTheWholeGoesFartherOut)
{
    tool::Plan plan = square();
    const std::size_t cut = add_point(plan, beside(90, 0));
    plan.sides.push_back({{{0, cut, "190.00"}, {cut, 1, "10.00"}}, "200.00"});
    const std::string text = "1\u20132: 200.00";
    std::size_t dashes = 0;
    for (const double outside : {18.0, 26.0, 34.0, 50.0})
        for (const double along : {0.0, -30.0, 30.0, -60.0, 60.0}) {
            const Drawn done = drawn(plan);
            EXPECT_NEAR(done.place_of(text).x, along, kRounded) << dashes;
            EXPECT_NEAR(done.place_of(text).y, outside, kRounded) << dashes;
            EXPECT_EQ(done.without.lengths, dashes);
            add_dash(plan, beside(along, outside));
            ++dashes;
        }
    const Drawn done = drawn(plan);
    EXPECT_TRUE(done.sheet.with_text(text).empty());
    EXPECT_EQ(done.without.lengths, dashes + 1);
}

// No longer than its side.
TEST_F(LabelsInTheWay, TheLengthOfTheWholeIsNoLongerThanItsSide)
{
    const double width = width_of("1\u20132: 40.00", tool::kSmallSize);
    for (const double longer : {-0.1, 0.1}) {
        tool::Parcel parcel;
        parcel.ring = {{0, 0}, {width + longer, 0}, {width + longer, 50}, {0, 50}};
        tool::Plan plan;
        plan.corners = tool::corners_of(parcel);
        for (std::size_t i = 0; i < 4; ++i)
            plan.points.push_back({std::to_string(i + 1), parcel.ring[i], false});
        const std::size_t cut = add_point(plan, {0.5 * width, 0});
        plan.sides.push_back({{{0, cut, "20.00"}, {cut, 1, "20.00"}}, "40.00"});
        EXPECT_EQ(drawn(plan).without.lengths, longer < 0.0 ? 1u : 0u);
    }
}

// Length and bearing need five points of the line at both ends, then the length does; a shorter line has its length at
// right angles, five points off. All stand on the left of the line, or on its right.
TEST_F(LabelsInTheWay, ALineHasItsLengthAndItsBearingWhereItIsLongEnough)
{
    const double both = width_of("55.00   10.0000 gon", tool::kSmallSize);
    const double alone = width_of("55.00", tool::kSmallSize);
    const struct {
        double length;
        const char* text;
        double off;
        bool has_room;  // elsewhere along the line
    } rows[] = {{both + 10.1, "55.00   10.0000 gon", 6.5, false},
                {both + 9.9, "55.00", 6.5, true},
                {alone + 10.1, "55.00", 6.5, false},
                {alone + 9.9, "55.00", 0.5 * alone + 5.0, false},
                {4.1, "55.00", 0.5 * alone + 5.0, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.length);
        tool::Plan plan = square();
        const std::size_t from = add_point(plan, beside(-0.5 * row.length, -kHalf));
        const std::size_t to = add_point(plan, beside(0.5 * row.length, -kHalf));
        plan.lines.push_back({from, to, "55.00", "10.0000"});
        for (const double side : {-1.0, 1.0}) {
            const Drawn done = drawn(plan);
            EXPECT_NEAR(done.place_of(row.text).x, 0.0, 0.06);  // a tenth of a point is free for it
            EXPECT_NEAR(done.place_of(row.text).y, -kHalf + side * row.off, kRounded);
            EXPECT_EQ(done.without.lengths, side < 0.0 ? 0u : 1u);
            add_dash(plan, beside(0, -kHalf + side * row.off));
        }
        EXPECT_EQ(drawn(plan).sheet.with_text(row.text).empty(), !row.has_room);
    }
    tool::Plan plan = square();
    const std::size_t to = add_point(plan, beside(3.9, -kHalf));
    plan.lines.push_back({add_point(plan, beside(0, -kHalf)), to, "55.00", "10.0000"});
    EXPECT_EQ(drawn(plan).without.lengths, 1u);
}

// Dashes on both sides of the middle: the text goes along the line as far as it must, towards its end; a twelfth of the way
// at a time.
TEST_F(LabelsInTheWay, ATextGoesAlongItsLineAsFarAsItMust)
{
    const std::string text = "180.00   10.0000 gon";
    const double width = width_of(text, tool::kSmallSize);
    const double step = (0.5 * (180.0 - width) - 5.0) / 12.0;
    for (const bool towards_the_end : {true, false}) {
        tool::Plan plan = square();
        const std::size_t from = add_point(plan, beside(-90, -kHalf));
        const std::size_t to = add_point(plan, beside(90, -kHalf));
        plan.lines.push_back({from, to, "180.00", "10.0000"});
        // Nearer to each other than a text is long, so that there is no room between them.
        for (int texts = 0; texts <= 4; ++texts)
            for (const double side : {6.5, -6.5})
                add_dash(plan, beside((towards_the_end ? -20.0 : 20.0) * texts, -kHalf + side));
        const PL_PNT2D_record place = drawn(plan).place_of(text);
        const double off = towards_the_end ? place.x : -place.x;
        EXPECT_NEAR(place.y, -kHalf - 6.5, kRounded);
        EXPECT_NEAR(std::remainder(off, step), 0.0, kRounded) << off;
        EXPECT_GT(off, 0.5 * width);
        EXPECT_LT(off, 0.5 * width + 1.5 + step + 1.0) << "not farther than it must, with a gap around it";
    }
}

// From the middle of the square, whose sides are farther away than any mark. Each takes the first place that those before
// it have left.
TEST_F(LabelsInTheWay, AMarkGoesAroundItsPlace)
{
    const tool::Plan plan = square();
    const std::string text = "Detail 1";
    const double width = width_of(text, 8.0, true);
    const SheetPoint p = {400, 400};
    constexpr std::size_t kMarks = 60;
    const Drawn done = drawn_by(plan, [&](tool::PlanLabels& labels) {
        for (std::size_t i = 0; i < kMarks; ++i)
            labels.label_mark(text, p, 12.0);
        return tool::WithoutLabel();
    });
    const std::vector<DrawnText> texts = done.sheet.with_text(text);
    ASSERT_EQ(done.sheet.free.paths.size(), texts.size()) << "each has a hair line";
    // The room of a label: a point more on the left and the right, as high as its size.
    const auto room = [&](const SheetPoint& middle) {
        return tool::SheetBox{middle.x - 0.5 * width - 1.0, middle.y - 4.0, middle.x + 0.5 * width + 1.0,
                              middle.y + 4.0};
    };
    std::vector<tool::SheetBox> taken;
    std::size_t written = 0;
    // Clockwise from the right, the nearest ones first.
    for (const double farther : {0.0, 8.0, 16.0, 32.0, 48.0})
        for (int i = 0; i < 16; ++i) {
            const double turn = i * M_PI / 8.0;
            const SheetPoint out = {std::cos(turn), std::sin(turn)};
            const double reach =
                12.0 + farther + 4.0 + 0.5 * (std::fabs(out.x) * width + std::fabs(out.y) * 8.0);
            const SheetPoint middle = {p.x + reach * out.x, p.y + reach * out.y};
            const tool::SheetBox box = room(middle);
            if (std::any_of(taken.begin(), taken.end(), [&](const auto& other) { return box.meets(other); }))
                continue;
            ASSERT_LT(written, texts.size()) << middle.x << " " << middle.y;
            EXPECT_TRUE(texts[written].bold);
            EXPECT_NEAR(texts[written].middle().x, middle.x, kRounded) << written;
            EXPECT_NEAR(texts[written].middle().y, middle.y, kRounded) << written;
            const test::DrawnPath& line = done.sheet.free.paths[written++];
            EXPECT_NEAR(line.points.at(0).x, p.x + 12.0 * out.x, kRounded);
            EXPECT_NEAR(line.points.at(0).y, p.y + 12.0 * out.y, kRounded);
            EXPECT_NEAR(line.points.at(1).x, middle.x, kRounded);
            EXPECT_NEAR(line.points.at(1).y, middle.y, kRounded);
            taken.push_back(box);
        }
    EXPECT_EQ(written, texts.size());
    EXPECT_GT(written, 16u);
}

// Straight out, then a twelfth of a turn to either side, and so on to a third; then half as far again, and more than twice
// as far. `out` is the direction that halves the angle at the corner.
TEST_F(LabelsInTheWay, ANameGoesAroundItsCorner)
{
    tool::Plan plan = square();
    const double width = width_of("1", 8.0, true);
    const double near = 0.5 * std::max(width, 8.0) + 4.0;
    const SheetPoint corner = {400.0 + beside(-kHalf, 0).x, 400.0 - beside(-kHalf, 0).y};
    const SheetPoint out = tool::direction({400, 400}, corner);
    std::vector<SheetPoint> places;
    for (const double times : {1.0, 1.5, 2.2})
        for (const int twelfths : {0, 1, -1, 2, -2, 3, -3, 4, -4}) {
            const double turn = twelfths * M_PI / 6.0;
            places.push_back({corner.x + times * near * (out.x * std::cos(turn) - out.y * std::sin(turn)),
                              corner.y + times * near * (out.x * std::sin(turn) + out.y * std::cos(turn))});
        }
    const auto touches = [&](const SheetPoint& middle, const PL_PNT2D_record& from,
                             const PL_PNT2D_record& to) {
        const double x = 0.5 * width + 1.0;
        return test::gap_between({{middle.x - x, middle.y - 4.0},
                                  {middle.x + x, middle.y - 4.0},
                                  {middle.x + x, middle.y + 4.0},
                                  {middle.x - x, middle.y + 4.0}},
                                 {{400.0 + from.x, 400.0 - from.y}, {400.0 + to.x, 400.0 - to.y}}) < 0.0;
    };
    std::size_t tried = 0;
    for (std::size_t dashes = 0; dashes < 20; ++dashes) {
        SCOPED_TRACE(dashes);
        const auto is_free = [&](const SheetPoint& middle) {
            for (std::size_t i = 0; i < 4; ++i)
                if (touches(middle, plan.points[i].at, plan.points[(i + 1) % 4].at))
                    return false;
            return std::none_of(plan.lines.begin(), plan.lines.end(), [&](const tool::PlanLine& line) {
                return touches(middle, plan.points[line.from].at, plan.points[line.to].at);
            });
        };
        const auto wanted = std::find_if(places.begin(), places.end(), is_free);
        const std::vector<DrawnText> names = drawn(plan).sheet.with_text("1");
        ASSERT_EQ(names.size(), 1u);
        // Where none is free, the first may lie over a line.
        const SheetPoint place = wanted == places.end() ? places.front() : *wanted;
        EXPECT_NEAR(names[0].middle().x, place.x, kRounded);
        EXPECT_NEAR(names[0].middle().y, place.y, kRounded);
        tried += wanted == places.end() ? 0 : 1;
        add_dash(plan, {place.x - 400.0, 400.0 - place.y});
    }
    EXPECT_GT(tried, 8u);
    EXPECT_LT(tried, 20u) << "and then none was free";
}

// A parcel of one piece, so low or so narrow that its label is small, on one line, without its area, or beside it.
TEST_F(LabelsInTheWay, ALabelIsAsLargeAsItsPieceAllows)
{
    struct Row {
        double width;
        double height;
        double size;    // of the name
        bool is_below;  // the area under the name
        bool has_area;
        const char* name = "A";
    };
    const auto wide = [](double size, const char* text) { return width_of(text, size, true) + 4.0; };
    // Two lines take 2 1/4 times their size.
    for (const Row& row : {Row{200, 22.6, 10, true, true},
                           {200, 22.4, 8, true, true},
                           {200, 18.1, 8, true, true},
                           {200, 17.9, 6.5, true, true},
                           {200, 14.7, 6.5, true, true},
                           {200, 14.5, 10, false, true},
                           {200, 10.1, 10, false, true},
                           {200, 9.9, 8, false, true},
                           {200, 7.9, 6.5, false, true},
                           {wide(10, "12345") + 0.1, 60, 10, true, true},
                           {wide(10, "12345") - 0.1, 60, 8, true, true},
                           {wide(8, "12345") - 0.1, 60, 6.5, true, true},
                           {wide(6.5, "12345") - 0.1, 60, 10, false, false},
                           {wide(10, "A") + 0.1, 60, 10, false, false},
                           {wide(10, "A") - 0.1, 60, 8, false, false},
                           {wide(10, "I") + 0.1, 60, 10, false, false, "I"}}) {
        SCOPED_TRACE(std::to_string(row.width) + " " + std::to_string(row.height));
        tool::Parcel parcel;
        const double x = 0.5 * row.width;
        const double y = 0.5 * row.height;
        parcel.ring = {{-x, -y}, {x, -y}, {x, y}, {-x, y}};
        tool::Plan plan;
        plan.corners = tool::corners_of(parcel);
        for (std::size_t i = 0; i < 4; ++i)
            plan.points.push_back({std::to_string(i + 1), parcel.ring[i], false});
        plan.pieces.push_back({row.name, parcel.ring, 12345.0, "rest"});
        const Drawn done = drawn(plan);
        EXPECT_TRUE(done.without.pieces.empty());
        const std::string first = row.is_below || !row.has_area ? row.name : "A  12345";
        const std::vector<DrawnText> name = done.sheet.with_text(first);
        ASSERT_EQ(name.size(), 1u) << first;
        EXPECT_EQ(name[0].size, row.size);
        EXPECT_TRUE(name[0].bold);
        EXPECT_NEAR(name[0].middle().x, 400.0, kRounded);
        EXPECT_NEAR(name[0].middle().y, 400.0 - (row.is_below ? 0.625 * row.size : 0.0), kRounded);
        const std::vector<DrawnText> area = done.sheet.with_text("12345");
        ASSERT_EQ(area.size(), row.is_below ? 1u : 0u);
        if (row.is_below) {
            EXPECT_EQ(area[0].size, row.size);
            EXPECT_NEAR(area[0].middle().x, 400.0, kRounded);
            EXPECT_NEAR(area[0].middle().y, 400.0 + 0.625 * row.size, kRounded);
        }
    }
}

// A piece 200 long and 5 high: the label stands 24 points from its middle, as soon as it clears the boundary: two 24ths of
// a turn down from the right. Its hair line ends at the edge of its room, which is 2 points larger at either end.
TEST_F(LabelsInTheWay, ALabelBesideItsPieceIsNear)
{
    tool::Parcel parcel;
    parcel.ring = {{-100, -2.5}, {100, -2.5}, {100, 2.5}, {-100, 2.5}};
    tool::Plan plan;
    plan.corners = tool::corners_of(parcel);
    for (std::size_t i = 0; i < 4; ++i)
        plan.points.push_back({std::to_string(i + 1), parcel.ring[i], false});
    plan.pieces.push_back({"A", parcel.ring, 12345.0, "rest"});
    const Drawn done = drawn(plan);
    const std::vector<DrawnText> text = done.sheet.with_text("A  12345");
    ASSERT_EQ(text.size(), 1u);
    EXPECT_EQ(text[0].size, 8.0);
    EXPECT_TRUE(text[0].bold);
    EXPECT_NEAR(text[0].middle().x, 400.0 + 24.0 * std::cos(M_PI / 6.0), kRounded);
    EXPECT_NEAR(text[0].middle().y, 412.0, kRounded);
    ASSERT_EQ(done.sheet.free.paths.size(), 1u);
    const std::vector<SheetPoint>& line = done.sheet.free.paths[0].points;
    EXPECT_NEAR(line.at(0).x, 400.0, kRounded);
    EXPECT_NEAR(line.at(0).y, 400.0, kRounded);
    EXPECT_NEAR(line.at(1).y, 407.0, kRounded) << "5 above the middle of the text";
    EXPECT_NEAR(line.at(1).x, 400.0 + 7.0 * std::sqrt(3.0), kRounded);
    ASSERT_EQ(done.sheet.free.dots.size(), 1u);
    EXPECT_NEAR(done.sheet.free.dots[0].x, 400.0, kRounded);
    EXPECT_NEAR(done.sheet.free.dots[0].y, 400.0, kRounded);
}

// Lanes with a hundred points between them, each too thin for its label: twelve have it beside them, the others only their
// name, across them, and those that are thinner than three points have none.
TEST_F(LabelsInTheWay, LabelsBesideTheirPiecesAreFew)
{
    for (const double height : {3.1, 2.9}) {
        SCOPED_TRACE(height);
        tool::Plan plan;
        tool::Parcel parcel;
        for (int lane = 0; lane < 15; ++lane) {
            const double x = -300.0 + 150.0 * (lane % 5);
            const double y = lane < 5 ? -200.0 : lane < 10 ? -50.0 : 100.0;
            const plparcel::Ring ring = {
                {x - 40, y}, {x + 40, y}, {x + 40, y + height}, {x - 40, y + height}};
            (lane == 0 ? parcel.ring : parcel.holes.emplace_back()) = ring;
            plan.pieces.push_back({std::string(1, static_cast<char>('A' + lane)), ring, 12345.0, "rest"});
        }
        plan.corners = tool::corners_of(parcel);
        for (std::size_t i = 0; i < plan.corners.size(); ++i)
            plan.points.push_back({std::to_string(i + 1), plan.corners.at[i], false});
        const Drawn done = drawn(plan);
        std::size_t beside = 0;
        std::size_t across = 0;
        for (std::size_t i = 0; i < plan.pieces.size(); ++i) {
            const tool::PlanPiece& piece = plan.pieces[i];
            beside += done.sheet.with_text(piece.name + "  12345").size();
            for (const DrawnText& name : done.sheet.with_text(piece.name)) {
                ++across;
                EXPECT_EQ(name.size, tool::kSmallSize);
                EXPECT_TRUE(name.bold);
                EXPECT_GT(name.middle().x, 400.0 + piece.ring[0].x);
                EXPECT_LT(name.middle().x, 400.0 + piece.ring[1].x);
                EXPECT_NEAR(name.middle().y, 400.0 - piece.ring[0].y - 0.5 * height, kRounded);
            }
        }
        EXPECT_EQ(beside, 12u);
        EXPECT_EQ(done.sheet.free.dots.size(), 12u);
        EXPECT_EQ(across, height > 3.0 ? 3u : 0u);
        EXPECT_EQ(done.without.pieces,
                  height > 3.0 ? std::vector<std::size_t>() : (std::vector<std::size_t>{12, 13, 14}));
    }
}

// A ring of many corners around the middle, 200 points from it.
tool::Plan round_plan(std::size_t corners, double radius = 200.0)
{
    tool::Parcel parcel;
    for (std::size_t i = 0; i < corners; ++i) {
        const double turn = 2.0 * M_PI * static_cast<double>(i) / static_cast<double>(corners);
        parcel.ring.push_back({radius * std::cos(turn), radius * std::sin(turn)});
    }
    tool::Plan plan;
    plan.corners = tool::corners_of(parcel);
    for (std::size_t i = 0; i < corners; ++i)
        plan.points.push_back({std::to_string(i + 1), parcel.ring[i], false});
    return plan;
}

// Of up to forty corners the names are larger. Of more they stand right before their corner, or not at all: the room of a
// name begins four points off, and is a point and a half wider than it on either side.
TEST_F(LabelsInTheWay, NamesOfManyCornersStandRightBeforeThem)
{
    EXPECT_EQ(drawn(round_plan(40)).sheet.with_text("3").at(0).size, 8.0);
    const tool::Plan plan = round_plan(44);
    const Drawn done = drawn(plan);
    EXPECT_EQ(done.without.corners, 0u);
    for (std::size_t i = 0; i < 44; ++i) {
        const std::vector<DrawnText> name = done.sheet.with_text(plan.points[i].name);
        ASSERT_EQ(name.size(), 1u) << i;
        EXPECT_EQ(name[0].size, tool::kSmallSize);
        EXPECT_TRUE(name[0].bold);
        const SheetPoint out = {plan.points[i].at.x / 200.0, -plan.points[i].at.y / 200.0};
        const double off =
            4.0 + 0.5 * (std::fabs(out.x) * width_of(plan.points[i].name, tool::kSmallSize, true) +
                         std::fabs(out.y) * tool::kSmallSize);
        EXPECT_NEAR(name[0].middle().x, 400.0 + (200.0 + off) * out.x, kRounded) << i;
        EXPECT_NEAR(name[0].middle().y, 400.0 + (200.0 + off) * out.y, kRounded) << i;
    }
    // The name of the first corner lies to the right of it.
    const double right = 204.0 + width_of("1", tool::kSmallSize, true);
    for (const double beyond : {1.4, 1.6}) {
        tool::Plan blocked = plan;
        const std::size_t from = blocked.points.size();
        blocked.points.push_back({"P1", {right + beyond, -1.5}, true});
        blocked.points.push_back({"P2", {right + beyond, 1.5}, true});
        blocked.lines.push_back({from, from + 1, "3.00", "0.0000"});
        EXPECT_EQ(drawn(blocked).without.corners, beyond < 1.5 ? 1u : 0u);
    }
}

// 1500 corners are tried; the others have no name either.
TEST_F(LabelsInTheWay, EveryCornerIsNamedOrCounted)
{
    for (const std::size_t corners : {1499U, 1500U, 1501U, 1600U}) {
        const Drawn done = drawn(round_plan(corners, 300.0));
        EXPECT_EQ(done.sheet.texts.size() + done.without.corners, corners);
    }
}

// Two lengths for one place: that of a side that is cut stands outside, the other inside, whichever side comes first.
TEST_F(LabelsInTheWay, LengthsOfCutSidesComeFirst)
{
    for (const bool first_is_cut : {false, true}) {
        tool::Parcel parcel;
        parcel.ring = {beside(-kHalf, 0), beside(0, 0), beside(kHalf, 0), beside(kHalf, -kHalf),
                       beside(-kHalf, -kHalf)};
        tool::Plan plan;
        plan.corners = tool::corners_of(parcel);
        for (std::size_t i = 0; i < 5; ++i)
            plan.points.push_back({std::to_string(i + 1), parcel.ring[i], false});
        const std::size_t from = add_point(plan, beside(-50, 0));
        const std::size_t to = add_point(plan, beside(50, 0));
        const tool::PlanSide whole = {{{from, to, "100.01"}}, "100.01"};
        const tool::PlanSide cut = {{{from, to, "100.02"}, {to, 2, "50.03"}}, "150.05"};
        plan.sides = {first_is_cut ? cut : whole, first_is_cut ? whole : cut};
        const Drawn done = drawn(plan);
        EXPECT_NEAR(done.place_of("100.02").y, 7.0, kRounded);
        EXPECT_NEAR(done.place_of("100.01").y, -7.0, kRounded);
    }
}

// What begins or ends beyond the edge of the sheet has no label.
TEST_F(LabelsInTheWay, WhatShowsInPartHasNoLength)
{
    for (const double off : {-250.0, 250.0}) {
        tool::Parcel parcel;
        parcel.ring = {{off - 200, -300}, {off + 200, -300}, {off + 200, 300}, {off - 200, 300}};
        tool::Plan plan;
        plan.corners = tool::corners_of(parcel);
        for (std::size_t i = 0; i < 4; ++i)
            plan.points.push_back({std::to_string(i + 1), parcel.ring[i], false});
        const std::size_t cut = add_point(plan, {off, -300});
        const std::size_t middle = add_point(plan, {off, 0});
        const std::size_t end = add_point(plan, {off + (off > 0 ? 200 : -200), 0});
        plan.sides = {{{{0, cut, "200.00"}, {cut, 1, "200.00"}}, "400.00"},
                      {{{1, 2, "600.00"}}, "600.00"},
                      {{{2, 3, "400.01"}}, "400.01"},
                      {{{3, 0, "600.00"}}, "600.00"}};
        plan.lines = {{middle, end, "200.02", "0.0000"}, {end, middle, "200.02", "0.0000"}};
        plan.pieces.push_back({"A", parcel.ring, 12345.0, "rest"});
        const Drawn done = drawn(plan);
        std::multiset<std::string> lengths;
        for (const DrawnText& text : done.sheet.texts)
            if (!text.bold)
                lengths.insert(text.text);
        // Half of the first side and one of the upright ones show.
        EXPECT_EQ(lengths, (std::multiset<std::string>{"200.00", "600.00"}));
        // The label of the piece is in the middle of what shows of it.
        const std::vector<DrawnText> piece = done.sheet.with_text("A");
        ASSERT_EQ(piece.size(), 1u);
        EXPECT_NEAR(piece[0].middle().x, off > 0 ? 625.0 : 175.0, kRounded);
    }
}

// Short parts at either end of a long one: names of new points that are near to anything stand across.
TEST_F(LabelsInTheWay, NamesOfPointsThatAreNearStandAcross)
{
    for (const double first : {29.0, 100.0, 171.0})
        for (const bool backwards : {false, true}) {
            tool::Plan plan = square();
            const std::size_t cut = add_point(plan, beside(first - kHalf, 0));
            plan.sides.push_back({{{0, cut, ""}, {cut, 1, ""}}, ""});
            if (backwards)
                for (tool::PlanPart& part : plan.sides[0].parts)
                    std::swap(part.from, part.to);
            if (backwards)
                std::swap(plan.sides[0].parts[0], plan.sides[0].parts[1]);
            const DrawnText name = drawn(plan).sheet.with_text("P1").at(0);
            EXPECT_EQ(std::fabs(name.left().y - name.right().y) < kRounded, first == 100.0) << first;
            EXPECT_TRUE(name.bold);
            if (first == 100.0)
                continue;
            const double off = 5.0 + 0.5 * width_of("P1", tool::kSmallSize, true);
            EXPECT_NEAR(drawn(plan).place_of("P1").x, first - kHalf, kRounded);
            EXPECT_NEAR(drawn(plan).place_of("P1").y, off, kRounded);
        }
}

}  // namespace
