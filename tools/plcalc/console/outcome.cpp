#include "console/outcome.h"

#include <utility>

namespace tool {

namespace {

std::string in_file(const std::string& file, const std::string& feature)
{
    return file.empty() || feature.empty() ? file + feature : file + ": " + feature;
}

}  // namespace

std::string printable(std::string text)
{
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ')
            c = '?';
    return text;
}

std::string Place::called() const
{
    return name.empty() ? feature : feature + " '" + printable(name) + "'";
}

std::string Place::text() const
{
    return in_file(file, called());
}

std::string Place::without_name() const
{
    return in_file(file, feature);
}

Failure::Failure(ExitStatus failure_status, Place failure_place, std::string what_is_wrong,
                 std::string what_to_do, std::string more)
    : status(failure_status), place(std::move(failure_place)), problem(std::move(what_is_wrong)),
      advice(std::move(what_to_do)), detail(std::move(more))
{}

std::string sentence(const Failure& failure)
{
    const std::string place = failure.place.text();
    std::string text = place.empty() ? failure.problem : place + ": " + failure.problem;
    if (!failure.detail.empty())
        text += ": " + failure.detail;
    if (!failure.advice.empty())
        text += "; " + failure.advice;
    return text;
}

}  // namespace tool
