#pragma once

// What GDAL and the libraries under it have to say, kept instead of printed.

#include <string>

#include <cpl_error.h>

namespace tool {

/// Collects the messages of this thread while it lives. None reaches stderr.
class GdalMessages {
public:
    GdalMessages();
    ~GdalMessages();
    GdalMessages(const GdalMessages&) = delete;
    GdalMessages& operator=(const GdalMessages&) = delete;

    /// Forgets what has been said so far.
    void clear();

    /// Whether something failed, not only warned.
    bool failed() const { return failed_; }

    /// The first failure, or the first warning when nothing failed, on one line; empty when nothing was said.
    const std::string& text() const { return failed_ ? failure_ : warning_; }

    /// `text()` as a remark, " (so and so)"; empty when nothing was said.
    std::string remark() const;

private:
    static void CPL_STDCALL receive(CPLErr level, CPLErrorNum number, const char* text);

    bool failed_ = false;
    std::string failure_;
    std::string warning_;
};

}  // namespace tool
