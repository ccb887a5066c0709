#pragma once

// A file that is complete or does not exist.

#include <filesystem>
#include <string>
#include <vector>

#include "console/outcome.h"

namespace tool {

/// Output under way. It is written in a folder of its own beside its place and moved into its place at the
/// end. If the program ends before that, the place stays as it was; a folder that a killed run left behind is removed
/// by the next one that writes there. A symbolic link stays, and the file to which it leads is written.
class PendingOutput {
public:
    /// @param[in] path       where the file is to be; files that a format puts beside it move with it
    /// @param[in] overwrite  whether an existing file may be replaced
    /// @param[in] sources    files of the parcels; none of them is ever replaced, by whatever path
    /// @param[in] others     other files that are read; nor is one of these
    /// @throws Failure       wrong_use if there is a file that must stay; failed if nothing can be written
    PendingOutput(const std::string& path, bool overwrite, const std::vector<std::string>& sources,
                  const std::vector<std::string>& others = {});
    ~PendingOutput();
    PendingOutput(const PendingOutput&) = delete;
    PendingOutput& operator=(const PendingOutput&) = delete;

    /// Where to write until then: the same name in another folder.
    std::string path() const;

    /// The file that is to be replaced, or made: no link.
    std::string target() const { return target_.string(); }

    /// Puts a copy of the file that is to be replaced at `path()`.
    ///
    /// @throws Failure  wrong_use while a database says that another program is at work on the file; failed when it
    ///                  cannot be copied
    void copy_existing() const;

    /// Whether the folder takes no more data.
    bool disk_is_full() const;

    /// Moves everything that was written into its place.
    ///
    /// @param[in] replaced  the files of the dataset that is replaced. Those that were not written again are
    ///                      removed, so that no reader takes an old CRS or index for the new file's.
    /// @throws Failure      as the constructor
    void commit(const std::vector<std::filesystem::path>& replaced = {});

private:
    [[noreturn]] void fail(const std::filesystem::path& path, const std::string& why) const;
    void make_folder();
    bool is_read(const std::filesystem::path& path) const;
    std::string shown(const std::filesystem::path& path) const;
    void require_replaceable(const std::filesystem::path& path) const;

    std::string name_;
    std::filesystem::path target_;
    std::filesystem::path folder_;
    int lock_ = -1;  // on the folder, while the program lives
    bool overwrite_;
    std::vector<std::string> sources_;
    std::vector<std::string> others_;
};

/// Whether two outputs would be one file; a symbolic link is the file to which it leads.
bool is_same_output(const std::string& one, const std::string& other);

/// Writes a text.
///
/// @param[in] path    where to write
/// @param[in] name    the file as the command line names it
/// @throws Failure    failed when it cannot be written
void write_text_file(const std::string& path, const std::string& text, const std::string& name);

/// The failure for a disk that takes no more data.
///
/// @param[in] file  as the command line names it
Failure disk_full(const std::string& file);

}  // namespace tool
