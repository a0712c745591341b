// Replays the game-control scenarios of this directory. A scenario is a list of
// steps; under each step, indented, stand the requests it made to the windows
// and what it printed. The runner replays the steps and writes the same text
// anew: the test passes when that text is the file. With QUINTLINE_UPDATE_SCENARIOS
// set it writes the new text back instead, for review as a diff.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <regex>

#include "boardfile/boardFile.h"
#include "game/settings.h"
#include "game/silentToolkit.h"
#include "game/suggestionDepth.h"
#include "harness/fakes.h"
#include "harness/opening.h"
#include "harness/testSuite.h"
#include "harness/tournament.h"
#include "support/recordingToolkit.h"
#include "support/scratchDirectory.h"
#include "support/scriptedSearches.h"

namespace quintline::testing {
namespace {

using Words = std::vector<std::string>;

// Blank-separated words; double quotes keep blanks in a word ("" is an empty word).
Words split(const std::string& line) {
    Words words;
    bool inWord = false, quoted = false;
    for (const char ch : line) {
        if (ch == ' ' && !quoted) {
            inWord = false;
            continue;
        }
        if (!inWord) words.emplace_back(), inWord = true;
        if (ch == '"') quoted = !quoted;
        else words.back() += ch;
    }
    return words;
}

// Searches that choose a fixed point and score, moving stepNum as real searches do.
template <Score score, std::int16_t x, std::int16_t y>
Score fixedPlain(SearchState& s, std::int16_t step, std::int16_t) {
    s.bestX[step] = x;
    s.bestY[step] = y;
    s.stepNum = static_cast<std::int16_t>(step + 7);
    return score;
}
template <Score score, std::int16_t x, std::int16_t y>
nodeScores fixedModel(SearchState& s, std::int16_t step, std::int16_t depth) {
    return {0, fixedPlain<score, x, y>(s, step, depth), -1};
}

const std::map<std::string, SearchSet> searchSets{
    {"real", {}},
    {"scripted", scriptedSearches()},
    // A at the win score, B on the centre stone, A-knows-B at minus the win score,
    // B-knows-A off the board.
    {"fixed",
     {&fixedPlain<winScore, 9, 9>, &fixedPlain<0, 8, 8>, &fixedModel<-winScore, 9, 9>,
      &fixedModel<0, 16, 3>}}};

// A full board without a five, in playing order from black's (8, 8): black where
// (x + 2y) / 4 is even. The last stone, black's (1, 1), is the only empty point of
// a line of four whites, so every earlier position is open.
std::vector<Point> fullBoard() {
    std::vector<Point> side[2], order;
    for (std::int16_t x = 1; x <= boardSize; ++x)
        for (std::int16_t y = 1; y <= boardSize; ++y)
            if (Point{x, y} != Point{8, 8} && Point{x, y} != Point{1, 1})
                side[(x + 2 * y) / 4 % 2].push_back({x, y});
    side[0].insert(side[0].begin(), Point{8, 8});
    side[0].push_back({1, 1});
    for (std::size_t n = 0; n < side[0].size(); ++n) {
        order.push_back(side[0][n]);
        if (n < side[1].size()) order.push_back(side[1][n]);
    }
    return order;
}

Point point(const std::string& text) {  // "x,y"
    Point p;
    std::sscanf(text.c_str(), "%hd,%hd", &p.x, &p.y);
    return p;
}

std::string unescape(std::string text) {  // \r and \n
    for (const auto& [from, to] : {std::pair("\\r", "\r"), {"\\n", "\n"}})
        for (std::size_t at; (at = text.find(from)) != std::string::npos;) text.replace(at, 2, to);
    return text;
}

class Runner {
  public:
    // The text the scenario's steps write.
    std::string run(std::istream& in) {
        std::string line, text;
        while (std::getline(in, line)) {
            if (line.starts_with("  ")) continue;
            const Words w = split(line);
            if (w.empty() || w[0] == "#") {
                text += line + "\n";
                continue;
            }
            toolkit_.forget();
            printed_.clear();
            text += step(w, line) + "\n";
            for (const std::string& l : toolkit_.lines) {
                if (!hidden(l)) text += "  " + l + "\n";
                const Words c = split(l);  // the last caption of each control, for `shown`
                if (c[0] == "caption") captions_[c.at(1)] = l.substr(9 + c[1].size());
            }
            for (const std::string& l : printed_) text += "  " + l + "\n";
        }
        return text;
    }

