// Each board figure as it lands in the retained image, against golden/figures.txt:
// the pixels it changed (their bounds, then how many turned black, white or
// another colour), drawn on a fresh 8000-twip canvas at 96 dots per inch.

#include "ui/imageCanvas.h"

#include <functional>

#include "support/golden.h"
#include "ui/figures.h"

namespace quintline {
namespace {

TEST(BoardFigures, DrawIntoTheImageAtItsScale) {
    EXPECT_EQ(ImageCanvas(TwipScale(144), 8000, 6000, 0xD4D0C8).image().size(), QSize(800, 600));
    using namespace figures;
    const Point frames[] = {{1, 1}, {15, 2}};
    const std::pair<const char*, std::function<void(Canvas&)>> drawings[] = {
        {"first stone",
         [](Canvas& c) {
             stoneAndRing(c, 533, {8, 8}, black, white);
         }},
        {"white, ringed",
         [](Canvas& c) {
             stoneAndRing(c, 533, {1, 15}, white, black);
         }},
        {"user's own",
         [](Canvas& c) {
             stoneAndRing(c, 533, {3, 4}, black, black);
         }},
        {"no side",
         [](Canvas& c) {
             stoneAndRing(c, 533, {2, 2}, 0, white);
         }},
        {"plain",
         [](Canvas& c) {
             plainStone(c, 533, {9, 8}, white);
         }},
        {"erased",
         [](Canvas& c) {
             plainStone(c, 533, {8, 8}, white), eraseStone(c, 533, {8, 8});
         }},
        {"suggestion",
         [](Canvas& c) {
             suggestionMark(c, 533, {7, 9});
         }},
        {"frames, line",
         [&](Canvas& c) { candidateFrames(c, 533, frames), c.line(0, 6000, 8000, 6000); }},
        {"no frames, line",
         [](Canvas& c) { candidateFrames(c, 533, {}), c.line(0, 6000, 8000, 6000); }},
        {"grid, 4000 high", [](Canvas& c) { clearAndGrid(c); }},
    };
    std::string drawn;
    for (const auto& [name, draw] : drawings) {
        ImageCanvas canvas(TwipScale(96), 8000, name[0] == 'g' ? 4000 : 8000, 0xD4D0C8);
        const QImage blank = canvas.image();
        draw(canvas);
        QRect changed;
        int counts[3] = {};
        for (int y = 0; y < blank.height(); ++y) {
            for (int x = 0; x < blank.width(); ++x) {
                const QRgb c = canvas.image().pixel(x, y);
                if (c == blank.pixel(x, y)) continue;
                changed |= QRect(x, y, 1, 1);
                ++counts[c == 0xFF000000 ? 0 : c == 0xFFFFFFFF ? 1 : 2];
            }
        }
        drawn += std::string(name) + ": " + std::to_string(changed.left()) + ' ' +
                 std::to_string(changed.top()) + ' ' + std::to_string(changed.right()) + ' ' +
                 std::to_string(changed.bottom()) + " black " + std::to_string(counts[0]) +
                 " white " + std::to_string(counts[1]) + " other " + std::to_string(counts[2]) +
                 '\n';
    }
    testing::expectGolden("figures", drawn);
}

}  // namespace
}  // namespace quintline
