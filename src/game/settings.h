#pragma once
// The settings dialog's logic, without the dialog: filling its values from the
// game and accepting them into the game. The window only moves values between
// these plain fields and its controls.

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "game/game.h"

namespace quintline {

// Which computer models the other in a game between two computers: the option
// group of the dialog, one of them selected.
enum class Situation { knowNothing, aModelsB, bModelsA };  // Option1, Option2, Option3

struct SettingsValues {
    std::string blackRow = "Computer A";            // Combo1
    std::string whiteRow = "User";                  // Combo2
    std::array<std::string, 2> depthBox{"3", "3"};  // Combo3(0): depthA, Combo3(1): depthB
    Situation situation = Situation::knowNothing;
};

// Row texts and list items of the dialog's design.
inline constexpr std::string_view userName = "User";
inline constexpr std::string_view computerAName = "Computer A";
inline constexpr std::string_view computerBName = "Computer B";

inline constexpr std::string_view badDepthMessage =
    "search depth must be a whole number from 1 to 9";

// The depth a box's text gives: the number rounded ties to even, when the text is
// a number and the result lies in 1..9.
std::optional<std::int16_t> depthFromText(std::string_view text);

// Fills the rows and the option group from the two sides. A side outside 0..4
// raises a message and leaves its row as it stood. The depth boxes are not filled.
void fillSettings(Game& game, SettingsValues& values);

// Accepts the values into the game and sets play going. `closeDialog` is called
// once, before a computer's move or game starts when one does, otherwise at the
// end. A depth box that gives no depth refuses the whole acceptance: a message,
// nothing changed, `closeDialog` not called, and false returned.
bool acceptSettings(Game& game, const SettingsValues& values,
                    const std::function<void()>& closeDialog);

}  // namespace quintline
