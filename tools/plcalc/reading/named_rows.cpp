#include "reading/named_rows.h"

#include <gdal_priv.h>

#include "files/gdal_messages.h"
#include "files/text_source.h"
#include "files/vector_file.h"
#include "text/numbers.h"

namespace tool {
namespace {

void add_to_list(std::string& list, const std::string& part)
{
    list += (list.empty() ? "" : ";") + part;
}

}  // namespace

std::string cell_text(const OGRFeature& row, int column)
{
    if (!row.IsFieldSetAndNotNull(column))
        return "";
    std::string list;
    int count = 0;
    switch (row.GetFieldDefnRef(column)->GetType()) {
    case OFTReal:
        return shortest(row.GetFieldAsDouble(column));
    case OFTRealList:
        for (const double* number = row.GetFieldAsDoubleList(column, &count); count > 0; ++number, --count)
            add_to_list(list, shortest(*number));
        return list;
    case OFTIntegerList:
        for (const int* number = row.GetFieldAsIntegerList(column, &count); count > 0; ++number, --count)
            add_to_list(list, std::to_string(*number));
        return list;
    case OFTInteger64List:
        for (const GIntBig* number = row.GetFieldAsInteger64List(column, &count); count > 0;
             ++number, --count)
            add_to_list(list, std::to_string(*number));
        return list;
    case OFTStringList:
        for (char** text = row.GetFieldAsStringList(column); text != nullptr && *text != nullptr; ++text)
            add_to_list(list, *text);
        return list;
    default:
        return trimmed(row.GetFieldAsString(column));
    }
}

NamedRows::NamedRows(const std::string& file) : file_(file)
{
    GDALAllRegister();
    GdalMessages messages;
    const TextSource opened(file, std::nullopt);
    const GDALDatasetUniquePtr dataset = open_or_refuse(opened.name(), messages, file);
    decimal_commas_ = opened.separator() == ';';
    OGRLayer* const layer = dataset->GetLayerCount() == 1 ? dataset->GetLayer(0) : nullptr;
    if (layer == nullptr || layer->GetLayerDefn()->GetFieldCount() < 2)
        throw Failure(ExitStatus::unusable_input, {file, ""}, "it is no table with a row for each parcel",
                      "give its first column the names of the parcels, and the others their areas");
    key_ = layer->GetLayerDefn()->GetFieldDefn(0)->GetNameRef();
    for (const OGRFeatureUniquePtr& row : *layer)
        add(*row);
    if (!messages.text().empty())
        throw Failure(ExitStatus::unusable_input, {file, ""}, "the table cannot be read" + messages.remark(),
                      "correct it");
}

void NamedRows::add(const OGRFeature& row)
{
    Row read;
    read.number = row.GetFID();
    for (int column = 1; column < row.GetFieldCount(); ++column)
        read.cells.push_back(cell_text(row, column));
    while (!read.cells.empty() && read.cells.back().empty())
        read.cells.pop_back();
    const std::string name = cell_text(row, 0);
    if (name.empty() && read.cells.empty())
        return;
    const Place place = {file_, "row " + std::to_string(read.number)};
    if (name.empty())
        throw Failure(ExitStatus::unusable_input, place, "it names no parcel",
                      "write the name into the column '" + key_ + "'");
    const auto [at, is_new] = rows_.emplace(name, std::move(read));
    if (!is_new)
        throw Failure(ExitStatus::unusable_input, place,
                      "'" + name + "' stands in row " + std::to_string(at->second.number) + " too",
                      "write all areas of a parcel into one row");
}

NamedRows::Row* NamedRows::find(const std::string& name)
{
    const auto at = rows_.find(name);
    return at == rows_.end() ? nullptr : &at->second;
}

std::vector<std::string> NamedRows::left() const
{
    std::vector<std::string> names;
    for (const auto& [name, row] : rows_)
        if (row.taken_by.empty())
            names.push_back(name);
    return names;
}

}  // namespace tool
