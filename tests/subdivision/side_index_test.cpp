#include "subdivision/side_index.h"

#include "support/bits.h"

namespace {

using plcalc::SideIndex;
using Place = SideIndex::Place;

TEST(SideIndex, FindsTheEndOfAStretchAsPassingOneByOneDoes)
{
    std::mt19937_64 random = test::random_source();
    for (int i = 0; i < 3000; ++i) {
        const std::size_t count = 1 + random() % 70;
        const unsigned spread = 1 + static_cast<unsigned>(random() % 30);
        SideIndex index(count);
        for (std::size_t at = 0; at < count; ++at) {
            const std::int64_t low = static_cast<std::int64_t>(at / 8 * 5 % 40 + random() % spread);
            index.note(at, {low, low + static_cast<std::int64_t>(random() % 5)});
        }
        index.build();
        const std::int64_t low = static_cast<std::int64_t>(random() % 60);
        const SideIndex::Range asked = {low, low + static_cast<std::int64_t>(random() % 3)};
        for (std::size_t at = 0; at < count; ++at) {
            const Place place = index.place(at, asked);
            if (place == Place::kNear)
                continue;
            std::size_t end = at;
            while (end < count && index.place(end, asked) == place)
                ++end;
            const std::size_t found = index.end_of(at, place, asked);
            ASSERT_TRUE(end < count ? found == end : found >= count) << "position " << at << " of " << count;
        }
    }
}

TEST(SideIndex, LimitsAreIncluded)
{
    SideIndex index(3);
    index.note(0, {10, 20});
    index.build();
    EXPECT_EQ(index.place(0, {20, 25}), Place::kNear);
    EXPECT_EQ(index.place(0, {21, 25}), Place::kBelow);
    EXPECT_EQ(index.place(0, {5, 10}), Place::kNear);
    EXPECT_EQ(index.place(0, {5, 9}), Place::kAbove);
    EXPECT_EQ(index.place(0, {12, 13}), Place::kNear);
}

}  // namespace
