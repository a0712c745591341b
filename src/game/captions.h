#pragma once
// The texts game control writes into the window, exactly as the user sees them.

#include <string_view>

namespace quintline::captions {

// Command1
inline constexpr std::string_view suggestionOn = "suggestion";
inline constexpr std::string_view suggestionOff = "no suggestion";

// whoRun while a computer searches, by player kind 1..4.
inline constexpr std::string_view aRunning = "Computer A is running";
inline constexpr std::string_view bRunning = "Computer B is running";
inline constexpr std::string_view aKnowsBRunning = "Computer A(knows B) is running";
inline constexpr std::string_view bKnowsARunning = "Computer B(knows A) is running";

// whoRun when the settings give both colours to users.
inline constexpr std::string_view usersRunning = "Users are running";

// A side's caption when the settings make its computer model the other.
inline constexpr std::string_view aKnowsBSide = "A Knows B";
inline constexpr std::string_view bKnowsASide = "B Knows A";

// whoRun at the end of a game against a user.
inline constexpr std::string_view noOneWins = "Game Over! No one Win.";
inline constexpr std::string_view computerWins = "Game Over! Computer Win.";

// whoRun at the end of a game between two computers.
inline constexpr std::string_view aBlackWins = "GameOver! A (black) Win!";
inline constexpr std::string_view bBlackWins = "GameOver! B (black) Win!";
inline constexpr std::string_view aWhiteWins = "GameOver! A (white) Win!";
inline constexpr std::string_view bWhiteWins = "GameOver! B (white) Win!";

// whoRun when a replayed stone ends the game; the leading blank belongs to the text.
inline constexpr std::string_view replayBlackWins = " Black Win";
inline constexpr std::string_view replayWhiteWins = " White Win";
inline constexpr std::string_view replayNoOneWins = " No one Win";

// winLab, the computer's prediction after its search.
inline constexpr std::string_view blackWillWin = "Black will win";
inline constexpr std::string_view whiteWillWin = "White will win";
inline constexpr std::string_view noOneWillWin = "no one win";
inline constexpr std::string_view notSure = "not sure";

// Message boxes.
inline constexpr std::string_view youWin = "GameOver! You Win!";
inline constexpr std::string_view badColour = "error in Putchess! press cancle to endGame!";

}  // namespace quintline::captions
