#include "ui/figures.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace quintline {
namespace {

// One primitive call as text: its name, then its arguments (colours in hex).
std::string call(const char* op, std::initializer_list<double> args, long colour = -1) {
    std::ostringstream out;
    out << op << std::setprecision(10);
    for (const double a : args) out << ' ' << a;
    if (colour >= 0) out << ' ' << std::hex << std::uppercase << colour;
    return out.str();
}

class RecordingCanvas : public Canvas {
  public:
    RecordingCanvas(double width = 8000, double height = 8000) : width_(width), height_(height) {}
    std::vector<std::string> calls;
    std::vector<std::string> take() { return std::exchange(calls, {}); }

    double width() const override { return width_; }
    double height() const override { return height_; }
    Colour backColor() const override { return 0xECE9D8; }
    void setForeColor(Colour c) override { calls.push_back(call("fore", {}, c)); }
    void setFillColor(Colour c) override { calls.push_back(call("fill", {}, c)); }
    void setFillStyle(FillStyle s) override { calls.push_back(call("style", {double(s)})); }
    void setDrawWidth(int w) override { calls.push_back(call("width", {double(w)})); }
    void cls() override { calls.push_back("cls"); }
    void line(double x1, double y1, double x2, double y2) override {
        calls.push_back(call("line", {x1, y1, x2, y2}));
    }
    void circle(double x, double y, double r) override {
        calls.push_back(call("circle", {x, y, r}));
    }
    void circle(double x, double y, double r, Colour outline) override {
        calls.push_back(call("circle", {x, y, r}, outline));
    }

  private:
    double width_, height_;
};

constexpr std::int16_t cell = 533;

using Calls = std::vector<std::string>;

TEST(BoardFigures, EachFigureMakesItsPrimitiveCalls) {
    using namespace figures;
    RecordingCanvas c;
    // Fill styles: 0 solid, 1 transparent.
    stoneAndRing(c, cell, {8, 8}, black, white);  // the session's first stone
    EXPECT_EQ(c.take(), (Calls{"fill 0", "style 0", "circle 3997.5 3997.5 266.5", "style 1",
                               "circle 3997.5 3997.5 133.25 FFFFFF", "style 0"}));
    stoneAndRing(c, cell, {1, 15}, white, black);
    EXPECT_EQ(c.take(), (Calls{"fill FFFFFF", "style 0", "circle 266.5 7728.5 266.5", "style 1",
                               "circle 266.5 7728.5 133.25 0", "style 0"}));
    stoneAndRing(c, cell, {3, 4}, black, black);  // the user's own colour: no ring
    EXPECT_EQ(c.take(), (Calls{"fill 0", "style 0", "circle 1332.5 1865.5 266.5"}));
    stoneAndRing(c, cell, {2, 2}, 0, white);  // no side: the fill stays as it was
    EXPECT_EQ(c.take(), (Calls{"style 0", "circle 799.5 799.5 266.5"}));
    plainStone(c, cell, {9, 8}, white);
    EXPECT_EQ(c.take(), (Calls{"fill FFFFFF", "style 0", "circle 4530.5 3997.5 266.5"}));
    eraseStone(c, cell, {8, 8});
    EXPECT_EQ(c.take(), (Calls{"fore ECE9D8", "fill ECE9D8", "style 0",
                               "circle 3997.5 3997.5 266.5", "fore 0"}));
    suggestionMark(c, cell, {7, 9});
    EXPECT_EQ(c.take(), (Calls{"fill ECE9D8", "style 0", "circle 3464.5 4530.5 133.25"}));
    const Point frames[] = {{1, 1}, {15, 2}};
    candidateFrames(c, cell, frames);
    EXPECT_EQ(c.take(),
              (Calls{"width 2", "line 0 0 533 0", "line 533 0 533 533", "line 533 533 0 533",
                     "line 0 533 0 0", "line 7462 533 7995 533", "line 7995 533 7995 1066",
                     "line 7995 1066 7462 1066", "line 7462 1066 7462 533", "width 1"}));
    candidateFrames(c, cell, {});
    EXPECT_EQ(c.take(), (Calls{"width 2", "width 1"}));
}

TEST(BoardFigures, GridIsFourteenUnroundedLinesEachWay) {
    RecordingCanvas c;
    figures::clearAndGrid(c);
    ASSERT_EQ(c.calls.size(), 29u);
    EXPECT_EQ(c.calls[0], "cls");
    for (int i = 1; i <= 14; ++i) {
        const double at = i * 8000.0 / 15;  // 533.33 apart, drifting from the cells
        EXPECT_EQ(c.calls[2 * i - 1], call("line", {0, at, 8000, at}));
        EXPECT_EQ(c.calls[2 * i], call("line", {at, 0, at, 8000}));
    }
    // Horizontal lines run to the height and are spaced by the width.
    RecordingCanvas wide(1500, 900);
    figures::clearAndGrid(wide);
    EXPECT_EQ(wide.calls[1], "line 0 100 900 100");
    EXPECT_EQ(wide.calls[2], "line 60 0 60 1500");
}

}  // namespace
}  // namespace quintline
