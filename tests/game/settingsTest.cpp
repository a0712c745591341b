// Filling and accepting the settings dialog's values, without the dialog.

#include "game/settings.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "gameFixture.h"

namespace quintline {
namespace {

using testing::Request;
using testing::Session;

// Accepts the rows; `closedAt` is the number of toolkit calls made before the
// dialog closed, or -1 if it stayed open.
struct Acceptance {
    bool accepted;
    int closedAt = -1;
};
Acceptance accept(Session& session, const char* black, const char* white,
                  Situation situation = Situation::knowNothing, const char* depth = "3") {
    Acceptance a;
    a.accepted = acceptSettings(session.game, {black, white, {depth, "3"}, situation}, [&] {
        EXPECT_EQ(a.closedAt, -1) << "closed twice";
        a.closedAt = int(session.toolkit.calls.size());
    });
    return a;
}

TEST(SettingsDepth, TextBecomesADepthFromOneToNineOrIsRefused) {
    const std::pair<const char*, std::optional<std::int16_t>> rows[] = {
        {"3", 3},    {" 2 ", 2},  {"+4", 4},        {"4.5", 4},  {"5.5", 6},  {"2.5", 2},
        {"1e0", 1},  {"9.49", 9}, {"1.5000001", 2}, {"0.5", {}}, {"9.5", {}}, {"0", {}},
        {"-1", {}},  {"10", {}},  {"", {}},         {"  ", {}},  {"abc", {}}, {"3x", {}},
        {"3 3", {}}, {"nan", {}}, {"inf", {}}};
    for (const auto& [text, depth] : rows) EXPECT_EQ(depthFromText(text), depth) << text;
}

TEST(SettingsFill, RowsFollowTheSidesAndModellingKindsSelectTheirOption) {
    Session session;
    GameState& s = session.s;
    const struct {
        PlayerKind black, white;
        const char* blackRow;
        const char* whiteRow;
        Situation situation;
    } rows[] = {{computerA, userKind, "Computer A", "User", Situation::knowNothing},
                {aKnowsB, computerB, "Computer A", "Computer B", Situation::aModelsB},
                {computerB, bKnowsA, "Computer B", "Computer B", Situation::bModelsA},
                // A side outside 0..4 keeps the row as it was, after a message.
                {5, -1, "x", "y", Situation::knowNothing}};
    for (const auto& row : rows) {
        s.blackSide = row.black;
        s.whiteSide = row.white;
        SettingsValues v{"x", "y", {"", ""}, Situation::aModelsB};
        fillSettings(session.game, v);
        EXPECT_EQ(v.blackRow + "/" + v.whiteRow, std::string(row.blackRow) + "/" + row.whiteRow);
        EXPECT_EQ(v.situation, row.situation);
        EXPECT_EQ(v.depthBox[0], "");  // never filled
    }
    EXPECT_EQ(session.toolkit.messages(),
              (std::vector<std::string>{"incorrect for blackSide", "incorrect for whiteSide"}));
}

TEST(SettingsAccept, BadDepthRefusesWithAMessageAndChangesNothing) {
    Session session;
    session.toolkit.forget();
    EXPECT_FALSE(acceptSettings(session.game, {"User", "User", {"3", "ten"}, {}}, [] { FAIL(); }));
    EXPECT_FALSE(accept(session, "User", "User", Situation::knowNothing, "0").accepted);
    EXPECT_EQ(session.toolkit.messages(),
              (std::vector<std::string>(2, "search depth must be a whole number from 1 to 9")));
    EXPECT_EQ(session.toolkit.calls.size(), 2u);  // no new game, sides or captions
    EXPECT_EQ(session.s.blackSide, computerA);
    EXPECT_EQ(session.s.twoUsers, flagFalse);
}

TEST(SettingsAccept, RowsSetTheSidesBlackFirstAndWhoeverHasTheMoveMoves) {
    {
        // gameResult is still 0: the board is cleared and the opening stone laid
        // under the old userColour, which the white row then leaves at -1.
        Session session;
        session.s.depthA = 2;
        session.toolkit.forget();
        EXPECT_TRUE(accept(session, "User", "User", Situation::aModelsB).closedAt >= 0);
        const GameState& s = session.s;
        EXPECT_EQ(session.toolkit.count(Request::clearAndGrid), 1u);
        EXPECT_EQ(s.depthA, 3);
        EXPECT_EQ(s.userColour, white);
        EXPECT_EQ(s.twoUsers, flagTrue);
        EXPECT_EQ(s.clickAllowed, flagTrue);
        EXPECT_EQ(session.toolkit.lastCaption(Control::whoRun), "Users are running");
        EXPECT_EQ(session.toolkit.lastCaption(Control::blackSideLabel), "User");
    }
    {
        // An open game in which the computer now has the move: it moves after the
        // dialog closed, on the same board.
        Session session;
        testing::click(session.game, 7, 7);
        session.toolkit.forget();
        const Acceptance a = accept(session, "User", "Computer B");
        EXPECT_EQ(session.toolkit.count(Request::clearAndGrid), 0u);
        EXPECT_EQ(session.s.computerKind, computerB);
        EXPECT_EQ(session.s.moveRecord[4].colour, white);
        EXPECT_LE(std::size_t(a.closedAt), session.toolkit.find(Request::stoneAndRing));
    }
    {
        // The user has the move: no stone, the click allowed, the option ignored.
        Session session;
        testing::click(session.game, 7, 7);
        session.s.clickAllowed = flagFalse;
        accept(session, "Computer A", "User", Situation::bModelsA);
        EXPECT_EQ(session.s.stepNum, 3);
        EXPECT_EQ(session.s.clickAllowed, flagTrue);
        EXPECT_EQ(session.s.blackSide, computerA);
    }
    {
        // A new board under userColour 1 is empty; "computer a" is no name (case
        // counts), so black stays Computer A and opens through its own move.
        Session session;
        session.s.userColour = black;
        accept(session, "computer a", "User");
        EXPECT_EQ(session.toolkit.lastCaption(Control::blackSideLabel), "computer a");
        EXPECT_EQ(session.s.stepNum, 1);
        EXPECT_EQ(session.s.position.board[8][8], black);
        EXPECT_EQ(session.s.computerColour, black);
    }
}

TEST(SettingsAccept, TwoComputersTakeTheModellingRoleAndPlayTheGameOut) {
    const char* const a = "Computer A";
    const char* const b = "Computer B";
    const struct {
        const char* black;
        const char* white;
        Situation situation;
        PlayerKind blackSide, whiteSide;
    } rows[] = {{a, b, Situation::knowNothing, computerA, computerB},
                {a, a, Situation::aModelsB, aKnowsB, computerA},
                {b, a, Situation::aModelsB, computerB, aKnowsB},
                {b, b, Situation::aModelsB, computerB, aKnowsB},
                {b, a, Situation::bModelsA, bKnowsA, computerA},
                {a, a, Situation::bModelsA, computerA, bKnowsA}};
    const auto label = [](PlayerKind kind) {
        return kind == aKnowsB ? "A Knows B" : kind == bKnowsA ? "B Knows A" : nullptr;
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.black) + " / " + row.white);
        Session session;
        session.toolkit.forget();
        const Acceptance accepted = accept(session, row.black, row.white, row.situation, "1");
        const GameState& s = session.s;
        EXPECT_EQ(s.blackSide, row.blackSide);
        EXPECT_EQ(s.whiteSide, row.whiteSide);
        const char* blackLabel = label(row.blackSide);
        const char* whiteLabel = label(row.whiteSide);
        EXPECT_EQ(session.toolkit.lastCaption(Control::blackSideLabel),
                  blackLabel ? blackLabel : row.black);
        EXPECT_EQ(session.toolkit.lastCaption(Control::whiteSideLabel),
                  whiteLabel ? whiteLabel : row.white);
        // Closed before any computer stone: only the new board's opening stone
        // comes first. Then the game runs out.
        const std::size_t closedAt = accepted.closedAt,
                          first = session.toolkit.find(Request::stoneAndRing);
        EXPECT_LT(first, closedAt);
        EXPECT_GE(session.toolkit.find(Request::stoneAndRing, first + 1), closedAt);
        EXPECT_GT(s.stepNum, 9);
        EXPECT_NE(s.gameResult, gameOpen);
        EXPECT_EQ(s.clickAllowed, flagFalse);
        EXPECT_EQ(s.depthA, 1);
    }
}

}  // namespace
}  // namespace quintline
