#include <gtest/gtest.h>

#include <string>

#include "harness/credit.h"
#include "harness/schedule.h"

namespace quintline {
namespace {

TEST(Schedule, HeaderLabelsFollowTheTableAndNeighboursSwapColours) {
    // The header's labels, split at its commas, are the pairings' labels in order.
    std::string rest(headerLiteral);
    for (const Pairing& p : schedule) {
        const auto comma = rest.find(',');
        std::string label = rest.substr(0, comma);
        label.erase(0, label.find_first_not_of(' '));
        label.erase(label.find_last_not_of(' ') + 1);
        EXPECT_EQ(label, p.label);
        rest = comma == std::string::npos ? "" : rest.substr(comma + 1);
    }
    EXPECT_TRUE(rest.empty());

    for (std::size_t n = 0; n < schedule.size(); n += 2) {
        const Pairing& odd = schedule[n];
        const Pairing& even = schedule[n + 1];
        EXPECT_TRUE(isAFamily(odd.black) && !isAFamily(odd.white)) << odd.label;
        EXPECT_EQ(even.black, odd.white);
        EXPECT_EQ(even.white, odd.black);
        EXPECT_EQ(even.depthA, odd.depthA);
        EXPECT_EQ(even.depthB, odd.depthB);
    }
    EXPECT_EQ(schedule[7].whiteCaption, "Computer A 2 ");
    EXPECT_EQ(schedule[13].blackCaption, "Computer B Know A 3");
    EXPECT_EQ(schedule[3].whiteCaption, "Computer A know B 3");
}

TEST(Crediting, BlackWinGoesToBlackFamilyEverythingElseToWhiteFamily) {
    for (std::size_t n = 0; n < schedule.size(); ++n) {
        const Pairing& p = schedule[n];
        const bool odd = n % 2 == 0;  // pairing n + 1
        EXPECT_EQ(creditGame(p, blackWon, 40), (ResultGroup{odd ? 'A' : 'B', 40})) << p.label;
        EXPECT_EQ(creditGame(p, whiteWon, 41).letter, odd ? 'B' : 'A') << p.label;
        EXPECT_EQ(creditGame(p, gameDrawn, 225).letter, odd ? 'B' : 'A') << p.label;
    }
}

}  // namespace
}  // namespace quintline
