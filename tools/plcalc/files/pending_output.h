#pragma once

// A file that is complete or does not exist.

#include <filesystem>
#include <string>
#include <vector>

namespace tool {

/// Output under way. It is written in a folder of its own beside its place and moved into its place at the
/// end. If the program ends before that, the place stays as it was.
class PendingOutput {
public:
    /// @param[in] path       where the file is to be; files that a format puts beside it move with it
    /// @param[in] overwrite  whether an existing file may be replaced
    /// @param[in] sources    files that are being read; none of them is ever replaced, by whatever path
    /// @throws Failure       wrong_use if there is a file that must stay; failed if nothing can be written
    PendingOutput(const std::string& path, bool overwrite, const std::vector<std::string>& sources);
    ~PendingOutput();
    PendingOutput(const PendingOutput&) = delete;
    PendingOutput& operator=(const PendingOutput&) = delete;

    /// Where to write until then: the same name in another folder.
    std::string path() const;

    /// Moves everything that was written into its place.
    ///
    /// @param[in] replaced  the files of the dataset that is replaced. Those that were not written again are
    ///                      removed, so that no reader takes an old CRS or index for the new file's.
    /// @throws Failure      as the constructor
    void commit(const std::vector<std::filesystem::path>& replaced = {});

private:
    bool is_source(const std::filesystem::path& path) const;
    void require_replaceable(const std::filesystem::path& path) const;

    std::filesystem::path target_;
    std::filesystem::path folder_;
    bool overwrite_;
    std::vector<std::string> sources_;
};

}  // namespace tool
