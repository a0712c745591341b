#include "ui/imageCanvas.h"

#include <gtest/gtest.h>

#include "ui/figures.h"

namespace quintline {
namespace {

constexpr Colour background = 0xD4D0C8;
constexpr std::int16_t cell = 533;

// How many pixels of the image, or of its column at twipsX, are `colour`.
int count(const ImageCanvas& c, Colour colour, double twipsX = -1) {
    const QImage& image = c.image();
    int n = 0;
    for (int x = 0; x < image.width(); ++x) {
        if (twipsX >= 0 && x != int(c.scale().toPixels(twipsX))) continue;
        for (int y = 0; y < image.height(); ++y) n += (image.pixel(x, y) & 0xFFFFFF) == colour;
    }
    return n;
}

QRgb pixel(const ImageCanvas& c, double twipsX, double twipsY) {
    const TwipScale& s = c.scale();
    return c.image().pixel(int(s.toPixels(twipsX)), int(s.toPixels(twipsY))) & 0xFFFFFF;
}

TEST(ImageCanvas, FiguresReachThePixelsAndEraseLeavesNoTrace) {
    EXPECT_EQ(ImageCanvas(TwipScale(144), 8000, 6000, background).image().size(), QSize(800, 600));
    ImageCanvas c(TwipScale(96), 8000, 8000, background);
    EXPECT_EQ(c.image().size(), QSize(533, 533));
    EXPECT_EQ(count(c, background), 533 * 533);

    figures::stoneAndRing(c, cell, {8, 8}, black, white);
    const double cx = 3997.5;
    EXPECT_EQ(pixel(c, cx, cx), blackColour);           // inside the ring: the black fill
    EXPECT_EQ(pixel(c, cx + 133.25, cx), whiteColour);  // on the ring
    EXPECT_EQ(pixel(c, cx + 200, cx), blackColour);     // between ring and edge
    EXPECT_EQ(pixel(c, cx + 330, cx), background);      // outside the stone
    figures::eraseStone(c, cell, {8, 8});
    EXPECT_EQ(count(c, background), 533 * 533);

    figures::suggestionMark(c, cell, {6, 6});
    EXPECT_EQ(pixel(c, 5.5 * cell, 5.5 * cell), background);            // filled with it
    EXPECT_EQ(pixel(c, 5.5 * cell + 133.25, 5.5 * cell), blackColour);  // black outline

    // A frame's pen is two pixels wide, the pen after it one pixel again.
    c.cls();
    const Point frames[] = {{5, 5}};
    figures::candidateFrames(c, cell, frames);
    c.line(0, 6000, 8000, 6000);
    EXPECT_EQ(count(c, blackColour, 4.5 * cell), 2 + 2 + 1);
    EXPECT_EQ(count(c, blackColour, 7000), 1);
}

}  // namespace
}  // namespace quintline