  private:
    GameState& s() { return game_->state(); }
    bool hidden(const std::string& line) const {
        for (const std::string& prefix : hide_)
            if (line.starts_with(prefix)) return true;
        return false;
    }

    // The named value of the game state as text; set from `value` first if given.
    std::string field(const std::string& name, const std::string* value = nullptr) {
        static const std::map<std::string, std::int16_t GameState::*> numbers{
            {"stepNum", &GameState::stepNum},       {"ahead", &GameState::movesAhead},
            {"result", &GameState::gameResult},     {"click", &GameState::clickAllowed},
            {"user", &GameState::userColour},       {"twoUsers", &GameState::twoUsers},
            {"computer", &GameState::computerKind}, {"computerColour", &GameState::computerColour},
            {"depthA", &GameState::depthA},         {"depthB", &GameState::depthB},
            {"cellSize", &GameState::cellSize},     {"suggestion", &GameState::suggestionOn},
            {"blackSide", &GameState::blackSide},   {"whiteSide", &GameState::whiteSide}};
        if (name == "title" || name == "path") {
            std::string& text = name == "title" ? s().windowTitle : s().boardFilePath;
            if (value) text = *value;
            return '"' + text + '"';
        }
        if (name.starts_with("record")) {  // record<N>=colour,x,y
            MoveRecordEntry& m = s().moveRecord.at(std::stoul(name.substr(6)));
            if (value) std::sscanf(value->c_str(), "%hd,%hd,%hd", &m.colour, &m.x, &m.y);
            return std::to_string(m.colour) + "," + std::to_string(m.x) + "," +
                   std::to_string(m.y);
        }
        if (name.starts_with("best")) {  // best<N>=x,y: the point chosen at N stones
            const std::size_t n = std::stoul(name.substr(4));
            if (value) std::tie(s().bestX.at(n), s().bestY.at(n)) = std::pair(point(*value).x, point(*value).y);
            return std::to_string(s().bestX.at(n)) + "," + std::to_string(s().bestY.at(n));
        }
        if (name.starts_with("at")) {  // at<x>,<y>: the board point
            const Point p = point(name.substr(2));
            return std::to_string(s().position.board[p.x][p.y]);
        }
        std::int16_t& number = s().*numbers.at(name);
        if (value) number = std::int16_t(std::stoi(*value));
        return std::to_string(number);
    }

