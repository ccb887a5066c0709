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

namespace plutil {

/// The readers as routines, for whoever looks them up by name: taking their addresses makes the compiler emit
/// what the header would only have it inline.
struct Readers {
    int (CPoint3dVector::*count)() const;
    double (CPoint3dVector::*x_at)(int) const;
    double (CPoint3dVector::*y_at)(int) const;
};

extern const Readers readers;
const Readers readers = {&CPoint3dVector::GetNoPoits, &CPoint3dVector::GetXcoordAt,
                         &CPoint3dVector::GetYcoordAt};

}  // namespace plutil
