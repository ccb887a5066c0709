#pragma once

// Which layer of a file holds the parcels, and how many there are.

#include <cstddef>
#include <string>
#include <vector>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include "files/gdal_messages.h"
#include "reading/source.h"

namespace tool {

/// A layer with parcels.
struct LayerChoice {
    OGRLayer* layer = nullptr;
    std::size_t parcels = 0;               ///< how many it holds
    std::size_t others = 0;                ///< features that bound no area
    std::vector<std::string> first_names;  ///< of the first parcels
};

/// The only layer with parcels, filtered as the source says, its reading at the start.
///
/// @param[in] messages  what GDAL said while it opened the file; it receives what GDAL says from now on
/// @throws Failure      wrong_use for a layer, feature or filter that is not there, or when several layers hold
///                      parcels; unusable_input when the file holds none or cannot be read to its end
LayerChoice choose_layer(GDALDataset& dataset, const Source& source, GdalMessages& messages);

/// The layers that the source lets us look into.
///
/// @throws Failure  wrong_use where there is none of the name
std::vector<OGRLayer*> named_layers(GDALDataset& dataset, const Source& source);

/// Lets only the features through that the source asks for.
///
/// @throws Failure  wrong_use for a filter that the layer does not understand
void set_filter(OGRLayer& layer, const Source& source, GdalMessages& messages);

/// Whether a feature that passed the filter is one of the parcels.
bool is_parcel(const OGRFeature& feature, GDALDataset& dataset, const Source& source);

/// "feature 3"; with the layer before it where the file has several.
std::string feature_name(const OGRFeature& feature, OGRLayer& layer, GDALDataset& dataset);

/// Whether the file is of the format that GDAL calls so.
bool is_format(GDALDataset& dataset, const char* name);

}  // namespace tool
