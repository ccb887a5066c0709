#pragma once

// Input as GDAL can read it: standard input, text tables in other encodings, with other endings or without a header.

#include <optional>
#include <string>

namespace tool {

/// Whether the command line names the standard input: "-", "/vsistdin/" or "/dev/stdin".
bool is_standard_input(const std::string& file);

/// A file as it is opened. A copy in memory, where there is one, goes with it.
class TextSource {
public:
    /// Makes a copy in memory of what GDAL would not read: standard input, named "-", "/vsistdin/" or "/dev/stdin";
    /// and text tables (.csv, .tsv, .txt, .asc, .xyz) in UTF-16, with a first line "sep=;", with another ending than
    /// .csv, with blanks between the columns, or with names for the columns. Any other file is opened as it stands.
    ///
    /// @param[in] file     as the command line names it
    /// @param[in] columns  names of a table's columns, separated by commas; they take the place of a header if the
    ///                     first row is none of numbers
    /// @throws Failure     unusable_input for a text that is not what its first bytes say, wrong_use for names of columns
    ///                     of something that is no table, failed if the input cannot be read
    TextSource(const std::string& file, const std::optional<std::string>& columns);
    ~TextSource();
    TextSource(const TextSource&) = delete;
    TextSource& operator=(const TextSource&) = delete;

    /// What GDAL opens.
    const std::string& name() const { return name_; }

    /// What stands between the columns of a table; 0 where the file is none.
    char separator() const { return separator_; }

private:
    void keep(const std::string& text, const std::string& ending);

    std::string name_;
    bool in_memory_ = false;
    char separator_ = 0;
};

}  // namespace tool
