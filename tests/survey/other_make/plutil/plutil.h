#pragma once

// A container of another make under the companion library's name. It has the three readers and nothing more that
// plcalc may ask of it, keeps its points in its own way, and notes what is read.

#include <deque>
#include <string>
#include <vector>

class CPoint3dVector {
public:
    void add(double x, double y)
    {
        xs_.push_back(x);
        ys_.push_back(y);
    }

    int GetNoPoits() const { return static_cast<int>(xs_.size()); }

    double GetXcoordAt(int index) const
    {
        note('x', index);
        return xs_[static_cast<std::size_t>(index)];
    }

    double GetYcoordAt(int index) const
    {
        note('y', index);
        return ys_[static_cast<std::size_t>(index)];
    }

    std::vector<std::string> taken_notes() const { return notes_; }

private:
    void note(char axis, int index) const { notes_.push_back(axis + std::to_string(index)); }

    std::deque<double> xs_;
    std::deque<double> ys_;
    mutable std::vector<std::string> notes_;
};
