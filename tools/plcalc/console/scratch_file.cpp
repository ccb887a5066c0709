#include "console/scratch_file.h"

#include <cerrno>

#include <unistd.h>

#include "console/outcome.h"

namespace tool {
namespace {

static_assert(sizeof(off_t) == sizeof(std::uint64_t));

[[noreturn]] void refuse(const char* what)
{
    throw Failure(ExitStatus::failed, {}, what, "make room on the disk of temporary files");
}

// Calls `step` with what is left until all is done; it answers how many bytes it did.
template <class Step> bool do_all(std::uint64_t place, std::size_t size, const Step& step)
{
    for (std::size_t done = 0; done < size;) {
        const ssize_t more = step(done, size - done, static_cast<off_t>(place + done));
        if (more <= 0 && !(more < 0 && errno == EINTR))
            return false;
        done += more > 0 ? static_cast<std::size_t>(more) : 0;
    }
    return true;
}

}  // namespace

void ScratchFile::write(std::uint64_t place, const void* bytes, std::size_t size)
{
    if (file_ == nullptr)
        file_.reset(std::tmpfile());
    const auto* const from = static_cast<const char*>(bytes);
    if (file_ == nullptr || !do_all(place, size, [&](std::size_t done, std::size_t left, off_t at) {
            return pwrite(fileno(file_.get()), from + done, left, at);
        }))
        refuse("the points of the divisions could not be kept in a temporary file");
}

void ScratchFile::read(std::uint64_t place, void* bytes, std::size_t size) const
{
    auto* const to = static_cast<char*>(bytes);
    if (file_ == nullptr || !do_all(place, size, [&](std::size_t done, std::size_t left, off_t at) {
            return pread(fileno(file_.get()), to + done, left, at);
        }))
        refuse("the points of the divisions could not be read back from a temporary file");
}

}  // namespace tool
