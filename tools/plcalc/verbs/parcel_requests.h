#pragma once

// What is asked of each parcel, where columns or a table say it.

#include <optional>
#include <string>
#include <vector>

#include "answers/question.h"
#include "reading/named_rows.h"
#include "reading/parcel_file.h"

namespace tool {

/// Where each parcel's own request stands; a name is empty where nothing does.
struct RequestColumns {
    std::string areas;   ///< column with an amount, or several
    std::string shares;  ///< column with a share, or several
    std::string side;    ///< column with the number of a side, or longest or shortest
    std::string vertex;  ///< column with the number of a vertex
    std::string table;   ///< file with the parcels' names and their amounts

    bool any() const;
};

class ParcelRequests {
public:
    /// @param[in] common  what is asked of every parcel
    /// @param[in] source  of the parcels: it may say in which column their names stand
    /// @throws Failure    wrong_use for a column that is not there; as NamedRows
    ParcelRequests(Asked common, const RequestColumns& columns, const ParcelFile& file, const Source& source);

    /// Whether parcels have requests of their own.
    bool differ() const { return columns_.any(); }

    /// What is asked of every parcel.
    const Asked& common() const { return common_; }

    /// What is asked of this parcel. Its `assumed` gets what was assumed of its amounts.
    ///
    /// @throws Failure  unusable_input where a column or row does not say it
    Asked of(ReadParcel& read);

    /// The names in the table that no parcel has had; empty where parcels were left out on purpose.
    std::vector<std::string> left() const;

private:
    std::string text_in(const ReadParcel& read, const std::string& column) const;
    std::string name_of(const ReadParcel& read) const;
    NamedRows::Row& row_of(const ReadParcel& read);
    void set_side(Asked& asked, const ReadParcel& read) const;
    void set_amounts(Asked& asked, ReadParcel& read);
    void set_from_table(Asked& asked, ReadParcel& read);

    Asked common_;
    RequestColumns columns_;
    std::optional<NamedRows> table_;
    std::string name_column_;  // empty where features or parcels have names without one
    bool by_feature_ = false;  // the table names features by number
    bool leaves_out_ = false;
};

}  // namespace tool
