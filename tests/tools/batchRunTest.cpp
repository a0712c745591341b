// The batch commands in-process: reports equal to the library's runs whatever the number of
// threads, exit codes and messages, runs cut short, and the records of every game.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <atomic>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "batch/batchRun.h"
#include "batch/commands.h"
#include "batch/gamesCsv.h"
#include "batch/runKeeper.h"
#include "batch/statistics.h"
#include "harness/fakes.h"
#include "harness/scheduleFile.h"
#include "harness/testSuite.h"
#include "harness/tournament.h"
#include "tools/batchFixtures.h"

namespace quintline::batch {
namespace {

using namespace quintline::testing;

// The same readings for every run, so that whole reports can be compared.
ScriptedClock sameClock() {
    return ScriptedClock({"10:00:00", "10:05:00"}, {36000.0f, 36300.5f});
}

// Runs a command line in-process, "@" standing for `d`.
int runLine(const std::string& line, const std::string& d, std::ostream& out, std::ostream& err,
            const SearchSet& searches = {}, bool progress = false) {
    std::vector<std::string> args;
    std::istringstream words(line);
    for (std::string word; words >> word;)
        if (word != ">") args.push_back(word[0] == '@' ? d + word.substr(1) : word);
    ScriptedClock clock = sameClock();
    std::atomic<bool> stop{false};
    Environment environment{clock, stop, searches};
    std::ostream full(nullptr);  // "> ..." writes its results to a stdout that fails
    return runCommandLine(std::vector<std::string_view>(args.begin(), args.end()), 2, environment,
                          {line[0] == '>' ? full : out, err, progress});
}

// An SPRT-stopped run on two threads (one thread: the resumed runs of the program's script): the
// report the library writes for the cycles played, and the same figures beside it.
TEST(BatchRun, AnSprtStoppedRunWritesTheLibraryRunsReportAndAgreeingFigures) {
    ScratchDirectory dir;
    const std::string d = dir.path().string() + "/";
    std::ostringstream out, err;
    ASSERT_EQ(
        runLine("tournament --cycles 40 --seed=11 --sprt 5 --elo0=0 --elo1 50 --report @r.txt "
                "--games-csv @g.csv --summary-json @s.json",
                d, out, err, shallowSearches(), true),
        exitDone);
    // The progress line, rewritten in place and ended at the end.
    EXPECT_TRUE(err.str().find("/560 games") != std::string::npos && err.str().back() == '\n')
        << err.str();
    const auto summary = nlohmann::json::parse(readBytes(d + "s.json"));
    const int played = summary["run"]["played"];
    EXPECT_LT(played, 40);
    EXPECT_EQ(summary["run"], nlohmann::json::parse(R"({"command": "tournament", "seed": 11,
        "jobs": 2, "played": )" + std::to_string(played) +
                                                    R"(, "stoppedBy": "sprt"})"));
    const auto& sprt = summary["sprt"];
    EXPECT_EQ(std::tuple(sprt["pair"], sprt["elo0"], sprt["elo1"], sprt["alpha"], sprt["beta"],
                         sprt["result"] == "H1"),
              std::tuple(5, 0.0, 50.0, 0.05, 0.05, sprt["llr"] >= sprt["upper"]));
    EXPECT_DOUBLE_EQ(sprt["llr"], sprtLlr(summary["pairs"][4]["pentanomial"], 0, 50));
    EXPECT_NE(out.str().find("\nSPRT: " + sprt["result"].get<std::string>() + " accepted, LLR "),
              std::string::npos);
    LibraryGame library(shallowSearches());
    library.game.state().cycleCount = static_cast<std::int16_t>(played);
    SeededUniform uniform(11);
    ScriptedClock libraryClock = sameClock();
    runTournament(library.game, uniform, libraryClock, d + "library.txt");
    EXPECT_EQ(readBytes(d + "r.txt"), readBytes(d + "library.txt"));
    EXPECT_EQ(std::ranges::count(readBytes(d + "g.csv"), '\n'), 1 + played * 14);
    // Without a seed, the clock's seed is printed and repeats the run (on one thread).
    std::ostringstream said;
    ASSERT_EQ(runLine("tournament --cycles 2 --report @a.txt", d, out, said, shallowSearches()),
              exitDone);
    const std::string seed = said.str().substr(22, said.str().find(' ', 22) - 22);
    EXPECT_EQ(said.str(), "quintline-batch: seed " + seed + " (repeat with --seed " + seed + ")\n");
    ASSERT_EQ(runLine("tournament --cycles 2 --jobs 1 --report @b.txt --seed " + seed, d, out, said,
                      shallowSearches()),
              exitDone);
    EXPECT_EQ(readBytes(d + "a.txt"), readBytes(d + "b.txt"));
}

TEST(Commands, ExitCodesAndMessagesOfEachKindOfEnd) {
    ScratchDirectory dir;
    const std::string d = dir.path().string() + "/";
    writeBoardFile(d + "small.txt", {{8, 8}, {9, 8}, {7, 6}});
    writeBoardFile(d + "empty.txt", {});
    writeBytes(d + "wide.txt",
               "Grid Size\r\n 19 \r\nPiece number\r\n 5 \r\nTotal Move\r\n 0 \r\nend\r\n");
    writeBytes(d + "none.txt", "0\r\nignored.txt\r\n");
    // Lists that are refused, fall short of their count, or hold entries that can't be paths.
    writeBytes(d + "minus.txt", "-1\r\nsmall.txt\r\n");
    writeBytes(d + "huge.txt", "40000\r\n");
    writeBytes(d + "long.txt", std::string(5000, '7'));
    writeBytes(d + "short.txt", "3\r\n" + d + "small.txt\r\n" + d + "missing.txt\r\n");
    writeBytes(d + "odd.txt", "4\r\n\"a\rb\"\r\n/dev/zero\r\n" + d + "small.txt\r\n\"sm");
    std::ifstream table(QUINTLINE_COMMAND_LINES);
    int rows = 0;
    const std::regex rowForm(R"((\d+) *\| *(.*?) *\| *(.*?) *\| *(.*?) *)"), at("@"),
        lineEnd(R"(\\n)");
    for (std::string row; std::getline(table, row);) {
        if (row.empty() || row[0] == '#') continue;
        std::smatch parts;
        ASSERT_TRUE(std::regex_match(row, parts, rowForm)) << row;
        std::vector<std::string> field;  // status, arguments, stdout, stderr
        for (std::size_t i = 1; i <= 4; ++i)
            field.push_back(
                std::regex_replace(std::regex_replace(parts.str(i), at, d), lineEnd, "\n"));
        SCOPED_TRACE(row);
        ++rows;
        std::ostringstream printed, complained;
        EXPECT_EQ(runLine(field[1], "", printed, complained), std::stoi(field[0]));
        for (const auto& [text, wanted] :
             {std::pair(printed.str(), field[2]), {complained.str(), field[3]}})
            EXPECT_TRUE(wanted.empty() ? text.empty() : text.find(wanted) != std::string::npos)
                << text;
    }
    EXPECT_GT(rows, 40);
    EXPECT_FALSE(std::filesystem::exists(d + "never.txt") ||
                 std::filesystem::exists(d + "r.txt.run.json"));
    // Whole blocks, each line ended once, their tails naming the last path read, refused or not.
    for (const auto& [report, last] :
         {std::pair("short-report.txt", "missing.txt"), {"odd-report.txt", "small.txt"}}) {
        const std::string text = readBytes(d + report);
        EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), 6) << text;
        EXPECT_EQ(reportLines(d + report).back().rfind(d + last + "Used Time", 0), 0u) << text;
    }
    // The block the library writes for the same list, CSV rows naming their entries, and no seed.
    LibraryGame library;
    ScriptedClock clock = sameClock();
    runTestSuite(library.game, clock, d + "odd.txt", d + "library.txt");
    EXPECT_EQ(readBytes(d + "odd-report.txt"), readBytes(d + "library.txt"));
    EXPECT_EQ(nlohmann::json::parse(readBytes(d + "s.json"))["run"]["seed"], nullptr);
    const std::string csv = readBytes(d + "g.csv");
    EXPECT_EQ(csv.rfind("\n," + d + "small.txt,14,B-K-A(3)"), csv.rfind('\n', csv.size() - 2));
}

