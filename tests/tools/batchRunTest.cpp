// The batch commands in-process: reports equal to the library's runs whatever
// the number of threads, exit codes and messages, runs cut short, and the
// records of every game.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <atomic>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "batch/batchRun.h"
#include "batch/commands.h"
#include "batch/gamesCsv.h"
#include "batch/runKeeper.h"
#include "batch/statistics.h"
#include "boardfile/boardFile.h"
#include "harness/fakes.h"
#include "harness/scheduleFile.h"
#include "harness/tournament.h"
#include "tools/batchFixtures.h"

namespace quintline::batch {
namespace {

const Schedule& schedule = Schedule::fixed();

using namespace quintline::testing;

// The same readings for every run, so that whole reports can be compared.
ScriptedClock sameClock() {
    return ScriptedClock({"10:00:00", "10:05:00"}, {36000.0f, 36300.5f});
}

// Runs a command line in-process, "@" standing for `d`.
int runLine(const std::string& line, const std::string& d, std::ostream& out, std::ostream& err,
            const SearchSet& searches = {}) {
    std::vector<std::string> args;
    std::istringstream words(line);
    for (std::string word; words >> word;)
        if (word != ">") args.push_back(word[0] == '@' ? d + word.substr(1) : word);
    ScriptedClock clock = sameClock();
    std::atomic<bool> stop{false};
    Environment environment{clock, stop, searches};
    std::ostream full(nullptr);  // "> ..." writes its results to a stdout that fails
    return runCommandLine(std::vector<std::string_view>(args.begin(), args.end()), 2, environment,
                          {line[0] == '>' ? full : out, err});
}

TournamentCommand tournament(int cycles, std::optional<std::uint64_t> seed, unsigned jobs,
                             const std::filesystem::path& report) {
    TournamentCommand command{cycles, seed, {}};
    std::tie(command.run.jobs, command.run.report) = std::tuple(jobs, report.string());
    return command;
}

// Lines split into fields at `separator`, or into words at blanks.
std::vector<std::vector<std::string>> fields(const std::string& text, char separator = ' ') {
    std::vector<std::vector<std::string>> rows;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream in(line);
        rows.emplace_back();
        for (std::string field; std::getline(in, field, separator);)
            if (separator != ' ' || !field.empty()) rows.back().push_back(field);
    }
    return rows;
}

// The CSV rows, the JSON summary and the table of a tournament say what its
// report's game lines say, and the figures on pairs come from the games of
// each cycle.
void expectAgreement(const std::vector<std::string>& report, const std::string& csv,
                     const nlohmann::json& summary, const std::string& table, std::size_t cycles,
                     std::uint64_t seed) {
    const auto rows = fields(csv, ',');
    const auto words = fields(table);
    ASSERT_EQ(rows.size(), 1 + cycles * schedule.size());
    EXPECT_EQ(csv.substr(0, gamesCsvHeader.size()), gamesCsvHeader);
    std::vector<std::array<std::size_t, 4>> counts(schedule.size());  // W, D, L, credits
    std::vector<Pentanomial> pentanomials(schedule.size() / 2);
    SeededUniform uniform(seed);
    for (std::size_t c = 0; c < cycles; ++c) {
        std::ostringstream opening;  // the centre, then the seeded stones
        opening << "8.8";
        for (const Point& stone : drawOpening(uniform).stones)
            opening << '-' << stone.x << '.' << stone.y;
        std::string line = " ";  // no board file path, then the groups
        std::vector<int> points;
        for (std::size_t n = 0; n < schedule.size(); ++n) {
            const auto& row = rows[1 + c * schedule.size() + n];
            const Pairing& p = schedule[n];
            std::ostringstream fixed;
            fixed << c + 1 << ",," << n + 1 << ',' << p.label << ',' << p.black << ',' << p.white
                  << ',' << p.depthA << ',' << p.depthB;
            EXPECT_EQ(std::vector(row.begin(), row.begin() + 8), fields(fixed.str(), ',')[0]);
            EXPECT_EQ(row[11], opening.str());
            line += row[10] + " " + row[9] + " ";
            const int result = std::stoi(row[8]);
            points.push_back(result == 0 ? 1 : isAFamily(result > 0 ? p.black : p.white) ? 2 : 0);
            ++counts[n][static_cast<std::size_t>(2 - points.back())];
            counts[n][3] += row[10] == "A";
        }
        EXPECT_EQ(report[2 + c], line);
        for (std::size_t k = 0; k < pentanomials.size(); ++k)
            ++pentanomials[k][static_cast<std::size_t>(points[2 * k] + points[2 * k + 1])];
    }
    for (std::size_t n = 0; n < schedule.size(); ++n) {
        const auto& j = summary["pairings"][n];
        const auto& row = words[1 + n];
        const std::array<std::size_t, 4> json{j["aWins"], j["draws"], j["aLosses"], j["aCredits"]};
        const std::array<std::size_t, 4> printed{std::stoul(row[6]), std::stoul(row[7]),
                                                 std::stoul(row[8]), std::stoul(row[3])};
        EXPECT_EQ(std::tuple(json, printed), std::tuple(counts[n], counts[n])) << n;
    }
    for (std::size_t k = 0; k < pentanomials.size(); ++k) {
        std::ostringstream printed;
        for (std::size_t count : pentanomials[k]) printed << count << ' ';
        EXPECT_EQ(summary["pairs"][k]["pentanomial"].get<Pentanomial>(), pentanomials[k]);
        EXPECT_EQ(std::vector(words[17 + k].end() - 5, words[17 + k].end()),
                  fields(printed.str())[0]);
    }
}

TEST(BatchRun, ATournamentOnOneOrTwoThreadsWritesTheLibraryRunsReportAndAgreeingFiguresBeside) {
    ScratchDirectory dir;
    const SearchSet shallow = shallowSearches();
    constexpr int cycles = 5;
    LibraryGame library(shallow);
    library.game.state().cycleCount = cycles;
    SeededUniform uniform(2024);
    ScriptedClock libraryClock = sameClock();
    runTournament(library.game, uniform, libraryClock, dir / "library.txt");
    const auto lines = reportLines(dir / "library.txt");
    ASSERT_EQ(lines.size(), 2u + cycles + 3u);

    std::vector<std::string> outputs;
    for (unsigned jobs : {1u, 2u}) {
        ScriptedClock clock = sameClock();
        std::atomic<bool> stop{false};
        Environment environment{clock, stop, shallow};
        std::ostringstream out, err;
        const auto name = dir / ("jobs" + std::to_string(jobs));
        TournamentCommand command = tournament(cycles, 2024, jobs, name.string() + ".txt");
        command.run.gamesCsv = name.string() + ".csv";
        command.run.summaryJson = name.string() + ".json";
        const bool progress = jobs == 2;
        EXPECT_EQ(tournamentCommand(command, environment, {out, err, progress}), exitDone);
        EXPECT_EQ(readBytes(name.string() + ".txt"), readBytes(dir / "library.txt")) << jobs;
        // The progress line, rewritten in place and ended at the end, only when asked for.
        EXPECT_TRUE(progress ? err.str().find("\r70/70 games") != std::string::npos &&
                                   err.str().back() == '\n'
                             : err.str().empty())
            << err.str();
        nlohmann::json summary = nlohmann::json::parse(readBytes(name.string() + ".json"));
        EXPECT_EQ(summary["run"], nlohmann::json::parse(R"({"command": "tournament", "seed": 2024,
            "jobs": )" + std::to_string(jobs) + R"(, "played": 5, "stoppedBy": null})"));
        expectAgreement(lines, readBytes(name.string() + ".csv"), summary, out.str(), cycles, 2024);
        summary["run"].erase("jobs");
        outputs.push_back(out.str() + readBytes(name.string() + ".csv") + summary.dump());
    }
    EXPECT_EQ(outputs[0], outputs[1]);
}

TEST(BatchRun, AnSprtStopIsTheSameOnOneOrTwoThreadsAndKeepsWhatAShorterRunWrites) {
    ScratchDirectory dir;
    std::vector<std::string> kept;  // untimed report lines and CSV
    std::vector<std::string> printed;
    int played = 0;
    for (unsigned jobs : {1u, 2u, 0u}) {  // 0: a plain run of the cycles the test kept
        ScriptedClock clock = sameClock();
        std::atomic<bool> stop{false};
        Environment environment{clock, stop, shallowSearches()};
        std::ostringstream out, err;
        const auto name = (dir / ("jobs" + std::to_string(jobs))).string();
        TournamentCommand command = tournament(jobs ? 40 : played, 11, std::max(jobs, 1u), name);
        command.run.gamesCsv = name + ".csv";
        command.run.summaryJson = name + ".json";
        if (jobs) command.run.sprt = SprtOptions{5, 0, 50, 0.05, 0.05};
        ASSERT_EQ(tournamentCommand(command, environment, {out, err}), exitDone) << err.str();
        const auto summary = nlohmann::json::parse(readBytes(name + ".json"));
        std::string lines;
        for (const std::string& line : reportLines(name, true)) lines += line + '\n';
        kept.push_back(lines + readBytes(name + ".csv"));
        if (!jobs) break;
        played = summary["run"]["played"];
        printed.push_back(out.str());
        const std::string verdict = summary["sprt"]["result"];
        EXPECT_EQ(verdict == "H1", summary["sprt"]["llr"] >= summary["sprt"]["upper"]);
        EXPECT_EQ(std::tuple(summary["run"]["stoppedBy"], summary["sprt"]["result"].is_string()),
                  std::tuple("sprt", true));
        EXPECT_NE(out.str().find("\nSPRT: " + verdict + " accepted, LLR "), std::string::npos);
        EXPECT_EQ(reportLines(name).size(), 5u + static_cast<std::size_t>(played));
    }
    EXPECT_LT(played, 40);
    EXPECT_EQ(std::tuple(kept[0], printed[0]), std::tuple(kept[1], printed[1]));
    EXPECT_EQ(kept[0], kept[2]);
}

TEST(BatchRun, WithoutASeedTheClockSeedIsPrintedAndRepeatsTheRun) {
    ScratchDirectory dir;
    ScriptedClock clock1 = sameClock(), clock2 = sameClock();
    std::atomic<bool> stop{false};
    Environment first{clock1, stop, shallowSearches()}, second{clock2, stop, shallowSearches()};
    std::ostringstream out, err;
    ASSERT_EQ(tournamentCommand(tournament(2, {}, 2, dir / "a.txt"), first, {out, err}), exitDone);
    const std::string text = err.str();
    ASSERT_EQ(text.rfind("quintline-batch: seed ", 0), 0u) << text;
    const std::uint64_t seed = std::stoull(text.substr(22));
    EXPECT_NE(text.find("(repeat with --seed " + std::to_string(seed) + ")"), std::string::npos);
    ASSERT_EQ(tournamentCommand(tournament(2, seed, 1, dir / "b.txt"), second, {out, err}),
              exitDone);
    EXPECT_EQ(readBytes(dir / "a.txt"), readBytes(dir / "b.txt"));
}

TEST(Commands, ExitCodesAndMessagesOfEachKindOfEnd) {
    ScratchDirectory dir;
    const std::string d = dir.path().string() + "/";
    writeBoardFile(d + "small.txt", {{8, 8}, {9, 8}, {7, 6}});
    writeBoardFile(d + "empty.txt", {});
    writeBytes(d + "wide.txt", wideBoardFile);
    writeBytes(d + "none.txt", "0\r\n");
    // Lists that are refused, fall short of their count, or hold entries that can't be paths.
    writeBytes(d + "minus.txt", "-1\r\nsmall.txt\r\n");
    writeBytes(d + "huge.txt", "40000\r\n");
    writeBytes(d + "long.txt", std::string(5000, '7'));
    writeBytes(d + "short.txt", "3\r\n" + d + "small.txt\r\n");
    writeBytes(d + "odd.txt", "4\r\n\"a\rb\"\r\n/dev/zero\r\n" + d + "small.txt\r\n\"sm");
    // Arguments (@ for the scratch directory), exit status, and a text that
    // stdout and stderr must hold, or nothing.
    const std::tuple<std::string, int, std::string, std::string> rows[] = {
        {"", exitUsage, "", "quintline-batch: no command given\nTry 'quintline-batch --help'.\n"},
        {"analyse --help", exitDone, "Usage: quintline-batch analyse", ""},
        {"analyse @small.txt --kind 4 --depth 2", exitDone, "9 9 75 160\n", ""},
        {"analyse @small.txt --kind 1 --depth 2", exitDone, "10 7 160\n", ""},
        {"analyse @empty.txt --kind 1 --depth 2", exitDone, "0 0 -2147483647\n", ""},
        // The modeller must play the side to move, and the other side another kind.
        {"analyse @small.txt --kind 3 --depth 2 --white 2", exitUsage, "",
         "quintline-batch: kind 3 searches for the side to move, white here"},
        {"analyse @small.txt --kind 3 --depth 2 --black 3", exitUsage, "", "white here"},
        {"analyse @wide.txt --kind 1 --depth 2", exitRefused, "",
         "quintline-batch: the gird size or the piece number is not suitable! Not loaded\n"},
        {"analyse @missing.txt --kind 1 --depth 2", exitRefused, "",
         "missing.txt: board file cannot be opened! Not loaded\n"},
        {"testsuite --list @nolist.txt --report @never.txt", exitRefused, "",
         "quintline-batch: " + d + "nolist.txt can not be opened! Not started\n"},
        {"tournament --cycles 3 --report @", exitRefused, "",
         "quintline-batch: " + d + " can not be written! Not started\n"},
        {"tournament --cycles 1 --schedule @wide.txt --report @never.txt", exitRefused, "",
         "quintline-batch: " + d + "wide.txt:1: expected: label black white"},
        {"resume --report @never.txt", exitRefused, "",
         "no unfinished run to resume: " + d + "never.txt.run.json can not be opened\n"},
        {"tournament --cycles 3 --report @never.txt --summary-json @no/s.json", exitRefused, "",
         "quintline-batch: " + d + "no/s.json can not be written! Not started\n"},
        {"testsuite --list @none.txt --report @never.txt --games-csv @no/g.csv", exitRefused, "",
         "no/g.csv can not be written! Not started\n"},
        {"testsuite --list @none.txt --report @r.txt", exitDone, "1 A(3):B(2)", ""},
        // > for stdout on a full disk, where every write fails.
        {"> analyse @small.txt --kind 1 --depth 1", exitRefused, "",
         "quintline-batch: the results could not be written to stdout\n"},
        {"analyse /dev/zero --kind 1 --depth 2", exitRefused, "",
         "quintline-batch: /dev/zero: board file is larger than 64 KiB! Not loaded\n"},
        {"testsuite --list /dev/zero --report @never.txt", exitRefused, "",
         "quintline-batch: /dev/zero is larger than 4 MiB! Not started\n"},
        {"testsuite --list @minus.txt --report @never.txt", exitRefused, "",
         "minus.txt: the number of entries \"-1\" is outside 0 to 32767! Not started\n"},
        {"testsuite --list @huge.txt --report @never.txt", exitRefused, "", "\"40000\" is outside"},
        {"testsuite --list @long.txt --report @never.txt", exitRefused, "",
         "long.txt does not begin with the number of entries! Not started\n"},
        {"testsuite --list @short.txt --report @short-report.txt", exitRefused, "1 A(3):B(2)",
         "quintline-batch: " + d + "short.txt ends early: 2 of 3 entries missing\n"},
        {"testsuite --list @odd.txt --report @odd-report.txt", exitDone, "1 A(3):B(2)",
         "entry 1 skipped: its path \"a\\rb\" holds a line end or NUL\nentry 2 (/dev/zero) "
         "skipped: /dev/zero: board file is larger than 64 KiB! Not loaded\n"
         "entry 4 skipped: its path \"sm\" lacks its closing quote\n"}};
    for (const auto& [line, status, out, err] : rows) {
        SCOPED_TRACE(line);
        std::ostringstream printed, complained;
        EXPECT_EQ(runLine(line, d, printed, complained), status);  // the real searches
        for (const auto& [text, wanted] : {std::pair(printed.str(), out), {complained.str(), err}})
            EXPECT_TRUE(wanted.empty() ? text.empty() : text.find(wanted) != std::string::npos)
                << text;
    }
    EXPECT_FALSE(std::filesystem::exists(d + "never.txt") ||
                 std::filesystem::exists(d + "r.txt.run.json"));
    // Whole blocks, each line ended once, their tails naming the last path played.
    for (const char* report : {"short-report.txt", "odd-report.txt"}) {
        const std::string text = readBytes(d + report);
        EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), 6) << text;
        EXPECT_EQ(reportLines(d + report).back().rfind(d + "small.txtUsed Time", 0), 0u) << text;
    }
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
// writes after the same game in the library, Read and the replay buttons step
// it to the report's group, and the SGF collection holds the same games.
TEST(Records, BoardFilesReplayToTheReportAndTheSgfAgrees) {
    ScratchDirectory dir;
    const std::string d = dir.path().string() + "/";
    writeBytes(d + "s.txt",
               "A-K-B(2):B(2) 3 2 2 2\nB(2):A-K-B(2) 2 3 2 2\n"
               "A(3):B-K-A(2) 1 4 3 2 \"A]\\\" \"b\" # escaped in the SGF\n"
               "B(2):A(2) 2 1 2 2\n");
    std::ostringstream out, err;
    ASSERT_EQ(runLine("tournament --cycles 3 --seed 11 --report @r.txt --games @g --sgf @a.sgf "
                      "--schedule @s.txt",
                      d, out, err, shallowSearches()),
              exitDone)
        << err.str();
    const auto lines = reportLines(d + "r.txt");
    ASSERT_EQ(lines.size(), 8u);
    EXPECT_EQ(lines[1], "    A-K-B(2):B(2) , B(2):A-K-B(2) , A(3):B-K-A(2) , B(2):A(2)");
    const Schedule own = *loadSchedule(d + "s.txt").schedule;
    // Pairings 3 and 4 are other players: no pair statistics.
    EXPECT_NE(out.str().find("\n1-2 "), std::string::npos);
    EXPECT_EQ(out.str().find("\n3-4 "), std::string::npos);

    const std::string sgf = readBytes(d + "a.sgf");
    const std::regex tree(
        R"(\(;FF\[4\]GM\[4\]SZ\[15\]EV\[tournament, seed 11\]RO\[(\d+\.\d)\])"
        R"(PB\[((?:[^\]\\]|\\.)*)\]PW\[([^\]]*)\]RE\[(B\+|W\+|0)\]DT\[\d{4}-\d\d-\d\d\])"
        R"(AP\[quintline-batch:[\d.]+\]((?:;[BW]\[[a-o]{2}\])*)\)\n)");
    auto trees = std::sregex_iterator(sgf.begin(), sgf.end(), tree);
    std::size_t parsed = 0;
    SeededUniform uniform(11);
    LibraryGame library(shallowSearches()), viewer;
    for (int cycle = 1; cycle <= 3; ++cycle) {
        const Opening opening = drawOpening(uniform);
        std::istringstream groups(lines[static_cast<std::size_t>(cycle) + 1]);
        for (std::size_t n = 0; n < own.size(); ++n, ++trees) {
            SCOPED_TRACE(std::to_string(cycle) + "." + std::to_string(n + 1));
            const std::string file = d + "g/" + recordFileName(true, cycle, n + 1);
            const ResultGroup group = playPairing(library.game, own[n], opening).group;
            EXPECT_EQ(readBytes(file), formatBoardFile(library.game.state()));
            GameState& s = viewer.game.state();
            s.boardFilePath = file;
            readBoardFile(viewer.game);
            do viewer.game.stepForward();
            while (s.movesAhead > 0);
            ResultGroup reported;
            groups >> reported.letter >> reported.stones;
            EXPECT_EQ(creditGame(own[n], s.gameResult, s.stepNum), reported);
            EXPECT_EQ(group, reported);

            ASSERT_NE(trees, std::sregex_iterator());
            const std::smatch& m = *trees;
            parsed += static_cast<std::size_t>(m.length());
            std::string moves;
            for (int i = 1; i <= s.stepNum; ++i)
                moves += std::string(s.moveRecord[i].colour == black ? ";B[" : ";W[") +
                         char('a' + s.moveRecord[i].x - 1) + char('a' + s.moveRecord[i].y - 1) +
                         ']';
            EXPECT_EQ(std::vector<std::string>(m.begin() + 1, m.end()),
                      (std::vector<std::string>{std::to_string(cycle) + "." + std::to_string(n + 1),
                                                n == 2 ? "A\\]\\\\" : own[n].blackCaption,
                                                own[n].whiteCaption,
                                                s.gameResult == blackWon   ? "B+"
                                                : s.gameResult == whiteWon ? "W+"
                                                                           : "0",
                                                moves}));
        }
    }
    EXPECT_EQ(parsed, sgf.size());

    // The fixed pairings given as a file: the same report, byte for byte.
    for (const std::string option : {"", " --schedule " QUINTLINE_SCHEDULES_DIR "/default.txt"})
        EXPECT_EQ(runLine("tournament --cycles 2 --seed 5 --report @" +
                              std::to_string(option.empty()) + ".txt" + option,
                          d, out, err, shallowSearches()),
                  exitDone);
    EXPECT_EQ(readBytes(d + "0.txt"), readBytes(d + "1.txt"));
    EXPECT_FALSE(std::filesystem::exists(d + "0.txt.run.json"));
}

}  // namespace
}  // namespace quintline::batch
