#pragma once

// What is special about drawings, DXF: lines that make a boundary together, arcs, and texts that name a parcel.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <cpl_quad_tree.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include "console/outcome.h"
#include "plparcel/division.h"
#include "reading/joined_lines.h"
#include "reading/source.h"

namespace tool {

/// How far apart the ends of two lines may be to be joined where the command line does not say.
constexpr double kJoinTolerance = 0.001;

/// The next feature of a drawing's layer, with vertices at the ends of every arc only. Null after the last.
OGRFeatureUniquePtr next_without_arcs(OGRLayer& layer);

/// The same with a chord for every tenth of a degree. A shorter arc differs from its chord by less than half a millimetre
/// at a radius of a kilometre.
OGRFeatureUniquePtr next_with_fine_arcs(OGRLayer& layer);

/// Whether GDAL made the entity's vertices from an ellipse or a spline.
bool is_freeform(const OGRFeature& feature);

/// The vertices of a line with chords in place of its arcs.
///
/// @param[in] ends       the line with vertices only at the ends of arcs
/// @param[in] fine       the same with many vertices on each arc
/// @param[in] tolerance  how far a chord may be from its arc; no chord spans more than 45 degrees
/// @param[in] place      for messages
/// @return all vertices of `ends`, and vertices on the arcs between them
/// @throws Failure       wrong_use for a tolerance that needs more vertices than `fine` has
OGRLineString with_chords(const OGRLineString& ends, const OGRLineString& fine, double tolerance,
                          const Place& place);

/// Lines of one of the drawing's layers that make a boundary together, or meet so that they may make several.
struct DrawnLoop {
    JoinedLines joined;
    OGRFeatureUniquePtr feature;  ///< the first of the lines, without a geometry
    bool has_arcs = false;
    bool is_freeform = false;
    std::string layer;
};

/// Open lines of a drawing, joined.
struct DrawnLines {
    std::vector<DrawnLoop> loops;
    std::size_t left = 0;  ///< lines that close no boundary
    /// The smallest gap between the two ends of lines that hang together; not a number where there is none.
    double gap;
    PL_PNT2D_record gap_at = {};
};

/// Joins the lines of each layer.
///
/// @param[in] ends, fine  the drawing's layer, opened twice and filtered
/// @param[in] source      which of the drawing's layers; tolerances of joints and arcs
/// @throws Failure        as with_chords(); unusable_input when the two do not say the same
DrawnLines join_drawn_lines(OGRLayer& ends, OGRLayer& fine, GDALDataset& dataset, const Source& source);

/// The layer on which drawings of ours have the holes of pieces.
constexpr const char* kHolesLayer = "holes";

/// Those on which they have the names of new points, and the refused parcels with a reason that begins so. Neither names a
/// parcel.
constexpr const char* kPointLabelsLayer = "point_labels";
constexpr const char* kUndividedLayer = "undivided";
constexpr const char* kRefused = "refused: ";

/// Something at a place of a drawing.
struct Mark {
    double east;
    double north;
    std::string line;  ///< what it says
};

/// What stands at places of a drawing, as its texts.
class DrawnMarks {
public:
    explicit DrawnMarks(std::vector<Mark> marks);

    /// All texts that are shown in model space.
    ///
    /// @param[in] layer  of the drawing, only those on it; any where there is none, without those of ours that name no parcel
    static DrawnMarks texts(OGRLayer& entities, GDALDataset& dataset,
                            const std::optional<std::string>& layer);

    /// What the only mark inside the ring and in none of the holes says; nothing where there is none, or where several
    /// differ.
    std::optional<std::string> inside(const plparcel::Ring& ring,
                                      const std::vector<plparcel::Ring>& holes) const;

    /// The marks inside the ring, by index, in no order.
    std::vector<std::size_t> all_inside(const plparcel::Ring& ring) const;

    bool is_inside(std::size_t mark, const plparcel::Ring& ring) const;

private:
    static void bounds_of(const void* mark, CPLRectObj* bounds);

    struct Release {
        void operator()(CPLQuadTree* tree) const { CPLQuadTreeDestroy(tree); }
    };

    std::vector<Mark> marks_;
    std::unique_ptr<CPLQuadTree, Release> by_place_;
};

}  // namespace tool
