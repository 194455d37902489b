#include "surface/raster/TileMemory.h"
#include "surface/raster/TilesAhead.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <set>
#include <thread>
#include <vector>

namespace pintalux {
namespace {

// One size for the whole process: that of the bitmaps' tiles.
constexpr std::size_t kSize = 64 + 32768;

TEST(TileMemory, RoomsDontOverlapAndAreAligned) {
    std::vector<void*> rooms;
    for (int i = 0; i < 200; ++i) {
        rooms.push_back(TakeTileMemory(kSize));
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(rooms.back()) % 64, 0u);
        std::memset(rooms.back(), i, kSize);
    }
    for (int i = 0; i < 200; ++i) {
        const auto* bytes = static_cast<const unsigned char*>(rooms[static_cast<std::size_t>(i)]);
        EXPECT_EQ(bytes[0], i);
        EXPECT_EQ(bytes[kSize - 1], i);
    }
    for (void* room : rooms)
        GiveTileMemory(room);
}

TEST(TileMemory, RoomGivenBackIsTakenAgain) {
    void* const first = TakeTileMemory(kSize);
    GiveTileMemory(first);
    void* const second = TakeTileMemory(kSize);
    EXPECT_EQ(first, second);
    GiveTileMemory(second);
}

TEST(TileMemory, ThreadsTakeAndGiveAtTheSameTime) {
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([] {
            for (int round = 0; round < 50; ++round) {
                std::set<void*> held;
                for (int i = 0; i < 70; ++i)
                    EXPECT_TRUE(held.insert(TakeTileMemory(kSize)).second);
                for (void* room : held)
                    GiveTileMemory(room);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

TEST(TileMemory, WhatIsMadeAheadIsTakenByThreadsAtTheSameTime) {
    std::set<void*> held;
    {
        const TilesAhead ahead(std::uint64_t{80} << 20);
        for (int i = 0; i < 2600; ++i) { // 80 megabytes
            void* const room = TakeTileMemory(kSize);
            ASSERT_TRUE(held.insert(room).second);
            std::memset(room, i, kSize);
        }
    }
    std::set<void*>::iterator before = held.begin();
    for (auto room = std::next(before); room != held.end(); before = room++)
        ASSERT_GE(static_cast<char*>(*room) - static_cast<char*>(*before),
                  static_cast<std::ptrdiff_t>(kSize));
    for (void* room : held)
        GiveTileMemory(room);
}

} // namespace
} // namespace pintalux