TEST(BatchRun, AReportThatCanNoLongerBeWrittenEndsTheRunAtThatLine) {
    ScratchDirectory dir;
    ScriptedClock clock = sameClock();
    Report report(dir / "r.txt", clock);
    ASSERT_TRUE(report.open({}, Schedule::fixed().header()));
    std::filesystem::remove(dir / "r.txt");
    std::filesystem::create_directory(dir / "r.txt");
    SeededUniform uniform(3);
    TournamentJobs jobs(6, uniform);
    std::atomic<bool> stop{false};
    std::ostringstream err;
    MessageLog messages(err);
    BatchSettings settings;
    std::tie(settings.jobs, settings.searches) = std::tuple(2u, shallowSearches());
    const BatchOutcome outcome = playBatch(jobs, report, settings, stop, messages);
    EXPECT_TRUE(outcome.reportFailed && !outcome.stopped && outcome.lines == 0);
    EXPECT_EQ(err.str(), (dir / "r.txt").string() + " can not be written! Run stopped\n");
}

// Every game of a seeded run on an own schedule: its board file is what Save
// writes after the same game in the library, and the report's line, the CSV
// row, the SGF collection and the summary's counts say the same of it.
// A row of the games CSV up to its opening.
std::string csvRow(int cycle, std::size_t n, const Pairing& p, int result, ResultGroup group) {
    std::string row;
    for (const auto& field :
         {std::to_string(cycle), std::string(), std::to_string(n + 1), std::string(p.label),
          std::to_string(p.black), std::to_string(p.white), std::to_string(p.depthA),
          std::to_string(p.depthB), std::to_string(result), std::to_string(group.stones),
          std::string(1, group.letter)})
        row += field + ",";
    return row;
}

