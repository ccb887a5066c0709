#pragma once

// Reads parcels from any vector file that GDAL opens.

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include "answers/parcel.h"
#include "console/failure.h"
#include "files/gdal_messages.h"

namespace tool {

/// Where to look.
struct Source {
    std::string file;                  ///< a path, or another name that GDAL opens
    std::optional<std::string> layer;  ///< only this layer
    std::optional<long long> feature;  ///< only the feature with this FID
    std::optional<std::string> where;  ///< only features that OGR's attribute filter lets through
};

/// A feature that bounds an area, or should.
struct ReadParcel {
    Parcel parcel;                   ///< its ring is empty when there is a problem
    std::optional<Failure> problem;  ///< why it cannot be worked on
    std::string file;                ///< the file, as it was named
    std::string name;                ///< the feature without the file; empty for a table of points
    OGRFeatureUniquePtr feature;     ///< null where the vertices were rows of a table
};

/// The parcels of one layer: polygons without holes, closed lines, or the points of a CSV file with a column for
/// East and one for North.
class ParcelFile {
public:
    /// Opens the file, chooses the layer and counts its parcels.
    ///
    /// @throws Failure  wrong_use for a layer, feature or filter that is not there, or when several layers hold
    ///                  parcels; unusable_input when the file cannot be read or holds none
    explicit ParcelFile(const Source& source);

    /// How many parcels there are: one at least.
    std::size_t count() const { return count_; }

    /// How many features of the layer bound no area.
    std::size_t passed_over() const { return passed_over_; }

    /// The next parcel, checked: plane coordinates, one ring without curves that does not meet itself. Nothing
    /// after the last.
    std::optional<ReadParcel> next();

    /// The layer that the parcels come from.
    OGRLayer& layer() const { return *layer_; }

    /// Gives up because there are several.
    ///
    /// @param[in] why  what stands against it, or nothing
    [[noreturn]] void refuse_choice(const std::string& why) const;

private:
    struct Count;

    void choose_layer(const std::vector<OGRLayer*>& layers);
    Count count_in(OGRLayer& layer);
    [[noreturn]] void refuse_nothing_found(const Count& count) const;
    bool fits(const OGRFeature& feature) const;
    bool is_format(const char* name) const;
    std::string name_of(const OGRFeature& feature, OGRLayer& layer) const;
    void rewind_with_fine_arcs();
    void require_straight(const OGRFeature& feature, OGRFeature* finer, const std::string& where) const;
    Parcel check(const OGRFeature& feature, OGRFeature* finer, const std::string& where) const;
    ReadParcel read_points_as_parcel();

    Source source_;
    GdalMessages messages_;
    std::string opening_remark_;  // what GDAL said of a file that it opened all the same
    GDALDatasetUniquePtr dataset_;
    GDALDatasetUniquePtr fine_dataset_;  // DXF: read with finer chords, in step with the other
    OGRLayer* layer_ = nullptr;
    OGRLayer* fine_layer_ = nullptr;
    bool of_points_ = false;
    bool points_done_ = false;
    std::size_t count_ = 0;
    std::size_t passed_over_ = 0;
    std::vector<std::string> first_names_;
};

/// The only parcel that the source tells.
///
/// @throws Failure  as ParcelFile; also when there are several, and for whatever is wrong with the parcel
ReadParcel read_parcel(const Source& source);

}  // namespace tool
