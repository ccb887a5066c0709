#pragma once

// Which layer of a file holds the parcels, and how many there are.

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include "answers/heights.h"
#include "files/gdal_messages.h"
#include "reading/source.h"
#include "text/name_list.h"

namespace tool {

/// A layer with parcels.
struct LayerChoice {
    OGRLayer* layer = nullptr;
    NameList parcels;                             ///< what it holds
    std::optional<int> srid;                      ///< of the geometries, where a table names one
    std::size_t others = 0;                       ///< features that bound no area
    std::size_t hidden = 0;                       ///< of a drawing: in paper space, or not shown
    KnownHeights heights;                         ///< of the vertices of all parcels
    std::map<std::string, std::size_t> by_layer;  ///< the features with parcels; of a drawing by its layers
};

/// Finds the only layer with parcels; in a drawing, the only one of the drawing's layers. It is filtered as the source
/// says and ready to be read from its start.
///
/// @param[in] messages  what GDAL said while it opened the file; it receives what GDAL says from now on
/// @param[in] may_be_none  whether a file without parcels is no failure; the choice is then the layer read last, and
///                      holds none
/// @throws Failure      wrong_use for a layer or feature that does not exist, for a filter that cannot be
///                      used, or if several layers hold parcels; unusable_input if the file holds no parcel
///                      or cannot be read to its end
LayerChoice choose_layer(GDALDataset& dataset, const Source& source, GdalMessages& messages,
                         bool may_be_none = false);

/// Gives up because several layers hold parcels.
///
/// @param[in] parcels  how many, by layer
[[noreturn]] void refuse_several_layers(const Source& source,
                                        const std::map<std::string, std::size_t>& parcels);

/// Whether a feature of a drawing lies in paper space or is not shown.
bool is_hidden(const OGRFeature& feature, GDALDataset& dataset);

/// The layer that the source names, or all layers if it names none. A drawing is one layer for GDAL; is_parcel() tells
/// its layers apart.
///
/// @throws Failure  wrong_use if there is no layer of that name
std::vector<OGRLayer*> named_layers(GDALDataset& dataset, const Source& source);

/// Gives up because no feature is the one that the source asks for, or none passes its filter.
[[noreturn]] void refuse_choice_of_feature(const Source& source, const std::string& advice);

/// Makes the layer return only the features that match the filter of the source.
///
/// @throws Failure  wrong_use for a filter that the layer does not understand
void set_filter(OGRLayer& layer, const Source& source, GdalMessages& messages);

/// Whether a feature that passed the filter is one of the parcels. In a drawing, parcels lie in model space, on layers
/// that are neither switched off nor frozen.
bool is_parcel(const OGRFeature& feature, GDALDataset& dataset, const Source& source);

/// Makes NaN of heights that a feature's geometry lacks beside others, which GDAL reads as zero: in WKT and GeoJSON.
///
/// @throws Failure  unusable_input where its text does not tell which they are
void read_missing_heights(OGRFeature& feature, OGRLayer& layer, GDALDataset& dataset, const Source& source);

/// "feature 3 part 2", or "feature 3" if it has one part.
std::string part_name(const std::string& feature, int part, int parts);

/// "feature 3"; with the layer in front if the file has several.
std::string feature_name(const OGRFeature& feature, OGRLayer& layer, GDALDataset& dataset);

/// Whether the file has the format with this name in GDAL.
bool is_format(GDALDataset& dataset, const char* name);

}  // namespace tool
