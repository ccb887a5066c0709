#pragma once

// Calls a function with arguments that its parameter types choose, and notes what it returned and wrote. What
// a pointer or a reference leads to belongs to that one call, but for the parcel, which is shared.

#include <tuple>
#include <type_traits>
#include <vector>

#include "data.h"

namespace test {

/// Records behind every pointer: functions of a ring read as many as the count says.
constexpr int kRecords = 5;

inline void fill(double& v, Data& data)
{
    v = data.coordinate();
}

inline void fill(PL_PNT2D_record& p, Data& data)
{
    p = data.point();
}

/// A record of doubles; a matrix.
template <typename Record> void fill(Record& record, Data& data)
{
    double numbers[sizeof record / sizeof(double)];
    for (double& number : numbers)
        number = data.coordinate();
    std::memcpy(&record, numbers, sizeof record);
}

inline void fill(PL_AngleMeasType& unit, Data& data)
{
    unit = static_cast<PL_AngleMeasType>(data.below(4));
}

inline void fill(ARC_2D_record& arc, Data& data)
{
    arc.centre = data.point();
    arc.radius = data.coordinate();
    fill(arc.angle_type, data);
    arc.start_angle = data.coordinate();
    arc.end_angle = data.coordinate();
}

/// By value.
template <typename T> struct Argument {
    T value;

    explicit Argument(Data& data) { fill(value, data); }
    T pass() { return value; }
    void note(Outcome&) const {}
};

/// A selector, an index or a count: 0 to 3 is right for all.
template <> struct Argument<int> {
    int value;

    explicit Argument(Data& data) : value(data.below(4)) {}
    int pass() { return value; }
    void note(Outcome&) const {}
};

/// Read or written through a reference: an output is noted whether written or not.
template <typename T> struct Argument<T&> {
    std::remove_const_t<T> value;

    explicit Argument(Data& data) { fill(value, data); }
    T& pass() { return value; }
    void note(Outcome& outcome) const
    {
        if constexpr (!std::is_const<T>::value)
            outcome.add(value);
    }
};

/// As above, through a pointer.
template <typename T> struct Argument<T*> {
    std::remove_const_t<T> values[kRecords];

    explicit Argument(Data& data)
    {
        for (auto& value : values)
            fill(value, data);
    }
    T* pass() { return values; }
    void note(Outcome& outcome) const
    {
        if constexpr (!std::is_const<T>::value)
            outcome.add(values[0]);
    }
};

/// Number of vertices.
template <> struct Argument<const int*> {
    int value = kRecords;

    explicit Argument(Data&) {}
    const int* pass() { return &value; }
    void note(Outcome&) const {}
};

/// An index, read and written; a count, written.
template <> struct Argument<int*> {
    int value;

    explicit Argument(Data& data) : value(data.below(kRecords + 2) - 1) {}
    int* pass() { return &value; }
    void note(Outcome& outcome) const { outcome.add(value); }
};

/// A matrix, read or written.
template <> struct Argument<double (*)[3]> {
    double value[3][3];

    explicit Argument(Data& data) { fill(value, data); }
    double (*pass())[3] { return value; }
    void note(Outcome& outcome) const { outcome.add(value); }
};

template <> struct Argument<const double (*)[3]> : Argument<double (*)[3]> {
    using Argument<double (*)[3]>::Argument;
    void note(Outcome&) const {}
};

/// The shared parcel.
template <> struct Argument<const CPoint3dVector&> {
    const CPoint3dVector& value;

    explicit Argument(Data& data) : value(data.parcel()) {}
    const CPoint3dVector& pass() { return value; }
    void note(Outcome&) const {}
};

/// Points of a working polygon.
template <> struct Argument<const std::vector<PL_PNT2D_record>&> {
    std::vector<PL_PNT2D_record> value;

    explicit Argument(Data& data)
    {
        for (int i = 0; i < kRecords; ++i)
            value.push_back(data.point());
    }
    const std::vector<PL_PNT2D_record>& pass() { return value; }
    void note(Outcome&) const {}
};

/// A request on the shared parcel that has been answered once, so that it holds a working polygon.
template <> struct Argument<CFrazArea&> {
    CFrazArea value;

    explicit Argument(Data& data) : value(data.request()) { run(value); }
    CFrazArea& pass() { return value; }
    void note(Outcome& outcome) const { outcome.add(value); }
};

template <> struct Argument<const CFrazArea&> : Argument<CFrazArea&> {
    using Argument<CFrazArea&>::Argument;
};

template <typename Result, typename... Parameters> Outcome call(Result (*function)(Parameters...), Data& data)
{
    Outcome outcome;
    std::tuple<Argument<Parameters>...> arguments{Argument<Parameters>(data)...};  // in order: braces
    std::apply(
        [&](auto&... argument) {
            if constexpr (std::is_void<Result>::value)
                function(argument.pass()...);
            else
                outcome.add(function(argument.pass()...));
            (argument.note(outcome), ...);
        },
        arguments);
    return outcome;
}

}  // namespace test
