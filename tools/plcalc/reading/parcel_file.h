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
#include "files/text_source.h"
#include "reading/closed_lines.h"
#include "reading/crs.h"
#include "reading/drawing.h"
#include "reading/layer_choice.h"
#include "reading/point_table.h"
#include "reading/source.h"

namespace tool {

/// A feature that bounds an area, or should.
struct ReadParcel {
    Parcel parcel;                   ///< its ring is empty when there is a problem
    std::optional<Failure> problem;  ///< why it has no ring in plane coordinates
    OGRFeatureUniquePtr feature;     ///< null where all rows of a table of points are one parcel
    bool has_new_points = false;     ///< whether the parcel has vertices that the feature's geometry has not
};

/// The parcels of one layer: polygons, closed lines, or the points of a CSV file with a column for
/// East and one for North, and perhaps one for the parcel's name. In a drawing without any closed line, lines whose ends
/// meet are joined.
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

    /// How many features of a drawing could be parcels, but lie in paper space or are not shown.
    std::size_t hidden() const { return choice_.hidden; }

    /// Which vertices of the parcels have heights.
    const KnownHeights& heights() const { return choice_.heights; }

    /// The CRS of the coordinates; null where there is none.
    const OGRSpatialReference* crs() const;

    /// The columns of the parcels' features.
    const OGRFeatureDefn& columns() const;

    /// The files that are read.
    std::vector<std::string> files() const;

    /// The layer without the choice of features: the parcels and their neighbours. Nothing where they are all chosen.
    ///
    /// @throws Failure  wrong_use for the standard input, which cannot be read again
    std::optional<Source> all_of_layer() const;

    /// Whether its parcels have names without a column that tells them.
    bool names_parcels() const { return source_.name_column || texts_; }

    /// Gives up unless the parcels have this column.
    ///
    /// @throws Failure  wrong_use, with the columns there are
    void require_column(const std::string& name) const;

    /// Gives up because the file holds several parcels.
    ///
    /// @param[in] why  what else there is to say, or nothing
    [[noreturn]] void refuse_several(const std::string& why) const;

private:
    void open_drawing();
    void open_with_fine_arcs();
    void choose_loops(DrawnLines drawn);
    ReadParcel next_loop();
    void complete_loop(const DrawnLoop& loop, Parcel& parcel);
    void replace_arcs();
    void require_drawing_options() const;
    std::string words_of_arcs() const;
    void name_points(const OGRFeature& feature, Parcel& parcel) const;
    void require_straight(const OGRFeature& feature, OGRFeature* finer, const Place& place) const;
    bool next_feature();
    ReadParcel next_part();
    void complete(const OGRFeature& feature, OGRFeature* finer, Parcel& parcel);
    void complete_from_source(Parcel& parcel) const;
    void add_drawn_holes(const std::string& layer, Parcel& parcel) const;
    void take_crs_of_file();
    void require_whole_table() const;
    void require_no_axes() const;
    PointColumns table_columns(OGRLayer& layer);
    void open_table(OGRLayer& layer);
    void choose_in_table(OGRLayer& layer);
    std::vector<bool> rows_that_pass(OGRLayer& layer);
    ReadParcel next_of_table();
    void require_name_column() const;
    std::string name_in_column(const OGRFeature& feature) const;
    void name_by_text(Parcel& parcel) const;

    Source source_;
    GdalMessages messages_;
    std::optional<TextSource> opened_;  // outlives the datasets
    GDALDatasetUniquePtr dataset_;
    GDALDatasetUniquePtr fine_dataset_;  // DXF: read with finer chords, in step with the other
    LayerChoice choice_;
    OGRLayer* fine_layer_ = nullptr;
    OGRFeatureUniquePtr feature_;  // of which parts are still to come
    OGRFeatureUniquePtr finer_;
    bool has_arcs_ = false;  // whether chords took the place of its arcs
    int part_ = 0;           // the next one, from 0
    int parts_ = 0;
    std::optional<PointTable> table_;  // CSV with a vertex in each row
    std::size_t next_in_table_ = 0;
    std::vector<DrawnLoop> loops_;  // of a drawing: joined lines, which come after closed boundaries
    std::size_t next_loop_ = 0;
    bool only_loops_ = false;
    std::optional<DrawnMarks> texts_;         // of a drawing
    std::optional<ClosedLines> closed_;       // of a drawing
    std::optional<OGRSpatialReference> crs_;  // where the file does not state it
    std::vector<std::string> assumed_;        // of a table
    PlaneCheck plane_;
};

/// The only parcel of the file.
///
/// @param[in] source  of the file
/// @throws Failure    when there are several, and for whatever is wrong with the parcel
ReadParcel only_parcel(ParcelFile& file, const Source& source);

/// The failure for a file whose parcels have gone since they were counted.
Failure vanished(const Source& source);

}  // namespace tool
