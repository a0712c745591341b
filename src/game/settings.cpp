#include "game/settings.h"

#include <charconv>
#include <cmath>

#include "game/captions.h"
#include "position/basicOpr.h"

namespace quintline {

std::optional<std::int16_t> depthFromText(std::string_view text) {
    const auto blank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && blank(text.back())) text.remove_suffix(1);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || error != std::errc{} || end != text.data() + text.size() ||
        !std::isfinite(number)) {
        return std::nullopt;
    }
    const double depth = roundHalfEven(number);
    if (depth < 1 || depth > 9) return std::nullopt;
    return static_cast<std::int16_t>(depth);
}

namespace {

// Puts the base name of `kind` in the row and selects the option of a modelling
// kind; false for a kind that is none of 0..4.
bool fillRow(PlayerKind kind, std::string& row, Situation& situation) {
    switch (kind) {
        case userKind:
            row = userName;
            return true;
        case computerA:
            row = computerAName;
            return true;
        case computerB:
            row = computerBName;
            return true;
        case aKnowsB:
            row = computerAName;
            situation = Situation::aKnowsB;
            return true;
        case bKnowsA:
            row = computerBName;
            situation = Situation::bKnowsA;
            return true;
        default:
            return false;
    }
}

// Takes the player named in the row of `colour`; a text that names no player
// changes nothing.
void takeRow(GameState& s, const std::string& text, Side colour, PlayerKind& side) {
    if (text == userName) {
        side = userKind;
        s.userColour = colour;
        return;
    }
    const PlayerKind kind = text == computerAName   ? computerA
                            : text == computerBName ? computerB
                                                    : userKind;
    if (kind == userKind) return;
    side = kind;
    s.computerKind = kind;
    s.computerColour = colour;
}

}  // namespace

void fillSettings(Game& game, SettingsValues& values) {
    const GameState& s = game.state();
    Toolkit& toolkit = game.toolkit();
    values.situation = Situation::knowNothing;
    if (!fillRow(s.blackSide, values.blackRow, values.situation)) {
        toolkit.messageBox("incorrect for blackSide", MessageButtons::ok);
    }
    if (!fillRow(s.whiteSide, values.whiteRow, values.situation)) {
        toolkit.messageBox("incorrect for whiteSide", MessageButtons::ok);
    }
}

bool acceptSettings(Game& game, const SettingsValues& values,
                    const std::function<void()>& closeDialog) {
    Toolkit& toolkit = game.toolkit();
    const std::optional<std::int16_t> depthA = depthFromText(values.depthBox[0]);
    const std::optional<std::int16_t> depthB = depthFromText(values.depthBox[1]);
    if (!depthA || !depthB) {
        toolkit.messageBox(badDepthMessage, MessageButtons::ok);
        return false;
    }

    bool closed = false;
    const auto close = [&] {
        if (!closed) closeDialog();
        closed = true;
    };

    GameState& s = game.state();
    // The opening stone of a fresh board follows the settings that were in force.
    if (s.gameResult != gameOpen) game.newGame();
    s.depthB = *depthB;
    s.depthA = *depthA;

    // Black first, so that the white row has the last word on the shared values.
    takeRow(s, values.blackRow, black, s.blackSide);
    takeRow(s, values.whiteRow, white, s.whiteSide);
    toolkit.setCaption(Control::blackSideLabel, values.blackRow);
    toolkit.setCaption(Control::whiteSideLabel, values.whiteRow);

    const bool blackUser = s.blackSide == userKind;
    const bool whiteUser = s.whiteSide == userKind;
    if (blackUser && whiteUser) {
        s.twoUsers = flagTrue;
        s.clickAllowed = flagTrue;
        toolkit.setCaption(Control::whoRun, captions::usersRunning);
    } else if (!blackUser && !whiteUser) {
        s.twoUsers = flagFalse;
        s.clickAllowed = flagFalse;
        // The modelling role goes to white whatever kind white holds, unless
        // black is the computer named by the option.
        if (values.situation == Situation::aKnowsB) {
            if (s.blackSide == computerA) {
                s.blackSide = aKnowsB;
                toolkit.setCaption(Control::blackSideLabel, captions::aKnowsBSide);
            } else {
                s.whiteSide = aKnowsB;
                toolkit.setCaption(Control::whiteSideLabel, captions::aKnowsBSide);
            }
        } else if (values.situation == Situation::bKnowsA) {
            if (s.blackSide == computerB) {
                s.blackSide = bKnowsA;
                toolkit.setCaption(Control::blackSideLabel, captions::bKnowsASide);
            } else {
                s.whiteSide = bKnowsA;
                toolkit.setCaption(Control::whiteSideLabel, captions::bKnowsASide);
            }
        }
        close();
        game.computerGame();
    } else {
        s.twoUsers = flagFalse;
        if (s.computerColour == sideToMove(static_cast<std::int16_t>(s.stepNum + 1))) {
            close();
            game.computerMove(s.computerKind);
        } else {
            s.clickAllowed = flagTrue;
        }
    }
    close();
    return true;
}

}  // namespace quintline
