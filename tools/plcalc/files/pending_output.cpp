#include "files/pending_output.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <system_error>

#include "console/outcome.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const fs::path& path, const std::string& why)
{
    throw Failure(ExitStatus::failed, {path.string(), ""}, "the file cannot be written (" + why + ")",
                  "check the folder and its permissions");
}

}  // namespace

PendingOutput::PendingOutput(const std::string& path, bool overwrite, const std::vector<std::string>& sources)
    : target_(path), overwrite_(overwrite), sources_(sources)
{
    std::error_code error;
    if (!target_.has_filename() || fs::is_directory(target_, error))
        throw Failure(ExitStatus::wrong_use, {path, ""}, "this is a folder", "name a file in it");
    require_replaceable(target_);
    const fs::path parent = target_.has_parent_path() ? target_.parent_path() : fs::path(".");
    std::string name = (parent / ".plcalc-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        fail(target_, std::error_code(errno, std::generic_category()).message());
    folder_ = name;
}

PendingOutput::~PendingOutput()
{
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

// A symbolic or hard link to a source is the source.
bool PendingOutput::is_source(const fs::path& path) const
{
    std::error_code error;  // a path that does not exist is none
    return std::any_of(sources_.begin(), sources_.end(),
                       [&](const std::string& source) { return fs::equivalent(source, path, error); });
}

void PendingOutput::require_replaceable(const fs::path& path) const
{
    std::error_code error;
    if (is_source(path))
        throw Failure(ExitStatus::wrong_use, {path.string(), ""}, "the parcels come from this file",
                      "choose another name");
    // A renamed file would take the place of the device itself, which root may do even to /dev/null.
    if (fs::is_other(path, error))
        throw Failure(ExitStatus::wrong_use, {path.string(), ""}, "this is a device or a pipe, not a file",
                      "choose another name");
    if (!overwrite_ && fs::exists(path, error))
        throw Failure(ExitStatus::wrong_use, {path.string(), ""}, "the file exists already",
                      "choose another name or add --overwrite");
}

std::string PendingOutput::path() const
{
    return (folder_ / target_.filename()).string();
}

void PendingOutput::commit(const std::vector<fs::path>& replaced)
{
    std::error_code error;
    std::vector<fs::path> written;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_))
        written.push_back(entry.path().filename());
    const fs::path parent = target_.parent_path();
    for (const fs::path& name : written)
        require_replaceable(parent / name);
    for (const fs::path& name : written) {
        fs::rename(folder_ / name, parent / name, error);
        if (error)
            fail(parent / name, error.message());
    }
    const auto is_new = [&](const fs::path& path) {
        return std::find(written.begin(), written.end(), path.filename()) != written.end();
    };
    for (const fs::path& path : replaced)
        if (!is_new(path) && !is_source(path))
            fs::remove(path, error);
}

}  // namespace tool