    // Runs one step and gives its line as it should read.
    std::string step(const Words& w, std::string line) {
        const std::string& c = w[0];
        const auto arg = [&](std::size_t i) { return std::int16_t(std::stoi(w.at(i))); };
        if (c == "game") {  // game <searches> [black] [silent]: as the main window opens one
            game_.emplace(w.size() > 3 ? static_cast<Toolkit&>(silent_) : toolkit_,
                          searchSets.at(w.at(1)));
            game_->startSession();
            s().userColour = w.size() > 2 && w[2] == "black" ? black : white;
            game_->newGame();
            toolkit_.forget();
        } else if (c == "start") {  // start [boardWidth depthBox0 depthBox1]
            if (w.size() > 1) toolkit_.width = std::stod(w[1]);
            if (w.size() > 1) toolkit_.depthTexts[0] = w.at(2), toolkit_.depthTexts[1] = w.at(3);
            game_->startSession();
        } else if (c == "new") {
            game_->newGame();
        } else if (c == "set" || c == "state") {
            line = c;
            for (std::size_t i = 1; i < w.size(); ++i) {
                const std::size_t eq = w[i].find('=');
                const std::string name = w[i].substr(0, eq), value = w[i].substr(eq + 1);
                const std::string now = field(name, c == "set" ? &value : nullptr);
                line += " " + name + "=" + now;
            }
        } else if (c == "lay") {  // lay full <stones> | lay x,y ...: colours alternating
            std::vector<Point> order;
            if (w.at(1) == "full") order = fullBoard(), order.resize(std::stoul(w.at(2)));
            if (w[1] == "full") order.erase(order.begin(), order.begin() + s().stepNum);
            for (std::size_t i = 1; i < w.size() && w[1] != "full"; ++i) order.push_back(point(w[i]));
            for (const Point p : order)
                game_->Putchess(p.x, p.y, sideToMove(std::int16_t(s().stepNum + 1)));
            toolkit_.forget();
        } else if (c == "click") {  // the middle of the cell
            const float cell = s().cellSize;
            game_->boardMouseDown((arg(1) - 0.5f) * cell, (arg(2) - 0.5f) * cell);
        } else if (c == "mouse") {  // twips
            game_->boardMouseDown(std::stof(w.at(1)), std::stof(w.at(2)));
        } else if (c == "back") {
            game_->cmdBackClick();
        } else if (c == "forward") {
            game_->cmdForwClick();
        } else if (c == "back-end") {
            game_->backwardEndClick();
        } else if (c == "forward-end") {
            game_->cmdForwardEndClick();
        } else if (c == "suggest") {
            game_->toggleSuggestion();
        } else if (c == "show-suggestion") {
            game_->showSuggestion();
        } else if (c == "computer-game") {
            game_->computerGame();
        } else if (c == "move") {  // move <kind>
            game_->computerMove(arg(1));
        } else if (c == "settings") {  // settings <black> <white> <box0> <box1> [situation]
            const std::map<std::string, Situation> situations{{"A-knows-B", Situation::aKnowsB},
                                                              {"B-knows-A", Situation::bKnowsA}};
            const auto it = situations.find(w.size() > 5 ? w[5] : "");
            const SettingsValues v{w.at(1), w.at(2), {w.at(3), w.at(4)},
                                   it == situations.end() ? Situation::knowNothing : it->second};
            int closed = 0;
            const bool accepted = acceptSettings(*game_, v, [&] {
                toolkit_.lines.push_back((closed++ ? "closed again at " : "closed at ") +
                                         std::to_string(s().stepNum));
            });
            if (!accepted) printed_.push_back("refused");
        } else if (c == "fill") {
            SettingsValues v{"-", "-", {"", ""}, Situation::aKnowsB};
            fillSettings(*game_, v);
            printed_.push_back("rows " + v.blackRow + " / " + v.whiteRow + " option " +
                               std::to_string(int(v.situation)) + " boxes \"" + v.depthBox[0] +
                               "\" \"" + v.depthBox[1] + '"');
        } else if (c == "depths") {  // what each text gives as a depth, "-" for none
            std::string out;
            for (std::size_t i = 1; i < w.size(); ++i) {
                const auto depth = depthFromText(w[i]);
                out += (i > 1 ? " " : "") + (depth ? std::to_string(*depth) : "-");
            }
            printed_.push_back(out);
        } else if (c == "suggestion-depths") {  // stone counts by depth, in runs
            std::string out;
            for (int n = 0; n <= maxStones; ++n) {
                const int d = suggestionDepth(std::int16_t(n));
                if (n == 0 || d != suggestionDepth(std::int16_t(n - 1)))
                    out += (n ? " " : "") + std::to_string(n) + ":" + std::to_string(d);
            }
            printed_.push_back(out);
        } else if (c == "answer") {
            toolkit_.answers.push_back(w.at(1) == "cancel" ? MessageAnswer::cancel
                                                           : MessageAnswer::ok);
        } else if (c == "save" || c == "read") {
            s().boardFilePath = w.at(1);
            c == "save" ? saveBoardFile(*game_) : readBoardFile(*game_);
        } else if (c == "write") {  // write <file> <text with \r and \n>
            writeBytes(w.at(1), unescape(line.substr(line.find(w[1]) + w[1].size() + 1)));
        } else if (c == "mkdir" || c == "remove") {
            c == "mkdir" ? std::filesystem::create_directory(w.at(1)) : std::filesystem::remove(w.at(1));
        } else if (c == "shown") {  // the last caption of each control named
            for (std::size_t i = 1; i < w.size(); ++i) printed_.push_back(w[i] + "=" + captions_[w[i]]);
        } else if (c == "cat") {  // a text file's lines; "<no CR>" where a line lacks it
            if (!std::filesystem::exists(w.at(1))) printed_.push_back("(no such file)");
            std::istringstream bytes(readBytes(w.at(1)));
            for (std::string l; std::getline(bytes, l);) {
                if (w.size() > 2) l = std::regex_replace(l, std::regex("[0-9][0-9.]*"), "#");
                printed_.push_back(l.ends_with('\r') ? "|" + l.substr(0, l.size() - 1)
                                                     : "|" + l + " <no CR>");
            }
        } else if (c == "uniform") {
            std::deque<double> numbers;
            for (std::size_t i = 1; i < w.size(); ++i) numbers.push_back(std::stod(w[i]));
            uniform_ = ScriptedUniform(numbers);
        } else if (c == "clock") {  // clock <time> <seconds> ...
            std::deque<std::string> times;
            std::deque<float> readings;
            for (std::size_t i = 1; i + 1 < w.size(); i += 2)
                times.push_back(w[i]), readings.push_back(std::stof(w[i + 1]));
            clock_ = ScriptedClock(times, readings);
        } else if (c == "tournament") {  // tournament <cycles> [menu]
            s().cycleCount = arg(1);
            w.size() > 2 ? runTournament(*game_)
                         : runTournament(*game_, uniform_, clock_, "result.txt");
            if (w.size() == 2) printed_.push_back("numbers drawn " + std::to_string(uniform_.drawn()));
        } else if (c == "suite") {  // suite <list> | suite menu
            w.at(1) == "menu" ? runTestSuite(*game_)
                              : runTestSuite(*game_, clock_, w[1], "result.txt");
        } else if (c == "seeded") {  // seeded <seed> <openings>: how evenly the points come
            SeededUniform uniform(std::stoull(w.at(1)));
            std::map<std::pair<int, int>, int> hits;
            for (int i = 0; i < std::stoi(w.at(2)); ++i)
                for (const Point& p : drawOpening(uniform).stones) ++hits[{p.x, p.y}];
            const auto [least, most] = std::minmax_element(
                hits.begin(), hits.end(), [](auto& a, auto& b) { return a.second < b.second; });
            printed_.push_back(std::to_string(hits.size()) + " points, " +
                               std::to_string(least->second) + " to " +
                               std::to_string(most->second) + " hits");
        } else if (c == "snap") {
            snapshots_[w.at(1)] = s().position;
        } else if (c == "same") {  // same <snapshot>: the position's tables; same <file> <file>
            const bool same = w.size() > 2 ? readBytes(w[1]) == readBytes(w[2])
                                           : std::memcmp(&snapshots_.at(w.at(1)), &s().position,
                                                         sizeof(Position)) == 0;
            line = line + (same ? "" : " (differs)");
        } else if (c == "hide") {  // hide <prefix>, <prefix>: requests left out from here on
            hide_.clear();
            std::istringstream list(line.substr(4));
            for (std::string prefix; std::getline(list, prefix, ',');)
                if (prefix.find_first_not_of(' ') != std::string::npos)
                    hide_.push_back(prefix.substr(prefix.find_first_not_of(' ')));
            if (hide_.size() == 1 && hide_[0] == "*") hide_[0] = "";  // everything
        } else {
            ADD_FAILURE() << "unknown step: " << line;
        }
        return line;
    }

