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
        const SideIndex::Range wide = {low - static_cast<std::int64_t>(random() % 40), asked.high};
        for (std::size_t at = 0; at < count; ++at) {
            std::size_t end_within = at;
            while (end_within < count &&
                   index.place(end_within, {wide.high + 1, INT64_MAX}) == Place::kBelow &&
                   index.place(end_within, {INT64_MIN, wide.low - 1}) == Place::kAbove)
                ++end_within;
            const std::size_t found_within = index.end_within(at, wide);
            ASSERT_TRUE(end_within < count ? found_within == end_within : found_within >= count)
                << "position " << at << " of " << count;
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
