#include <algorithm>
#include <cstddef>
#include <utility>

#include "plutil/plutil.h"

namespace {

// Room that the first point allocates. Most parcels need no more.
constexpr std::size_t kFirstRoom = 8;

// A new array with room for so many points, the first of which are copies.
CPoint3d* copy_of(const CPoint3d* points, std::size_t count, std::size_t room)
{
    CPoint3d* const copies = new CPoint3d[room];  // GCOVR_EXCL_BR_LINE: the compiler asks for too many
    std::copy(points, points + count, copies);
    return copies;
}

// Gives an array more room.
void make_room(CPoint3d*& points, std::size_t count, std::size_t& room, std::size_t wanted)
{
    CPoint3d* const more = copy_of(points, count, wanted);
    delete[] points;
    points = more;
    room = wanted;
}

}  // namespace

CPoint3dVector::CPoint3dVector() noexcept = default;

CPoint3dVector::CPoint3dVector(std::initializer_list<CPoint3d> points)
    : points_(copy_of(points.begin(), points.size(), points.size())), count_(points.size()),
      room_(points.size())
{}

CPoint3dVector::CPoint3dVector(const CPoint3dVector& other)
    : points_(copy_of(other.points_, other.count_, other.count_)), count_(other.count_), room_(other.count_)
{}

CPoint3dVector::CPoint3dVector(CPoint3dVector&& other) noexcept
    : points_(std::exchange(other.points_, nullptr)), count_(std::exchange(other.count_, 0)),
      room_(std::exchange(other.room_, 0))
{}

CPoint3dVector& CPoint3dVector::operator=(const CPoint3dVector& other)
{
    CPoint3dVector copy(other);
    std::swap(points_, copy.points_);
    std::swap(count_, copy.count_);
    std::swap(room_, copy.room_);
    return *this;
}

CPoint3dVector& CPoint3dVector::operator=(CPoint3dVector&& other) noexcept
{
    std::swap(points_, other.points_);
    std::swap(count_, other.count_);
    std::swap(room_, other.room_);
    if (this != &other)
        other.count_ = 0;
    return *this;
}

CPoint3dVector::~CPoint3dVector()
{
    delete[] points_;
}

void CPoint3dVector::Append(double x, double y, double z)
{
    if (count_ == room_)
        make_room(points_, count_, room_, std::max(2 * room_, kFirstRoom));
    points_[count_] = {x, y, z};
    ++count_;
}

void CPoint3dVector::Reserve(int n)
{
    if (n > 0 && static_cast<std::size_t>(n) > room_)
        make_room(points_, count_, room_, static_cast<std::size_t>(n));
}

void CPoint3dVector::Clear() noexcept
{
    count_ = 0;
}

namespace plutil {

/// The readers as routines, for programs that look them up by name. Taking their addresses makes the compiler
/// emit them; otherwise it would only inline them.
struct Readers {
    int (CPoint3dVector::*count)() const;
    double (CPoint3dVector::*x_at)(int) const;
    double (CPoint3dVector::*y_at)(int) const;
};

extern const Readers readers;
const Readers readers = {&CPoint3dVector::GetNoPoits, &CPoint3dVector::GetXcoordAt,
                         &CPoint3dVector::GetYcoordAt};

}  // namespace plutil
