#include "console/spool.h"

#include <cstddef>

#include "console/outcome.h"

namespace tool {
namespace {

void require(bool ok, const char* what)
{
    if (!ok)
        throw Failure(ExitStatus::failed, {}, what,
                      "make room on the disk of temporary files, or ask for the pieces with --output");
}

}  // namespace

// Each text stands behind its length.
void Spool::add(const std::string& text)
{
    if (file_ == nullptr)
        file_.reset(std::tmpfile());
    const std::size_t size = text.size();
    require(file_ != nullptr && std::fwrite(&size, sizeof size, 1, file_.get()) == 1 &&
                std::fwrite(text.data(), 1, size, file_.get()) == size,
            "the result could not be kept in a temporary file");
}

void Spool::read(const std::function<void(const std::string&)>& take) const
{
    if (file_ == nullptr)
        return;
    require(std::fflush(file_.get()) == 0, "the result could not be kept in a temporary file");
    std::rewind(file_.get());
    std::string text;
    for (std::size_t size = 0; std::fread(&size, sizeof size, 1, file_.get()) == 1;) {
        text.resize(size);
        require(std::fread(text.data(), 1, size, file_.get()) == size,
                "the result could not be read back from a temporary file");
        take(text);
    }
    require(std::ferror(file_.get()) == 0, "the result could not be read back from a temporary file");
}

}  // namespace tool
