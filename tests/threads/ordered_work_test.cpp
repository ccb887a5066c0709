// The threads with which the program divides many parcels. Under ThreadSanitizer (preset `threads`) also: what a task
// holds is touched by one thread at a time.
#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <stdexcept>

#include "console/ordered_work.h"

namespace {

TEST(OrderedWork, TasksComeBackInTheirOrder)
{
    for (const std::size_t jobs : {1u, 2u, 7u}) {
        tool::OrderedWork<int> work(jobs, [](int& task) {
            if (task == 300)
                throw std::runtime_error("300");
            task *= 2;
        });
        int next = 0;
        for (int i = 0; i < 300; ++i) {
            work.put(std::make_unique<int>(i));
            if (i % 3 == 2) {
                EXPECT_EQ(*work.take(), 2 * next++);
            }
        }
        EXPECT_EQ(work.pending(), 200u);
        while (work.pending() > 0)
            EXPECT_EQ(*work.take(), 2 * next++);
        work.put(std::make_unique<int>(300));
        work.put(std::make_unique<int>(1));
        EXPECT_THROW(work.take(), std::runtime_error);
        EXPECT_EQ(*work.take(), 2);
        work.put(std::make_unique<int>(5));  // nobody takes it
    }
}

}  // namespace
