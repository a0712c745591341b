#include "ui/figures.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace quintline {
namespace {

// One primitive call on the canvas: its name and its arguments in order
// (colours and styles as numbers).
struct Call {
    std::string op;
    std::vector<double> args;
    friend bool operator==(const Call&, const Call&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Call& call) {
        out << call.op << "(";
        for (std::size_t i = 0; i < call.args.size(); ++i) out << (i ? ", " : "") << call.args[i];
        return out << ")";
    }
};

class RecordingCanvas : public Canvas {
  public:
    RecordingCanvas(double width, double height) : width_(width), height_(height) {}

    std::vector<Call> calls;
    static constexpr Colour background = 0xECE9D8;

    double width() const override { return width_; }
    double height() const override { return height_; }
    Colour backColor() const override { return background; }
    void setForeColor(Colour c) override { calls.push_back({"fore", {double(c)}}); }
    void setFillColor(Colour c) override { calls.push_back({"fill", {double(c)}}); }
    void setFillStyle(FillStyle s) override { calls.push_back({"style", {double(s)}}); }
    void setDrawWidth(int w) override { calls.push_back({"width", {double(w)}}); }
    void cls() override { calls.push_back({"cls", {}}); }
    void line(double x1, double y1, double x2, double y2) override {
        calls.push_back({"line", {x1, y1, x2, y2}});
    }
    void circle(double x, double y, double r) override { calls.push_back({"circle", {x, y, r}}); }
    void circle(double x, double y, double r, Colour outline) override {
        calls.push_back({"circle", {x, y, r, double(outline)}});
    }

  private:
    double width_;
    double height_;
};

constexpr std::int16_t cell = 533;
constexpr double solid = 0;
constexpr double transparent = 1;
constexpr double blackC = 0x000000;
constexpr double whiteC = 0xFFFFFF;
constexpr double back = RecordingCanvas::background;

TEST(BoardFigures, StoneCarriesARingOnlyWhenItsColourIsNotTheUsers) {
    RecordingCanvas c(8000, 8000);
    // The session's first stone: black at the centre while the user plays white.
    figures::stoneAndRing(c, cell, {8, 8}, black, white);
    EXPECT_EQ(c.calls, (std::vector<Call>{{"fill", {blackC}},
                                          {"style", {solid}},
                                          {"circle", {3997.5, 3997.5, 266.5}},
                                          {"style", {transparent}},
                                          {"circle", {3997.5, 3997.5, 133.25, whiteC}},
                                          {"style", {solid}}}));

    c.calls.clear();
    figures::stoneAndRing(c, cell, {1, 15}, white, black);
    EXPECT_EQ(c.calls, (std::vector<Call>{{"fill", {whiteC}},
                                          {"style", {solid}},
                                          {"circle", {266.5, 7728.5, 266.5}},
                                          {"style", {transparent}},
                                          {"circle", {266.5, 7728.5, 133.25, blackC}},
                                          {"style", {solid}}}));

    // The user's own colour, as in a game of two users: no ring.
    for (const Side colour : {black, white}) {
        c.calls.clear();
        figures::stoneAndRing(c, cell, {3, 4}, colour, colour);
        ASSERT_EQ(c.calls.size(), 3u);
        EXPECT_EQ(c.calls[2], (Call{"circle", {1332.5, 1865.5, 266.5}}));
    }

    // A colour that is no side keeps the fill colour and gets no ring.
    c.calls.clear();
    figures::stoneAndRing(c, cell, {2, 2}, 0, white);
    EXPECT_EQ(c.calls, (std::vector<Call>{{"style", {solid}}, {"circle", {799.5, 799.5, 266.5}}}));
}

TEST(BoardFigures, PlainStoneAndEraseCoverTheWholeStone) {
    RecordingCanvas c(8000, 8000);
    figures::plainStone(c, cell, {8, 8}, black);
    figures::plainStone(c, cell, {9, 8}, white);
    figures::plainStone(c, cell, {10, 8}, 0);
    EXPECT_EQ(c.calls, (std::vector<Call>{{"fill", {blackC}},
                                          {"style", {solid}},
                                          {"circle", {3997.5, 3997.5, 266.5}},
                                          {"fill", {whiteC}},
                                          {"style", {solid}},
                                          {"circle", {4530.5, 3997.5, 266.5}},
                                          {"style", {solid}},
                                          {"circle", {5063.5, 3997.5, 266.5}}}));

    c.calls.clear();
    figures::eraseStone(c, cell, {8, 8});
    // The disc is outlined in the background too, and the pen is black again after.
    EXPECT_EQ(c.calls, (std::vector<Call>{{"fore", {back}},
                                          {"fill", {back}},
                                          {"style", {solid}},
                                          {"circle", {3997.5, 3997.5, 266.5}},
                                          {"fore", {blackC}}}));
}

TEST(BoardFigures, ClearAndGridDrawsFourteenUnroundedLinesEachWay) {
    RecordingCanvas c(8000, 8000);
    figures::clearAndGrid(c);
    ASSERT_EQ(c.calls.size(), 1u + 28u);
    EXPECT_EQ(c.calls[0].op, "cls");
    for (int i = 1; i <= 14; ++i) {
        const double at = i * 8000.0 / 15;  // no rounding: 533.33 apart
        EXPECT_EQ(c.calls[2 * i - 1], (Call{"line", {0, at, 8000, at}})) << i;
        EXPECT_EQ(c.calls[2 * i], (Call{"line", {at, 0, at, 8000}})) << i;
    }
    EXPECT_NEAR(c.calls[28].args[0] - 14 * cell, 4.67, 0.01);  // the drift against the cells

    // The horizontal lines run to the height and are spaced by the width; on a
    // canvas that is not square the difference shows.
    RecordingCanvas wide(1500, 900);
    figures::clearAndGrid(wide);
    EXPECT_EQ(wide.calls[1], (Call{"line", {0, 100, 900, 100}}));
    EXPECT_EQ(wide.calls[2], (Call{"line", {60, 0, 60, 1500}}));
}

TEST(BoardFigures, CandidateFramesGoRoundEachCellInDrawingOrderWithAWidePen) {
    RecordingCanvas c(8000, 8000);
    const Point candidates[] = {{1, 1}, {15, 2}};
    figures::candidateFrames(c, cell, candidates);
    EXPECT_EQ(c.calls, (std::vector<Call>{{"width", {2}},
                                          {"line", {0, 0, 533, 0}},
                                          {"line", {533, 0, 533, 533}},
                                          {"line", {533, 533, 0, 533}},
                                          {"line", {0, 533, 0, 0}},
                                          {"line", {7462, 533, 7995, 533}},
                                          {"line", {7995, 533, 7995, 1066}},
                                          {"line", {7995, 1066, 7462, 1066}},
                                          {"line", {7462, 1066, 7462, 533}},
                                          {"width", {1}}}));

    c.calls.clear();
    figures::candidateFrames(c, cell, {});
    EXPECT_EQ(c.calls, (std::vector<Call>{{"width", {2}}, {"width", {1}}}));
}

TEST(BoardFigures, SuggestionMarkIsASmallCircleFilledWithTheBackground) {
    RecordingCanvas c(8000, 8000);
    figures::suggestionMark(c, cell, {7, 9});
    EXPECT_EQ(c.calls,
              (std::vector<Call>{
                  {"fill", {back}}, {"style", {solid}}, {"circle", {3464.5, 4530.5, 133.25}}}));
}

}  // namespace
}  // namespace quintline
