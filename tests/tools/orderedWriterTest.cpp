// Items completed in any order written in order, and what ends the writing. (On
// threads: the runs on one and two threads give the same files, in the batch tests.)

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "batch/orderedWriter.h"

namespace quintline::batch {
namespace {

using Seen = std::vector<std::pair<std::size_t, std::size_t>>;

struct Recorder {
    Seen seen;
    std::size_t failAt = SIZE_MAX;
    std::size_t lastAt = SIZE_MAX;
    OrderedWriter<std::size_t> writer{[this](std::size_t index, std::size_t& item) {
        if (index == failAt) return Handed::refused;
        seen.emplace_back(index, item);
        return index == lastAt ? Handed::last : Handed::carryOn;
    }};
};

TEST(OrderedWriter, HoldsItemsBehindAGapAndStopsAtACutOrAFailingSink) {
    Recorder r;
    r.writer.complete(2, 20);
    r.writer.complete(1, 10);
    EXPECT_EQ(std::tuple(r.seen.size(), r.writer.waiting()), std::tuple(0u, 2u));
    r.writer.complete(0, 0);
    r.writer.complete(1, 99);  // written already: ignored
    EXPECT_EQ(r.seen, (Seen{{0, 0}, {1, 10}, {2, 20}}));
    EXPECT_EQ(std::tuple(r.writer.handedOn(), r.writer.waiting()), std::tuple(3u, 0u));

    // A cut at 5 drops item 6, already waiting; a later cut cannot widen it again.
    r.writer.complete(6, 60);
    r.writer.cut(5);
    EXPECT_EQ(r.writer.waiting(), 0u);
    r.writer.cut(9);
    for (std::size_t i : {3, 4, 5, 6}) r.writer.complete(i, i * 10);
    EXPECT_EQ(r.writer.handedOn(), 5u);

    // A sink that refuses item 1 ends the writing there; one that takes it as
    // the last ends it after it, though item 2 was waiting.
    for (const bool refuse : {true, false}) {
        Recorder ending;
        (refuse ? ending.failAt : ending.lastAt) = 1;
        for (std::size_t i : {2, 1, 0, 3}) ending.writer.complete(i, i * 10);
        EXPECT_EQ(ending.seen, (refuse ? Seen{{0, 0}} : Seen{{0, 0}, {1, 10}}));
        EXPECT_EQ(std::tuple(ending.writer.handedOn(), ending.writer.waiting()),
                  std::tuple(refuse ? 1u : 2u, 0u));
    }
}

}  // namespace
}  // namespace quintline::batch
