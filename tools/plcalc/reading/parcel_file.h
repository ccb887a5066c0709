#pragma once

// Reads parcels from any vector file that GDAL opens.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include "answers/question.h"
#include "console/outcome.h"
#include "files/gdal_messages.h"
#include "reading/layer_choice.h"
#include "reading/source.h"

namespace tool {

/// A feature that bounds an area, or should.
struct ReadParcel {
    Parcel parcel;                   ///< its ring is empty when there is a problem
    std::optional<Failure> problem;  ///< why it has no ring in plane coordinates
    OGRFeatureUniquePtr feature;     ///< null where the vertices were rows of a table
};

/// The parcels of one layer: polygons without holes, closed lines, or the points of a CSV file with a column for
/// East and one for North.
class ParcelFile {
public:
    /// Opens the file, chooses the layer and counts its parcels.
    ///
    /// @throws Failure  as choose_layer(); unusable_input when the file cannot be read
    explicit ParcelFile(const Source& source);

    /// How many parcels there are: at least one.
    std::size_t count() const { return choice_.parcels.count(); }

    /// How many features of the layer bound no area.
    std::size_t passed_over() const { return choice_.others; }

    /// The next parcel: one ring without curves, in plane coordinates. Nothing after the last.
    std::optional<ReadParcel> next();

    /// The layer that the parcels come from.
    OGRLayer& layer() const { return *choice_.layer; }

    /// The files that are read.
    std::vector<std::string> files() const;

    /// Gives up because the file holds several parcels.
    ///
    /// @param[in] why  what else there is to say, or nothing
    [[noreturn]] void refuse_several(const std::string& why) const;

private:
    void open_with_fine_arcs();
    OGRFeatureUniquePtr next_with_fine_arcs();
    void require_straight(const OGRFeature& feature, OGRFeature* finer, const Place& place) const;
    void complete(const OGRFeature& feature, OGRFeature* finer, Parcel& parcel) const;
    ReadParcel read_points_as_parcel();

    Source source_;
    GdalMessages messages_;
    GDALDatasetUniquePtr dataset_;
    GDALDatasetUniquePtr fine_dataset_;  // DXF: read with finer chords, in step with the other
    LayerChoice choice_;
    OGRLayer* fine_layer_ = nullptr;
    bool of_points_ = false;
    bool points_done_ = false;
};

/// The only parcel of the source.
///
/// @throws Failure  as ParcelFile; also when there are several, and for whatever is wrong with the parcel
ReadParcel read_parcel(const Source& source);

/// The failure for a file whose parcels have gone since they were counted.
Failure vanished(const Source& source);

}  // namespace tool
