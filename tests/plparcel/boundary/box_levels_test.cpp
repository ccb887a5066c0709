// Boxes of groups.

#include "boundary/box_levels.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <set>
#include <vector>

namespace {

using plparcel::Box;
using plparcel::BoxLevels;
using plparcel::Reach;

// All boxes that are near are found, whether they follow one another in the plane or not; and few others where they do.
TEST(BoxLevels, MissNoneThatIsNear)
{
    for (const std::size_t count : {0U, 1U, 16U, 17U, 128U, 129U, 1025U, 20000U})
        for (const bool in_a_row : {false, true}) {
            std::mt19937 random(7);
            std::uniform_real_distribution<double> place(0, static_cast<double>(count));
            std::vector<Box> boxes;
            BoxLevels levels;
            for (std::size_t i = 0; i < count; ++i) {
                const double x = in_a_row ? static_cast<double>(i) : place(random);
                boxes.push_back({{x, x}, {x + 1, x + 1}});
                levels.add(boxes.back());
            }
            levels.finish();
            for (int k = 0; k < 20; ++k) {
                const PL_PNT2D_record a = {place(random), place(random)};
                const Reach reach(a, {a.x + 3, a.y + 1});
                std::set<std::size_t> found;
                levels.near(reach, 0.5, [&](std::size_t i) {
                    EXPECT_LT(i, count);
                    EXPECT_TRUE(found.insert(i).second);
                });
                for (std::size_t i = 0; i < count; ++i)
                    EXPECT_TRUE(found.count(i) == 1 || !reach.comes_near(boxes[i], 0.5))
                        << i << " of " << count;
                EXPECT_TRUE(!in_a_row || found.size() <= 48) << count;
            }
        }
}

}  // namespace
