#include "files/pending_output.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <system_error>

#include "console/failure.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void refuse_existing(const fs::path& path)
{
    throw Failure(ExitStatus::wrong_use, {path.string(), ""}, "the file exists already",
                  "choose another name or add --overwrite");
}

[[noreturn]] void fail(const fs::path& path, const std::string& why)
{
    throw Failure(ExitStatus::failed, {path.string(), ""}, "the file cannot be written (" + why + ")",
                  "check the folder and its permissions");
}

}  // namespace

PendingOutput::PendingOutput(const std::string& path, bool overwrite) : target_(path), overwrite_(overwrite)
{
    std::error_code error;
    if (!target_.has_filename() || fs::is_directory(target_, error))
        throw Failure(ExitStatus::wrong_use, {path, ""}, "this is a folder", "name a file in it");
    if (!overwrite_ && fs::exists(target_, error))
        refuse_existing(target_);
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
        if (!overwrite_ && fs::exists(parent / name, error))
            refuse_existing(parent / name);
    for (const fs::path& name : written) {
        fs::rename(folder_ / name, parent / name, error);
        if (error)
            fail(parent / name, error.message());
    }
    const auto is_new = [&](const fs::path& path) {
        return std::find(written.begin(), written.end(), path.filename()) != written.end();
    };
    for (const fs::path& path : replaced)
        if (!is_new(path))
            fs::remove(path, error);
}

}  // namespace tool
