#include "files/text_source.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <utility>
#include <vector>

#include <cpl_string.h>
#include <cpl_vsi.h>
#include <iconv.h>

#include "console/outcome.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

const char* const kStandardInput[] = {"-", "/vsistdin/", "/dev/stdin"};
const char* const kTableEndings[] = {".csv", ".tsv", ".txt", ".asc", ".xyz"};

// Enough for the first lines.
constexpr std::size_t kHead = 4096;

template <std::size_t n> bool is_one_of(const std::string& text, const char* const (&known)[n])
{
    return std::any_of(std::begin(known), std::end(known),
                       [&](const char* one) { return EQUAL(one, text.c_str()); });
}

bool starts_with(const std::string& text, const std::string& start)
{
    return text.compare(0, start.size(), start) == 0;
}

std::string contents(std::istream& stream, const std::string& file)
{
    std::string text(std::istreambuf_iterator<char>(stream), {});
    if (stream.bad())
        throw Failure(ExitStatus::failed, {file, ""}, "the input could not be read to its end",
                      "try it again");
    return text;
}

std::string head_of(const std::string& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::string head(kHead, '\0');
    stream.read(head.data(), static_cast<std::streamsize>(head.size()));
    head.resize(static_cast<std::size_t>(stream.gcount()));
    return head;
}

// As iconv calls it; null for text of single bytes. Spreadsheets save "Unicode text" so, with a mark in front. Without
// one, two Latin letters tell it: a table has no zero byte in any other encoding.
const char* utf16_of(const std::string& text)
{
    if (starts_with(text, "\xFF\xFE") || starts_with(text, "\xFE\xFF"))
        return "UTF-16";
    if (text.size() < 4 || text[0] == text[1])
        return nullptr;
    if (text[1] == 0 && text[2] != 0 && text[3] == 0)
        return "UTF-16LE";
    return text[0] == 0 && text[2] == 0 && text[3] != 0 ? "UTF-16BE" : nullptr;
}

bool is_open(iconv_t converter)
{
    return reinterpret_cast<std::intptr_t>(converter) != -1;
}

// The text in UTF-8, if it is in UTF-16, or as it stands.
std::string utf8_of(std::string text, const std::string& file)
{
    const char* const encoding = utf16_of(text);
    if (encoding == nullptr)
        return text;
    const iconv_t converter = iconv_open("UTF-8", encoding);
    std::string converted(text.size() * 2 + 4, '\0');
    char* from = text.data();
    std::size_t from_left = text.size();
    char* to = converted.data();
    std::size_t to_left = converted.size();
    const bool done = is_open(converter) &&
                      iconv(converter, &from, &from_left, &to, &to_left) != static_cast<std::size_t>(-1);
    if (is_open(converter))
        iconv_close(converter);
    if (!done)
        throw Failure(ExitStatus::unusable_input, {file, ""}, "the text begins as UTF-16, but is not",
                      "save it as CSV in UTF-8");
    converted.resize(converted.size() - to_left);
    return converted;
}

std::string first_line(const std::string& text)
{
    std::string line = text.substr(0, text.find('\n'));
    while (!line.empty() && (line.back() == '\r' || line.back() == ' '))
        line.pop_back();
    return line;
}

// "sep=;" tells a spreadsheet what stands between the columns.
bool is_separator_line(const std::string& line)
{
    return CPLString(line).tolower().compare(0, 4, "sep=") == 0 && line.size() == 5;
}

std::string without_mark(const std::string& text)
{
    return starts_with(text, "\xEF\xBB\xBF") ? text.substr(3) : text;
}

std::string without_first_line(const std::string& text)
{
    const std::size_t end = text.find('\n');
    return end == std::string::npos ? "" : text.substr(end + 1);
}

// A comma between digits may be one before decimals; what else there is goes first.
char separator_in(const std::string& line)
{
    for (const char candidate : {';', '\t', '|', ','})
        if (line.find(candidate) != std::string::npos)
            return candidate;
    return line.find(' ') != std::string::npos ? ' ' : 0;
}

