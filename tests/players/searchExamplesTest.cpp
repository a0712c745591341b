// The worked examples of the four searches: values, chosen points, records.

#include <gtest/gtest.h>

#include "players/playerA.h"
#include "players/playerB.h"
#include "support/positionBuilder.h"

namespace quintline {
namespace {

using testing::stateWith;

Point chosen(const SearchState& s, int step) {
    return {s.bestX[step], s.bestY[step]};
}

TEST(PlainSearch, EmptyBoardAndDepthZeroLeaveTheChoiceAlone) {
    SearchState s;
    s.bestX[0] = 4;
    s.bestY[0] = 5;
    EXPECT_EQ(searchA(s, 0, 2), -2147483647);
    EXPECT_EQ(chosen(s, 0), (Point{4, 5}));

    SearchState one = stateWith({{8, 8, black}, {9, 8, white}, {7, 7, black}}, 3);
    EXPECT_EQ(searchA(one, 3, 0), evalA(one.position, 3, 0));
    EXPECT_EQ(chosen(one, 3), (Point{0, 0}));
}

TEST(PlainSearch, LastOfEqualValuesWins) {
    for (auto search : {searchA, searchB}) {
        SearchState s = stateWith({{8, 8, black}}, 1);
        EXPECT_EQ(search(s, 1, 1), 0);
        EXPECT_EQ(chosen(s, 1), (Point{9, 9}));
    }
}

TEST(PlainSearch, BlackFourAtDepthsOneToThree) {
    auto make = [] {
        return stateWith({{5, 5, black},
                          {6, 5, black},
                          {7, 5, black},
                          {8, 5, black},
                          {5, 6, white},
                          {6, 6, white},
                          {7, 6, white},
                          {12, 12, white}},
                         8);
    };
    SearchState s = make();
    EXPECT_EQ(searchA(s, 8, 1), 10749853);
    EXPECT_EQ(chosen(s, 8), (Point{4, 5}));
    s = make();
    EXPECT_EQ(searchA(s, 8, 2), 21499706);
    EXPECT_EQ(chosen(s, 8), (Point{4, 5}));
    s = make();
    EXPECT_EQ(searchA(s, 8, 3), 10745913);
    EXPECT_EQ(chosen(s, 8), (Point{4, 4}));
}

TEST(PlainSearch, SureValueEndsTheScanWithoutAFour) {
    auto make = [] {
        return stateWith({{5, 5, black},
                          {6, 5, black},
                          {7, 5, black},
                          {5, 6, white},
                          {6, 6, white},
                          {12, 12, white}},
                         6);
    };
    SearchState s = make();
    EXPECT_EQ(searchA(s, 6, 2), 1082517);
    EXPECT_EQ(chosen(s, 6), (Point{4, 5}));
    s = make();
    EXPECT_EQ(searchB(s, 6, 2), 1081917);
    EXPECT_EQ(chosen(s, 6), (Point{4, 5}));
    s = make();
    EXPECT_EQ(searchA(s, 6, 1), 1525);
    EXPECT_EQ(chosen(s, 6), (Point{8, 5}));
    s = make();
    EXPECT_EQ(searchB(s, 6, 1), 600);
    EXPECT_EQ(chosen(s, 6), (Point{7, 6}));
}

TEST(PlainSearch, WhiteToMoveAgainstABlackFour) {
    auto make = [] {
        return stateWith({{5, 5, black},
                          {6, 5, black},
                          {7, 5, black},
                          {8, 5, black},
                          {5, 6, white},
                          {6, 6, white},
                          {7, 6, white}},
                         7);
    };
    SearchState s = make();
    EXPECT_EQ(searchA(s, 7, 1), 1082162);
    EXPECT_EQ(chosen(s, 7), (Point{4, 5}));
    s = make();
    EXPECT_EQ(searchA(s, 7, 2), 10745913);
    EXPECT_EQ(chosen(s, 7), (Point{4, 5}));
}

TEST(OpponentModelSearch, FirstOfEqualScoresStays) {
    for (auto [search, kind] :
         {std::pair{&searchAKnowsB, aKnowsB}, std::pair{&searchBKnowsA, bKnowsA}}) {
        SearchState s = stateWith({{8, 8, black}}, 1);
        s.whiteSide = kind;
        s.blackSide = kind == aKnowsB ? computerB : computerA;
        EXPECT_EQ(search(s, 1, 1), (nodeScores{0, 0, 0}));
        EXPECT_EQ(chosen(s, 1), (Point{7, 7}));
    }
}

TEST(OpponentModelSearch, ModelScoreIsTheOtherComputersPlainValue) {
    auto make = [] { return stateWith({{8, 8, black}, {7, 6, black}, {9, 8, white}}, 3); };
    SearchState s = make();
    s.whiteSide = aKnowsB;
    s.blackSide = computerB;
    EXPECT_EQ(searchAKnowsB(s, 3, 2), (nodeScores{0, 145, 75}));
    EXPECT_EQ(chosen(s, 3), (Point{9, 9}));

    s = make();
    s.whiteSide = bKnowsA;
    s.blackSide = computerA;
    EXPECT_EQ(searchBKnowsA(s, 3, 2), (nodeScores{0, 75, 160}));
    EXPECT_EQ(chosen(s, 3), (Point{9, 9}));

    s = make();
    EXPECT_EQ(searchA(s, 3, 2), 160);
    EXPECT_EQ(chosen(s, 3), (Point{10, 7}));
    s = make();
    EXPECT_EQ(searchB(s, 3, 2), 75);
    EXPECT_EQ(chosen(s, 3), (Point{9, 9}));
}

TEST(OpponentModelSearch, WhiteFourAtDepthsOneToThree) {
    auto make = [] {
        SearchState s = stateWith({{5, 5, white},
                                   {6, 5, white},
                                   {7, 5, white},
                                   {8, 5, white},
                                   {5, 6, black},
                                   {6, 6, black},
                                   {7, 6, black},
                                   {12, 12, black},
                                   {1, 1, black}},
                                  9);
        s.whiteSide = aKnowsB;
        s.blackSide = computerB;
        return s;
    };
    SearchState s = make();
    EXPECT_EQ(searchAKnowsB(s, 9, 1), (nodeScores{0, -10749838, -10748543}));
    EXPECT_EQ(chosen(s, 9), (Point{4, 5}));
    s = make();
    EXPECT_EQ(searchAKnowsB(s, 9, 2), (nodeScores{0, -21499676, -21497086}));
    EXPECT_EQ(chosen(s, 9), (Point{4, 5}));
    s = make();
    EXPECT_EQ(searchAKnowsB(s, 9, 3), (nodeScores{0, -10745863, -10745193}));
    EXPECT_EQ(chosen(s, 9), (Point{1, 2}));
}

TEST(OpponentModelSearch, BlackFourKeepsSearchingForTheFive) {
    SearchState s = stateWith({{5, 5, black},
                               {6, 5, black},
                               {7, 5, black},
                               {8, 5, black},
                               {5, 6, white},
                               {6, 6, white},
                               {7, 6, white},
                               {12, 12, white}},
                              8);
    s.blackSide = aKnowsB;
    s.whiteSide = computerB;
    EXPECT_EQ(searchAKnowsB(s, 8, 2), (nodeScores{0, 21499706, 21497086}));
    EXPECT_EQ(chosen(s, 8), (Point{4, 5}));
}

}  // namespace
}  // namespace quintline
