#pragma once

// Writes divisions to a file. What the file is, its ending says.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "answers/heights.h"
#include "answers/neighbour_points.h"
#include "answers/printed_division.h"
#include "reading/parcel_file.h"

namespace tool {

/// The heights of neighbours with new points; nothing where there is no layer for them.
using NeighbourHeights = std::optional<KnownHeights>;

/// One output under way. Parcels are added one after another.
class DivisionWriter {
public:
    /// The file that a name stands for: the name, with .gpkg behind it if it has no ending.
    static std::string file_for(const std::string& name);

    /// Whether there is a writer for the ending of a file name.
    static bool can_write(const std::string& file);

    /// Whether the file holds all that is written, in one file.
    static bool holds_all(const std::string& file);

    /// The files that are written for a name: one, or one for each layer.
    static std::vector<std::string> files_for(const std::string& file);

    /// The writer for a file: a DrawingWriter for .dxf, a LandXmlWriter for .xml and .landxml, else a LayerWriter.
    ///
    /// @param[in] file       its ending chooses the format
    /// @param[in] overwrite  whether an existing file may be replaced
    /// @param[in] parcels    where the parcels come from; its files are never replaced
    /// @param[in] neighbours whether there will be neighbours, and their heights
    /// @param[in] others     other files that are read; these are not replaced, either
    /// @throws Failure       as PendingOutput; wrong_use for a format that cannot hold them; failed when it refuses
    static std::unique_ptr<DivisionWriter> make(const std::string& file, bool overwrite,
                                                const ParcelFile& parcels, const NeighbourHeights& neighbours,
                                                const std::vector<std::string>& others = {});

    virtual ~DivisionWriter() = default;

    /// Adds a divided parcel.
    ///
    /// @param[in] answer  one that is done()
    virtual void add(const ReadParcel& read, const Answer& answer) = 0;

    /// Adds a refused parcel, undivided; with its points, where it has got some.
    virtual void add_refused(const ReadParcel& read, const std::string& reason) = 0;

    /// Adds a parcel that was not divided, and has got points on its sides. Only where there will be neighbours.
    virtual void add_neighbour(const ReadParcel& read, const Insertion& insertion) = 0;

    /// Which heights are not written, and why, as a line for each reason.
    virtual std::string lost_heights() const { return ""; }

    /// What an earlier run with neighbours has left there, as a line for each; it is not replaced.
    virtual std::string left_over() const { return ""; }

    /// Completes the files and moves them into their place.
    ///
    /// @return their names
    /// @throws Failure  failed if they cannot be written, or do not hold everything when they are read back
    virtual std::vector<std::string> commit() = 0;
};

}  // namespace tool
