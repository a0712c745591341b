#include "ui/imageCanvas.h"

#include <gtest/gtest.h>

#include "ui/figures.h"

namespace quintline {
namespace {

constexpr Colour background = 0xD4D0C8;
constexpr std::int16_t cell = 533;

QRgb pixel(const ImageCanvas& c, double twipsX, double twipsY) {
    const TwipScale& s = c.scale();
    return c.image().pixel(int(s.toPixels(twipsX)), int(s.toPixels(twipsY))) & 0xFFFFFF;
}

// True when no pixel of the image differs from `colour`.
bool allPixels(const ImageCanvas& c, Colour colour) {
    const QImage& image = c.image();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if ((image.pixel(x, y) & 0xFFFFFF) != colour) return false;
        }
    }
    return true;
}

TEST(ImageCanvas, SizeInPixelsFollowsTheLogicalDpi) {
    EXPECT_EQ(ImageCanvas(TwipScale(96), 8000, 8000, background).image().size(), QSize(533, 533));
    EXPECT_EQ(ImageCanvas(TwipScale(144), 8000, 6000, background).image().size(), QSize(800, 600));
    const ImageCanvas c(TwipScale(96), 8000, 8000, background);
    EXPECT_EQ(c.width(), 8000);  // the canvas reports twips, not pixels
    EXPECT_TRUE(allPixels(c, background));
}

TEST(ImageCanvas, StoneRingAndEraseReachThePixels) {
    ImageCanvas c(TwipScale(96), 8000, 8000, background);
    figures::stoneAndRing(c, cell, {8, 8}, black, white);
    const double cx = 3997.5;
    EXPECT_EQ(pixel(c, cx, cx), blackColour);           // inside the ring: the black fill
    EXPECT_EQ(pixel(c, cx + 133.25, cx), whiteColour);  // on the ring
    EXPECT_EQ(pixel(c, cx + 200, cx), blackColour);     // between ring and edge
    EXPECT_EQ(pixel(c, cx + 330, cx), background);      // outside the stone

    // The erasing disc covers every pixel the stone and its ring coloured.
    figures::eraseStone(c, cell, {8, 8});
    EXPECT_TRUE(allPixels(c, background));

    figures::stoneAndRing(c, cell, {2, 3}, white, black);
    EXPECT_EQ(pixel(c, 1.5 * cell, 2.5 * cell), whiteColour);
    figures::plainStone(c, cell, {2, 3}, white);  // paints the ring over
    EXPECT_EQ(pixel(c, 1.5 * cell + 133.25, 2.5 * cell), whiteColour);
}

TEST(ImageCanvas, GridFramesAndMarkDrawWithThePenOfTheirFigure) {
    ImageCanvas c(TwipScale(96), 8000, 8000, background);
    figures::clearAndGrid(c);
    EXPECT_EQ(pixel(c, 4000, 8000.0 / 15), blackColour);  // first horizontal line
    EXPECT_EQ(pixel(c, 8000.0 / 15, 4000), blackColour);  // first vertical line
    EXPECT_EQ(pixel(c, 3997.5, 3997.5), background);      // a cell's middle stays empty

    // A frame's pen is two pixels wide, the pen after it one pixel again.
    ImageCanvas framed(TwipScale(96), 8000, 8000, background);
    const Point frames[] = {{5, 5}};
    figures::candidateFrames(framed, cell, frames);
    framed.line(0, 6000, 8000, 6000);
    const auto blackRows = [&](double twipsX) {
        int rows = 0;
        const int x = int(framed.scale().toPixels(twipsX));
        for (int y = 0; y < framed.image().height(); ++y) {
            rows += (framed.image().pixel(x, y) & 0xFFFFFF) == blackColour;
        }
        return rows;
    };
    EXPECT_EQ(blackRows(4.5 * cell), 2 + 2 + 1);  // top and bottom edge, then the thin line
    EXPECT_EQ(blackRows(7000), 1);

    figures::stoneAndRing(c, cell, {6, 6}, black, white);
    figures::suggestionMark(c, cell, {6, 6});
    EXPECT_EQ(pixel(c, 5.5 * cell, 5.5 * cell), background);            // filled with it
    EXPECT_EQ(pixel(c, 5.5 * cell + 133.25, 5.5 * cell), blackColour);  // black outline
    EXPECT_EQ(pixel(c, 5.5 * cell + 200, 5.5 * cell), blackColour);     // stone around it

    c.cls();
    EXPECT_TRUE(allPixels(c, background));
}

}  // namespace
}  // namespace quintline
