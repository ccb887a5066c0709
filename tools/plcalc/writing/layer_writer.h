#pragma once

// Writes divisions as layers of any vector format that GDAL writes.

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include "files/gdal_messages.h"
#include "files/pending_output.h"
#include "reading/parcel_file.h"
#include "writing/division_writer.h"
#include "writing/output_format.h"
#include "writing/with_heights.h"

namespace tool {

/// Writes the layers "pieces" and "lines", and "neighbours" where that is asked for. A format that holds one layer gets
/// a file for each: OUT.shp, OUT-lines.shp and OUT-neighbours.shp. Every feature carries the attributes of its parcel,
/// and all layers its CRS.
///
/// | layer      | columns beside the parcel's own                                                   |
/// | ---------- | --------------------------------------------------------------------------------- |
/// | pieces     | parcel (FID), piece (from 1), asked, area, residual, share of the parcel, amount  |
/// |            | (from 1) that it belongs to, status                                               |
/// | lines      | parcel (FID), line (from 1), length                                               |
/// | neighbours | parcel (FID), points that it has got, area, change of the area by them            |
///
/// What was asked, and the residual, are those of the whole amount where that is in several pieces. A line in several
/// parts is a feature for each.
///
/// Lines and areas are those that are printed: rounded, with all the digits of the rounded numbers. A refused parcel
/// is written undivided, with the reason as its status. A piece has heights where all its vertices
/// do, if the format can hold that; else where all vertices of all parcels do.
class LayerWriter : public DivisionWriter {
public:
    /// @param[in] file       its ending chooses the format
    /// @param[in] overwrite  whether an existing file may be replaced; in a database only the layers of these names
    ///                       are, and the others stay
    /// @param[in] parcels    where the parcels come from; its files are never replaced
    /// @param[in] neighbours whether there is a layer for neighbours, and their heights
    /// @param[in] others     other files that are read; these are not replaced, either
    /// @throws Failure       as PendingOutput; wrong_use for a format that cannot hold them; failed when it refuses
    LayerWriter(const std::string& file, bool overwrite, const ParcelFile& parcels,
                const NeighbourHeights& neighbours, const std::vector<std::string>& others);

    /// The files of a format that holds one layer.
    static std::vector<std::string> files_for(const std::string& file);

    void add(const ReadParcel& read, const Answer& answer) override;

    /// Leaves the parcel out if the format has no column for the reason, or cannot store a parcel whose boundary is
    /// not a polygon, like FlatGeobuf.
    void add_refused(const ReadParcel& read, const std::string& reason) override;

    void add_neighbour(const ReadParcel& read, const Insertion& insertion) override;

    std::string lost_heights() const override { return not_held_ + lost_.text(); }

    std::string left_over() const override { return left_over_; }

    std::vector<std::string> commit() override;

private:
    /// One of the layers.
    struct Part {
        std::string name;  ///< of the layer
        std::string file;
        std::unique_ptr<PendingOutput> output = {};  ///< of a file that others do not share
        GDALDatasetUniquePtr dataset = {};           ///< likewise
        OGRLayer* layer = nullptr;
        std::vector<int> map = {};      ///< from the columns of the parcels
        std::vector<int> columns = {};  ///< our own
        std::size_t written = 0;
    };

    /// Which shapes of a layer have heights.
    enum class Written { none, some, all };

    Written written_of(const KnownHeights& known, const char* whose);
    static OGRwkbGeometryType type_of(OGRwkbGeometryType flat, Written heights);
    void declare_optional_heights();
    static bool set_shape(OGRFeature& feature, OGRGeometry& shape, Written heights);
    void open_copy();
    void create_files(bool overwrite, const ParcelFile& parcels, const std::vector<std::string>& others);
    void make_layers(const OGRFeatureDefn& columns, const OGRSpatialReference* crs);
    void make_layer(Part& part, OGRwkbGeometryType type, const OGRFeatureDefn& columns,
                    const std::vector<std::pair<const char*, OGRFieldType>>& own, OGRSpatialReference* crs);
    void copy_fields(const OGRFeatureDefn& fields, Part& part);
    OGRFeatureUniquePtr new_feature(const Part& part, const ReadParcel& read) const;
    void create(Part& part, OGRFeature& feature);
    void require(bool ok) const;
    void require_whole(const Part& part) const;
    PendingOutput& output() { return *parts_.front().output; }
    const PendingOutput& output() const { return *parts_.front().output; }
    GDALDataset& dataset() { return *parts_.front().dataset; }
    [[noreturn]] void refuse_format(const std::string& why) const;

    static constexpr std::size_t kPiecesPart = 0;
    static constexpr std::size_t kLinesPart = 1;
    static constexpr std::size_t kNeighboursPart = 2;

    std::string file_;
    OutputFormat format_;
    std::vector<Part> parts_;  // the first owns the file that others share
    GdalMessages messages_;
    Written heights_ = Written::none;
    Written neighbour_heights_ = Written::none;
    std::string not_held_;  // heights that the format does not hold, as lines
    LostHeights lost_;
    std::string left_over_;
};

}  // namespace tool
