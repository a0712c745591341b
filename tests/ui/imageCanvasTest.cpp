// Each board figure as it lands in the retained image, against golden/figures.txt:
// the pixels it changed (their bounds, then how many turned black, white or
// another colour) on a fresh 8000-twip canvas at 96 dots per inch.

#include "ui/imageCanvas.h"

#include <QString>

#include "support/golden.h"
#include "ui/figures.h"

namespace quintline {
namespace {

TEST(BoardFigures, DrawIntoTheImageAtItsScale) {
    EXPECT_EQ(ImageCanvas(TwipScale(144), 8000, 6000, 0xD4D0C8).image().size(), QSize(800, 600));
    using namespace figures;
    const struct {
        const char* name;
        char figure;  // Ring and stone, Plain, Erased, Suggestion, Frames, grid
        Point at;
        Side colour, user;
    } drawings[] = {
        {"first stone", 'R', {8, 8}, black, white}, {"white, ringed", 'R', {1, 15}, white, black},
        {"user's own", 'R', {3, 4}, black, black},  {"no side", 'R', {2, 2}, 0, white},
        {"plain", 'P', {9, 8}, white, 0},           {"erased", 'E', {8, 8}, white, 0},
        {"suggestion", 'S', {7, 9}, 0, 0},          {"frames, then a line", 'F', {15, 2}, 0, 0},
        {"no frames, a line", 'F', {0, 0}, 0, 0},   {"grid, 4000 high", 'G', {}, 0, 0},
    };
    QString drawn;
    for (const auto& d : drawings) {
        ImageCanvas c(TwipScale(96), 8000, d.figure == 'G' ? 4000 : 8000, 0xD4D0C8);
        const QImage blank = c.image();
        const Point frames[] = {{1, 1}, d.at};
        if (d.figure == 'R') stoneAndRing(c, 533, d.at, d.colour, d.user);
        if (d.figure == 'P' || d.figure == 'E') plainStone(c, 533, d.at, d.colour);
        if (d.figure == 'E') eraseStone(c, 533, d.at);
        if (d.figure == 'S') suggestionMark(c, 533, d.at);
        if (d.figure == 'F') candidateFrames(c, 533, std::span(frames, d.at.x ? 2 : 0));
        if (d.figure == 'F') c.line(0, 6000, 8000, 6000);  // in the pen's width again
        if (d.figure == 'G') clearAndGrid(c);
        QRect changed;
        int counts[3] = {};  // black, white, other
        for (int y = 0; y < blank.height(); ++y)
            for (int x = 0; x < blank.width(); ++x)
                if (const QRgb p = c.image().pixel(x, y); p != blank.pixel(x, y)) {
                    changed |= QRect(x, y, 1, 1);
                    ++counts[p == 0xFF000000 ? 0 : p == 0xFFFFFFFF ? 1 : 2];
                }
        drawn += QString::asprintf("%s: %d %d %d %d black %d white %d other %d\n", d.name,
                                   changed.left(), changed.top(), changed.right(), changed.bottom(),
                                   counts[0], counts[1], counts[2]);
    }
    testing::expectGolden("figures", drawn.toStdString());
}

}  // namespace
}  // namespace quintline
