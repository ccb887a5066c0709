#pragma once

// XML, an element after another.

#include <memory>
#include <string>

#include <libxml/xmlreader.h>

namespace tool {

using XmlReader = std::unique_ptr<xmlTextReader, decltype(&xmlFreeTextReader)>;

/// Reads a file that GDAL can open, and nothing that it refers to. Null where it cannot be read.
XmlReader open_xml(const std::string& file);

/// Empty for null.
std::string text_of(const xmlChar* text);

}  // namespace tool
