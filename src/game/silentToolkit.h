#pragma once
// A toolkit for games nobody watches (batch runs): it draws nothing, writes no
// control, answers every message box with OK and reports the design values.
// An optional hook receives the text of each message box.

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "game/designValues.h"
#include "game/toolkit.h"

namespace quintline {

class SilentToolkit final : public Toolkit {
  public:
    using MessageHook = std::function<void(std::string_view text)>;

    SilentToolkit() = default;
    explicit SilentToolkit(MessageHook onMessage) : onMessage_(std::move(onMessage)) {}

    void setCaption(Control, std::string_view) override {}
    void setEnabled(Control, bool) override {}
    void clearList(Control) override {}
    void repaint() override {}
    MessageAnswer messageBox(std::string_view text, MessageButtons) override {
        if (onMessage_) onMessage_(text);
        return MessageAnswer::ok;
    }

    void drawClearAndGrid() override {}
    void drawStoneAndRing(Point, Side, Side) override {}
    void drawPlainStone(Point, Side) override {}
    void eraseStone(Point) override {}
    void drawCandidateFrames(std::span<const Point>) override {}
    void drawSuggestionMark(Point) override {}

    std::string designCaption() override { return std::string(design::mainCaption); }
    double boardWidth() override { return design::boardWidth; }
    std::string depthBoxText(int) override { return std::string(design::depthBoxText); }

  private:
    MessageHook onMessage_;
};

}  // namespace quintline
