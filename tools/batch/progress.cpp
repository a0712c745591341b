#include "batch/progress.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace quintline::batch {

std::string clockDuration(double seconds) {
    const long whole = std::lround(std::max(0.0, seconds));
    const long h = whole / 3600;
    const long m = whole / 60 % 60;
    const long s = whole % 60;
    char text[48];
    if (h > 0)
        std::snprintf(text, sizeof text, "%ld:%02ld:%02ld", h, m, s);
    else
        std::snprintf(text, sizeof text, "%ld:%02ld", m, s);
    return text;
}

std::string progressLine(std::size_t done, std::size_t total, double elapsedSeconds) {
    const double rate = elapsedSeconds > 0.0 ? static_cast<double>(done) / elapsedSeconds : 0.0;
    std::string left = "?";
    if (rate > 0.0 && done <= total) left = clockDuration(static_cast<double>(total - done) / rate);
    char text[128];
    std::snprintf(text, sizeof text, "%zu/%zu games, %.2f games/s, %s left", done, total, rate,
                  left.c_str());
    return text;
}

}  // namespace quintline::batch
