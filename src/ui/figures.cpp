#include "ui/figures.h"

namespace quintline::figures {

CellCentre cellCentre(Point point, std::int16_t cellSize) {
    return {(point.x - 0.5) * cellSize, (point.y - 0.5) * cellSize};
}

namespace {

double stoneRadius(std::int16_t cellSize) {
    return cellSize / 2.0;
}

double ringRadius(std::int16_t cellSize) {
    return cellSize / 4.0;
}

}  // namespace

void clearAndGrid(Canvas& canvas) {
    canvas.cls();
    for (int i = 1; i < boardSize; ++i) {
        // The size is read again for every line pair, and the horizontal line runs
        // to the height: on the square canvas the two are the same number.
        const double w = canvas.width();
        const double h = canvas.height();
        canvas.line(0, i * w / boardSize, h, i * w / boardSize);
        canvas.line(i * h / boardSize, 0, i * h / boardSize, w);
    }
}

void stoneAndRing(Canvas& canvas, std::int16_t cellSize, Point point, Side colour,
                  Side userColour) {
    if (colour == black) canvas.setFillColor(blackColour);
    if (colour == white) canvas.setFillColor(whiteColour);
    canvas.setFillStyle(FillStyle::solid);
    const CellCentre c = cellCentre(point, cellSize);
    canvas.circle(c.x, c.y, stoneRadius(cellSize));
    if (colour == black && userColour == white) {
        canvas.setFillStyle(FillStyle::transparent);
        canvas.circle(c.x, c.y, ringRadius(cellSize), whiteColour);
        canvas.setFillStyle(FillStyle::solid);
    }
    if (colour == white && userColour == black) {
        canvas.setFillStyle(FillStyle::transparent);
        canvas.circle(c.x, c.y, ringRadius(cellSize), blackColour);
        canvas.setFillStyle(FillStyle::solid);
    }
}

void plainStone(Canvas& canvas, std::int16_t cellSize, Point point, Side colour) {
    if (colour == black) canvas.setFillColor(blackColour);
    if (colour == white) canvas.setFillColor(whiteColour);
    canvas.setFillStyle(FillStyle::solid);
    const CellCentre c = cellCentre(point, cellSize);
    canvas.circle(c.x, c.y, stoneRadius(cellSize));
}

void eraseStone(Canvas& canvas, std::int16_t cellSize, Point point) {
    const Colour background = canvas.backColor();
    canvas.setForeColor(background);
    canvas.setFillColor(background);
    canvas.setFillStyle(FillStyle::solid);
    const CellCentre c = cellCentre(point, cellSize);
    canvas.circle(c.x, c.y, stoneRadius(cellSize));
    canvas.setForeColor(blackColour);
}

void candidateFrames(Canvas& canvas, std::int16_t cellSize, std::span<const Point> candidates) {
    canvas.setDrawWidth(2);
    for (const Point p : candidates) {
        const double left = (p.x - 1) * cellSize;
        const double top = (p.y - 1) * cellSize;
        const double right = left + cellSize;
        const double bottom = top + cellSize;
        canvas.line(left, top, right, top);
        canvas.line(right, top, right, bottom);
        canvas.line(right, bottom, left, bottom);
        canvas.line(left, bottom, left, top);
    }
    canvas.setDrawWidth(1);
}

void suggestionMark(Canvas& canvas, std::int16_t cellSize, Point point) {
    canvas.setFillColor(canvas.backColor());
    canvas.setFillStyle(FillStyle::solid);
    const CellCentre c = cellCentre(point, cellSize);
    canvas.circle(c.x, c.y, ringRadius(cellSize));
}

}  // namespace quintline::figures
