#pragma once

// XML, an element after another.

#include <memory>
#include <string>

#include <libxml/xmlreader.h>

namespace tool {

using XmlReader = std::unique_ptr<xmlTextReader, decltype(&xmlFreeTextReader)>;

/// Reads a file that GDAL can open, and nothing that it refers to. Null where it cannot be read.
XmlReader open_xml(const std::string& file);

/// From here on the library says nothing on stderr of what it cannot write: who writes tells it.
void silence_xml_errors();

/// Empty for null.
std::string text_of(const xmlChar* text);

}  // namespace tool
