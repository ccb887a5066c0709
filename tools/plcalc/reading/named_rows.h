#pragma once

// Tables with a row for each parcel, which say what is asked of it.

#include <map>
#include <string>
#include <vector>

#include <ogrsf_frmts.h>

#include "console/outcome.h"

namespace tool {

/// A cell as it would be written by hand: numbers with as many digits as they need, lists with semicolons, nothing for
/// what is not set.
std::string cell_text(const OGRFeature& row, int column);

/// A text table whose first column names the parcels.
class NamedRows {
public:
    struct Row {
        long long number = 0;  ///< from 1, behind the header
        std::vector<std::string>
            cells;                  ///< behind the first column; those at the end that are empty are left out
        std::string taken_by = {};  ///< the parcel that it was for
    };

    /// Reads the whole table.
    ///
    /// @param[in] file  CSV or another text table
    /// @throws Failure  unusable_input where it cannot be read, has one column only, or names a parcel twice or not at all
    explicit NamedRows(const std::string& file);

    const std::string& file() const { return file_; }

    /// What the first column is called.
    const std::string& key() const { return key_; }

    /// Whether commas stand before the decimals, because semicolons part the columns.
    bool decimal_commas() const { return decimal_commas_; }

    /// The row of this name; null where there is none.
    Row* find(const std::string& name);

    /// The names that no parcel has taken, in order of the alphabet.
    std::vector<std::string> left() const;

private:
    void add(const OGRFeature& row);

    std::string file_;
    std::string key_;
    bool decimal_commas_ = false;
    std::map<std::string, Row> rows_;
};

}  // namespace tool
