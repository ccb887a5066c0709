#include "files/gml_heights.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>
#include <sstream>
#include <vector>

#include "files/xml_reader.h"

namespace tool {
namespace {

// What can be the whole geometry of a feature, or a part of it.
constexpr const char* kGeometries[] = {"Polygon",
                                       "MultiPolygon",
                                       "Surface",
                                       "MultiSurface",
                                       "CompositeSurface",
                                       "LineString",
                                       "MultiLineString",
                                       "Curve",
                                       "MultiCurve",
                                       "Point",
                                       "CompositeCurve",
                                       "MultiGeometry",
                                       "MultiPoint",
                                       "GeometryCollection",
                                       "PolygonPatch",
                                       "OrientableCurve",
                                       "Ring",
                                       "LinearRing"};

bool is_geometry(const std::string& name)
{
    return std::find(std::begin(kGeometries), std::end(kGeometries), name) != std::end(kGeometries);
}

bool is_number(const std::string& word)
{
    char* end = nullptr;
    std::strtod(word.c_str(), &end);
    return *end == '\0' && std::strchr("+-.0123456789", word[0]) != nullptr;
}

// The positions of one geometry.
class Positions {
public:
    void add(const std::string& element, const std::string& text, int dimension)
    {
        if (element == "pos")
            add_list(text, static_cast<int>(words_in(text).size()));
        else if (element == "posList")
            add_list(text, dimension);
        else
            for (std::string tuple : words_in(text)) {
                std::replace(tuple.begin(), tuple.end(), ',', ' ');
                add_list(tuple, static_cast<int>(words_in(tuple).size()));
            }
    }

    bool are_mixed() const { return has_height_ && lacks_height_; }

private:
    static std::vector<std::string> words_in(const std::string& text)
    {
        std::istringstream words(text);
        return {std::istream_iterator<std::string>(words), {}};
    }

    void add_list(const std::string& text, int dimension)
    {
        constexpr int kPlane = 2;
        const std::vector<std::string> words = words_in(text);
        if (words.empty())
            return;
        // Coordinates of the plane that are no numbers are somebody else's to refuse.
        const bool all = dimension > kPlane && std::all_of(words.begin(), words.end(), is_number);
        has_height_ = has_height_ || dimension > kPlane;
        lacks_height_ = lacks_height_ || !all;
    }

    bool has_height_ = false;
    bool lacks_height_ = false;
};

int dimension_of(xmlTextReader* reader, int otherwise)
{
    for (const char* name : {"srsDimension", "dimension"}) {
        const std::unique_ptr<xmlChar, decltype(xmlFree)> value(
            xmlTextReaderGetAttribute(reader, reinterpret_cast<const xmlChar*>(name)), xmlFree);
        if (value != nullptr)
            return std::atoi(text_of(value.get()).c_str());
    }
    return otherwise;
}

}  // namespace

std::optional<long> line_of_mixed_heights(const std::string& file)
{
    const XmlReader reader = open_xml(file);
    std::optional<Positions> positions;  // of the geometry in which the reader is
    int depth = 0;                       // of its element
    long line = 0;                       // on which that stands
    std::vector<int> dimensions;         // of the elements around
    while (reader != nullptr && xmlTextReaderRead(reader.get()) == 1) {
        const int kind = xmlTextReaderNodeType(reader.get());
        const int here = xmlTextReaderDepth(reader.get());
        if (kind == XML_READER_TYPE_END_ELEMENT && positions && here == depth) {
            if (positions->are_mixed())
                return line;
            positions.reset();
        }
        if (kind != XML_READER_TYPE_ELEMENT)
            continue;
        const std::string name = text_of(xmlTextReaderConstLocalName(reader.get()));
        dimensions.resize(static_cast<std::size_t>(here) + 1, dimensions.empty() ? 2 : dimensions.back());
        dimensions.back() =
            dimension_of(reader.get(), here > 0 ? dimensions[static_cast<std::size_t>(here) - 1] : 2);
        if (!positions && is_geometry(name) && xmlTextReaderIsEmptyElement(reader.get()) == 0) {
            positions.emplace();
            depth = here;
            line = xmlGetLineNo(xmlTextReaderCurrentNode(reader.get()));
        }
        if (!positions || (name != "pos" && name != "posList" && name != "coordinates"))
            continue;
        const std::unique_ptr<xmlChar, decltype(xmlFree)> text(xmlTextReaderReadString(reader.get()),
                                                               xmlFree);
        positions->add(name, text_of(text.get()), dimensions.back());
    }
    return std::nullopt;
}

}  // namespace tool
