#include "console/interrupt.h"

#include "console/outcome.h"

namespace tool {
namespace {

volatile std::sig_atomic_t interrupted = 0;

extern "C" void note_interruption(int)
{
    interrupted = 1;
}

}  // namespace

InterruptGuard::InterruptGuard() : before_()
{
    interrupted = 0;
    struct sigaction noting = {};
    noting.sa_handler = note_interruption;
    sigemptyset(&noting.sa_mask);
    noting.sa_flags = SA_RESTART;
    for (int i = 0; i < kCount; ++i) {
        sigaction(kSignals[i], nullptr, &before_[i]);
        if (before_[i].sa_handler != SIG_IGN)  // nohup stays nohup
            sigaction(kSignals[i], &noting, nullptr);
    }
}

InterruptGuard::~InterruptGuard()
{
    for (int i = 0; i < kCount; ++i)
        sigaction(kSignals[i], &before_[i], nullptr);
}

void InterruptGuard::check() const
{
    if (interrupted != 0)
        throw Failure(ExitStatus::failed, {}, "interrupted", "nothing was written");
}

}  // namespace tool