    RecordingToolkit toolkit_;
    SilentToolkit silent_;
    std::optional<Game> game_;
    Words hide_;
    std::map<std::string, std::string> captions_;
    Words printed_;
    std::map<std::string, Position> snapshots_{{"empty", Position{}}};
    ScriptedUniform uniform_{{}};
    ScriptedClock clock_{{}, {}};
};

const std::filesystem::path scenarioDir = QUINTLINE_SCENARIO_DIR;

std::vector<std::string> scenarioNames() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(scenarioDir))
        if (entry.path().extension() == ".txt") names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

class Scenario : public ::testing::TestWithParam<std::string> {};

TEST_P(Scenario, ReplaysAsWritten) {
    const std::filesystem::path file = scenarioDir / (GetParam() + ".txt");
    const std::string expected = readBytes(file);
    std::istringstream in(expected);
    std::string actual;
    {
        ScratchDirectory dir(true);  // files the steps name live here
        actual = Runner().run(in);
    }
    if (std::getenv("QUINTLINE_UPDATE_SCENARIOS")) writeBytes(file, actual);
    EXPECT_EQ(expected, actual);
}

INSTANTIATE_TEST_SUITE_P(Scenarios, Scenario, ::testing::ValuesIn(scenarioNames()),
                         [](const auto& info) {
                             std::string name = info.param;
                             std::erase(name, '-');
                             return name;
                         });

}  // namespace
}  // namespace quintline::testing
