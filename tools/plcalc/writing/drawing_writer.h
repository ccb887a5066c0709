#pragma once

// Writes divisions as a drawing, DXF, that is ready to be worked on.

#include <memory>
#include <string>
#include <vector>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include "files/gdal_messages.h"
#include "files/pending_output.h"
#include "writing/division_writer.h"
#include "writing/with_heights.h"

namespace tool {

/// One file in the unit of the parcels' CRS, or without a unit where the CRS is not known.
///
/// | layer        | colour  | what it holds                                                                       |
/// | ------------ | ------- | ----------------------------------------------------------------------------------- |
/// | pieces       | green   | a closed LWPOLYLINE for each piece                                                  |
/// | holes        | grey    | a closed LWPOLYLINE for each hole in a piece                                        |
/// | lines        | red     | the dividing lines, open LWPOLYLINEs                                                |
/// | points       | blue    | the new points                                                                      |
/// | point_labels | blue    | their names                                                                         |
/// | labels       | white   | name of each piece, its area and the area asked for                                 |
/// | undivided    | magenta | parcels that were refused, closed LWPOLYLINEs, each with the reason as a label      |
/// | neighbours   | cyan    | neighbours that have got points, closed LWPOLYLINEs; only where they were asked for |
///
/// Where all vertices of a piece, a hole or a line have heights it is a POLYLINE in space; points have theirs.
///
/// Coordinates are those that are printed. GDAL writes fifteen digits of them: a hundredth of a micrometre at a
/// northing of 5,000,000 m.
class DrawingWriter : public DivisionWriter {
public:
    /// Whether a file with this name is a drawing.
    static bool writes(const std::string& file);

    /// As DivisionWriter::make().
    DrawingWriter(const std::string& file, bool overwrite, const ParcelFile& parcels,
                  const NeighbourHeights& neighbours, const std::vector<std::string>& others);
    ~DrawingWriter() override;

    void add(const ReadParcel& read, const Answer& answer) override;
    void add_refused(const ReadParcel& read, const std::string& reason) override;
    void add_neighbour(const ReadParcel& read, const Insertion& insertion) override;
    std::string lost_heights() const override { return lost_.text(); }
    std::vector<std::string> commit() override;

private:
    /// Where a label hangs on its place.
    enum class Hangs { centred, upper_right };

    bool draw(const char* layer, OGRGeometry&& geometry, const std::string& style = "");
    OGRLinearRing draw_undivided(const ReadParcel& read, const char* layer);
    void draw_label(const char* layer, const std::string& text, const OGRPoint& place, double height,
                    Hangs hangs);
    void require(bool ok) const;

    std::string file_;
    PendingOutput output_;
    GdalMessages messages_;
    std::string template_;  // a file in memory
    GDALDatasetUniquePtr dataset_;
    OGRLayer* entities_ = nullptr;
    bool several_parcels_;
    LostHeights lost_;
    std::size_t points_ = 0;
    std::size_t written_ = 0;
};

}  // namespace tool
