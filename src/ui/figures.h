#pragma once
// The figures of the board picture, drawn once each at the moment the game
// changes; nothing repaints the board from the model. Each leaves the canvas's
// drawing state as the next figure expects it.

#include <cstdint>
#include <span>

#include "position/types.h"
#include "ui/canvas.h"

namespace quintline::figures {

// Centre of the cell of a board point, in twips.
struct CellCentre {
    double x;
    double y;
};
CellCentre cellCentre(Point point, std::int16_t cellSize);

// Clears the canvas and draws the 14 inner grid lines each way.
void clearAndGrid(Canvas& canvas);

// A stone of `colour` and, on a stone of the colour opposite to `userColour`,
// a thin ring of the other colour. A colour that is no side gets the disc in the
// fill colour as it stood and no ring.
void stoneAndRing(Canvas& canvas, std::int16_t cellSize, Point point, Side colour, Side userColour);

// A disc over the stone at `point` without a ring; a colour that is no side
// keeps the fill colour the canvas has.
void plainStone(Canvas& canvas, std::int16_t cellSize, Point point, Side colour);

// Covers the stone at `point` and its ring with the background colour.
void eraseStone(Canvas& canvas, std::int16_t cellSize, Point point);

// Frames the cells of the candidate points with a pen two pixels wide.
void candidateFrames(Canvas& canvas, std::int16_t cellSize, std::span<const Point> candidates);

// A small empty-looking circle at the suggested point.
void suggestionMark(Canvas& canvas, std::int16_t cellSize, Point point);

}  // namespace quintline::figures
