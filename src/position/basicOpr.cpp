#include "position/basicOpr.h"

#include <cstring>

namespace quintline {

namespace {

// The eight neighbours, in the order the counts are updated: for d = -1 then
// d = 1, (x + d, y), (x, y + d), (x + d, y + d), (x + d, y - d).
void addToNeighbours(Position& pos, int x, int y, int delta) {
    const auto add = [delta](std::int16_t& count) {
        count = static_cast<std::int16_t>(count + delta);
    };
    for (int d = -1; d <= 1; d += 2) {
        add(pos.nearCount[x + d][y]);
        add(pos.nearCount[x][y + d]);
        add(pos.nearCount[x + d][y + d]);
        add(pos.nearCount[x + d][y - d]);
    }
}

// The rows of the line tables that a stone of one side changes.
struct SideRows {
    SideRows(Position& pos, Side side)
        : own(pos.lineStones[sideRow(side)]),
          other(pos.lineStones[1 - side]),
          ownCensus(pos.lineCensus[sideRow(side)]),
          otherCensus(pos.lineCensus[1 - side]),
          codeStep(side == black ? 8 : 1) {}
    std::int16_t* own;
    std::int16_t* other;
    std::int16_t* ownCensus;
    std::int16_t* otherCensus;
    int codeStep;  // a black stone counts 8 in lineCode, a white one 1
};

}  // namespace

void Position::clear() {
    *this = Position{};
}

void placeStone(Position& pos, std::int16_t x, std::int16_t y, Side side) {
    pos.board[x][y] = side;
    pos.occupied[x] = static_cast<std::uint16_t>(pos.occupied[x] | (1u << y));
    const SideRows rows(pos, side);
    const PointLines& lines = pointLines();
    const int count = lines.count(x, y);
    for (int n = 1; n <= count; ++n) {
        const int id = lines.id(x, y, n);
        if (rows.other[id] == 0) {
            if (rows.own[id] > 0) --rows.ownCensus[rows.own[id]];
            ++rows.ownCensus[rows.own[id] + 1];
        } else if (rows.own[id] == 0) {
            --rows.otherCensus[rows.other[id]];
        }
        ++rows.own[id];
        pos.lineCode[id] = static_cast<std::int16_t>(pos.lineCode[id] + rows.codeStep);
    }
    addToNeighbours(pos, x, y, 1);
}

void removeStone(Position& pos, std::int16_t x, std::int16_t y, Side side) {
    pos.board[x][y] = empty;
    pos.occupied[x] = static_cast<std::uint16_t>(pos.occupied[x] & ~(1u << y));
    const SideRows rows(pos, side);
    const PointLines& lines = pointLines();
    const int count = lines.count(x, y);
    for (int n = 1; n <= count; ++n) {
        const int id = lines.id(x, y, n);
        if (rows.other[id] == 0) {
            --rows.ownCensus[rows.own[id]];
            if (rows.own[id] - 1 > 0) ++rows.ownCensus[rows.own[id] - 1];
        } else if (rows.own[id] == 1) {
            ++rows.otherCensus[rows.other[id]];
        }
        --rows.own[id];
        pos.lineCode[id] = static_cast<std::int16_t>(pos.lineCode[id] - rows.codeStep);
    }
    addToNeighbours(pos, x, y, -1);
}

GameCode gameEndTest(const Position& pos, std::int16_t stepNum, std::int16_t x, std::int16_t y,
                     Side side) {
    if (stepNum < 9) return gameOpen;
    const std::int16_t* own = pos.lineStones[sideRow(side)];
    const std::int16_t* other = pos.lineStones[1 - side];
    const PointLines& lines = pointLines();
    for (int n = 1; n <= lines.count(x, y); ++n)
        if (own[lines.id(x, y, n)] == 5) return side;
    int openLines = 0;
    for (int id = 1; id <= lineCount; ++id)
        if (own[id] == 0 || other[id] == 0) ++openLines;
    if (openLines == 0) return gameDrawn;
    return stepNum >= maxStones ? gameDrawn : gameOpen;
}

namespace {

// Adds one stone of side s to tables built from an empty board, as placeStone
// counts it, line census and codes aside.
void recountStone(Position& fresh, int x, int y, Side s) {
    fresh.board[x][y] = s;
    fresh.occupied[x] = static_cast<std::uint16_t>(fresh.occupied[x] | (1u << y));
    for (int d = -1; d <= 1; ++d)
        for (int e = -1; e <= 1; ++e)
            if (d != 0 || e != 0) ++fresh.nearCount[x + d][y + e];
    for (int n = 1; n <= pointLines().count(x, y); ++n)
        ++fresh.lineStones[sideRow(s)][pointLines().id(x, y, n)];
}

// The census and the line codes from the stones of every line.
void recountLines(Position& fresh) {
    for (int id = 1; id <= lineCount; ++id) {
        const int b = fresh.lineStones[2][id];
        const int w = fresh.lineStones[0][id];
        if (b > 0 && w == 0) ++fresh.lineCensus[2][b];
        if (w > 0 && b == 0) ++fresh.lineCensus[0][w];
        fresh.lineCode[id] = static_cast<std::int16_t>(8 * b + w);
    }
}

}  // namespace

bool censusOk(const Position& pos) {
    Position fresh;
    for (int x = 0; x <= boardSize; ++x)
        for (int y = 0; y <= boardSize; ++y) {
            const Side s = pos.board[x][y];
            if (s == empty) continue;
            if (s != black && s != white) return false;
            if (x == 0 || y == 0) return false;  // subscript 0 is never written
            recountStone(fresh, x, y, s);
        }
    recountLines(fresh);
    // The whole object, unused rows and entries included, must match the recount.
    return std::memcmp(&fresh, &pos, sizeof(Position)) == 0;
}

}  // namespace quintline
