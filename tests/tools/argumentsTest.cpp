// The command line of quintline-batch: each command with its defaults, and the
// usage errors.

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "batch/arguments.h"

namespace quintline::batch {
namespace {

using Words = std::vector<std::string_view>;

ParsedArguments parse(Words words, unsigned cores = 6) {
    return parseArguments(words, cores);
}

// The command of the kind expected, or an empty one after a failure.
template <typename C>
C parsed(Words words, unsigned cores = 6) {
    const ParsedArguments p = parse(words, cores);
    EXPECT_TRUE(p.command && std::holds_alternative<C>(*p.command)) << p.error;
    return p.command && std::holds_alternative<C>(*p.command) ? std::get<C>(*p.command) : C{};
}

TEST(Arguments, EachCommandWithItsDefaultsAndBothValueForms) {
    const auto t =
        parsed<TournamentCommand>({"tournament", "--cycles", "12", "--seed=18446744073709551615",
                                   "--jobs", "3", "--report", "out/r.txt"});
    EXPECT_EQ(std::tuple(t.cycles, t.seed, t.run.jobs, t.run.report),
              std::tuple(12, std::optional(18446744073709551615ull), 3u, "out/r.txt"));
    const auto d = parsed<TournamentCommand>({"tournament", "--cycles=032767"}, 5);
    EXPECT_EQ(std::tuple(d.cycles, d.seed, d.run.jobs, d.run.report, d.run.sprt.has_value()),
              std::tuple(32767, std::nullopt, 5u, "result.txt", false));
    const auto s = parsed<TestSuiteCommand>({"testsuite"}, 4);
    EXPECT_EQ(std::tuple(s.list, s.run.report, s.run.jobs, s.run.gamesCsv, s.run.summaryJson),
              std::tuple("testsuit.txt", "result.txt", 4u, "", ""));
    const auto l = parsed<TestSuiteCommand>({"testsuite", "--report", "a", "--list", "b", "--jobs",
                                             "1", "--games-csv", "g", "--summary-json", "j",
                                             "--sprt", "7", "--elo0=-5.5", "--elo1", "10"});
    EXPECT_EQ(std::tuple(l.list, l.run.report, l.run.jobs, l.run.gamesCsv, l.run.summaryJson),
              std::tuple("b", "a", 1u, "g", "j"));
    ASSERT_TRUE(l.run.sprt);
    EXPECT_EQ(std::tuple(l.run.sprt->pair, l.run.sprt->elo0, l.run.sprt->elo1, l.run.sprt->alpha,
                         l.run.sprt->beta),
              std::tuple(7, -5.5, 10.0, 0.05, 0.05));
    // The board file may stand anywhere among the options.
    const auto a = parsed<AnalyseCommand>(
        {"analyse", "--kind", "4", "pos.txt", "--depth", "0", "--white", "0"});
    EXPECT_EQ(std::tuple(a.boardFile, a.kind, a.depth, a.black, a.white),
              std::tuple("pos.txt", 4, 0, std::nullopt, 0));
    // Help of the program or of one command, whatever else is given.
    for (const auto& [words, text] :
         {std::pair(Words{"-h"}, "quintline-batch analyse BOARDFILE --kind K --depth D"),
          {Words{"tournament", "--cycles", "x", "--help"}, "--sprt PAIR"},
          {Words{"bogus", "-h"}, "Subcommands:"},
          {Words{"analyse", "--help"}, "Usage: quintline-batch analyse [OPTIONS] BOARDFILE"}})
        EXPECT_NE(parsed<HelpRequest>(words).text.find(text), std::string::npos) << text;
}

TEST(Arguments, UsageErrorsNameTheProblem) {
    const std::pair<Words, std::string_view> cases[] = {
        {{}, "no command"},
        {{"play"}, "unknown command 'play'"},
        {{"tournament"}, "--cycles is required"},
        {{"tournament", "--cycles", "0"}, "--cycles: takes a whole number from 1 to 32767"},
        {{"tournament", "--cycles", "5x"}, "not '5x'"},
        {{"tournament", "--cycles", "2", "extra"}, "extra"},
        {{"tournament", "--cycles", "2", "--seed", "-1"}, "--seed: takes a whole number"},
        {{"tournament", "--cycles", "2", "--seed", "18446744073709551616"}, "--seed"},
        {{"testsuite", "--jobs", "0"}, "--jobs: takes a whole number from 1"},
        {{"testsuite", "--sprt", "33", "--elo0", "0", "--elo1", "5"}, "from 1 to 32"},
        {{"testsuite", "--sprt", "1", "--elo0", "0"}, "--sprt requires --elo1"},
        {{"testsuite", "--alpha", "0.1"}, "--alpha requires --sprt"},
        {{"testsuite", "--sprt", "1", "--elo0", "5", "--elo1", "5"}, "--elo0 must be below"},
        {{"testsuite", "--sprt", "1", "--elo0", "nan", "--elo1", "5"}, "--elo0: takes a number"},
        {{"testsuite", "--sprt", "1", "--elo0", "0", "--elo1", "1001"}, "from -1000 to 1000"},
        {{"testsuite", "--sprt", "1", "--elo0", "0", "--elo1", "5", "--beta", "0"},
         "--beta: takes a number above 0 and below 0.5"},
        {{"analyse", "--kind", "1", "--depth", "2"}, "BOARDFILE is required"},
        {{"analyse", "a", "b", "--kind", "1", "--depth", "2"}, "not expected: b"},
        {{"analyse", "a", "--depth", "2"}, "--kind is required"},
        {{"analyse", "a", "--kind", "5", "--depth", "2"},
         "--kind: takes a whole number from 1 to 4"},
        {{"analyse", "a", "--kind", "1", "--depth", "9"},
         "--depth: takes a whole number from 0 to 8"},
    };
    for (const auto& [words, error] : cases) {
        const auto p = parse(words);
        EXPECT_FALSE(p.command) << error;
        EXPECT_NE(p.error.find(error), std::string::npos)
            << "got '" << p.error << "', wanted '" << error << "'";
    }
}

}  // namespace
}  // namespace quintline::batch
