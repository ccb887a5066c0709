// A container of another make in place of the companion library's: it notes what is read from it. Linked with
// the area and perimeter alone, because the companion library would bring the members a second time.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "plcalc/survey.h"

namespace {

std::vector<std::string> notes;

void note(char axis, int index)
{
    notes.push_back(axis + std::to_string(index));
}

}  // namespace

CPoint3dVector::CPoint3dVector() noexcept = default;
CPoint3dVector::~CPoint3dVector() = default;

void CPoint3dVector::Append(double x, double y, double z)
{
    points_.push_back({x, y, z});
}

int CPoint3dVector::GetNoPoits() const noexcept
{
    return static_cast<int>(points_.size());
}

double CPoint3dVector::GetXcoordAt(int index) const noexcept
{
    note('x', index);
    return points_[static_cast<std::size_t>(index)].x;
}

double CPoint3dVector::GetYcoordAt(int index) const noexcept
{
    note('y', index);
    return points_[static_cast<std::size_t>(index)].y;
}

namespace {

using Measure = double (*)(const CPoint3dVector&);

std::vector<std::string> read_by(Measure measure, int n)
{
    CPoint3dVector pts;
    for (int i = 0; i < n; ++i)
        pts.Append(i, i * i, 0);
    notes.clear();
    measure(pts);
    return notes;
}

TEST(Reading, EachVertexOnceInOrderAbscissaFirst)
{
    for (const Measure measure : {AreaCalcolataSgn, AreaCalcolata, PeriCalcolato}) {
        EXPECT_EQ(read_by(measure, 0), std::vector<std::string>{});
        EXPECT_EQ(read_by(measure, 1), (std::vector<std::string>{"x0", "y0"}));
        EXPECT_EQ(read_by(measure, 2), (std::vector<std::string>{"x0", "y0", "x1", "y1"}));
        EXPECT_EQ(read_by(measure, 4),
                  (std::vector<std::string>{"x0", "y0", "x1", "y1", "x2", "y2", "x3", "y3"}));
    }
}

}  // namespace
