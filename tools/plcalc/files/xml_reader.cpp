#include "files/xml_reader.h"

#include <cstddef>
#include <new>

#include <cpl_vsi.h>

namespace tool {
namespace {

int read_bytes(void* file, char* buffer, int size)
{
    return static_cast<int>(
        VSIFReadL(buffer, 1, static_cast<std::size_t>(size), static_cast<VSILFILE*>(file)));
}

int close_file(void* file)
{
    return VSIFCloseL(static_cast<VSILFILE*>(file));
}

void keep_quiet(void*, xmlErrorPtr)
{}

}  // namespace

XmlReader open_xml(const std::string& file)
{
    VSILFILE* const opened = VSIFOpenL(file.c_str(), "rb");
    XmlReader reader(nullptr, xmlFreeTextReader);
    if (opened == nullptr)
        return reader;
    reader.reset(xmlReaderForIO(read_bytes, close_file, opened, nullptr, nullptr,
                                XML_PARSE_NONET | XML_PARSE_NOCDATA));
    if (reader == nullptr)
        throw std::bad_alloc();
    xmlTextReaderSetStructuredErrorHandler(reader.get(), keep_quiet, nullptr);
    return reader;
}

void silence_xml_errors()
{
    xmlSetStructuredErrorFunc(nullptr, keep_quiet);
}

std::string text_of(const xmlChar* text)
{
    return text != nullptr ? reinterpret_cast<const char*>(text) : "";
}

}  // namespace tool
