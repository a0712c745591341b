#include "pbrainSession.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <optional>

#include "game/modelGuard.h"

namespace quintline::engine {
namespace {

constexpr Point centre{8, 8};

std::string_view trimmed(std::string_view text) {
    const auto blank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && blank(text.back())) text.remove_suffix(1);
    return text;
}

std::string upper(std::string_view word) {
    std::string out(word);
    for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return out;
}

// Exactly `count` whole numbers separated by commas, or nothing.
template <std::size_t count>
std::optional<std::array<int, count>> numbers(std::string_view text) {
    std::array<int, count> values{};
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t comma = i + 1 < count ? text.find(',') : text.size();
        if (comma == std::string_view::npos) return {};
        const std::string_view part = trimmed(text.substr(0, comma));
        const auto [end, error] =
            std::from_chars(part.data(), part.data() + part.size(), values[i]);
        if (part.empty() || error != std::errc{} || end != part.data() + part.size()) return {};
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    return values;
}

std::string protocolPoint(int x, int y) {
    return std::to_string(x - 1) + "," + std::to_string(y - 1);
}

// The fault of a point the opponent or a board line names, or "" when the
// engine's point (x, y) is free.
std::string pointFault(const Position& pos, int x, int y) {
    if (!onBoard(x, y))
        return "ERROR point " + protocolPoint(x, y) + " is off the 15 by 15 board\n";
    if (pos.board[x][y] != empty) return "ERROR point " + protocolPoint(x, y) + " is occupied\n";
    return {};
}

// The engine's point (x, y) of a protocol "x,y", counted from 0; `fault` says
// what is wrong when there is none.
std::optional<std::array<int, 2>> enginePoint(std::string_view rest, std::string& fault) {
    const auto point = numbers<2>(rest);
    if (!point) {
        fault = "ERROR malformed point \"" + std::string(rest) + "\", expected x,y\n";
        return std::nullopt;
    }
    return std::array{(*point)[0] + 1, (*point)[1] + 1};
}

std::string_view kindName(PlayerKind kind) {
    constexpr std::array<std::string_view, 5> names{"", "A", "B", "A-knows-B", "B-knows-A"};
    return names[static_cast<std::size_t>(kind)];
}

// The first empty point beside a stone in scan order, x outermost.
std::optional<Point> firstBesideAStone(const Position& pos) {
    for (std::int16_t x = 1; x <= boardSize; ++x)
        for (std::int16_t y = 1; y <= boardSize; ++y)
            if (pos.isCandidate(x, y)) return Point{x, y};
    return {};
}

}  // namespace

bool isEndCommand(std::string_view line) {
    return upper(trimmed(line)) == "END";
}

std::string engineName(const EngineSettings& settings) {
    return "Quintline " + std::string(kindName(settings.kind)) + " d" +
           std::to_string(settings.depth);
}

PbrainSession::PbrainSession(EngineSettings settings, SearchSet searches)
    : settings_(settings), searches_(searches) {}

std::string PbrainSession::answer(std::string_view line) {
    line = trimmed(line);
    if (ended_ || line.empty()) return {};
    if (readingBoard_) return boardLine(line);
    const std::size_t blank = line.find(' ');
    const std::string_view word = line.substr(0, blank);
    const std::string_view rest =
        blank == std::string_view::npos ? "" : trimmed(line.substr(blank));
    return command(upper(word), rest, line);
}

std::string PbrainSession::start(std::string_view word, std::string_view rest) {
    std::optional<int> size;
    if (word == "START") {
        if (const auto n = numbers<1>(rest)) size = (*n)[0];
    } else if (const auto n = numbers<2>(rest)) {
        size = (*n)[0] == (*n)[1] ? (*n)[0] : -1;  // never square: refused below
    }
    if (!size) return "ERROR malformed board size \"" + std::string(rest) + "\"\n";
    if (*size != boardSize) return "ERROR only the 15 by 15 board is supported\n";
    clear();
    return "OK\n";
}

std::string PbrainSession::command(std::string_view word, std::string_view rest,
                                   std::string_view line) {
    if (word == "START" || word == "RECTSTART") return start(word, rest);
    if (word == "RESTART") {
        clear();
        return "OK\n";
    }
    if (word == "BEGIN") {
        if (state_.stepNum != 0) return "ERROR BEGIN needs an empty board\n";
        return move();
    }
    if (word == "TURN") return turn(rest);
    if (word == "BOARD") {
        readingBoard_ = true;
        boardFields_.clear();
        boardFault_.clear();
        return {};
    }
    if (word == "TAKEBACK") return takeBack(rest);
    if (word == "INFO") {
        const std::size_t blank = rest.find(' ');
        if (upper(rest.substr(0, blank)) == "RULE" && blank != std::string_view::npos)
            noteRule(trimmed(rest.substr(blank)));
        return {};
    }
    if (word == "END") {
        ended_ = true;
        return {};
    }
    if (word == "ABOUT")
        return "name=\"" + engineName(settings_) +
               "\", version=\"" QUINTLINE_VERSION
               "\", author=\"The Quintline developers\", country=\"\", "
               "www=\"https://example.org/quintline\"\n";
    return "UNKNOWN command \"" + std::string(line) + "\"\n";
}

