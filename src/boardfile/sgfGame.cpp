#include "boardfile/sgfGame.h"

namespace quintline {
namespace {

// A property value: "]" and "\" are escaped, as the format asks.
std::string property(std::string_view name, std::string_view value) {
    std::string out(name);
    out += '[';
    for (const char c : value) {
        if (c == ']' || c == '\\') out += '\\';
        out += c;
    }
    out += ']';
    return out;
}

char coordinate(std::int16_t v) {
    return static_cast<char>('a' + v - 1);
}

std::string_view resultText(GameCode outcome) {
    return outcome == blackWon ? "B+" : outcome == whiteWon ? "W+" : "0";
}

}  // namespace

std::string sgfGameTree(const SgfGameInfo& info, const std::vector<MoveRecordEntry>& moves) {
    std::string out = "(;FF[4]GM[4]SZ[15]";
    out += property("EV", info.event) + property("RO", info.round) + property("PB", info.black) +
           property("PW", info.white) + property("RE", resultText(info.outcome)) +
           property("DT", info.date) + property("AP", info.application);
    for (const MoveRecordEntry& move : moves) {
        out += move.colour == black ? ";B[" : ";W[";
        out += coordinate(move.x);
        out += coordinate(move.y);
        out += ']';
    }
    out += ")\n";
    return out;
}

}  // namespace quintline
