#pragma once
// A toolkit for tests: it records every request the game makes as one line of
// text, the request's name and then its values ("stone 8,8 1 -1"), answers
// message boxes from a queue and supplies the design values start-up reads.

#include <sstream>
#include <string>
#include <vector>

#include "game/designValues.h"
#include "game/toolkit.h"

namespace quintline::testing {

class RecordingToolkit final : public Toolkit {
  public:
    std::vector<std::string> lines;
    int cancels = 0;  // the coming message boxes answered Cancel; the rest OK
    double width = design::boardWidth;
    std::string depthTexts[2] = {std::string(design::depthBoxText),
                                 std::string(design::depthBoxText)};

    void setCaption(Control control, std::string_view text) override {
        add("caption ", control, " ", text);
    }
    void setEnabled(Control control, bool on) override {
        add("enabled ", control, on ? " on" : " off");
    }
    void clearList(Control list) override { add("clear ", list); }
    void repaint() override { add("repaint"); }
    MessageAnswer messageBox(std::string_view text, MessageButtons buttons) override {
        add(buttons == MessageButtons::ok ? "message " : "ask ", text);
        if (cancels == 0) return MessageAnswer::ok;
        --cancels;
        return MessageAnswer::cancel;
    }
    void drawClearAndGrid() override { add("grid"); }
    void drawStoneAndRing(Point p, Side colour, Side user) override {
        add("stone ", p, " ", colour, " ", user);
    }
    void drawPlainStone(Point p, Side colour) override { add("plain ", p, " ", colour); }
    void eraseStone(Point p) override { add("erase ", p); }
    void drawCandidateFrames(std::span<const Point> points) override {
        if (points.empty()) return add("frames 0");
        add("frames ", points.size(), " ", points.front(), "..", points.back());
    }
    void drawSuggestionMark(Point p) override { add("mark ", p); }

    std::string designCaption() override { return std::string(design::mainCaption); }
    double boardWidth() override { return width; }
    std::string depthBoxText(int index) override { return depthTexts[index]; }

    // One line of the parts; the runner records its own events this way too.
    void add(const auto&... parts) {
        std::ostringstream out;
        (put(out, parts), ...);
        lines.push_back(out.str());
    }

  private:
    static void put(std::ostream& out, const auto& part) { out << part; }
    static void put(std::ostream& out, Control control) { out << controlName(control); }
    static void put(std::ostream& out, Point p) { out << p.x << ',' << p.y; }
};

}  // namespace quintline::testing
