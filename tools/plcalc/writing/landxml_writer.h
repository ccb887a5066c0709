#pragma once

// Writes divisions as LandXML 1.2.

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <libxml/xmlwriter.h>

#include "files/landxml.h"
#include "files/pending_output.h"
#include "writing/division_writer.h"

namespace tool {

/// One file with a CgPoint for every corner and every new point, with codes CORNER and NEW, and a Parcel for every piece,
/// whose boundary refers to the points. Holes are further CoordGeoms of the parcel, behind that of the outer boundary. Points have northing, easting and, where they have one, height. With several parcels
/// the number of the parcel stands before the names of its points. Parcels that were refused have the reason as desc,
/// neighbours how many points they have got.
class LandXmlWriter : public DivisionWriter {
public:
    /// Whether a file with this name is LandXML: .xml or .landxml.
    static bool writes(const std::string& file);

    /// As DivisionWriter::make().
    ///
    /// @throws Failure  wrong_use where the unit of the parcels is not known or has no name in LandXML
    LandXmlWriter(const std::string& file, bool overwrite, const ParcelFile& parcels,
                  const std::vector<std::string>& others);
    ~LandXmlWriter() override;

    void add(const ReadParcel& read, const Answer& answer) override;
    void add_refused(const ReadParcel& read, const std::string& reason) override;
    void add_neighbour(const ReadParcel& read, const Insertion& insertion) override;
    std::vector<std::string> commit() override;

private:
    using Writer = std::unique_ptr<xmlTextWriter, decltype(&xmlFreeTextWriter)>;
    using Attributes = std::vector<std::pair<const char*, std::string>>;

    Writer writer_to(std::FILE* file) const;
    void start(const Writer& writer, const char* element, const Attributes& attributes) const;
    void end(const Writer& writer) const;
    void text(const Writer& writer, const std::string& words) const;
    void write_head(const ParcelFile& parcels);
    /// A corner: the name of a point or, where it has none, its coordinates.
    using Corner = std::pair<std::string, std::string>;

    void write_boundary(const std::vector<Corner>& corners);
    void write_parcel(const Attributes& attributes, const std::vector<std::vector<Corner>>& boundaries);
    void write_undivided(const ReadParcel& read, const std::string& name, const std::string& words);
    std::string parcel_name(const ReadParcel& read) const;
    void append_parcels();
    void require(bool ok) const;

    std::string file_;
    PendingOutput output_;
    const LandXmlUnit* unit_;
    bool several_parcels_;
    std::FILE* parcels_file_ = nullptr;  // goes behind the points when all are known
    std::FILE* points_file_ = nullptr;
    Writer points_;
    Writer parcels_;
    std::size_t parcels_read_ = 0;
    std::size_t written_ = 0;
};

}  // namespace tool