// The SGF tree of a finished game of round `round`, its date and version left out.
std::string sgfTree(const GameState& s, const std::string& round, const std::string& blackName,
                    const std::string& whiteName) {
    std::string tree = "(;FF[4]GM[4]SZ[15]EV[tournament, seed 11]RO[" + round + "]PB[" + blackName +
                       "]PW[" + whiteName + "]RE[" + std::array{"W+", "0", "B+"}[s.gameResult + 1] +
                       "]DT[]AP[]";
    for (int i = 1; i <= s.stepNum; ++i)
        tree += std::string(s.moveRecord[i].colour == black ? ";B[" : ";W[") +
                char('a' + s.moveRecord[i].x - 1) + char('a' + s.moveRecord[i].y - 1) + ']';
    return tree + ")\n";
}

TEST(Records, EveryOutputHoldsTheLibrarysGames) {
    ScratchDirectory dir;
    const std::string d = dir.path().string() + "/";
    writeBytes(d + "s.txt",
               "A-K-B(2):B(2) 3 2 2 2\nB(2):A-K-B(2) 2 3 2 2\n"
               "A(3):B-K-A(2) 1 4 3 2 \"A]\\\" \"b\" # escaped in the SGF\n"
               "B(3):A(1) 2 1 1 3\n");
    std::ostringstream out, err;
    ASSERT_EQ(runLine("tournament --cycles 3 --seed 11 --report @r.txt --games @g --sgf @a.sgf "
                      "--schedule @s.txt --games-csv @g.csv --summary-json @s.json",
                      d, out, err, shallowSearches()),
              exitDone)
        << err.str();
    const auto lines = reportLines(d + "r.txt");
    ASSERT_EQ(lines.size(), 8u);
    EXPECT_EQ(lines[1], "    A-K-B(2):B(2) , B(2):A-K-B(2) , A(3):B-K-A(2) , B(3):A(1)");
    const Schedule own = *loadSchedule(d + "s.txt").schedule;
    // Pairings 3 and 4 are other players: no pair statistics.
    EXPECT_NE(out.str().find("\n1-2 "), std::string::npos);
    EXPECT_EQ(out.str().find("\n3-4 "), std::string::npos);

    std::string trees;  // the SGF collection of the library's games, date and version aside
    std::string csv(gamesCsvHeader);
    std::array<std::array<int, 4>, 4> counts{};  // by pairing: A wins, draws, A losses, A credits
    Pentanomial pair{};
    SeededUniform uniform(11);
    LibraryGame library(shallowSearches());
    for (int cycle = 1; cycle <= 3; ++cycle) {
        const Opening opening = drawOpening(uniform);
        std::string stones = "8.8";  // the centre, then the seeded stones
        for (const Point& stone : opening.stones)
            stones += '-' + std::to_string(stone.x) + '.' + std::to_string(stone.y);
        std::string line = " ";  // no board file path, then the groups
        int pairPoints = 0;
        for (std::size_t n = 0; n < own.size(); ++n) {
            SCOPED_TRACE(std::to_string(cycle) + "." + std::to_string(n + 1));
            const ResultGroup group = playPairing(library.game, own[n], opening).group;
            const GameState& s = library.game.state();
            EXPECT_EQ(readBytes(d + "g/" + recordFileName(true, cycle, n + 1)), formatBoardFile(s));
            const Pairing& p = own[n];
            line += std::string(1, group.letter) + ' ' + std::to_string(group.stones) + ' ';
            csv += csvRow(cycle, n, p, s.gameResult, group) + stones + "\n";
            const int points = s.gameResult == gameDrawn                                 ? 1
                               : isAFamily(s.gameResult == blackWon ? p.black : p.white) ? 2
                                                                                         : 0;
            ++counts[n][static_cast<std::size_t>(2 - points)];
            counts[n][3] += group.letter == 'A';
            pairPoints += n < 2 ? points : 0;
            trees += sgfTree(s, std::to_string(cycle) + "." + std::to_string(n + 1),
                             n == 2 ? "A\\]\\\\" : std::string(p.blackCaption), p.whiteCaption);
        }
        EXPECT_EQ(lines[static_cast<std::size_t>(cycle) + 1], line);
        ++pair[static_cast<std::size_t>(pairPoints)];
    }
    const std::regex dateAndVersion(R"(DT\[\d{4}-\d\d-\d\d\]AP\[quintline-batch:[\d.]+\])");
    EXPECT_EQ(std::regex_replace(readBytes(d + "a.sgf"), dateAndVersion, "DT[]AP[]"), trees);
    EXPECT_EQ(readBytes(d + "g.csv"), csv);
    const auto summary = nlohmann::json::parse(readBytes(d + "s.json"));
    for (std::size_t n = 0; n < own.size(); ++n) {
        const auto& j = summary["pairings"][n];
        EXPECT_EQ((std::array<int, 4>{j["aWins"], j["draws"], j["aLosses"], j["aCredits"]}),
                  counts[n])
            << n;
    }
    EXPECT_EQ(summary["pairs"][0]["pentanomial"].get<Pentanomial>(), pair);
}

}  // namespace
}  // namespace quintline::batch
