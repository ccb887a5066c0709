// The sheets of a plan as they lie on the table: everything in the frame, no text over another, each sheet with its
// number, every figure once.

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "plan/drawing.h"
#include "plan/drawn_sheet.h"
#include "plan/plan.h"
#include "plan/tables.h"
#include "program.h"

namespace {

using test::DrawnGroup;
using test::DrawnPath;
using test::DrawnSheet;
using test::DrawnText;
using tool::Paper;
using tool::SheetBox;
using tool::SheetPoint;

constexpr double kMillimetre = 72.0 / 25.4;

// An SVG tells thousandths of a point.
constexpr double kRounded = 0.002;

plparcel::Ring regular(int corners, double radius)
{
    plparcel::Ring ring;
    for (int i = 0; i < corners; ++i)
        ring.push_back(
            {radius * std::cos(2.0 * M_PI * i / corners), radius * std::sin(2.0 * M_PI * i / corners)});
    return ring;
}

// An octagon whose corners are cut off: eight pairs of points that only a detail tells apart.
plparcel::Ring cut_octagon()
{
    plparcel::Ring ring;
    for (int i = 0; i < 8; ++i)
        for (const double beside : {-0.0005, 0.0005})
            ring.push_back(
                {100.0 * std::cos((i + beside) * 0.25 * M_PI), 100.0 * std::sin((i + beside) * 0.25 * M_PI)});
    return ring;
}

const plparcel::Ring kLot = {{0, 0}, {80, 0}, {80, 50}, {0, 50}};

struct Asked {
    const char* what;
    plparcel::Ring ring;
    plparcel::Cut cut;
    long long number;
    std::size_t parts;
    Paper paper = Paper::a4;
    std::size_t entries = 0;  // of the title block
    std::string name = "";
    std::vector<std::string> point_names = {};
};

tool::Plan plan_of(const Asked& row)
{
    tool::Asked asked;
    asked.request.line.cut = row.cut;
    asked.request.amounts = plparcel::equal_parts(row.parts);
    asked.number = row.number;
    asked.amounts.assign(row.parts - 1, "1/" + std::to_string(row.parts));
    tool::Parcel parcel;
    parcel.place = {"lot.csv", "", row.name};
    parcel.ring = row.ring;
    parcel.point_names = row.point_names;
    tool::PlanWishes wishes;
    for (std::size_t i = 0; i < row.entries; ++i)
        wishes.title_block.emplace_back("Entry " + std::to_string(i + 1), "given");
    return tool::plan_of(tool::answer(parcel, asked), wishes);
}

std::vector<Asked> plans()
{
    using plparcel::Cut;
    const std::vector<std::string> long_names(4, std::string(150, 'm'));
    return {
        {"one sheet", kLot, Cut::parallel, 1, 2},
        {"a tall parcel", {{0, 0}, {30, 0}, {30, 90}, {0, 90}}, Cut::perpendicular, 1, 3},
        {"a full title block", kLot, Cut::perpendicular, 1, 3, Paper::a3, 12},
        {"long names", kLot, Cut::parallel, 1, 2, Paper::a4, 1, std::string(150, 'M'), long_names},
        {"forty strips", kLot, Cut::parallel, 1, 40},
        {"ten low strips", {{0, 0}, {80, 0}, {80, 25}, {0, 25}}, Cut::parallel, 1, 10},
        {"two sheets of details", cut_octagon(), Cut::parallel, 2, 2, Paper::a4, 2},
        {"details on a sheet that lies",
         {{0, 0}, {240, 0}, {240, 40}, {0, 40.01}, {0, 40}},
         Cut::parallel,
         1,
         2},
        {"many tables", regular(500, 100), Cut::parallel, 1, 4, Paper::a3, 3},
    };
}

bool is_dark(const DrawnPath& path)
{
    return path.fill == "#262626" || path.stroke == "#262626";
}

SheetBox box_of(const std::vector<SheetPoint>& points)
{
    SheetBox box = {points[0].x, points[0].y, points[0].x, points[0].y};
    for (const SheetPoint& p : points)
        box = {std::min(box.left, p.x), std::min(box.top, p.y), std::max(box.right, p.x),
               std::max(box.bottom, p.y)};
    return box;
}

// A rectangle, with each of its corners once.
bool is_outlined(const DrawnPath& path, const SheetBox& box)
{
    const SheetPoint corners[] = {
        {box.left, box.top}, {box.right, box.top}, {box.right, box.bottom}, {box.left, box.bottom}};
    const auto is_drawn = [&](const SheetPoint& corner) {
        return std::any_of(path.points.begin(), path.points.end(), [&](const SheetPoint& p) {
            return std::fabs(p.x - corner.x) < kRounded && std::fabs(p.y - corner.y) < kRounded;
        });
    };
    return path.closed && path.points.size() == 4 &&
           std::all_of(std::begin(corners), std::end(corners), is_drawn);
}

// 10 millimetres inside the sheet.
SheetBox frame_of(const DrawnSheet& sheet)
{
    const double margin = 10.0 * kMillimetre;
    return {margin, margin, sheet.size.x - margin, sheet.size.y - margin};
}

// A level line from one side of the frame to the other.
bool is_across(const DrawnPath& path, const SheetBox& frame)
{
    return path.points.size() == 2 && std::fabs(path.points[0].y - path.points[1].y) < kRounded &&
           std::fabs(std::min(path.points[0].x, path.points[1].x) - frame.left) < kRounded &&
           std::fabs(std::max(path.points[0].x, path.points[1].x) - frame.right) < kRounded;
}

bool is_in(const SheetBox& box, const SheetPoint& p)
{
    return SheetBox{box.left - kRounded, box.top - kRounded, box.right + kRounded, box.bottom + kRounded}
        .holds(p);
}

// Both ends of a name, with dots between them; as much as about 120 points take.
bool is_shortened(const DrawnText& shown, const std::string& name)
{
    const std::size_t dots = shown.text.find("...");
    if (dots == std::string::npos)
        return false;
    const std::string head = shown.text.substr(0, dots);
    const std::string tail = shown.text.substr(dots + 3);
    const double width = shown.right().x - shown.left().x;
    return head.size() > 2 && tail.size() > 2 && head.size() + tail.size() < name.size() &&
           name.compare(0, head.size(), head) == 0 &&
           name.compare(name.size() - tail.size(), tail.size(), tail) == 0 && width > 100.0 &&
           width < 120.0 + kRounded;
}

class Sheets : public test::ProgramTest {
protected:
    std::vector<DrawnSheet> drawn(const Asked& row) const
    {
        const tool::PlanSheets sheets(plan_of(row), row.paper);
        const std::vector<std::string> files = sheets.files(path("plan.svg"));
        sheets.draw(files, files);
        std::vector<DrawnSheet> read;
        for (const std::string& file : files) {
            std::ostringstream svg;
            svg << std::ifstream(file, std::ios::binary).rdbuf();
            read.push_back(test::read_sheet(svg.str()));
        }
        return read;
    }
};

TEST_F(Sheets, EverythingIsInTheFrame)
{
    for (const Asked& row : plans()) {
        SCOPED_TRACE(row.what);
        for (const DrawnSheet& sheet : drawn(row)) {
            const SheetBox frame = frame_of(sheet);
            ASSERT_FALSE(sheet.free.paths.empty());
            EXPECT_TRUE(is_outlined(sheet.free.paths.front(), frame)) << "the frame";
            for (const DrawnText& text : sheet.texts)
                for (const SheetPoint& corner : text.corners)
                    EXPECT_TRUE(is_in(frame, corner)) << text.text << " at " << corner.x << " " << corner.y;
            for (const DrawnPath& path : sheet.free.paths)
                for (const SheetPoint& p : path.points)
                    EXPECT_TRUE(is_in(frame, p)) << p.x << " " << p.y;
            for (const DrawnGroup& window : sheet.windows) {
                EXPECT_TRUE(is_in(frame, {window.box.left, window.box.top}));
                EXPECT_TRUE(is_in(frame, {window.box.right, window.box.bottom}));
            }
        }
    }
}

TEST_F(Sheets, NoTextCoversAnotherOrALineOfTheSheet)
{
    for (const Asked& row : plans()) {
        SCOPED_TRACE(row.what);
        for (const DrawnSheet& sheet : drawn(row)) {
            const std::vector<DrawnText>& texts = sheet.texts;
            for (std::size_t i = 0; i < texts.size(); ++i) {
                for (std::size_t k = 0; k < i; ++k)
                    EXPECT_TRUE(!box_of(texts[i].corners).meets(box_of(texts[k].corners)) ||
                                test::gap_between(texts[i].corners, texts[k].corners) > 0.0)
                        << texts[i].text << " and " << texts[k].text;
                // Of the sheet: the frame, those from side to side, the windows', the bar's, the arrow's. Others are
                // hair lines that end at their texts, and rings.
                for (const DrawnPath& path : sheet.free.paths) {
                    const std::size_t points = path.points.size();
                    if (points > 4 || (points == 2 && !is_across(path, frame_of(sheet))))
                        continue;
                    for (std::size_t p = 0; p < points; ++p)
                        EXPECT_GT(test::gap_between(texts[i].corners,
                                                    {path.points[p], path.points[(p + 1) % points]}),
                                  0.0)
                            << texts[i].text;
                }
            }
        }
    }
}

TEST_F(Sheets, EachSaysItsNumberAndHowManyThereAre)
{
    for (const Asked& row : plans()) {
        SCOPED_TRACE(row.what);
        const std::vector<DrawnSheet> sheets = drawn(row);
        for (std::size_t i = 0; i < sheets.size(); ++i) {
            std::vector<DrawnText> numbers = sheets[i].texts;
            numbers.erase(
                std::remove_if(numbers.begin(), numbers.end(),
                               [](const DrawnText& text) { return text.text.rfind("Sheet ", 0) != 0; }),
                numbers.end());
            ASSERT_EQ(numbers.size(), 1u);
            EXPECT_EQ(numbers[0].text,
                      "Sheet " + std::to_string(i + 1) + " of " + std::to_string(sheets.size()));
            // Of the first one in the last line of the title block; of the others beside the title, at the frame's right.
            if (i > 0) {
                EXPECT_NEAR(numbers[0].right().x, frame_of(sheets[i]).right - 10.0, kRounded);
                EXPECT_NEAR(numbers[0].middle().y, sheets[i].texts[0].middle().y, kRounded);
            }
        }
    }
}

// North is where the paper's top is: an arrow in two halves, one of them dark, that points there from its N, between the
// title and the frame's corner, where no parcel is drawn.
TEST_F(Sheets, TheArrowPointsNorth)
{
    for (const Asked& row : plans()) {
        SCOPED_TRACE(row.what);
        const DrawnSheet sheet = drawn(row).front();
        std::vector<DrawnPath> halves;
        for (const DrawnPath& path : sheet.free.paths)
            if (path.points.size() == 3)
                halves.push_back(path);
        ASSERT_EQ(halves.size(), 2u);
        EXPECT_EQ(halves[0].fill == "none", halves[1].fill != "none") << "one is dark";
        EXPECT_TRUE(is_dark(halves[0]) && is_dark(halves[1]));
        const SheetBox left = box_of(halves[0].points);
        const SheetBox right = box_of(halves[1].points);
        EXPECT_NEAR(left.right, right.left, kRounded) << "they meet in the axis";
        EXPECT_NEAR(left.right - left.left, right.right - right.left, kRounded) << "as wide";
        EXPECT_GT(left.width(), 3.0);
        EXPECT_GT(left.height(), 4.0 * left.width()) << "longer than it is wide";
        const double axis = left.right;
        for (const DrawnPath& half : halves) {
            // The tip, the end of its arm, and the notch between the arms, which lies above their ends.
            const std::vector<SheetPoint>& p = half.points;
            const auto tip =
                std::min_element(p.begin(), p.end(), [](const auto& a, const auto& b) { return a.y < b.y; });
            const auto arm =
                std::max_element(p.begin(), p.end(), [](const auto& a, const auto& b) { return a.y < b.y; });
            EXPECT_NEAR(tip->x, axis, kRounded);
            EXPECT_NEAR(std::fabs(arm->x - axis), left.width(), kRounded);
            EXPECT_EQ(std::count_if(p.begin(), p.end(),
                                    [&](const SheetPoint& q) { return std::fabs(q.x - axis) < kRounded; }),
                      2);
        }
        EXPECT_NEAR(left.top, right.top, kRounded);
        EXPECT_NEAR(left.bottom, right.bottom, kRounded);
        const auto is_its_n = [&](const DrawnText& n) {
            return std::fabs(n.middle().x - axis) < kRounded && n.middle().y > left.bottom &&
                   n.middle().y < left.bottom + 15.0;
        };
        const std::vector<DrawnText> named = sheet.with_text("N");
        EXPECT_EQ(std::count_if(named.begin(), named.end(), is_its_n), 1);
        // The drawing begins 22 millimetres below the frame's top.
        EXPECT_GT(left.top, frame_of(sheet).top + 5.0);
        EXPECT_LT(left.bottom, frame_of(sheet).top + 22.0 * kMillimetre - 10.0);
        EXPECT_GT(left.left, frame_of(sheet).right - 40.0);
    }
}

// Below the title and above the foot, from side to side; on further sheets there is no foot.
TEST_F(Sheets, LinesPartTheTitleAndTheFootFromTheDrawing)
{
    for (const Asked& row : plans()) {
        SCOPED_TRACE(row.what);
        const std::vector<DrawnSheet> sheets = drawn(row);
        for (std::size_t i = 0; i < sheets.size(); ++i) {
            const SheetBox frame = frame_of(sheets[i]);
            std::vector<double> heights;
            for (const DrawnPath& path : sheets[i].free.paths)
                if (is_across(path, frame))
                    heights.push_back(path.points[0].y);
            ASSERT_EQ(heights.size(), i == 0 ? 2u : 1u);
            EXPECT_NEAR(heights[0], frame.top + 22.0 * kMillimetre, kRounded);
            if (i == 0) {
                EXPECT_NEAR(heights[1], sheets[i].windows.at(0).box.bottom, kRounded);
            }
        }
    }
}

// The cells of a table stand in the order of the columns, so that a row is found again among the texts: once, on one line,
// its name under the heading on the left, its figures under theirs on the right, each row below the one before.
TEST_F(Sheets, EveryRowOfATableStandsOnce)
{
    struct Cell {
        DrawnText text;
        std::size_t sheet;
    };
    for (const Asked& row : plans()) {
        SCOPED_TRACE(row.what);
        const std::vector<DrawnSheet> sheets = drawn(row);
        std::vector<Cell> cells;
        for (std::size_t i = 0; i < sheets.size(); ++i)
            for (const DrawnText& text : sheets[i].texts)
                if (text.size == 7.0)
                    cells.push_back({text, i});
        std::size_t at = 0;
        for (const tool::PlanTable& table : tool::tables_of(plan_of(row))) {
            SCOPED_TRACE(table.title);
            std::vector<DrawnText> heads;
            double above = 0.0;
            // A title with the headings, at the beginning and where the table goes on.
            const auto begin = [&](const std::string& title) {
                ASSERT_LT(at + table.heads.size(), cells.size());
                EXPECT_EQ(cells[at].text.text, title);
                EXPECT_TRUE(cells[at].text.bold);
                const DrawnText& title_text = cells[at++].text;
                heads.clear();
                for (const std::string& head : table.heads) {
                    EXPECT_EQ(cells[at].text.text, head);
                    EXPECT_FALSE(cells[at].text.bold);
                    heads.push_back(cells[at++].text);
                    EXPECT_GT(heads.back().middle().y, title_text.middle().y + 7.0);
                }
                EXPECT_NEAR(heads.front().left().x, title_text.left().x, kRounded);
                above = heads.front().middle().y;
            };
            begin(table.title);
            for (const std::vector<std::string>& figures : table.rows) {
                ASSERT_LT(at, cells.size());
                if (cells[at].text.bold)
                    begin(table.title + " (continued)");
                const std::size_t sheet = cells[at].sheet;
                double y = cells[at].text.middle().y;
                EXPECT_GT(y, above + 7.0) << figures[0];
                above = y;
                for (std::size_t i = 0; i < figures.size(); ++i) {
                    if (figures[i].empty())
                        continue;
                    ASSERT_LT(at, cells.size());
                    const DrawnText& cell = cells[at].text;
                    EXPECT_TRUE(cell.text == figures[i] || (i == 0 && is_shortened(cell, figures[i])))
                        << cell.text << " for " << figures[i];
                    EXPECT_EQ(cells[at++].sheet, sheet);
                    EXPECT_NEAR(cell.middle().y, y, kRounded) << cell.text;
                    if (i == 0)
                        EXPECT_NEAR(cell.left().x, heads[i].left().x, kRounded) << cell.text;
                    else
                        EXPECT_NEAR(cell.right().x, heads[i].right().x, kRounded) << cell.text;
                }
            }
        }
        EXPECT_EQ(at, cells.size()) << "nothing else";
    }
}

// Every side in ink, the base in blue and thicker, every dividing line in red, true to scale; a dot at each of their ends.
TEST_F(Sheets, TheMapShowsEveryLine)
{
    const struct {
        Asked asked;
        std::size_t lines;
        bool at_vertex;
    } rows[] = {
        {{"along a side", {{0, 0}, {80, 10}, {70, 55}, {-5, 50}}, plparcel::Cut::parallel, 2, 3}, 2, false},
        {{"from a vertex", {{0, 0}, {80, 10}, {70, 55}, {-5, 50}}, plparcel::Cut::through_vertex, 3, 2},
         1,
         true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.asked.what);
        const tool::Plan plan = plan_of(row.asked);
        const DrawnSheet sheet = drawn(row.asked).front();
        ASSERT_EQ(sheet.windows.size(), 1u);
        const DrawnGroup& map = sheet.windows[0];
        const auto scale = std::find_if(sheet.texts.begin(), sheet.texts.end(), [](const DrawnText& text) {
            return text.text.rfind("Scale 1:", 0) == 0;
        });
        ASSERT_NE(scale, sheet.texts.end());
        const double points_per_metre = 1000.0 * kMillimetre / std::stod(scale->text.substr(8));
        // The box around the parcel is in the middle of the drawing.
        SheetBox around = {INFINITY, INFINITY, -INFINITY, -INFINITY};
        for (const PL_PNT2D_record& p : row.asked.ring)
            around = {std::min(around.left, p.x), std::min(around.top, p.y), std::max(around.right, p.x),
                      std::max(around.bottom, p.y)};
        const auto on_sheet = [&](const PL_PNT2D_record& p) {
            return SheetPoint{0.5 * (map.box.left + map.box.right) +
                                  (p.x - 0.5 * (around.left + around.right)) * points_per_metre,
                              0.5 * (map.box.top + map.box.bottom) -
                                  (p.y - 0.5 * (around.top + around.bottom)) * points_per_metre};
        };
        const auto near = [](const SheetPoint& a, const SheetPoint& b) {
            return std::hypot(a.x - b.x, a.y - b.y) < 0.003;
        };
        const auto count_lines = [&](const SheetPoint& a, const SheetPoint& b, const std::string& colour,
                                     double width) {
            return std::count_if(map.paths.begin(), map.paths.end(), [&](const DrawnPath& path) {
                return path.points.size() == 2 && path.stroke == colour && path.width == width &&
                       ((near(path.points[0], a) && near(path.points[1], b)) ||
                        (near(path.points[0], b) && near(path.points[1], a)));
            });
        };
        const std::size_t corners = row.asked.ring.size();
        for (std::size_t i = 0; i < corners; ++i) {
            const SheetPoint a = on_sheet(row.asked.ring[i]);
            const SheetPoint b = on_sheet(row.asked.ring[(i + 1) % corners]);
            const bool is_base = !row.at_vertex && static_cast<long long>(i + 1) == row.asked.number;
            EXPECT_EQ(count_lines(a, b, "#262626", 1.0), 1) << i;
            EXPECT_EQ(count_lines(a, b, "#1a4d99", 3.0), is_base ? 1 : 0) << i;
            const bool is_ringed = row.at_vertex && static_cast<long long>(i + 1) == row.asked.number;
            EXPECT_EQ(std::count_if(map.dots.begin(), map.dots.end(),
                                    [&](const SheetPoint& dot) { return near(dot, a); }),
                      is_ringed ? 2 : 1)
                << i;
        }
        std::size_t red = 0;
        for (const DrawnPath& path : map.paths)
            red += path.stroke == "#b81c1c";
        EXPECT_EQ(red, row.lines);
        ASSERT_EQ(plan.lines.size(), row.lines);
        for (const tool::PlanLine& line : plan.lines) {
            const SheetPoint a = on_sheet(plan.points[line.from].at);
            const SheetPoint b = on_sheet(plan.points[line.to].at);
            EXPECT_EQ(count_lines(a, b, "#b81c1c", 1.6), 1) << line.length;
            for (const SheetPoint& end : {a, b})
                EXPECT_GE(std::count_if(map.dots.begin(), map.dots.end(),
                                        [&](const SheetPoint& dot) { return near(dot, end); }),
                          1);
        }
    }
}

// A window has its outline, and a title right above it that says how much it enlarges; a line in it ends at a point or
// beyond its edge.
TEST_F(Sheets, ADetailIsAWindowWithATitle)
{
    for (const Asked& row : plans()) {
        SCOPED_TRACE(row.what);
        const std::vector<DrawnSheet> sheets = drawn(row);
        std::size_t details = 0;
        for (std::size_t i = 1; i < sheets.size(); ++i) {
            for (const DrawnGroup& window : sheets[i].windows) {
                const std::string name = "Detail " + std::to_string(++details) + ", 1:";
                EXPECT_EQ(std::count_if(sheets[i].free.paths.begin(), sheets[i].free.paths.end(),
                                        [&](const DrawnPath& path) { return is_outlined(path, window.box); }),
                          1);
                EXPECT_EQ(std::count_if(sheets[i].texts.begin(), sheets[i].texts.end(),
                                        [&](const DrawnText& text) {
                                            return text.text.rfind(name, 0) == 0 &&
                                                   std::fabs(text.left().x - window.box.left) < kRounded &&
                                                   text.left().y < window.box.top &&
                                                   text.left().y > window.box.top - 10.0;
                                        }),
                          1)
                    << name;
                for (const DrawnPath& path : window.paths) {
                    if (path.points.size() != 2 || path.width < 1.0)
                        continue;  // no boundary and no dividing line
                    for (const SheetPoint& end : path.points)
                        EXPECT_TRUE(!window.box.holds(end) ||
                                    std::any_of(window.dots.begin(), window.dots.end(),
                                                [&](const SheetPoint& dot) {
                                                    return std::hypot(dot.x - end.x, dot.y - end.y) <
                                                           kRounded;
                                                }))
                            << end.x << " " << end.y;
                }
            }
        }
        EXPECT_TRUE(row.ring.size() != 16 || details == 8) << details;
    }
}

// The lines of the title block are as far apart as each other, and no nearer to the scale above them.
TEST_F(Sheets, LinesOfTheTitleBlockAreEvenlySpaced)
{
    const Asked row = {"", kLot, plparcel::Cut::perpendicular, 1, 3, Paper::a3, 12};
    const DrawnSheet sheet = drawn(row).front();
    std::vector<double> heights;
    for (const DrawnText& text : sheet.texts)
        if (text.text.rfind("Entry ", 0) == 0 || text.text.rfind("Sheet ", 0) == 0 ||
            text.text.rfind("no CRS", 0) == 0 || text.text.rfind("Scale ", 0) == 0)
            heights.push_back(text.middle().y);
    ASSERT_EQ(heights.size(), 15u);
    const double step = heights[2] - heights[1];
    EXPECT_GT(step, 8.0);
    EXPECT_LT(step, 16.0);
    for (std::size_t i = 2; i < heights.size(); ++i)
        EXPECT_NEAR(heights[i] - heights[i - 1], step, kRounded);
    EXPECT_GE(heights[1] - heights[0], step - kRounded);
    EXPECT_LT(heights[1] - heights[0], 2.0 * step);
}

// Titles too long for the room beside the arrow have dots in their middle, those under them at their end; neither leaves
// out more than it must.
TEST_F(Sheets, TitlesGoAsFarAsTheArrowLeavesRoom)
{
    const std::vector<std::string> long_names(4, std::string(150, 'm'));
    const Asked row = {"",        kLot, plparcel::Cut::parallel, 1,         2,
                       Paper::a4, 0,    std::string(150, 'M'),   long_names};
    const DrawnSheet sheet = drawn(row).front();
    const double room = frame_of(sheet).width() - 90.0;
    std::size_t cut = 0;
    for (const DrawnText& text : sheet.texts) {
        const std::size_t dots = text.text.find("...");
        if (text.left().y > frame_of(sheet).top + 45.0 || dots == std::string::npos)
            continue;
        const bool is_title = cut++ == 0;
        EXPECT_EQ(dots + 3 < text.text.size(), is_title) << text.text;
        const double width = text.right().x - text.left().x;
        EXPECT_LE(width, room + kRounded) << text.text;
        EXPECT_GT(width, room - (is_title ? 2 : 1) * 1.2 * text.size) << "no letter is wider: " << text.text;
        EXPECT_NEAR(text.left().x, frame_of(sheet).left + 10.0, kRounded);
    }
    EXPECT_EQ(cut, 2u) << "the title and the sentence under it";
}

}  // namespace
