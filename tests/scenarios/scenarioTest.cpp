// Replays the game-control scenarios of this directory. A scenario is a list of
// steps, several to a line when joined by " ; "; under each line, indented, stand
// the requests its steps made to the windows and what they printed. The runner
// replays the steps and writes that text anew, and the test passes when it is the
// file. With QUINTLINE_UPDATE_SCENARIOS set it writes the text back, for review.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <iomanip>
#include <map>
#include <optional>

#include <sys/stat.h>

#include "boardfile/boardFile.h"
#include "boardfile/numberForm.h"
#include "game/settings.h"
#include "game/suggestionDepth.h"
#include "harness/fakes.h"
#include "harness/reportLock.h"
#include "harness/testSuite.h"
#include "harness/tournament.h"
#include "players/searchSet.h"
#include "support/recordingToolkit.h"
#include "support/scratchDirectory.h"

namespace quintline::testing {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

// Blank-separated words; a word that opens with a double quote runs to the next one.
Words split(const std::string& line) {
    Words words;
    std::istringstream in(line);
    for (std::string word; in >> std::quoted(word);) words.push_back(word);
    return words;
}

// The pieces of `text` between the separators.
Words pieces(const std::string& text, const std::string& separator) {
    Words out;
    for (std::size_t from = 0, to = 0; from < text.size(); from = to + separator.size()) {
        to = std::min(text.find(separator, from), text.size());
        out.push_back(text.substr(from, to - from));
    }
    return out;
}

Point point(const std::string& text) {  // "x,y"
    Point p;
    std::sscanf(text.c_str(), "%hd,%hd", &p.x, &p.y);
    return p;
}

std::string text(Point p) {
    return std::to_string(p.x) + "," + std::to_string(p.y);
}

// Quick stand-ins for the four searches, so that whole games run in microseconds with outcomes that
// can be worked out by hand. A builder stacks its stones from the top of its own column (x 1 for
// black, x 2 for white) and has five with its fifth stone there. A wanderer puts its stones on
// points whose x and y are multiples of 3, x from 15 down, where they never make a line. Computer A
// and B build at depth 3 and wander below; the kinds that know the other always build.
// firstEmpty: the first empty point on the columns firstX, firstX + stepX, ... whose y is a
// multiple of stepY; failing that the board's first empty point, if any.
Point firstEmpty(const SearchState& s, int firstX, int stepX, int stepY) {
    for (int x = firstX; x >= 1 && x <= boardSize; x += stepX)
        for (int y = stepY; y <= boardSize; y += stepY)
            if (s.position.board[x][y] == empty) return {std::int16_t(x), std::int16_t(y)};
    return stepX == 1 ? Point{} : firstEmpty(s, 1, 1, 1);
}

void choose(SearchState& s, std::int16_t step, bool build) {
    const int column = sideToMove(std::int16_t(step + 1)) == black ? 1 : 2;
    const Point p = build ? firstEmpty(s, column, boardSize, 1) : firstEmpty(s, 15, -3, 3);
    s.bestX[step] = p.x;
    s.bestY[step] = p.y;
}

Score scriptedPlain(SearchState& s, std::int16_t step, std::int16_t depth) {
    choose(s, step, depth >= 3);
    return 0;
}

nodeScores scriptedKnowing(SearchState& s, std::int16_t step, std::int16_t) {
    choose(s, step, true);
    return {};
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
    {"scripted", {&scriptedPlain, &scriptedPlain, &scriptedKnowing, &scriptedKnowing}},
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

// The steps that press a button or choose a menu entry.
const std::map<std::string, void (Game::*)()> buttons{{"new", &Game::newGame},
                                                      {"back", &Game::cmdBackClick},
                                                      {"forward", &Game::cmdForwClick},
                                                      {"back-end", &Game::backwardEndClick},
                                                      {"forward-end", &Game::cmdForwardEndClick},
                                                      {"suggest", &Game::toggleSuggestion},
                                                      {"show-suggestion", &Game::showSuggestion},
                                                      {"computer-game", &Game::computerGame}};

class Runner {
  public:
    std::string run(std::istream& in) {
        std::string line, all;
        while (std::getline(in, line)) {
            if (line.starts_with("  ")) continue;  // what the steps wrote last time
            std::string steps;
            for (const std::string& piece : line[0] == '#' ? Words{} : pieces(line, " ; ")) {
                steps += (steps.empty() ? "" : " ; ") + step(piece);
                flush();
            }
            all += (line.empty() || line[0] == '#' ? line : steps) + "\n";
            for (const std::string& l : out_) all += "  " + l + "\n";
            out_.clear();
        }
        return all;
    }

  private:
    GameState& s() { return game_->state(); }

    // Moves the requests recorded so far to the output, less those hidden.
    void flush() {
        for (const std::string& l : toolkit_.lines) {
            if (std::none_of(hide_.begin(), hide_.end(),
                             [&](auto& p) { return p == "*" || l.starts_with(p); }))
                out_.push_back(l);
            const Words c = split(l);  // the last caption of each control, for `shown`
            if (c[0] == "caption") captions_[c.at(1)] = l.substr(9 + c[1].size());
        }
        toolkit_.lines.clear();
    }
    void print(const std::string& l) {
        flush();
        out_.push_back(l);
    }

    // The named value of the game state as text, set from `value` first if given.
    std::string field(const std::string& name, const std::string* value) {
        static const std::map<std::string, std::int16_t GameState::*> numbers{
            {"stepNum", &GameState::stepNum},       {"ahead", &GameState::movesAhead},
            {"result", &GameState::gameResult},     {"click", &GameState::clickAllowed},
            {"user", &GameState::userColour},       {"twoUsers", &GameState::twoUsers},
            {"computer", &GameState::computerKind}, {"computerColour", &GameState::computerColour},
            {"depthA", &GameState::depthA},         {"depthB", &GameState::depthB},
            {"cellSize", &GameState::cellSize},     {"suggestion", &GameState::suggestionOn},
            {"blackSide", &GameState::blackSide},   {"whiteSide", &GameState::whiteSide}};
        if (name == "path") {
            if (value) s().boardFilePath = value->substr(1, value->size() - 2);  // "quoted"
            return '"' + s().boardFilePath + '"';
        }
        const auto index = [&](std::size_t prefix) { return std::stoul(name.substr(prefix)); };
        if (name.starts_with("record")) {  // record<N>=colour,x,y
            MoveRecordEntry& m = s().moveRecord.at(index(6));
            if (value) std::sscanf(value->c_str(), "%hd,%hd,%hd", &m.colour, &m.x, &m.y);
            return std::to_string(m.colour) + "," + text(Point{m.x, m.y});
        }
        if (name.starts_with("best")) {  // best<N>=x,y: the point chosen at N stones
            const std::size_t n = index(4);
            if (value) s().bestX.at(n) = point(*value).x, s().bestY.at(n) = point(*value).y;
            return text(Point{s().bestX.at(n), s().bestY.at(n)});
        }
        if (name.starts_with("at")) {  // at<x>,<y>: the board point
            const Point p = point(name.substr(2));
            return std::to_string(s().position.board[p.x][p.y]);
        }
        std::int16_t& number = s().*numbers.at(name);
        if (value) number = std::int16_t(std::stoi(*value));
        return std::to_string(number);
    }

    // Runs one step and gives it back as it should read. One flat branch per step
    // word, each a few lines: the chain's length is the language's, not tangle.
    std::string step(std::string line) {  // NOLINT(readability-function-cognitive-complexity)
        const Words w = split(line);
        const std::string& c = w.at(0);
        const auto arg = [&](std::size_t i) { return std::int16_t(std::stoi(w.at(i))); };
        if (c == "game") {  // game <searches> [black]: as the main window opens one
            game_.emplace(toolkit_, searchSets.at(w.at(1)));
            game_->startSession();
            s().userColour = w.size() > 2 ? black : white;
            game_->newGame();
            toolkit_.lines.clear();
        } else if (c == "start") {  // start [<board width> <depth box 0> <depth box 1>]
            if (w.size() > 3) toolkit_.width = std::stod(w[1]);
            if (w.size() > 3) toolkit_.depthTexts[0] = w[2], toolkit_.depthTexts[1] = w[3];
            game_->startSession();
        } else if (buttons.contains(c)) {
            ((*game_).*buttons.at(c))();
        } else if (c == "set" || c == "state") {
            line = c;
            for (std::size_t i = 1; i < w.size(); ++i) {
                const std::size_t eq = w[i].find('=');
                const std::string name = w[i].substr(0, eq), value = w[i].substr(eq + 1);
                line += " " + name + "=" + field(name, c == "set" ? &value : nullptr);
            }
        } else if (c == "lay") {  // lay full <stones> | lay x,y ...: colours alternating
            std::vector<Point> order;
            if (w.at(1) == "full") order = fullBoard(), order.resize(std::stoul(w.at(2)));
            if (w[1] == "full") order.erase(order.begin(), order.begin() + s().stepNum);
            for (std::size_t i = 1; i < w.size() && w[1] != "full"; ++i)
                order.push_back(point(w[i]));
            for (const Point p : order)
                game_->Putchess(p.x, p.y, sideToMove(std::int16_t(s().stepNum + 1)));
            toolkit_.lines.clear();
        } else if (c == "click") {  // click x,y ...: the middle of each cell
            for (std::size_t i = 1; i < w.size(); ++i)
                game_->boardMouseDown((float(point(w[i]).x) - 0.5f) * float(s().cellSize),
                                      (float(point(w[i]).y) - 0.5f) * float(s().cellSize));
        } else if (c == "mouse") {  // mouse X Y: in twips
            game_->boardMouseDown(std::stof(w.at(1)), std::stof(w.at(2)));
        } else if (c == "move") {  // move <player kind>
            game_->computerMove(arg(1));
        } else if (c == "settings") {  // settings <black> <white> <box 0> <box 1> [<option>]
            const Words options{"", "A-knows-B", "B-knows-A"};
            const auto option = std::find(options.begin(), options.end(), w.size() > 5 ? w[5] : "");
            const SettingsValues v{
                w.at(1), w.at(2), {w.at(3), w.at(4)}, Situation(option - options.begin())};
            const auto close = [&] { toolkit_.add("closed at ", s().stepNum); };
            if (!acceptSettings(*game_, v, close)) print("refused");
        } else if (c == "fill") {
            SettingsValues v{"-", "-", {"", ""}, Situation::aModelsB};
            fillSettings(*game_, v);
            print("rows " + v.blackRow + " / " + v.whiteRow + ", option " +
                  std::to_string(int(v.situation)) + ", boxes \"" + v.depthBox[0] + "\"");
        } else if (c == "depths" || c == "numbers") {  // each word as a depth ("-" for none)
            std::string out;  // or as written to a file, a float when it has a point
            for (std::size_t i = 1; i < w.size(); ++i) {
                const auto depth = depthFromText(w[i]);
                out += c == "depths" ? " " + (depth ? std::to_string(*depth) : "-")
                       : w[i].find('.') == std::string::npos ? numberForm(std::stoi(w[i]))
                                                             : numberForm(std::stof(w[i]));
            }
            print("\"" + out + "\"");
        } else if (c == "suggestion-depths") {  // stone count: depth, where it changes
            std::string out = "from";
            for (int n = 0; n <= maxStones; ++n) {
                const int d = suggestionDepth(std::int16_t(n));
                if (n == 0 || d != suggestionDepth(std::int16_t(n - 1)))
                    out += " " + std::to_string(n) + ":" + std::to_string(d);
            }
            print(out);
        } else if (c == "cancel") {  // the next message box is answered Cancel
            ++toolkit_.cancels;
        } else if (c == "save" || c == "read") {
            s().boardFilePath = w.at(1);
            c == "save" ? saveBoardFile(*game_) : readBoardFile(*game_);
        } else if (c == "sh") {          // sh <command>: run by the shell; what it prints is output
            ::setenv("LC_ALL", "C", 1);  // messages, quotes and sorting as written here
            FILE* const out = ::popen(line.substr(3).c_str(), "r");
            for (char l[512]; std::fgets(l, sizeof l, out);)
                print(std::string(l, std::strcspn(l, "\n")));
            ::pclose(out);
        } else if (c == "umask") {  // umask <octal>: for the files this process creates
            ::umask(mode_t(std::stoul(w.at(1), nullptr, 8)));
        } else if (c == "lock") {  // lock <report>: as another run holds it; unlock ends that
            otherRun_.emplace();
            line += otherRun_->tryTake(w.at(1)) == ReportLock::Outcome::taken ? "" : " (busy)";
        } else if (c == "unlock") {
            otherRun_.reset();
        } else if (c == "same") {  // same <snapshot>: the position's tables as they were
            const Position& then = snapshots_.at(w.at(1));
            line += std::memcmp(&then, &s().position, sizeof(Position)) == 0 ? "" : " (differs)";
        } else if (c == "snap") {
            snapshots_[w.at(1)] = s().position;
        } else if (c == "uniform") {  // the numbers the openings are drawn from
            std::deque<double> numbers;
            for (std::size_t i = 1; i < w.size(); ++i) numbers.push_back(std::stod(w[i]));
            uniform_ = ScriptedUniform(numbers);
        } else if (c == "clock") {  // clock <time> <seconds since midnight> ...
            std::deque<std::string> times;
            std::deque<float> readings;
            for (std::size_t i = 1; i + 1 < w.size(); i += 2)
                times.push_back(w[i]), readings.push_back(std::stof(w[i + 1]));
            clock_ = ScriptedClock(times, readings);
        } else if (c == "tournament") {  // tournament <cycles> [menu]
            s().cycleCount = arg(1);
            w.size() > 2 ? runTournament(*game_)
                         : runTournament(*game_, uniform_, clock_, "result.txt");
            if (w.size() == 2) print("numbers drawn " + std::to_string(uniform_.drawn()));
        } else if (c == "suite") {  // suite <list> | suite menu
            w.at(1) == "menu" ? runTestSuite(*game_)
                              : runTestSuite(*game_, clock_, w[1], "result.txt");
        } else if (c == "shown") {  // the last caption of each control named
            for (std::size_t i = 1; i < w.size(); ++i) print(w[i] + "=" + captions_[w[i]]);
        } else if (c == "hide") {  // hide <prefix>, ...: requests left out from here on; * all
            hide_ = line.size() > 5 ? pieces(line.substr(5), ", ") : Words{};
        } else {
            ADD_FAILURE() << "unknown step: " << line;
        }
        return line;
    }

    RecordingToolkit toolkit_;
    std::optional<Game> game_;
    Words hide_, out_;
    std::map<std::string, std::string> captions_;
    std::map<std::string, Position> snapshots_{{"empty", Position{}}};
    std::optional<ReportLock> otherRun_;
    ScriptedUniform uniform_{{}};
    ScriptedClock clock_{{}, {}};
};

const fs::path scenarioDir = QUINTLINE_SCENARIO_DIR;

std::vector<std::string> scenarioNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(scenarioDir))
        if (entry.path().extension() == ".txt") names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

class Scenario : public ::testing::TestWithParam<std::string> {};

TEST_P(Scenario, ReplaysAsWritten) {
    const fs::path file = scenarioDir / (GetParam() + ".txt");
    const std::string expected = readBytes(file);
    std::istringstream in(expected);
    const ScratchDirectory dir(true);  // the files the steps name live here
    const std::string actual = Runner().run(in);
    if (std::getenv("QUINTLINE_UPDATE_SCENARIOS")) writeBytes(file, actual);
    EXPECT_EQ(expected, actual);
}

INSTANTIATE_TEST_SUITE_P(Scenarios, Scenario, ::testing::ValuesIn(scenarioNames()),
                         [](const auto& test) { return test.param; });

}  // namespace
}  // namespace quintline::testing
