#include "files/positions.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <sstream>

#include <cpl_vsi.h>

namespace tool {
namespace {

constexpr int kPlane = 2;

bool differ(const std::vector<int>& sizes)
{
    const auto is_plane = [](int size) { return size == kPlane; };
    return std::any_of(sizes.begin(), sizes.end(), is_plane) &&
           !std::all_of(sizes.begin(), sizes.end(), is_plane);
}

// Reads JSON a character at a time; keeps the sizes of the positions in one member "coordinates".
class Coordinates {
public:
    // Returns whether a member "coordinates" ends here.
    bool read(char c)
    {
        if (in_text_) {
            read_text(c);
            return false;
        }
        if (std::strchr(" \t\r\n", c) != nullptr) {
            in_number_ = false;
            return false;
        }
        const bool may_begin = c == '[' && (depth_ > 0 || is_value_);
        if (c == '"') {
            in_text_ = true;
            text_.clear();
        }
        is_value_ = c == ':' && text_ == "coordinates";
        if (may_begin)
            begin();
        else if (depth_ > 0)
            return read_inside(c);
        return false;
    }

    const std::vector<int>& sizes() const { return sizes_; }

private:
    void read_text(char c)
    {
        constexpr std::size_t kLongest = 16;
        if (escaped_ || c != '"')
            text_ += text_.size() < kLongest ? std::string(1, c) : "";
        else
            in_text_ = false;
        escaped_ = !escaped_ && c == '\\';
    }

    void begin()
    {
        if (depth_++ == 0)
            sizes_.clear();
        numbers_ = 0;
        in_number_ = false;
    }

    bool read_inside(char c)
    {
        const bool in_number = std::strchr("+-.0123456789eE", c) != nullptr;
        numbers_ += in_number && !in_number_ ? 1 : 0;
        in_number_ = in_number;
        if (c != ']')
            return false;
        if (numbers_ > 0)
            sizes_.push_back(numbers_);
        numbers_ = 0;
        return --depth_ == 0;
    }

    bool in_text_ = false;
    bool escaped_ = false;
    std::string text_;       // the last one
    bool is_value_ = false;  // of a member "coordinates"
    int depth_ = 0;
    int numbers_ = 0;
    bool in_number_ = false;
    std::vector<int> sizes_;
};

class AllLines : public OGRDefaultGeometryVisitor {
public:
    using OGRDefaultGeometryVisitor::visit;

    void visit(OGRLineString* line) override { lines.push_back(line); }
    void visit(OGRLinearRing* ring) override { lines.push_back(ring); }
    void visit(OGRCircularString* arcs) override { lines.push_back(arcs); }

    std::vector<OGRSimpleCurve*> lines;
};

}  // namespace

std::vector<int> position_sizes_of_wkt(const std::string& wkt)
{
    std::vector<int> sizes;
    std::string position;
    for (std::size_t i = std::min(wkt.find('('), wkt.size()); i < wkt.size(); ++i) {
        if (std::strchr("(),", wkt[i]) == nullptr) {
            position += wkt[i];
            continue;
        }
        std::istringstream words(position);
        int size = 0;
        for (std::string word; words >> word;)
            size += std::strchr("+-.0123456789", word[0]) != nullptr ? 1 : 0;
        if (size > 0)
            sizes.push_back(size);
        position.clear();
    }
    return sizes;
}

std::vector<int> position_sizes_of_json(const std::string& json)
{
    Coordinates coordinates;
    for (const char c : json)
        if (coordinates.read(c))
            break;
    return coordinates.sizes();
}

bool mixes_heights(const std::string& file)
{
    VSILFILE* const opened = VSIFOpenL(file.c_str(), "rb");
    if (opened == nullptr)
        return false;
    Coordinates coordinates;
    bool mixed = false;
    std::string block(1 << 16, '\0');
    for (std::size_t size; !mixed && (size = VSIFReadL(block.data(), 1, block.size(), opened)) > 0;)
        for (std::size_t i = 0; i < size && !mixed; ++i)
            mixed = coordinates.read(block[i]) && differ(coordinates.sizes());
    VSIFCloseL(opened);
    return mixed;
}

bool mark_missing_heights(OGRGeometry& geometry, const std::vector<int>& sizes)
{
    if (!differ(sizes))
        return true;
    AllLines all;
    geometry.accept(&all);
    std::size_t points = 0;
    for (const OGRSimpleCurve* line : all.lines)
        points += static_cast<std::size_t>(line->getNumPoints());
    if (points != sizes.size())
        return false;
    std::size_t next = 0;
    for (OGRSimpleCurve* line : all.lines)
        for (int i = 0; i < line->getNumPoints(); ++i)
            if (sizes[next++] == kPlane)
                line->setZ(i, std::nan(""));
    return true;
}

}  // namespace tool
