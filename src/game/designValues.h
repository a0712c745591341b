#pragma once
// What the window design holds for the values start-up reads: the main
// window's caption, the board picture's width and the two depth boxes. Toolkits
// that have no window of their own answer with these.

#include <string_view>

namespace quintline::design {

inline constexpr std::string_view mainCaption = "Quintline Version 3.5";
inline constexpr double boardWidth = 8000;             // twips
inline constexpr std::string_view depthBoxText = "3";  // both Combo3(0) and Combo3(1)

}  // namespace quintline::design
