// Lists that may be too long for the memory, and sorting them.

#include "kept/kept_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <utility>
#include <vector>

#include "file_in_memory.h"
#include "kept/blocks.h"
#include "kept/sorted_list.h"

namespace {

using plparcel::Blocks;
using plparcel::KeptList;
using plparcel::SortedList;

// Five to a block, with room to spare.
struct Large {
    std::uint64_t number;
    std::uint64_t more[180];
};
constexpr std::size_t kInBlock = Blocks::kSize / sizeof(Large);

KeptList<Large> counted(Blocks& blocks, std::size_t count)
{
    KeptList<Large> list(blocks);
    for (std::uint64_t i = 0; i < count; ++i)
        list.add({i, {}});
    return list;
}

TEST(KeptList, GivesBackWhatWasPut)
{
    for (const bool in_file : {false, true})
        for (const std::size_t count : {std::size_t{0}, std::size_t{1}, kInBlock - 1, kInBlock, kInBlock + 1,
                                        2 * kInBlock, std::size_t{5000}}) {
            parcel_test::FileInMemory file;
            Blocks blocks(in_file ? std::optional(file.scratch()) : std::nullopt);
            const KeptList<Large> list = counted(blocks, count);
            ASSERT_EQ(list.size(), count);
            KeptList<Large>::Reader reader(list);
            for (std::size_t i = 0; i < count; ++i)
                ASSERT_EQ(reader.at(i).number, i) << count;
            for (std::size_t i = count; i-- > 0;)
                ASSERT_EQ(reader.at(i).number, i) << count;
            EXPECT_FALSE(file.is_torn);
            EXPECT_EQ(file.bytes.size(), in_file && count > 0 ? (count - 1) / kInBlock * Blocks::kSize : 0);
        }
}

TEST(KeptList, LeavesItsPlaceToTheNext)
{
    parcel_test::FileInMemory file;
    Blocks blocks(file.scratch());
    KeptList<Large> list = counted(blocks, 4000);
    const std::size_t size = file.bytes.size();
    for (int i = 0; i < 3; ++i) {
        KeptList<Large> next = counted(blocks, 4000);
        list = std::move(next);
    }
    EXPECT_EQ(file.bytes.size(), 2 * size);
    KeptList<Large>::Reader reader(list);
    for (std::size_t i = 0; i < list.size(); ++i)
        ASSERT_EQ(reader.at(i).number, i);
}

TEST(KeptList, ReadsOnceWhatIsAskedForAgain)
{
    parcel_test::FileInMemory file;
    Blocks blocks(file.scratch());
    const KeptList<Large> list = counted(blocks, 5000);  // two blocks for each slot
    for (int i = 0; i < 10; ++i) {
        KeptList<Large>::Reader reader(list);
        EXPECT_EQ(reader.at(3).number, 3u);
        EXPECT_EQ(reader.at(4 * kInBlock).number, 4 * kInBlock);
    }
    EXPECT_EQ(file.reads, 2u);
}

struct Item {
    std::uint32_t key;
    std::uint32_t number;
};

struct Less {
    bool operator()(const Item& a, const Item& b) const
    {
        return a.key != b.key ? a.key < b.key : a.number < b.number;
    }
};

TEST(SortedList, HandsOutInOrder)
{
    // Less than a run, a run, one more, and several.
    for (const std::uint32_t count : {0U, 1U, 1000U, 65536U, 65537U, 131072U, 300000U}) {
        std::mt19937 random(count);
        parcel_test::FileInMemory file;
        Blocks blocks(file.scratch());
        SortedList<Item, Less> list(blocks);
        std::vector<Item> all;
        for (std::uint32_t i = 0; i < count; ++i)
            all.push_back({static_cast<std::uint32_t>(random() % (count / 2 + 1)), i});
        for (const Item& item : all)
            list.add(item);
        std::sort(all.begin(), all.end(), Less());
        SortedList<Item, Less>::Reader reader(list);
        for (const Item& want : all) {
            ASSERT_NE(reader.front(), nullptr);
            ASSERT_EQ(reader.front()->key, want.key);
            ASSERT_EQ(reader.front()->number, want.number);
            reader.pop();
        }
        EXPECT_EQ(reader.front(), nullptr);
        EXPECT_EQ(file.bytes.empty(), count <= 65536) << count;
    }
}

}  // namespace
