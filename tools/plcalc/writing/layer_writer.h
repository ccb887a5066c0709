#pragma once

// Writes divisions as layers of any vector format that GDAL writes.

#include <optional>
#include <string>
#include <vector>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include "files/gdal_messages.h"
#include "files/pending_output.h"
#include "reading/parcel_file.h"
#include "writing/division_writer.h"
#include "writing/output_format.h"

namespace tool {

/// Writes the layers "pieces" and "lines". A format that holds one layer gets two files: OUT.shp and
/// OUT-lines.shp. Every feature carries the attributes of its parcel, and both layers its CRS.
///
/// | layer  | columns beside the parcel's own                                                   |
/// | ------ | --------------------------------------------------------------------------------- |
/// | pieces | parcel (FID), piece (from 1), asked, area, residual, share of the parcel, amount  |
/// |        | (from 1) that it belongs to, status                                               |
/// | lines  | parcel (FID), line (from 1), length                                               |
///
/// What was asked, and the residual, are those of the whole amount where that is in several pieces. A line in several
/// parts is a feature for each.
///
/// Lines and areas are those that are printed: rounded, with all the digits of the rounded numbers. A refused parcel
/// is written undivided, with the reason as its status. Points have heights where all vertices of all parcels do.
class LayerWriter : public DivisionWriter {
public:
    /// @param[in] file       its ending chooses the format
    /// @param[in] overwrite  whether an existing file may be replaced; in a database only the layers of these names
    ///                       are, and the others stay
    /// @param[in] parcels    where the parcels come from; its files are never replaced
    /// @throws Failure       as PendingOutput; wrong_use for a format that cannot hold them; failed when it refuses
    LayerWriter(const std::string& file, bool overwrite, const ParcelFile& parcels);

    void add(const ReadParcel& read, const Answer& answer) override;

    /// Leaves the parcel out if the format has no column for the reason, or cannot store a parcel whose boundary is
    /// not a polygon, like FlatGeobuf.
    void add_refused(const ReadParcel& read, const std::string& reason) override;

    std::vector<std::string> commit() override;

private:
    void open_copy();
    void create_files(bool overwrite, const ParcelFile& parcels);
    void make_layers(const OGRFeatureDefn& columns, const OGRSpatialReference* crs);
    void copy_fields(const OGRFeatureDefn& fields, OGRLayer& target, std::vector<int>& map);
    OGRFeatureUniquePtr new_feature(OGRLayer& layer, const ReadParcel& read, const std::vector<int>& map);
    void create(OGRLayer& layer, OGRFeature& feature);
    void require(bool ok) const;
    void require_whole(const std::string& file, const std::string& layer, std::size_t features) const;
    [[noreturn]] void refuse_format(const std::string& why) const;

    std::string file_;
    std::string lines_file_;
    OutputFormat format_;
    PendingOutput output_;
    std::optional<PendingOutput> lines_output_;
    GdalMessages messages_;
    GDALDatasetUniquePtr dataset_;
    GDALDatasetUniquePtr lines_dataset_;
    std::size_t pieces_written_ = 0;
    std::size_t lines_written_ = 0;
    OGRLayer* pieces_ = nullptr;
    OGRLayer* lines_ = nullptr;
    bool heights_ = false;  // whether points are written with theirs
    std::vector<int> pieces_map_;
    std::vector<int> lines_map_;
    std::vector<int> piece_columns_;
    std::vector<int> line_columns_;
};

}  // namespace tool
