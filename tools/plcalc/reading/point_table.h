#pragma once

// CSV tables with a vertex in each row: which columns hold what, and the parcels that the rows make.

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <ogrsf_frmts.h>

#include "answers/stakeout.h"
#include "console/outcome.h"
#include "plparcel/division.h"

namespace tool {

/// The columns of a table of points, as field indices.
struct PointColumns {
    int east = -1;
    int north = -1;
    int height = -1;       ///< -1 where there is none
    int name = -1;         ///< of the point; -1 where there is none
    bool x_and_y = false;  ///< whether they are called X and Y, so that which is East must be known otherwise
    std::vector<int> parcel;  ///< those that name the parcel of a point; none where all rows are one parcel
};

/// Finds the columns with coordinates: the first of the pairs E and N, East and North, Easting and Northing,
/// Est and Nord, Ost and Nord, Rechtswert and Hochwert, RW and HW, Este and Norte, X and Y that the table has, in capitals or
/// not, with a unit behind them or without; X is taken as East until it is known better. A column
/// called Z, H or height, or an Italian word for it, holds heights; one called P, point, nr or name holds the point's name. Columns called lot, parcel or plot, in other
/// languages too, name the parcel of a point.
std::optional<PointColumns> find_point_columns(const OGRFeatureDefn& table);

/// The points of a list.
struct ListedPoints {
    std::vector<NamedPoint> points;
    bool decimal_commas = false;  ///< whether commas stood before the decimals
};

/// All rows of a table, one point each; those without a name are called "row 3".
///
/// @throws Failure  unusable_input for a row without a finite number in both columns, as PointTable
ListedPoints listed_points(OGRLayer& table, const PointColumns& columns, char separator, const Place& file);

/// A parcel of a table of points.
struct TableParcel {
    std::string name;                      ///< "lot A"; empty where all rows are one parcel
    plparcel::Ring ring;                   ///< in the order of the rows, without the closing one
    std::vector<double> heights;           ///< NaN for a row without; empty where no row has one
    std::vector<std::string> point_names;  ///< of the vertices; empty where there are none
    std::string codes;  ///< what is said of points of several codes; empty where there are none
    GIntBig first_row = 0;
    GIntBig last_row = 0;
    OGRFeatureUniquePtr
        feature;  ///< what the rows agree upon; its number counts from 1. Null as `name` is empty.
};

/// The parcels of a table, in the file's order.
class PointTable {
public:
    /// Reads the whole table. Rows with the same name of a parcel make the parcel. Where no column is called so,
    /// a column `id` with at least three rows to each value names the parcels.
    ///
    /// @param[in] columns  of the table, as found, with X as what it is
    /// @param[in] separator  what stands between the columns
    /// @param[in] file     the file, for messages
    /// @throws Failure  unusable_input for a row without a number in both columns, for a parcel whose rows do not
    ///                  follow one another, and where another column changes within a parcel and has a value more
    ///                  than once, as if it named a part of it. Columns of heights, codes and descriptions may do
    ///                  so. Commas before the decimals are understood where the file shows that they are: semicolons
    ///                  stand between its columns, or a number has other than three digits behind the comma or more
    ///                  than three before it. Otherwise they are refused rather than guessed at: 1,250 is one thing
    ///                  here and another there.
    PointTable(OGRLayer& table, const PointColumns& columns, char separator, const Place& file);

    /// At least one.
    std::vector<TableParcel>& parcels() { return parcels_; }

    /// The number of the last row; 0 where there is none.
    GIntBig last_row() const { return last_row_; }

    /// Whether commas stood before the decimals.
    bool decimal_commas() const { return decimal_commas_; }

    /// Whether a column names the parcels.
    bool names_parcels() const { return !columns_.parcel.empty(); }

    /// The columns whose values belong to a parcel rather than to a point; none where all rows are one parcel.
    OGRFeatureDefn& columns() const { return *definition_; }

private:
    struct Release {
        void operator()(OGRFeatureDefn* columns) const { columns->Release(); }
    };

    void read_rows(OGRLayer& table, const Place& file);
    void make_features(OGRLayer& table, const std::vector<int>& shared);
    std::string name_of(const OGRFeature& row, const Place& file) const;

    PointColumns columns_;
    std::unique_ptr<OGRFeatureDefn, Release> definition_;
    std::vector<TableParcel> parcels_;  // refer to the columns, and go before them
    GIntBig last_row_ = 0;
    bool decimal_commas_ = false;
};

}  // namespace tool
