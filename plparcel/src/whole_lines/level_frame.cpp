#include "whole_lines/level_frame.h"

#include <algorithm>

#include "plparcel/extent.h"

namespace plparcel {

LevelFrame::LevelFrame(const std::vector<Ring>& rings, const PL_PNT2D_record& zero, const WidePoint& up)
    : rings_(rings), outer_(rings.front()), local_(outer_), up_(up), up2_(dot(up, up)),
      zero_(local_.to_local(zero))
{
    for (const Ring& ring : rings)
        spacing_ = std::max(spacing_, coordinate_spacing(ring));
    points_.reserve(rings_.size());
    seen_.reserve(rings_.size());
    for (const PL_PNT2D_record& p : rings_.points()) {
        points_.push_back(local_.to_local(p));
        seen_.push_back(turned(points_.back()));
    }
}

WidePoint LevelFrame::turned(const WidePoint& p) const
{
    const WidePoint right = {up_.y, -up_.x};
    const WidePoint v = p - zero_;
    return {dot(right, v), dot(up_, v)};
}

}  // namespace plparcel
