#include "position/basicOpr.h"

namespace quintline {

namespace {

// The eight neighbours, in the order the counts are updated: for d = -1 then
// d = 1, (x + d, y), (x, y + d), (x + d, y + d), (x + d, y - d).
void addToNeighbours(Position& pos, int x, int y, int delta) {
    for (int d = -1; d <= 1; d += 2) {
        pos.nearCount[x + d][y] += delta;
        pos.nearCount[x][y + d] += delta;
        pos.nearCount[x + d][y + d] += delta;
        pos.nearCount[x + d][y - d] += delta;
    }
}

}  // namespace

void Position::clear() {
    *this = Position{};
}

void placeStone(Position& pos, std::int16_t x, std::int16_t y, Side side) {
    pos.board[x][y] = side;
    std::int16_t* own = pos.lineStones[sideRow(side)];
    std::int16_t* other = pos.lineStones[1 - side];
    std::int16_t* ownCensus = pos.lineCensus[sideRow(side)];
    std::int16_t* otherCensus = pos.lineCensus[1 - side];
    const PointLines& lines = pointLines();
    const int count = lines.count(x, y);
    for (int n = 1; n <= count; ++n) {
        const int id = lines.id(x, y, n);
        if (other[id] == 0) {
            if (own[id] > 0) --ownCensus[own[id]];
            ++ownCensus[own[id] + 1];
        } else if (own[id] == 0) {
            --otherCensus[other[id]];
        }
        ++own[id];
    }
    addToNeighbours(pos, x, y, 1);
}

void removeStone(Position& pos, std::int16_t x, std::int16_t y, Side side) {
    pos.board[x][y] = empty;
    std::int16_t* own = pos.lineStones[sideRow(side)];
    std::int16_t* other = pos.lineStones[1 - side];
    std::int16_t* ownCensus = pos.lineCensus[sideRow(side)];
    std::int16_t* otherCensus = pos.lineCensus[1 - side];
    const PointLines& lines = pointLines();
    const int count = lines.count(x, y);
    for (int n = 1; n <= count; ++n) {
        const int id = lines.id(x, y, n);
        if (other[id] == 0) {
            --ownCensus[own[id]];
            if (own[id] - 1 > 0) ++ownCensus[own[id] - 1];
        } else if (own[id] == 1) {
            ++otherCensus[other[id]];
        }
        --own[id];
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

bool censusOk(const Position& pos) {
    Position fresh;
    for (int x = 1; x <= boardSize; ++x)
        for (int y = 1; y <= boardSize; ++y) {
            const Side s = pos.board[x][y];
            if (s == empty) continue;
            if (s != black && s != white) return false;
            for (int d = -1; d <= 1; ++d)
                for (int e = -1; e <= 1; ++e)
                    if (d != 0 || e != 0) ++fresh.nearCount[x + d][y + e];
            for (int n = 1; n <= pointLines().count(x, y); ++n)
                ++fresh.lineStones[sideRow(s)][pointLines().id(x, y, n)];
        }
    for (int id = 1; id <= lineCount; ++id) {
        const int b = fresh.lineStones[2][id];
        const int w = fresh.lineStones[0][id];
        if (b > 0 && w == 0) ++fresh.lineCensus[2][b];
        if (w > 0 && b == 0) ++fresh.lineCensus[0][w];
    }
    for (int x = 0; x <= boardSize + 1; ++x)
        for (int y = 0; y <= boardSize + 1; ++y)
            if (fresh.nearCount[x][y] != pos.nearCount[x][y]) return false;
    for (int r = 0; r <= 2; r += 2) {
        for (int id = 1; id <= lineCount; ++id)
            if (fresh.lineStones[r][id] != pos.lineStones[r][id]) return false;
        for (int k = 1; k <= lineLength; ++k)
            if (fresh.lineCensus[r][k] != pos.lineCensus[r][k]) return false;
    }
    return true;
}

}  // namespace quintline