std::string PbrainSession::boardLine(std::string_view line) {
    if (upper(line) == "DONE") {
        readingBoard_ = false;
        return setUpBoard();
    }
    if (!boardFault_.empty()) return {};
    const auto field = numbers<3>(line);
    if (!field) {
        boardFault_ = "ERROR malformed board line \"" + std::string(line) + "\"\n";
    } else if (const auto [x, y, f] = *field; f == 3) {
        boardFault_ = "ERROR field 3 belongs to continuous games, which are not supported\n";
    } else if (f != 1 && f != 2) {
        boardFault_ = "ERROR field " + std::to_string(f) + " is neither 1 nor 2\n";
    } else if (!onBoard(x + 1, y + 1)) {
        boardFault_ = pointFault(state_.position, x + 1, y + 1);
    } else {
        const Point p{static_cast<std::int16_t>(x + 1), static_cast<std::int16_t>(y + 1)};
        if (std::ranges::any_of(boardFields_, [&](const Field& other) { return other.point == p; }))
            boardFault_ = "ERROR point " + protocolPoint(p.x, p.y) + " is given twice\n";
        boardFields_.push_back({p, f});
    }
    return {};
}

std::string PbrainSession::setUpBoard() {
    if (!boardFault_.empty()) return boardFault_;
    if (boardFields_.size() >= maxStones) return "ERROR the board is full\n";
    clear();
    // The side to move is the engine: black on an even count of stones.
    const Side own = boardFields_.size() % 2 == 0 ? black : white;
    const Side other = own == black ? white : black;
    for (const Field& field : boardFields_)
        placeStone(state_.position, field.point.x, field.point.y, field.owner == 1 ? own : other);
    state_.stepNum = static_cast<std::int16_t>(boardFields_.size());
    return move();
}

std::string PbrainSession::turn(std::string_view rest) {
    std::string fault;
    const auto point = enginePoint(rest, fault);
    if (!point) return fault;
    const auto [x, y] = *point;
    if (fault = pointFault(state_.position, x, y); !fault.empty()) return fault;
    if (state_.stepNum + 1 >= maxStones)
        return "ERROR the board is full: no point left to answer\n";
    const std::int16_t next = static_cast<std::int16_t>(state_.stepNum + 1);
    placeStone(state_.position, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y),
               sideToMove(next));
    state_.stepNum = next;
    return move();
}

std::string PbrainSession::takeBack(std::string_view rest) {
    std::string fault;
    const auto point = enginePoint(rest, fault);
    if (!point) return fault;
    const auto [x, y] = *point;
    if (!onBoard(x, y)) return pointFault(state_.position, x, y);
    const Side side = state_.position.board[x][y];
    if (side == empty) return "ERROR point " + protocolPoint(x, y) + " holds no stone\n";
    removeStone(state_.position, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), side);
    --state_.stepNum;
    return "OK\n";
}

void PbrainSession::noteRule(std::string_view rest) {
    const auto rule = numbers<1>(rest);
    // Exact five, renju and caro; continuous play (2) alone is still freestyle.
    if (rule && ((*rule)[0] & (1 | 4 | 8)) != 0)
        pendingNotes_ = "MESSAGE rule " + std::to_string((*rule)[0]) +
                        " is not freestyle: Quintline plays freestyle, five or more in a row "
                        "wins\n";
}

SearchChoice PbrainSession::search() {
    return searchFor(state_, settings_.kind, settings_.depth, searches_);
}

std::string PbrainSession::move() {
    std::string out = std::move(pendingNotes_);
    pendingNotes_.clear();
    std::optional<Point> point;
    if (state_.stepNum == 0) {
        point = centre;
        out += "MESSAGE empty board: the centre\n";
    } else if (fiveHolder(state_.position) != gameDrawn) {
        out += "MESSAGE a line of five stands already: no search\n";
    } else {
        seatSides(state_, settings_.kind);
        const std::uint64_t nodesBefore = state_.nodesSearched;
        const SearchChoice choice = search();
        out += "MESSAGE depth " + std::to_string(settings_.depth);
        out += choice.modelScore ? " own " + std::to_string(choice.value) + " model " +
                                       std::to_string(*choice.modelScore)
                                 : " value " + std::to_string(choice.value);
        out += " nodes " + std::to_string(state_.nodesSearched - nodesBefore) + "\n";
        if (onBoard(choice.point.x, choice.point.y)) point = choice.point;
    }
    if (!point) {
        point = firstBesideAStone(state_.position);
        if (!point) return out + "ERROR the board is full\n";
        out += "MESSAGE no point from the search: the first free point beside a stone\n";
    }
    const std::int16_t next = static_cast<std::int16_t>(state_.stepNum + 1);
    placeStone(state_.position, point->x, point->y, sideToMove(next));
    state_.stepNum = next;
    return out + protocolPoint(point->x, point->y) + "\n";
}

void PbrainSession::clear() {
    state_.position.clear();
    state_.stepNum = 0;
    readingBoard_ = false;
}

}  // namespace quintline::engine
