#pragma once
// The way every number is written into the program's text files: one sign
// character (a blank for zero and positive values, '-' for negative ones),
// the digits, and one trailing blank. Line ends are carriage return and line feed.

#include <cstdint>
#include <string>
#include <string_view>

namespace quintline {

inline constexpr std::string_view lineEnd = "\r\n";

// A whole number: 15 gives " 15 ", -1 gives "-1 ", 0 gives " 0 ".
std::string numberForm(std::int32_t value);

// A single-precision value with at most seven significant digits, in plain
// decimal notation without exponent; trailing zeros and a bare point are
// dropped, so 12.5f gives " 12.5 ", 3.0f gives " 3 " and -0.25f gives "-0.25 ".
std::string numberForm(float value);

}  // namespace quintline
