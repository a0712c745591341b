// Board files saved, read and replayed through a game, and the number form they
// are written in.

#include "boardfile/boardFile.h"
#include "boardfile/boardFileFormat.h"
#include "boardfile/numberForm.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <tuple>

#include "support/recordingToolkit.h"
#include "support/scratchDirectory.h"
#include "support/scriptedSearches.h"

namespace quintline {
namespace {

using testing::readBytes;
using testing::RecordingToolkit;
using testing::ScratchDirectory;

const std::string head = "Grid Size\r\n 15 \r\nPiece number\r\n 5 \r\nTotal Move\r\n";
const std::string tail = "UserTurn\r\n 1 \r\nend\r\n";
const std::string unsuitable = "the gird size or the piece number is not suitable! Not loaded";

// Everything a read may change.
auto readableState(const GameState& s) {
    const auto* board = reinterpret_cast<const char*>(&s.position);
    return std::tuple(s.moveRecord, s.stepNum, s.movesAhead, s.userColour, s.clickAllowed,
                      s.suggestionOn, s.gameResult, std::string(board, board + sizeof s.position));
}

// Small whole numbers are checked byte for byte through the files; these are the edges.
TEST(NumberForm, SignCharacterDigitsAndTrailingBlank) {
    EXPECT_EQ(numberForm(-32768), "-32768 ");
    // Single precision: at most seven significant digits, never an exponent, a
    // carry that runs into the whole part, and a negative time over midnight.
    std::string all;
    for (float v : {3.0f, -0.0f, -0.25f, 2.0f / 3.0f, 86399.99f, std::nextafter(2.0f, 0.0f),
                    0.00001f, 123456789.0f, 10.0f - 86390.75f})
        all += numberForm(v);
    EXPECT_EQ(all, " 3  0 -0.25  0.6666667  86399.99  2  0.00001  123456800 -86380.75 ");
}

class BoardFileTest : public ::testing::Test {
  protected:
    BoardFileTest() : game(toolkit, testing::scriptedSearches()) {
        game.startSession();
        game.newGame();
    }
    // Points boardFilePath into the scratch directory and writes the file if given.
    void useFile(const std::string& name, std::optional<std::string> bytes = {}) {
        game.state().boardFilePath = (dir / name).string();
        if (bytes) testing::writeBytes(game.state().boardFilePath, *bytes);
    }

