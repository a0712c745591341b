#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <thread>
#include <vector>

#include "batch/orderedWriter.h"

namespace quintline::batch {
namespace {

struct Recorder {
    std::vector<std::pair<std::size_t, int>> seen;
    std::size_t failAt = SIZE_MAX;
    OrderedWriter<int> writer{[this](std::size_t index, int& item) {
        if (index == failAt) return false;
        seen.emplace_back(index, item);
        return true;
    }};
};

TEST(OrderedWriter, HoldsItemsBehindAGapAndReleasesThemInOrder) {
    Recorder r;
    r.writer.complete(2, 20);
    r.writer.complete(1, 10);
    EXPECT_TRUE(r.seen.empty());
    EXPECT_EQ(r.writer.waiting(), 2u);
    r.writer.complete(0, 0);
    EXPECT_EQ(r.seen, (std::vector<std::pair<std::size_t, int>>{{0, 0}, {1, 10}, {2, 20}}));
    EXPECT_EQ(r.writer.handedOn(), 3u);
    EXPECT_EQ(r.writer.waiting(), 0u);
    // Completing an item again after it was written changes nothing.
    r.writer.complete(1, 99);
    EXPECT_EQ(r.seen.size(), 3u);
}

TEST(OrderedWriter, ACutEndsThePrefixEvenForItemsAlreadyWaiting) {
    Recorder r;
    r.writer.complete(0, 0);
    r.writer.complete(3, 30);
    r.writer.complete(4, 40);
    r.writer.cut(2);  // item 2 was abandoned
    EXPECT_EQ(r.writer.waiting(), 0u);
    r.writer.complete(1, 10);
    r.writer.complete(2, 20);
    r.writer.complete(5, 50);
    EXPECT_EQ(r.seen, (std::vector<std::pair<std::size_t, int>>{{0, 0}, {1, 10}}));
    EXPECT_EQ(r.writer.handedOn(), 2u);
    // A later cut cannot widen the prefix again.
    r.writer.cut(7);
    r.writer.complete(2, 20);
    EXPECT_EQ(r.writer.handedOn(), 2u);
}

TEST(OrderedWriter, AFailingSinkStopsAllWritingAtThatItem) {
    Recorder r;
    r.failAt = 1;
    r.writer.complete(2, 20);
    r.writer.complete(1, 10);
    r.writer.complete(0, 0);
    r.writer.complete(3, 30);
    EXPECT_EQ(r.seen, (std::vector<std::pair<std::size_t, int>>{{0, 0}}));
    EXPECT_EQ(r.writer.handedOn(), 1u);
    EXPECT_EQ(r.writer.waiting(), 0u);
}

TEST(OrderedWriter, ManyThreadsInShuffledOrderStillWriteInOrder) {
    constexpr std::size_t count = 2000;
    std::vector<std::size_t> order(count);
    for (std::size_t i = 0; i < count; ++i) order[i] = i;
    std::shuffle(order.begin(), order.end(), std::mt19937(42));

    Recorder r;
    std::vector<std::thread> threads;
    for (std::size_t t = 0; t < 4; ++t)
        threads.emplace_back([&, t] {
            for (std::size_t i = t; i < count; i += 4)
                r.writer.complete(order[i], static_cast<int>(order[i]) * 3);
        });
    for (auto& thread : threads) thread.join();

    ASSERT_EQ(r.seen.size(), count);
    for (std::size_t i = 0; i < count; ++i) {
        EXPECT_EQ(r.seen[i].first, i);
        EXPECT_EQ(r.seen[i].second, static_cast<int>(i) * 3);
    }
}

}  // namespace
}  // namespace quintline::batch
