// Signals while a guard lives, and before and after it.

#include "console/interrupt.h"

#include <csignal>
#include <string>

#include <gtest/gtest.h>

#include "console/outcome.h"

namespace {

volatile std::sig_atomic_t caught = 0;

extern "C" void note_caught(int signal)
{
    caught = signal;
}

// Handles a signal in another way for as long as it lives.
class Handled {
public:
    Handled(int signal, void (*handler)(int)) : signal_(signal)
    {
        struct sigaction action = {};
        action.sa_handler = handler;
        sigaction(signal, &action, &before_);
    }
    ~Handled() { sigaction(signal_, &before_, nullptr); }
    Handled(const Handled&) = delete;
    Handled& operator=(const Handled&) = delete;

private:
    int signal_;
    struct sigaction before_ = {};
};

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

bool is_interrupted(const tool::InterruptGuard& guard)
{
    try {
        guard.check();
    } catch (const tool::Failure&) {
        return true;
    }
    return false;
}

TEST(Interrupt, IsNotedAndNothingElseHappens)
{
    for (const int signal : kSignals) {
        const Handled handled(signal, note_caught);
        caught = 0;
        {
            const tool::InterruptGuard guard;
            EXPECT_FALSE(is_interrupted(guard)) << signal;
            for (int time = 0; time < 2; ++time) {
                std::raise(signal);
                EXPECT_EQ(caught, 0) << signal;
                EXPECT_TRUE(is_interrupted(guard)) << signal;
            }
        }
        std::raise(signal);
        EXPECT_EQ(caught, signal) << "what it did before";
    }
}

TEST(Interrupt, OfAnEarlierGuardIsForgotten)
{
    const Handled handled(SIGTERM, note_caught);
    {
        const tool::InterruptGuard guard;
        std::raise(SIGTERM);
    }
    EXPECT_FALSE(is_interrupted(tool::InterruptGuard()));
}

// As after nohup.
TEST(Interrupt, ThatWasIgnoredStaysSo)
{
    for (const int signal : kSignals) {
        const Handled handled(signal, SIG_IGN);
        const tool::InterruptGuard guard;
        std::raise(signal);
        EXPECT_FALSE(is_interrupted(guard)) << signal;
    }
}

}  // namespace
