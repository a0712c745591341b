#include "boardfile/boardFileFormat.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quintline {
namespace {

BoardFileRead parse(const std::string& text) {
    std::istringstream in(text);
    return parseBoardFile(in);
}

std::string head(int total) {
    return "Grid Size\r\n 15 \r\nPiece number\r\n 5 \r\nTotal Move\r\n" + std::to_string(total) +
           "\r\n";
}

TEST(BoardFileFormat, ReaderToleratesLayoutAndLabels) {
    // Labels are not compared; commas or several lines per move read the same.
    const BoardFileRead loose =
        parse("grid,15,pieces,5,moves,3\r\n1,8,8\r\n-1\r\n9\r\n9\r\n  1 ,  7 , 7\nUserTurn, 0\n");
    ASSERT_EQ(loose.fault, BoardFileFault::none);
    EXPECT_EQ(loose.file.moves, (std::vector<MoveRecordEntry>{{1, 8, 8}, {-1, 9, 9}, {1, 7, 7}}));
    EXPECT_EQ(loose.file.userColour, 0);

    // Any other text where "UserTurn" stands gives black, and nothing more is read.
    for (const std::string label : {"end", "userturn"}) {
        const BoardFileRead read = parse(head(0) + label + "\r\n-1 \r\n junk");
        ASSERT_EQ(read.fault, BoardFileFault::none) << label;
        EXPECT_EQ(read.file.userColour, black) << label;
    }
    EXPECT_EQ(parse(head(0) + "\"UserTurn\"\r\n-1 \r\n").file.userColour, white);
}

TEST(BoardFileFormat, RefusesWhatCannotBeAGameAndSaysWhere) {
    struct Case {
        std::string text;
        BoardFileFault fault;
        int line;
        std::string detail;
    };
    const std::string move = " 1   8   8 \r\n";
    const Case cases[] = {
        {"Grid Size\r\n 19 \r\nPiece number\r\n 5 \r\nTotal Move\r\n 0 \r\n",
         BoardFileFault::unsuitable, 0, ""},
        {"Grid Size\r\n 15 \r\nPiece number\r\n 6 \r\nTotal Move\r\n 0 \r\n",
         BoardFileFault::unsuitable, 0, ""},
        {"Grid Size\r\n 15 \r\nPiece number\r\n", BoardFileFault::broken, 4, "the file ends early"},
        {head(2) + move, BoardFileFault::broken, 8, "the file ends early"},
        {head(1) + move, BoardFileFault::broken, 8, "the file ends early"},
        {head(226), BoardFileFault::broken, 6, "total of moves 226 is outside 0 to 225"},
        {head(-1), BoardFileFault::broken, 6, "total of moves -1 is outside 0 to 225"},
        {head(1) + " 1   8   40000 \r\n", BoardFileFault::broken, 7, "40000 does not fit 16 bits"},
        {head(1) + " 1   x   8 \r\n", BoardFileFault::broken, 7, "\"x\" is not a whole number"},
        {head(1) + " 0   8   8 \r\n", BoardFileFault::broken, 7, "colour 0 is neither 1 nor -1"},
        {head(3) + move + "-1 9 9\r\n 1   16   3 \r\n", BoardFileFault::broken, 9,
         "point (16, 3) is off the board"},
        {head(1) + " 1   0   3 \r\n", BoardFileFault::broken, 7, "point (0, 3) is off the board"},
        {head(2) + move + "-1   8   8 \r\n", BoardFileFault::broken, 8,
         "point (8, 8) is taken twice"},
        {head(0) + "UserTurn\r\n 2 \r\n", BoardFileFault::broken, 8,
         "UserTurn value 2 is not -1, 0 or 1"},
    };
    for (const Case& c : cases) {
        const BoardFileRead read = parse(c.text);
        EXPECT_EQ(read.fault, c.fault) << c.text;
        EXPECT_EQ(read.line, c.line) << c.text;
        EXPECT_EQ(read.detail, c.detail) << c.text;
    }
    EXPECT_EQ(loadBoardFile("/nonexistent/board.txt").fault, BoardFileFault::cannotOpen);
    EXPECT_EQ(loadBoardFile("/tmp").fault, BoardFileFault::cannotOpen);
}

}  // namespace
}  // namespace quintline
