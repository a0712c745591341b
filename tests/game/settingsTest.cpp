// Filling and accepting the settings dialog's values, without the dialog.

#include "game/settings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "gameFixture.h"

namespace quintline {
namespace {

using testing::click;
using testing::Request;
using testing::Session;

// Accepts `values` and tells where in the toolkit's record the dialog closed.
struct Acceptance {
    bool accepted = false;
    int closes = 0;
    std::size_t closedAt = 0;  // number of toolkit calls made before the close
};

Acceptance accept(Session& session, const SettingsValues& values) {
    Acceptance a;
    a.accepted = acceptSettings(session.game, values, [&] {
        ++a.closes;
        a.closedAt = session.toolkit.calls.size();
    });
    return a;
}

SettingsValues rows(const char* black, const char* white,
                    Situation situation = Situation::knowNothing) {
    SettingsValues v;
    v.blackRow = black;
    v.whiteRow = white;
    v.situation = situation;
    return v;
}

TEST(SettingsDepth, TextBecomesADepthFromOneToNineOrIsRefused) {
    const struct {
        const char* text;
        std::optional<std::int16_t> depth;
    } rows[] = {
        {"3", 3},    {" 2 ", 2},  {"+4", 4},        {"4.5", 4},       {"5.5", 6}, {"2.5", 2},
        {"1e0", 1},  {"9.49", 9}, {"0.5", {}},      {"9.5", {}},      {"0", {}},  {"-1", {}},
        {"10", {}},  {"", {}},    {"  ", {}},       {"abc", {}},      {"3x", {}}, {"3 3", {}},
        {"nan", {}}, {"inf", {}}, {"99999999", {}}, {"1.5000001", 2},
    };
    for (const auto& row : rows) EXPECT_EQ(depthFromText(row.text), row.depth) << row.text;
}

TEST(SettingsFill, RowsFollowTheSidesAndTheModellingKindsSelectTheirOption) {
    Session session;
    SettingsValues v = rows("x", "y", Situation::aKnowsB);
    fillSettings(session.game, v);
    EXPECT_EQ(v.blackRow, "Computer A");
    EXPECT_EQ(v.whiteRow, "User");
    EXPECT_EQ(v.situation, Situation::knowNothing);

    GameState& s = session.s;
    s.blackSide = aKnowsB;
    s.whiteSide = computerB;
    fillSettings(session.game, v);
    EXPECT_EQ(v.blackRow, "Computer A");
    EXPECT_EQ(v.whiteRow, "Computer B");
    EXPECT_EQ(v.situation, Situation::aKnowsB);

    s.blackSide = computerB;
    s.whiteSide = bKnowsA;
    fillSettings(session.game, v);
    EXPECT_EQ(v.blackRow, "Computer B");
    EXPECT_EQ(v.whiteRow, "Computer B");
    EXPECT_EQ(v.situation, Situation::bKnowsA);
    EXPECT_TRUE(session.toolkit.messages().empty());

    // A side outside 0..4 keeps the row's design text after its message, once
    // for each side; the depth boxes are never filled.
    s.blackSide = 5;
    s.whiteSide = -1;
    s.depthA = 2;
    SettingsValues design;
    fillSettings(session.game, design);
    EXPECT_EQ(design.blackRow, "Computer A");
    EXPECT_EQ(design.whiteRow, "User");
    EXPECT_EQ(design.depthBox[0], "3");
    EXPECT_EQ(session.toolkit.messages(),
              (std::vector<std::string>{"incorrect for blackSide", "incorrect for whiteSide"}));
}

TEST(SettingsAccept, BadDepthRefusesWithAMessageAndChangesNothing) {
    for (const int box : {0, 1}) {
        Session session;
        GameState& s = session.s;
        session.toolkit.forget();
        SettingsValues v = rows("User", "User");
        v.depthBox[box] = "ten";
        const Acceptance a = accept(session, v);
        EXPECT_FALSE(a.accepted);
        EXPECT_EQ(a.closes, 0);
        EXPECT_EQ(session.toolkit.messages(),
                  std::vector<std::string>{"search depth must be a whole number from 1 to 9"});
        // No new game (gameResult is not yet 2), no sides, no caption.
        EXPECT_EQ(session.toolkit.calls.size(), 1u);
        EXPECT_EQ(s.stepNum, 1);
        EXPECT_EQ(s.blackSide, computerA);
        EXPECT_EQ(s.twoUsers, flagFalse);
    }
}

TEST(SettingsAccept, DesignDepthsComeBackAndTwoUsersPlayOn) {
    Session session;
    GameState& s = session.s;
    s.depthA = 2;
    s.depthB = 2;
    SettingsValues v;
    fillSettings(session.game, v);
    v.blackRow = "User";
    v.whiteRow = "User";
    v.situation = Situation::aKnowsB;  // ignored without two computers
    session.toolkit.forget();
    const Acceptance a = accept(session, v);
    EXPECT_TRUE(a.accepted);
    EXPECT_EQ(a.closes, 1);
    EXPECT_EQ(s.depthA, 3);
    EXPECT_EQ(s.depthB, 3);
    // gameResult was still 0: the board is cleared and the opening stone laid
    // under the old userColour, which the white row then leaves at -1.
    EXPECT_EQ(session.toolkit.count(Request::clearAndGrid), 1u);
    EXPECT_EQ(s.stepNum, 1);
    EXPECT_EQ(s.blackSide, userKind);
    EXPECT_EQ(s.whiteSide, userKind);
    EXPECT_EQ(s.userColour, white);
    EXPECT_EQ(s.twoUsers, flagTrue);
    EXPECT_EQ(s.clickAllowed, flagTrue);
    EXPECT_EQ(session.toolkit.lastCaption(Control::whoRun), "Users are running");
    EXPECT_EQ(session.toolkit.lastCaption(Control::blackSideLabel), "User");
    EXPECT_EQ(session.toolkit.lastCaption(Control::whiteSideLabel), "User");
}

TEST(SettingsAccept, ComputerWhoseTurnItIsMovesAtOnceAfterTheDialogCloses) {
    {
        // An open game in which the computer has the move: it moves, no new game.
        Session session;
        GameState& s = session.s;
        click(session.game, 7, 7);  // the user's white stone; computer A replies
        ASSERT_EQ(s.stepNum, 3);
        ASSERT_EQ(s.gameResult, gameOpen);
        session.toolkit.forget();
        const Acceptance a = accept(session, rows("User", "Computer A"));
        EXPECT_EQ(a.closes, 1);
        EXPECT_EQ(session.toolkit.count(Request::clearAndGrid), 0u);
        EXPECT_EQ(s.userColour, black);
        EXPECT_EQ(s.computerColour, white);
        EXPECT_EQ(s.stepNum, 4);
        EXPECT_EQ(s.moveRecord[4].colour, white);
        EXPECT_LE(a.closedAt, session.toolkit.find(Request::stoneAndRing));
        EXPECT_EQ(s.clickAllowed, flagTrue);
    }
    {
        // First acceptance of the session, user black against a computer on white:
        // the opening stone is laid under the old settings, so white replies at once.
        Session session;
        const Acceptance a = accept(session, rows("User", "Computer B"));
        EXPECT_EQ(a.closes, 1);
        EXPECT_EQ(session.s.stepNum, 2);
        EXPECT_EQ(session.s.computerKind, computerB);
        EXPECT_EQ(session.s.whiteSide, computerB);
        EXPECT_EQ(session.s.twoUsers, flagFalse);
    }
    {
        // With userColour 1 the new board is empty and the computer on black
        // opens through its own move.
        Session session;
        session.s.userColour = black;
        accept(session, rows("Computer A", "User"));
        EXPECT_EQ(session.s.stepNum, 1);
        EXPECT_EQ(session.s.position.board[8][8], black);
        EXPECT_EQ(session.s.gameResult, gameOpen);
        EXPECT_EQ(session.s.userColour, white);
    }
    {
        // The user has the move: no computer move, the click is allowed.
        Session session;
        GameState& s = session.s;
        click(session.game, 7, 7);
        s.clickAllowed = flagFalse;
        session.toolkit.forget();
        const Acceptance a = accept(session, rows("Computer A", "User", Situation::bKnowsA));
        EXPECT_EQ(a.closes, 1);
        EXPECT_EQ(s.stepNum, 3);
        EXPECT_EQ(s.clickAllowed, flagTrue);
        EXPECT_EQ(s.blackSide, computerA);  // the option plays no part
        EXPECT_EQ(session.toolkit.count(Request::stoneAndRing), 0u);
    }
}

TEST(SettingsAccept, TwoComputersTakeTheModellingRoleAndPlayTheGameOut) {
    const struct {
        const char* black;
        const char* white;
        Situation situation;
        PlayerKind blackSide, whiteSide;
        const char* blackLabel;
        const char* whiteLabel;
    } rows[] = {
        {"Computer A", "Computer B", Situation::knowNothing, computerA, computerB, "Computer A",
         "Computer B"},
        {"Computer A", "Computer A", Situation::aKnowsB, aKnowsB, computerA, "A Knows B",
         "Computer A"},
        {"Computer B", "Computer A", Situation::aKnowsB, computerB, aKnowsB, "Computer B",
         "A Knows B"},
        {"Computer B", "Computer B", Situation::aKnowsB, computerB, aKnowsB, "Computer B",
         "A Knows B"},
        {"Computer B", "Computer A", Situation::bKnowsA, bKnowsA, computerA, "B Knows A",
         "Computer A"},
        {"Computer A", "Computer A", Situation::bKnowsA, computerA, bKnowsA, "Computer A",
         "B Knows A"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.black) + " / " + row.white);
        Session session;
        GameState& s = session.s;
        SettingsValues v;
        v.blackRow = row.black;
        v.whiteRow = row.white;
        v.situation = row.situation;
        v.depthBox = {"1", "1"};  // short games
        session.toolkit.forget();
        const Acceptance a = accept(session, v);
        EXPECT_EQ(a.closes, 1);
        EXPECT_EQ(s.blackSide, row.blackSide);
        EXPECT_EQ(s.whiteSide, row.whiteSide);
        EXPECT_EQ(session.toolkit.lastCaption(Control::blackSideLabel), row.blackLabel);
        EXPECT_EQ(session.toolkit.lastCaption(Control::whiteSideLabel), row.whiteLabel);
        // The dialog is gone before the first computer stone: only the opening
        // stone of the new board comes before it. The game runs out.
        const auto& calls = session.toolkit.calls;
        const auto stonesBeforeClose = std::count_if(
            calls.begin(), calls.begin() + a.closedAt,
            [](const testing::Call& c) { return c.request == Request::stoneAndRing; });
        EXPECT_EQ(stonesBeforeClose, 1);
        EXPECT_GT(s.stepNum, 9);
        EXPECT_NE(s.gameResult, gameOpen);
        EXPECT_EQ(s.clickAllowed, flagFalse);
        EXPECT_EQ(s.twoUsers, flagFalse);
        EXPECT_EQ(s.depthA, 1);
    }
}

TEST(SettingsAccept, UnknownRowTextKeepsTheSideButTakesTheLabel) {
    Session session;
    GameState& s = session.s;
    // "computer a" is no name (case counts): black stays Computer A, and with a
    // user on white the computer, black, has the move after the new board.
    s.userColour = black;
    const Acceptance a = accept(session, rows("computer a", "User"));
    EXPECT_EQ(a.closes, 1);
    EXPECT_EQ(s.blackSide, computerA);
    EXPECT_EQ(session.toolkit.lastCaption(Control::blackSideLabel), "computer a");
    EXPECT_EQ(s.stepNum, 1);  // the computer's opening stone
    EXPECT_EQ(s.computerColour, black);
}

}  // namespace
}  // namespace quintline
