#include <cassert>
#include <cstddef>

#include "plutil/plutil.h"

CPoint3dVector::CPoint3dVector() noexcept = default;

CPoint3dVector::CPoint3dVector(std::initializer_list<CPoint3d> points) : points_(points)
{}

CPoint3dVector::CPoint3dVector(const CPoint3dVector& other) = default;

CPoint3dVector::CPoint3dVector(CPoint3dVector&& other) noexcept = default;

CPoint3dVector& CPoint3dVector::operator=(const CPoint3dVector& other) = default;

CPoint3dVector& CPoint3dVector::operator=(CPoint3dVector&& other) noexcept
{
    points_.swap(other.points_);
    if (this != &other)
        other.points_.clear();
    return *this;
}

CPoint3dVector::~CPoint3dVector() = default;

void CPoint3dVector::Append(double x, double y, double z)
{
    points_.push_back({x, y, z});
}

void CPoint3dVector::Reserve(int n)
{
    if (n > 0)
        points_.reserve(static_cast<std::size_t>(n));
}

void CPoint3dVector::Clear() noexcept
{
    points_.clear();
}

int CPoint3dVector::GetNoPoits() const noexcept
{
    return static_cast<int>(points_.size());
}

double CPoint3dVector::GetXcoordAt(int index) const noexcept
{
    assert(index >= 0 && index < GetNoPoits());  // GCOVR_EXCL_BR_LINE: a failure ends the program
    return points_[static_cast<std::size_t>(index)].x;
}

double CPoint3dVector::GetYcoordAt(int index) const noexcept
{
    assert(index >= 0 && index < GetNoPoits());  // GCOVR_EXCL_BR_LINE: a failure ends the program
    return points_[static_cast<std::size_t>(index)].y;
}
