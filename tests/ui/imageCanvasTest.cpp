#include "ui/imageCanvas.h"

#include <gtest/gtest.h>

#include "ui/figures.h"

namespace quintline {
namespace {

TEST(ImageCanvas, DrawsInPixelsOfItsScaleAndEraseLeavesNoTrace) {
    EXPECT_EQ(ImageCanvas(TwipScale(144), 8000, 6000, 0xD4D0C8).image().size(), QSize(800, 600));
    ImageCanvas c(TwipScale(96), 8000, 8000, 0xD4D0C8);
    const QImage blank = c.image();
    figures::stoneAndRing(c, 533, {8, 8}, black, white);
    EXPECT_NE(c.image(), blank);
    figures::eraseStone(c, 533, {8, 8});
    EXPECT_EQ(c.image(), blank);

    // A frame's pen is two pixels wide, the pen after it one pixel again.
    const Point frames[] = {{5, 5}};
    figures::candidateFrames(c, 533, frames);
    c.line(0, 6000, 8000, 6000);
    int inked = 0;
    for (int y = 0; y < blank.height(); ++y)
        inked += c.image().pixel(int(4.5 * 533 / 15), y) != blank.pixel(0, 0);
    EXPECT_EQ(inked, 2 + 2 + 1);
}

}  // namespace
}  // namespace quintline
