#include "writing/division_writer.h"

#include <filesystem>

#include "writing/drawing_writer.h"
#include "writing/landxml_writer.h"
#include "writing/layer_writer.h"
#include "writing/output_format.h"

namespace tool {

std::string DivisionWriter::file_for(const std::string& name)
{
    return std::filesystem::path(name).has_extension() ? name : name + ".gpkg";
}

bool DivisionWriter::can_write(const std::string& file)
{
    return LandXmlWriter::writes(file) || OutputFormat::for_file(file).has_value();
}

bool DivisionWriter::holds_all(const std::string& file)
{
    return LandXmlWriter::writes(file) || DrawingWriter::writes(file) ||
           OutputFormat::for_file(file).value().holds_two_layers();
}

std::vector<std::string> DivisionWriter::files_for(const std::string& file)
{
    return holds_all(file) ? std::vector<std::string>{file} : LayerWriter::files_for(file);
}

std::unique_ptr<DivisionWriter> DivisionWriter::make(const std::string& file, bool overwrite,
                                                     const ParcelFile& parcels,
                                                     const NeighbourHeights& neighbours,
                                                     const std::vector<std::string>& others)
{
    if (DrawingWriter::writes(file))
        return std::make_unique<DrawingWriter>(file, overwrite, parcels, neighbours, others);
    if (LandXmlWriter::writes(file))
        return std::make_unique<LandXmlWriter>(file, overwrite, parcels, others);
    return std::make_unique<LayerWriter>(file, overwrite, parcels, neighbours, others);
}

}  // namespace tool
