// Which inputs are opened as they stand, and what becomes of the others.

#include "files/text_source.h"

#include <iostream>
#include <memory>
#include <sstream>

#include <cpl_vsi.h>

#include "program.h"

namespace {

using Columns = std::optional<std::string>;

const std::string kMark = "\xEF\xBB\xBF";

// What a program before this one has written.
class StandardInput {
public:
    explicit StandardInput(const std::string& text) : text_(text), before_(std::cin.rdbuf(text_.rdbuf())) {}
    ~StandardInput() { std::cin.rdbuf(before_); }
    StandardInput(const StandardInput&) = delete;
    StandardInput& operator=(const StandardInput&) = delete;

private:
    std::istringstream text_;
    std::streambuf* before_;
};

std::string text_of(const std::string& file)
{
    vsi_l_offset size = 0;
    const GByte* const bytes = VSIGetMemFileBuffer(file.c_str(), &size, FALSE);
    return bytes != nullptr ? std::string(reinterpret_cast<const char*>(bytes), size) : "no file in memory";
}

// Latin text in UTF-16, without a mark.
std::string utf16(const std::string& text)
{
    std::string wide;
    for (const char c : text)
        wide += std::string(1, c) + '\0';
    return wide;
}

class TextSource : public test::ProgramTest {};

TEST_F(TextSource, TablesAreMadeReadable)
{
    const struct {
        const char* what;
        const char* file;
        std::string text;
        Columns columns;
        char separator;
        const char* made;  // null: it is opened as it stands
    } rows[] = {
        {"commas", "lot.csv", "E,N\n1,2\n", {}, ',', nullptr},
        {"semicolons before commas", "lot.csv", "E;N\n1,5;2\n", {}, ';', nullptr},
        {"capitals", "LOT.CSV", "E,N\n1,2\n", {}, ',', nullptr},
        {"no table", "lot.dxf", "E N\n1 2\n", {}, 0, nullptr},
        {"tabs in another file", "lot.txt", "E\tN\n1\t2\n", {}, '\t', "E\tN\n1\t2\n"},
        {"of another program", "lot.xyz", "E|N\n1|2\n", {}, '|', "E|N\n1|2\n"},
        {"and another", "lot.ASC", "E;N\n1;2\n", {}, ';', "E;N\n1;2\n"},
        {"tabs by name", "lot.tsv", "E\tN\n1\t2\n", {}, '\t', "E\tN\n1\t2\n"},
        {"blanks become tabs", "lot.csv", "E  N\n 1 2\n", {}, '\t', "E\tN\n1\t2\n"},
        {"a separator told to a spreadsheet", "lot.csv", "sep=;\nE;N\n1;2\n", {}, ';', "E;N\n1;2\n"},
        {"and blanks behind it", "lot.csv", "sep=; \r\nE;N\n1;2\n", {}, ';', "E;N\n1;2\n"},
        {"that is not the one", "lot.csv", "sep=,\nE;N\n1;2\n", {}, ';', "E;N\n1;2\n"},
        {"a mark and another ending", "lot.txt", kMark + "E,N\n1,2\n", {}, ',', "E,N\n1,2\n"},
        {"two bytes for a letter", "lot.csv", utf16("E;N\n1;2\n"), {}, ';', "E;N\n1;2\n"},
        {"and that letter twice", "lot.csv", utf16("EE;N\n1;2\n"), {}, ';', "EE;N\n1;2\n"},
        {"columns for numbers", "lot.csv", "1;2\n3;4\n", "E,N", ';', "E;N\n1;2\n3;4\n"},
        {"columns for other names", "lot.csv", "a;b\n3;4\n", "E,N", ';', "E;N\n3;4\n"},
        {"columns beside blanks", "lot.txt", "1 2\n3 4\n", "E,N", '\t', "E\tN\n1\t2\n3\t4\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const std::string file = path(write(row.file, row.text));
        const tool::TextSource source(file, row.columns);
        EXPECT_EQ(source.separator(), row.separator);
        if (row.made == nullptr)
            EXPECT_EQ(source.name(), file);
        else
            EXPECT_EQ(text_of(source.name()), row.made);
    }
}

TEST_F(TextSource, StandardInputIsToldByItsFirstBytes)
{
    const struct {
        const char* text;
        const char* name;
        char separator;
    } rows[] = {
        {"{\"type\": \"FeatureCollection\"}", "/vsimem/plcalc/input.geojson", 0},
        {"\n {\"type\": \"FeatureCollection\"}", "/vsimem/plcalc/input.geojson", 0},
        {"\x1E{\"type\": \"Feature\"}", "/vsimem/plcalc/input.geojson", 0},
        {"<gml/>", "/vsimem/plcalc/input.gml", 0},
        {"SQLite format 3", "/vsimem/plcalc/input.gpkg", 0},
        {"fgb\x03", "/vsimem/plcalc/input.fgb", 0},
        {"  0\nSECTION\n", "/vsimem/plcalc/input.dxf", 0},
        {"999\nremark\n", "/vsimem/plcalc/input.dxf", 0},
        {"E;N\n1;2\n", "/vsimem/plcalc/input.csv", ';'},
        {"0;1\n1;2\n", "/vsimem/plcalc/input.csv", ';'},
    };
    for (const auto& row : rows)
        for (const char* file : {"-", "/dev/stdin", "/vsistdin/"}) {
            SCOPED_TRACE(std::string(file) + " " + row.text);
            const StandardInput input(row.text);
            std::string name;
            {
                const tool::TextSource source(file, {});
                name = source.name();
                EXPECT_EQ(name, row.name);
                EXPECT_EQ(source.separator(), row.separator);
                EXPECT_EQ(text_of(name), row.text);
            }
            EXPECT_EQ(text_of(name), "no file in memory") << "it has gone with the source";
        }
    EXPECT_FALSE(tool::is_standard_input("lot.csv"));
    EXPECT_FALSE(tool::is_standard_input("--"));
}

}  // namespace
