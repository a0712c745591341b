// Each board figure as the canvas calls it makes, against golden/figures.txt.

#include "ui/figures.h"

#include <functional>
#include <sstream>

#include "support/golden.h"

namespace quintline {
namespace {

// Writes each call as its name and arguments, colours in hex.
class RecordingCanvas : public Canvas {
  public:
    RecordingCanvas(double width, double height) : width_(width), height_(height) {
        calls.precision(10);
    }
    std::ostringstream calls;

    double width() const override { return width_; }
    double height() const override { return height_; }
    Colour backColor() const override { return 0xECE9D8; }
    void setForeColor(Colour c) override { calls << std::hex << " fore " << c << std::dec << ','; }
    void setFillColor(Colour c) override { calls << std::hex << " fill " << c << std::dec << ','; }
    void setFillStyle(FillStyle s) override { calls << " style " << int(s) << ','; }
    void setDrawWidth(int w) override { calls << " width " << w << ','; }
    void cls() override { calls << " cls,"; }
    void line(double x1, double y1, double x2, double y2) override {
        calls << " line " << x1 << ' ' << y1 << ' ' << x2 << ' ' << y2 << ',';
    }
    void circle(double x, double y, double r) override {
        calls << " circle " << x << ' ' << y << ' ' << r << ',';
    }
    void circle(double x, double y, double r, Colour c) override {
        calls << " circle " << x << ' ' << y << ' ' << r << std::hex << ' ' << c << std::dec << ',';
    }

  private:
    double width_, height_;
};

TEST(BoardFigures, EachFigureMakesItsCanvasCalls) {
    using namespace figures;
    const Point frames[] = {{1, 1}, {15, 2}};
    const std::pair<const char*, std::function<void(Canvas&)>> figures[] = {
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
        {"erase",
         [](Canvas& c) {
             eraseStone(c, 533, {8, 8});
         }},
        {"suggestion",
         [](Canvas& c) {
             suggestionMark(c, 533, {7, 9});
         }},
        {"frames", [&](Canvas& c) { candidateFrames(c, 533, frames); }},
        {"no frames", [](Canvas& c) { candidateFrames(c, 533, {}); }},
        {"grid", [](Canvas& c) { clearAndGrid(c); }},
    };
    std::ostringstream transcript;
    for (const auto& [name, draw] : figures) {
        RecordingCanvas canvas(8000, name == std::string("grid") ? 4000 : 8000);
        draw(canvas);
        transcript << name << ':' << canvas.calls.str() << '\n';
    }
    testing::expectGolden("figures", transcript.str());
}

}  // namespace
}  // namespace quintline