    ScratchDirectory dir;
    RecordingToolkit toolkit;
    Game game;
};

TEST_F(BoardFileTest, ReadTakesWhatItCanAndRefusesTheRestChangingNothing) {
    GameState& s = game.state();
    s.twoUsers = flagTrue;
    game.userMove(7, 7);
    game.stepBack();
    const std::string h1 = head + " 1 \r\n", move = " 1   8   8 \r\n";
    const std::string at = ": board file broken at line ", one = h1 + " 1   8   9 \r\n";
    struct Case {
        std::string text;
        std::string refusal;  // empty when the file is read
        Side userColour = 0;
    };
    const Case cases[] = {
        {"Grid Size\r\n 19 \r\nPiece number\r\n 5 \r\nTotal Move\r\n 0 \r\n" + tail, unsuitable},
        {"Grid Size\r\n 15 \r\nPiece number\r\n 6 \r\nTotal Move\r\n 0 \r\n" + tail, unsuitable},
        {"", at + "1: the file ends early"},
        {"Grid Size\r\n 15 \r\nPiece number\r\n", at + "4: the file ends early"},
        {head + " 2 \r\n" + move, at + "8: the file ends early"},
        {h1 + move, at + "8: the file ends early"},
        {head + " 226 \r\n", at + "6: total of moves 226 is outside 0 to 225"},
        {head + "-1 \r\n", at + "6: total of moves -1 is outside 0 to 225"},
        {h1 + " 1   8   40000 \r\n", at + "7: 40000 does not fit 16 bits"},
        {h1 + " 1   x   8 \r\n", at + "7: \"x\" is not a whole number"},
        {h1 + std::string(5000, '7'),
         at + "7: a field longer than 4096 bytes: \"" + std::string(40, '7') + "...\""},
        {"\"Grid Size\r\n 15 \r\n", at + "1: the quote opened here is not closed"},
        {head + " 0 \r\n" + tail + std::string(64 * 1024, ' '),
         ": board file is larger than 64 KiB"},
        {h1 + " 0   8   8 \r\n", at + "7: colour 0 is neither 1 nor -1"},
        {head + " 3 \r\n" + move + "-1 9 9\r\n 1 16 3\r\n",
         at + "9: point (16, 3) is off the board"},
        {h1 + " 1   0   3 \r\n", at + "7: point (0, 3) is off the board"},
        {head + " 2 \r\n" + move + "-1   8   8 \r\n", at + "8: point (8, 8) is taken twice"},
        {head + " 0 \r\nUserTurn\r\n 2 \r\n", at + "8: UserTurn value 2 is not -1, 0 or 1"},
        {"missing", ": board file cannot be opened"},
        {"directory", ": board file cannot be opened"},
        {one + "UserTurn\r\n-1 \r\nend\r\n", "", white},
        {one + "UserTurn\r\n 0 \r\nend\r\n", "", empty},
        {one + "\"UserTurn\"\r\n-1 \r\n", "", white},
        // Any other text where "UserTurn" stands gives black, and nothing more is read.
        {one + "end\r\n", "", black},
        {one + "userturn\r\n-1 \r\n junk", "", black},
        // Labels are not compared; commas, blanks and lone LF or CR end fields too.
        {"grid,15,pieces,5,moves,1\r\n 1 ,8\n9\rUserTurn, -1\n", "", white},
    };
    for (const auto& [text, refusal, userColour] : cases) {
        if (text == "missing" || text == "directory")
            useFile(text == "missing" ? "missing.txt" : "");
        else
            useFile("in.txt", text);
        const auto before = readableState(s);
        toolkit.forget();
        readBoardFile(game);
        if (!refusal.empty()) {
            EXPECT_EQ(readableState(s), before) << text;
            EXPECT_EQ(toolkit.messages(),
                      std::vector<std::string>{refusal == unsuitable
                                                   ? refusal
                                                   : s.boardFilePath + refusal + "! Not loaded"});
            EXPECT_EQ(toolkit.lines.size(), 1u) << text;  // no drawing, caption or button
            continue;
        }
        EXPECT_TRUE(toolkit.messages().empty()) << text;
        EXPECT_EQ(s.userColour, userColour) << text;
        EXPECT_EQ(s.clickAllowed, userColour == white ? flagFalse : flagTrue) << text;
        EXPECT_EQ(s.moveRecord[1], (MoveRecordEntry{black, 8, 9})) << text;
        EXPECT_EQ(s.movesAhead, 1) << text;
    }
}

// A save writes through a symbolic link, keeps the file's mode, leaves other
// files alone, and refuses what it must not replace, changing nothing.
TEST_F(BoardFileTest, SavesKeepLinksAndModesAndRefuseWhatIsNoWritablePlainFile) {
    namespace fs = std::filesystem;
    useFile("target.txt", "old");
    const auto readWrite = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(dir / "target.txt", readWrite);
    fs::create_symlink("target.txt", dir / "link.txt");
    testing::writeBytes(dir / "target.txt.part", "someone else's");
    useFile("link.txt");
    const mode_t umaskBefore = umask(0277);  // one that would cut the file's own mode
    saveBoardFile(game);
    umask(umaskBefore);
    EXPECT_EQ(std::tuple(fs::is_symlink(dir / "link.txt"), readBytes(dir / "target.txt"),
                         fs::status(dir / "target.txt").permissions(),
                         readBytes(dir / "target.txt.part"), toolkit.messages().size()),
              std::tuple(true, formatBoardFile(game.state()), readWrite, "someone else's", 0u));

    useFile("readonly.txt", "old");
    fs::permissions(dir / "readonly.txt", fs::perms::owner_read);
    fs::create_directory(dir / "folder.txt");
    std::vector<std::string> refused;
    for (const char* name : {"readonly.txt", "folder.txt"}) {
        useFile(name);
        saveBoardFile(game);
        refused.push_back(game.state().boardFilePath + ": board file cannot be written! Not saved");
    }
    EXPECT_EQ(toolkit.messages(), refused);
    EXPECT_EQ(readBytes(dir / "readonly.txt"), "old");
    EXPECT_TRUE(fs::is_empty(dir / "folder.txt"));
    // No temporary file is left behind.
    EXPECT_EQ(std::distance(fs::directory_iterator(dir.path()), {}), 5);
}

}  // namespace
}  // namespace quintline
