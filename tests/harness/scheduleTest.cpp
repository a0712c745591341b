// What a batch run plays: the fixed and own schedules and the random openings.

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>

#include "harness/opening.h"
#include "harness/scheduleFile.h"

namespace quintline {
namespace {

ScheduleRead read(const std::string& text) {
    std::istringstream in(text);
    return parseSchedule(in, "s.txt");
}

TEST(Schedule, TheShippedFilesGiveTheFixedScheduleAndARoundTrippingOwnOne) {
    const std::string dir = QUINTLINE_SCHEDULES_DIR;
    const ScheduleRead fixed = loadSchedule(dir + "/default.txt"),
                       deep = loadSchedule(dir + "/deep.txt");
    ASSERT_TRUE(fixed.schedule && deep.schedule) << fixed.fault << deep.fault;
    EXPECT_EQ(fixed.schedule->pairings(), Schedule::fixed().pairings());
    EXPECT_EQ(fixed.schedule->header(), headerLiteral);

    std::string lines, header = "   ";
    for (const Pairing& p : *deep.schedule) {
        lines += scheduleLine(p) + "\n";
        header += " " + p.label + " ,";
    }
    EXPECT_EQ(deep.schedule->header() + " ,", header);
    EXPECT_EQ(read(lines).schedule->pairings(), deep.schedule->pairings());
    EXPECT_EQ((*deep.schedule)[4].blackCaption, "Computer A know B 4");
    for (const ScheduleRead* r : {&fixed, &deep})
        for (std::size_t n = 0; n < r->schedule->size(); n += 2)
            EXPECT_TRUE(swapsColours((*r->schedule)[n], (*r->schedule)[n + 1])) << n;
    // Other depths, or the same colours: no pair.
    const Schedule odd = *read("a 1 2 3 2\nb 2 1 2 3 # comment\n\nc 1 2 3 2\n").schedule;
    ASSERT_EQ(odd.size(), 3u);
    EXPECT_FALSE(swapsColours(odd[0], odd[1]) || swapsColours(odd[0], odd[2]));
}

TEST(Schedule, ABadFileIsRefusedWithItsLineAndTheReason) {
    std::string tooMany;
    for (int i = 0; i <= 64; ++i) tooMany += "p 1 2 3 3\n";
    const std::pair<std::string, std::string> rows[] = {
        {"x 1 2 3\n",
         "s.txt:1: expected: label black white depthA depthB, then optionally two "
         "quoted captions"},
        {"# c\n\nx 5 2 3 3\n", "s.txt:3: black kind \"5\" is not a number from 1 to 4"},
        {"x 1 0 3 3", "s.txt:1: white kind \"0\" is not a number from 1 to 4"},
        {"x 1 2 0 3", "s.txt:1: depthA \"0\" is not a number from 1 to 9"},
        {"x 1 2 3 10", "s.txt:1: depthB \"10\" is not a number from 1 to 9"},
        {"x 3 4 3 3", "s.txt:1: a knowing kind (3 or 4) may play only one colour of a pairing"},
        {"x 1 2 3 3 \"a\" b", "s.txt:1: the captions must stand in double quotes"},
        {"x 1 2 3 3 \"a", "s.txt:1: a caption lacks its closing quote"},
        {"\n# nothing\n", "s.txt: no pairings"},
        {tooMany, "s.txt:65: more than 64 pairings"}};
    for (const auto& [text, fault] : rows) {
        const ScheduleRead r = read(text);
        EXPECT_TRUE(!r.schedule && r.fault == fault) << r.fault;
    }
    EXPECT_EQ(loadSchedule("missing.txt").fault, "missing.txt can not be opened");
}

// Seeded openings repeat with the seed and cover the area evenly.
TEST(Opening, SeededDrawsAreRepeatableAndEven) {
    SeededUniform a(12345), b(12345);
    std::map<std::pair<int, int>, int> hits;
    for (int i = 0; i < 4000; ++i) {
        const Opening opening = drawOpening(a);
        EXPECT_EQ(opening.stones, drawOpening(b).stones);
        for (const Point& p : opening.stones) ++hits[{p.x, p.y}];
    }
    // 20000 stones over the 19 free points of the area: about 1053 each.
    EXPECT_EQ(hits.size(), 19u);
    for (const auto& [point, count] : hits)
        EXPECT_TRUE(count > 850 && count < 1250) << point.first << "," << point.second;
}

}  // namespace
}  // namespace quintline
