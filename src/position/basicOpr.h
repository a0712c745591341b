#pragma once
// The position model: the board and the counts held over the 572 lines, the
// only operations that change them, and the game-end test.

#include <cstdint>
#include <type_traits>

#include "position/lineTable.h"
#include "position/types.h"

namespace quintline {

// Row of lineStones / lineCensus for a side: black 2, white 0 (row 1 unused).
constexpr int sideRow(Side side) {
    return side + 1;
}

struct Position {
    // board[x][y]: 1 black, -1 white, 0 empty; subscript 0 is never written.
    std::int16_t board[boardSize + 1][boardSize + 1] = {};
    // Stones on the eight neighbours; rim rows 0 and 16 absorb edge updates.
    std::int16_t nearCount[boardSize + 2][boardSize + 2] = {};
    // lineStones[row][id]: stones of that side on line id (ids 1..572).
    std::int16_t lineStones[3][lineCount + 1] = {};
    // lineCensus[row][k]: lines holding exactly k stones of that side and none
    // of the other, k from 1 to 5.
    std::int16_t lineCensus[3][16] = {};
    // occupied[x] has bit y set when (x, y) holds a stone; columns 0 and 16 stay
    // 0. Lets the searches find the points beside a stone a column at a time.
    std::uint16_t occupied[boardSize + 2] = {};
    // lineCode[id] = 8 * black stones + white stones on line id: both counts of
    // a line in one read, for scoring a leaf without placing its stone.
    std::int16_t lineCode[lineCount + 1] = {};

    bool isCandidate(int x, int y) const { return nearCount[x][y] >= 1 && board[x][y] == empty; }
    std::int16_t census(Side side, int k) const { return lineCensus[sideRow(side)][k]; }

    // Clears the board, neighbour counts, line counts and census, as a new game does.
    void clear();
};

// Tables are compared byte for byte (censusOk, tests): no padding inside.
static_assert(std::has_unique_object_representations_v<Position>);

// Puts a stone of `side` on the empty point (x, y) and updates every count.
void placeStone(Position& pos, std::int16_t x, std::int16_t y, Side side);
// Takes the stone of `side` off (x, y); undoes placeStone exactly.
void removeStone(Position& pos, std::int16_t x, std::int16_t y, Side side);

// Puts a stone in for the lifetime of the guard and takes it out again on
// every exit path.
class TrialStone {
  public:
    TrialStone(Position& pos, std::int16_t x, std::int16_t y, Side side)
        : pos_(pos), x_(x), y_(y), side_(side) {
        placeStone(pos_, x_, y_, side_);
    }
    ~TrialStone() { removeStone(pos_, x_, y_, side_); }
    TrialStone(const TrialStone&) = delete;
    TrialStone& operator=(const TrialStone&) = delete;

  private:
    Position& pos_;
    std::int16_t x_, y_;
    Side side_;
};

// Judges the stone of `side` just committed at (x, y), with stepNum counting it:
// 1 or -1 when that side has five, 0 for a draw, 2 when the game goes on.
GameCode gameEndTest(const Position& pos, std::int16_t stepNum, std::int16_t x, std::int16_t y,
                     Side side);

// The colour of move number n: 1 for odd n, -1 for even n.
constexpr Side sideToMove(std::int16_t n) {
    return (n / 2) * 2 == n ? white : black;
}

// Recomputes every count and the occupied columns from the board and compares,
// including the entries nothing may touch; for debug assertions and tests.
bool censusOk(const Position& pos);

}  // namespace quintline
