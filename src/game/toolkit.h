#pragma once
// Everything game logic asks of the windows. The Qt main window implements it;
// tests use a recording fake and the batch runner a silent one. Logic hands the
// windows plain values and never reads game state back from a control.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "position/types.h"

namespace quintline {

// Controls the logic writes to, by their names in the window design.
enum class Control {
    mainForm,  // the main window's caption
    Command1,
    cmdBack,
    cmdForw,
    whoRun,
    winLab,
    Label1,
    stepNumLab,
    checkPos,
    blackSideLabel,
    whiteSideLabel,
    List2,
    List3,
};

std::string_view controlName(Control control);

enum class MessageButtons { ok, okCancel };
enum class MessageAnswer { ok, cancel };

class Toolkit {
  public:
    virtual ~Toolkit() = default;

    // Controls.
    virtual void setCaption(Control control, std::string_view text) = 0;
    virtual void setEnabled(Control control, bool enabled) = 0;
    virtual void clearList(Control list) = 0;
    // Shows everything drawn and written so far at once, from inside a running routine.
    virtual void repaint() = 0;
    // A message box with no title; blocks until answered.
    virtual MessageAnswer messageBox(std::string_view text, MessageButtons buttons) = 0;

    // Figures of the board picture. Colours are side codes. A figure does not
    // repaint the window by itself: the logic asks for repaint() where the user
    // must see it at once.
    virtual void drawClearAndGrid() = 0;
    // The stone and, when its colour is the opposite of userColour, the ring on it.
    virtual void drawStoneAndRing(Point point, Side colour, Side userColour) = 0;
    // A disc without ring: black for colour 1, white for -1, any other colour keeps
    // the fill colour the canvas has.
    virtual void drawPlainStone(Point point, Side colour) = 0;
    virtual void eraseStone(Point point) = 0;
    // Frames round the cells of the candidate points, in scan order.
    virtual void drawCandidateFrames(std::span<const Point> candidates) = 0;
    virtual void drawSuggestionMark(Point point) = 0;

    // What start-up reads from the design.
    virtual std::string designCaption() = 0;
    virtual double boardWidth() = 0;                  // twips
    virtual std::string depthBoxText(int index) = 0;  // Combo3(index)
};

}  // namespace quintline
