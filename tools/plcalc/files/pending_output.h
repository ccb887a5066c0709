#pragma once

// A file that is complete or not there.

#include <filesystem>
#include <string>
#include <vector>

namespace tool {

/// Output under way: written in a folder of its own beside its place, put into its place at the end. Whatever ends
/// the program before that leaves the place as it was.
class PendingOutput {
public:
    /// @param[in] path       where the file is to be; files that a format puts beside it come along
    /// @param[in] overwrite  whether what is there may go
    /// @throws Failure       wrong_use when something is there that must stay; failed when nothing can be written
    PendingOutput(const std::string& path, bool overwrite);
    ~PendingOutput();
    PendingOutput(const PendingOutput&) = delete;
    PendingOutput& operator=(const PendingOutput&) = delete;

    /// Where to write meanwhile: the same name in another folder.
    std::string path() const;

    /// Puts everything that was written into its place.
    ///
    /// @param[in] replaced  the files of what was there: those that are not written anew go, lest a reader take
    ///                      the old CRS or index beside it for the new file's
    /// @throws Failure      as the constructor
    void commit(const std::vector<std::filesystem::path>& replaced = {});

private:
    std::filesystem::path target_;
    std::filesystem::path folder_;
    bool overwrite_;
};

}  // namespace tool