// Runs of blanks between columns become tabs.
std::string with_tabs(const std::string& text)
{
    std::istringstream lines(text);
    std::string result;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string row;
        for (std::string word; words >> word;)
            row += (row.empty() ? "" : "\t") + word;
        result += row + "\n";
    }
    return result;
}

bool holds_a_number(const std::string& line, char separator)
{
    std::istringstream cells(line);
    for (std::string cell; std::getline(cells, cell, separator);) {
        std::replace(cell.begin(), cell.end(), ',', '.');
        cell = CPLString(cell).Trim();
        if (!cell.empty() && CPLGetValueType(cell.c_str()) != CPL_VALUE_STRING)
            return true;
    }
    return false;
}

std::string header_of(const std::string& columns, char separator)
{
    std::string header = columns;
    std::replace(header.begin(), header.end(), ',', separator);
    return header + "\n";
}

// What the text of standard input is, by its first bytes.
std::string ending_for(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    const std::string start = first == std::string::npos ? "" : without_mark(text.substr(first, kHead));
    if (starts_with(start, "{") || starts_with(start, "\x1E"))
        return ".geojson";
    if (starts_with(start, "<"))
        return ".gml";
    if (starts_with(start, "SQLite format 3"))
        return ".gpkg";
    if (starts_with(start, "fgb"))
        return ".fgb";
    const std::string line = first_line(start);
    return line == "0" || line == "999" ? ".dxf" : ".csv";
}

}  // namespace

bool is_standard_input(const std::string& file)
{
    return is_one_of(file, kStandardInput);
}

void TextSource::keep(const std::string& text, const std::string& ending)
{
    const fs::path path(name_);
    const std::string stem = is_standard_input(name_) ? "input" : path.stem().string();
    name_ = "/vsimem/plcalc/" + stem + ending;
    in_memory_ = true;
    GByte* const copy = static_cast<GByte*>(VSIMalloc(text.size() + 1));
    if (copy == nullptr)
        throw std::bad_alloc();
    std::copy(text.begin(), text.end(), copy);
    VSIFCloseL(VSIFileFromMemBuffer(name_.c_str(), copy, text.size(), TRUE));
}

TextSource::TextSource(const std::string& file, const std::optional<std::string>& columns) : name_(file)
{
    const bool standard_input = is_standard_input(file);
    const std::string text = standard_input ? contents(std::cin, file) : "";
    if (standard_input && text.empty())
        throw Failure(ExitStatus::unusable_input, {file, ""}, "the standard input is empty",
                      "let the command before it write the parcels");
    const std::string ending = ending_for(utf8_of(text, file));
    const bool is_table =
        standard_input ? ending == ".csv" : is_one_of(fs::path(file).extension().string(), kTableEndings);
    std::error_code ignored;
    if (columns && !is_table)
        throw Failure(ExitStatus::wrong_use, {file, ""}, "--columns is for tables", "leave --columns out");
    if (standard_input && !is_table) {
        keep(text, ending);
        return;
    }
    if (!is_table || (!standard_input && !fs::is_regular_file(file, ignored)))
        return;
    const std::string head = standard_input ? text : head_of(file);
    const std::string line = first_line(without_mark(head));
    separator_ = separator_in(line);
    const bool as_it_stands = !standard_input && !columns && utf16_of(head) == nullptr &&
                              !is_separator_line(line) && separator_ != ' ' &&
                              EQUAL(fs::path(file).extension().c_str(), ".csv");
    if (as_it_stands || head.empty())
        return;
    std::string table = text;
    if (!standard_input) {
        std::ifstream stream(file, std::ios::binary);
        table = contents(stream, file);
    }
    table = without_mark(utf8_of(std::move(table), file));
    if (is_separator_line(first_line(table)))
        table = without_first_line(table);
    separator_ = separator_in(first_line(table));
    if (separator_ == ' ') {
        table = with_tabs(table);
        separator_ = '\t';
    }
    if (columns) {
        const std::string rows =
            holds_a_number(first_line(table), separator_) ? table : without_first_line(table);
        table = header_of(*columns, separator_) + rows;
    }
    keep(table, ".csv");
}

TextSource::~TextSource()
{
    if (in_memory_)
        VSIUnlink(name_.c_str());
}

}  // namespace tool
