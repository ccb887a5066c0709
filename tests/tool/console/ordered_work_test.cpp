// Work that is done at once and handed over in its order.

#include "console/ordered_work.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include <gtest/gtest.h>

namespace {

// What one of the tasks throws is thrown where its result is taken, and only there.
TEST(OrderedWork, AFailureComesWhereItsResultWould)
{
    for (const std::size_t jobs : {1U, 2U, 3U}) {
        SCOPED_TRACE(jobs);
        tool::OrderedWork<int> work(jobs, [](int& number) {
            if (number == 2)
                throw std::runtime_error("two");
            number *= 10;
        });
        for (int number = 0; number < 5; ++number)
            work.put(std::make_unique<int>(number));
        for (int number = 0; number < 5; ++number) {
            if (number != 2) {
                EXPECT_EQ(*work.take(), 10 * number);
                continue;
            }
            EXPECT_THROW(work.take(), std::runtime_error);
        }
        EXPECT_EQ(work.pending(), 0u);
    }
}

TEST(OrderedWork, OneJobNeedsNoThread)
{
    const std::thread::id here = std::this_thread::get_id();
    for (const std::size_t jobs : {1U, 2U}) {
        tool::OrderedWork<std::thread::id> work(jobs,
                                                [](std::thread::id& of) { of = std::this_thread::get_id(); });
        work.put(std::make_unique<std::thread::id>());
        EXPECT_EQ(*work.take() == here, jobs == 1) << jobs;
    }
}

}  // namespace
