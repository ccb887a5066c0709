#pragma once

// Ctrl-C while files are being written: the work stops between two parcels, and half-written files are
// removed.

#include <csignal>

namespace tool {

/// While it lives, it notes an interruption (SIGINT, SIGTERM, SIGHUP) that would otherwise end the program.
/// Only one may live at a time.
class InterruptGuard {
public:
    InterruptGuard();
    ~InterruptGuard();
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;

    /// @throws Failure  failed when there was an interruption
    void check() const;

private:
    static constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};
    static constexpr int kCount = 3;

    struct sigaction before_[kCount];
};

}  // namespace tool
