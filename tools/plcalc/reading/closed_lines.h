#pragma once

// Closed lines of a drawing, which may lie in one another.

#include <string>
#include <vector>

#include "plcalc/kernel.h"
#include "plparcel/boundary.h"
#include "reading/drawing.h"
#include "reading/source.h"

namespace tool {

struct ClosedLine {
    plparcel::Ring ring;          ///< without a closing vertex; arcs are chords
    std::vector<double> heights;  ///< of its vertices, NaN for one without
    std::string layer;
    std::string feature;    ///< "feature 3"
    bool has_arcs = false;  ///< and nobody has said how near the chords must be
};

/// All closed lines of a drawing that are shown.
///
/// @param[in] ends, fine  the drawing's layer, opened twice
/// @param[in] source      the tolerance of arcs
std::vector<ClosedLine> closed_lines_of(OGRLayer& ends, OGRLayer& fine, GDALDataset& dataset,
                                        const Source& source);

/// Tells what lies in a ring.
class ClosedLines {
public:
    explicit ClosedLines(std::vector<ClosedLine> lines);

    /// The lines of a layer in a ring, without those that lie in others of them.
    ///
    /// @return in the order of their areas, the largest first. A line that is partly outside, or the ring itself, is not
    ///         among them; one that touches the ring from inside is
    ///
    /// Cost  n log n in all lines, and the square of the number that lie inside
    std::vector<const ClosedLine*> inside(const plparcel::Ring& ring, const std::string& layer) const;

private:
    std::vector<ClosedLine> lines_;
    std::vector<double> areas_;
    DrawnMarks places_;  // a point inside each line
};

}  // namespace tool
