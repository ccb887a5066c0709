#pragma once

// Keeps what GDAL and the libraries under it would print.

#include <string>

#include <cpl_error.h>

namespace tool {

/// Collects the messages of this thread while it lives, and keeps them off stderr.
class GdalMessages {
public:
    GdalMessages();
    ~GdalMessages();
    GdalMessages(const GdalMessages&) = delete;
    GdalMessages& operator=(const GdalMessages&) = delete;

    /// Forgets what has been said so far.
    void clear();

    /// Whether any message was an error, not only a warning.
    bool failed() const { return failed_; }

    /// The first error, or the first warning if there was no error, on one line; empty if there was neither.
    const std::string& text() const { return failed_ ? failure_ : warning_; }

    /// `text()` in brackets after a blank; empty if there is none.
    std::string remark() const;

private:
    static void CPL_STDCALL receive(CPLErr level, CPLErrorNum number, const char* text);

    bool failed_ = false;
    std::string failure_;
    std::string warning_;
};

}  // namespace tool
