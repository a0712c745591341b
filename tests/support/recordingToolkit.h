#pragma once
// A toolkit for tests: it records every request the game makes, in order, with
// its arguments, answers message boxes from a queue, and supplies the design
// values start-up reads (changeable per test).

#include <algorithm>
#include <cstddef>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "game/designValues.h"
#include "game/toolkit.h"

namespace quintline::testing {

enum class Request {
    caption,
    enabled,
    clearList,
    repaint,
    message,
    clearAndGrid,
    stoneAndRing,
    plainStone,
    eraseStone,
    candidateFrames,
    suggestionMark,
};

struct Call {
    Request request = Request::repaint;
    Control control = Control::mainForm;  // caption, enabled, clearList
    std::string text;                     // caption or message text
    bool enabled = false;
    MessageButtons buttons = MessageButtons::ok;
    MessageAnswer answer = MessageAnswer::ok;
    Point point{};              // figures with one point
    Side colour = 0;            // stoneAndRing, plainStone
    Side userColour = 0;        // stoneAndRing
    std::vector<Point> points;  // candidateFrames
};

class RecordingToolkit final : public Toolkit {
  public:
    std::vector<Call> calls;
    // Answers for the coming message boxes, first in first out; OK when empty.
    std::deque<MessageAnswer> answers;

    std::string caption{design::mainCaption};
    double width = design::boardWidth;
    std::string depthTexts[2] = {std::string(design::depthBoxText),
                                 std::string(design::depthBoxText)};

    void setCaption(Control control, std::string_view text) override {
        Call& c = record(Request::caption);
        c.control = control;
        c.text = text;
    }
    void setEnabled(Control control, bool enabled) override {
        Call& c = record(Request::enabled);
        c.control = control;
        c.enabled = enabled;
    }
    void clearList(Control list) override { record(Request::clearList).control = list; }
    void repaint() override { record(Request::repaint); }
    MessageAnswer messageBox(std::string_view text, MessageButtons buttons) override {
        Call& c = record(Request::message);
        c.text = text;
        c.buttons = buttons;
        if (!answers.empty()) {
            c.answer = answers.front();
            answers.pop_front();
        }
        return c.answer;
    }

    void drawClearAndGrid() override { record(Request::clearAndGrid); }
    void drawStoneAndRing(Point point, Side colour, Side userColour) override {
        Call& c = record(Request::stoneAndRing);
        c.point = point;
        c.colour = colour;
        c.userColour = userColour;
    }
    void drawPlainStone(Point point, Side colour) override {
        Call& c = record(Request::plainStone);
        c.point = point;
        c.colour = colour;
    }
    void eraseStone(Point point) override { record(Request::eraseStone).point = point; }
    void drawCandidateFrames(std::span<const Point> candidates) override {
        record(Request::candidateFrames).points.assign(candidates.begin(), candidates.end());
    }
    void drawSuggestionMark(Point point) override { record(Request::suggestionMark).point = point; }

    std::string designCaption() override { return caption; }
    double boardWidth() override { return width; }
    std::string depthBoxText(int index) override { return depthTexts[index]; }

    // Queries over what was recorded.

    // Forgets what was recorded so far, so a test can look at one step alone.
    void forget() { calls.clear(); }

    std::vector<Call> of(Request request) const {
        std::vector<Call> found;
        for (const Call& c : calls)
            if (c.request == request) found.push_back(c);
        return found;
    }
    // Every request recorded, a line each: "caption whoRun <text>", "enabled cmdBack off",
    // "clear List2", "grid", "repaint", "message <text>", "stone x,y colour userColour",
    // "plain x,y colour", "erase x,y", "frames <how many>", "mark x,y".
    std::string transcript() const {
        std::string out;
        for (const Call& c : calls) {
            const std::string name(controlName(c.control));
            const std::string at = std::to_string(c.point.x) + "," + std::to_string(c.point.y);
            const std::string texts[] = {
                "caption " + name + " " + c.text,
                "enabled " + name + (c.enabled ? " on" : " off"),
                "clear " + name,
                "repaint",
                "message " + c.text,
                "grid",
                "stone " + at + " " + std::to_string(c.colour) + " " + std::to_string(c.userColour),
                "plain " + at + " " + std::to_string(c.colour),
                "erase " + at,
                "frames " + std::to_string(c.points.size()),
                "mark " + at};
            static_assert(static_cast<int>(Request::suggestionMark) == 10);  // texts in its order
            out += texts[static_cast<int>(c.request)] + "\n";
        }
        return out;
    }
    std::size_t count(Request request) const {
        return static_cast<std::size_t>(std::count_if(
            calls.begin(), calls.end(), [&](const Call& c) { return c.request == request; }));
    }
    // Every caption written into `control`, oldest first.
    std::vector<std::string> captionsOf(Control control) const {
        std::vector<std::string> found;
        for (const Call& c : calls)
            if (c.request == Request::caption && c.control == control) found.push_back(c.text);
        return found;
    }
    std::optional<std::string> lastCaption(Control control) const {
        const auto all = captionsOf(control);
        if (all.empty()) return std::nullopt;
        return all.back();
    }
    std::optional<bool> lastEnabled(Control control) const {
        for (auto c = calls.rbegin(); c != calls.rend(); ++c)
            if (c->request == Request::enabled && c->control == control) return c->enabled;
        return std::nullopt;
    }
    std::vector<std::string> messages() const {
        std::vector<std::string> found;
        for (const Call& c : calls)
            if (c.request == Request::message) found.push_back(c.text);
        return found;
    }
    // Index of the first call of `request` at or after `from`, or calls.size().
    std::size_t find(Request request, std::size_t from = 0) const {
        for (std::size_t i = from; i < calls.size(); ++i)
            if (calls[i].request == request) return i;
        return calls.size();
    }
    // Index of the last call of `request`, or calls.size().
    std::size_t findLast(Request request) const {
        for (std::size_t i = calls.size(); i > 0; --i)
            if (calls[i - 1].request == request) return i - 1;
        return calls.size();
    }

  private:
    Call& record(Request request) {
        calls.emplace_back();
        calls.back().request = request;
        return calls.back();
    }
};

}  // namespace quintline::testing
