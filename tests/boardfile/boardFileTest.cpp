// Board files read, refused and saved through a game, and the number form they
// are written in. Round trips of whole games are in tests/scenarios/boardFile.txt.

#include "boardfile/boardFile.h"
#include "boardfile/boardFileFormat.h"
#include "boardfile/numberForm.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "support/recordingToolkit.h"
#include "support/scratchDirectory.h"
#include "support/scriptedSearches.h"

namespace quintline {
namespace {

namespace fs = std::filesystem;
using testing::readBytes;

// Small whole numbers are checked byte for byte through the files; these are the edges.
TEST(NumberForm, SignCharacterDigitsAndTrailingBlank) {
    // Single precision: at most seven significant digits, never an exponent, a
    // carry that runs into the whole part, and a negative time over midnight.
    std::string all = numberForm(-32768) + numberForm(0);
    for (float v : {3.0f, -0.0f, -0.25f, 2.0f / 3.0f, 86399.99f, std::nextafter(2.0f, 0.0f),
                    0.00001f, 123456789.0f, 10.0f - 86390.75f})
        all += numberForm(v);
    EXPECT_EQ(all, "-32768  0  3  0 -0.25  0.6666667  86399.99  2  0.00001  123456800 -86380.75 ");
}

class BoardFileTest : public ::testing::Test {
  protected:
    BoardFileTest() : game(toolkit, testing::scriptedSearches()) {
        game.startSession();
        game.newGame();
        toolkit.forget();
    }
    // Points boardFilePath into the scratch directory.
    const std::string& use(const std::string& name) {
        return game.state().boardFilePath = (dir / name).string();
    }

    testing::ScratchDirectory dir;
    testing::RecordingToolkit toolkit;
    Game game;
};

// Everything a read may change.
auto readableState(const GameState& s) {
    const auto* board = reinterpret_cast<const char*>(&s.position);
    return std::tuple(s.moveRecord, s.stepNum, s.movesAhead, s.userColour, s.clickAllowed,
                      s.suggestionOn, s.gameResult, std::string(board, board + sizeof s.position));
}

// Each file either sets up black's (8, 9) for replay with the user's colour and
// the click flag it names, or is refused with one message and nothing changed.
TEST_F(BoardFileTest, ReadTakesWhatItCanAndRefusesTheRestChangingNothing) {
    GameState& s = game.state();
    s.twoUsers = flagTrue;
    game.userMove(7, 7);
    game.stepBack();
    const std::string head = "Grid Size\r\n 15 \r\nPiece number\r\n 5 \r\nTotal Move\r\n";
    const std::string h1 = head + " 1 \r\n", move = " 1   8   8 \r\n", one = h1 + " 1   8   9 \r\n";
    const std::string at = ": board file broken at line ", tail = "UserTurn\r\n 1 \r\nend\r\n";
    const std::string unsuitable = "the gird size or the piece number is not suitable";
    const std::pair<std::string, std::string> cases[] = {
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
        {one + "UserTurn\r\n-1 \r\nend\r\n", "user -1 click 0"},
        {one + "UserTurn\r\n 0 \r\nend\r\n", "user 0 click -1"},
        {one + "\"UserTurn\"\r\n-1 \r\n", "user -1 click 0"},
        // Any other text where "UserTurn" stands gives black, and nothing more is read.
        {one + "end\r\n", "user 1 click -1"},
        {one + "userturn\r\n-1 \r\n junk", "user 1 click -1"},
        // Labels are not compared; commas, blanks and lone LF or CR end fields too.
        {"grid,15,pieces,5,moves,1\r\n 1 ,8\n9\rUserTurn, -1\n", "user -1 click 0"},
    };
    for (const auto& [bytes, expected] : cases) {
        const char* name = bytes == "missing"     ? "missing.txt"
                           : bytes == "directory" ? ""
                                                  : "in.txt";
        const std::string path = use(name);
        if (name == std::string("in.txt")) testing::writeBytes(path, bytes);
        const auto before = readableState(s);
        toolkit.forget();
        readBoardFile(game);
        std::string seen =
            "user " + std::to_string(s.userColour) + " click " + std::to_string(s.clickAllowed);
        if (readableState(s) == before && toolkit.lines.size() == 1) {  // no drawing nor button
            seen = toolkit.lines[0];
        } else {
            EXPECT_EQ(std::tuple(s.moveRecord[1], s.movesAhead),
                      std::tuple(MoveRecordEntry{black, 8, 9}, 1));
        }
        const std::string refusal = expected[0] == ':' ? path + expected : expected;
        EXPECT_EQ(seen, expected[0] == 'u' ? expected : "message " + refusal + "! Not loaded");
    }
}

// A save writes through a symbolic link, keeps the file's mode, leaves other
// files alone, and refuses what it must not replace, changing nothing.
TEST_F(BoardFileTest, SavesKeepLinksAndModesAndRefuseWhatIsNoWritablePlainFile) {
    testing::writeBytes(use("target.txt"), "old");
    const auto readWrite = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(dir / "target.txt", readWrite);
    fs::create_symlink("target.txt", use("link.txt"));
    testing::writeBytes(dir / "target.txt.part", "someone else's");
    const mode_t umaskBefore = umask(0277);  // one that would cut the file's own mode
    saveBoardFile(game);
    umask(umaskBefore);
    testing::writeBytes(use("readonly.txt"), "old");
    fs::permissions(dir / "readonly.txt", fs::perms::owner_read);
    saveBoardFile(game);
    fs::create_directory(use("folder.txt"));
    saveBoardFile(game);
    EXPECT_EQ(
        std::tuple(fs::is_symlink(dir / "link.txt"), readBytes(dir / "target.txt"),
                   fs::status(dir / "target.txt").permissions(), readBytes(dir / "target.txt.part"),
                   readBytes(dir / "readonly.txt"), fs::is_empty(dir / "folder.txt"),
                   toolkit.lines),
        std::tuple(true, formatBoardFile(game.state()), readWrite, "someone else's", "old", true,
                   std::vector<std::string>{"message " + (dir / "readonly.txt").string() +
                                                ": board file cannot be written! Not saved",
                                            "message " + (dir / "folder.txt").string() +
                                                ": board file cannot be written! Not saved"}));
    // No temporary file is left behind.
    EXPECT_EQ(std::distance(fs::directory_iterator(dir.path()), {}), 5);
}

}  // namespace
}  // namespace quintline
