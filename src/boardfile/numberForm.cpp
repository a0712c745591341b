#include "boardfile/numberForm.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <system_error>

namespace quintline {

std::string numberForm(std::int32_t value) {
    std::string out(1, value < 0 ? '-' : ' ');
    const auto magnitude = static_cast<std::uint32_t>(value < 0 ? -std::int64_t{value} : value);
    out += std::to_string(magnitude);
    out += ' ';
    return out;
}

std::string numberForm(float value) {
    std::string out(1, std::signbit(value) && value != 0.0f ? '-' : ' ');
    const float magnitude = std::fabs(value);
    if (magnitude == 0.0f || !std::isfinite(magnitude)) {
        out += "0 ";  // a timer difference is never infinite or nan
        return out;
    }

    // Seven significant digits, rounded once, as d.dddddde+XX.
    char sci[32];
    const auto res = std::to_chars(sci, sci + sizeof sci, static_cast<double>(magnitude),
                                   std::chars_format::scientific, 6);
    const std::string_view text(sci, static_cast<std::size_t>(res.ptr - sci));
    const auto ePos = text.find('e');
    std::string digits;
    for (char c : text.substr(0, ePos))
        if (c != '.') digits += c;
    const int exponent = std::atoi(std::string(text.substr(ePos + 1)).c_str());

    std::string intPart;
    std::string fracPart;
    if (exponent >= 0) {
        const auto intLen = static_cast<std::size_t>(exponent) + 1;
        if (intLen >= digits.size()) {
            intPart = digits + std::string(intLen - digits.size(), '0');
        } else {
            intPart = digits.substr(0, intLen);
            fracPart = digits.substr(intLen);
        }
    } else {
        intPart = "0";
        fracPart = std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    }
    while (!fracPart.empty() && fracPart.back() == '0') fracPart.pop_back();

    out += intPart;
    if (!fracPart.empty()) out += '.' + fracPart;
    out += ' ';
    return out;
}

}  // namespace quintline
