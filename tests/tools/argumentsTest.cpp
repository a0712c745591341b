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
    EXPECT_EQ(std::tuple(t.cycles, t.seed, t.jobs, t.report),
              std::tuple(12, std::optional(18446744073709551615ull), 3u, "out/r.txt"));
    const auto d = parsed<TournamentCommand>({"tournament", "--cycles=32767"}, 5);
    EXPECT_EQ(std::tuple(d.cycles, d.seed, d.jobs, d.report),
              std::tuple(32767, std::nullopt, 5u, "result.txt"));
    const auto s = parsed<TestSuiteCommand>({"testsuite"}, 4);
    EXPECT_EQ(std::tuple(s.list, s.report, s.jobs), std::tuple("testsuit.txt", "result.txt", 4u));
    const auto l =
        parsed<TestSuiteCommand>({"testsuite", "--report", "a", "--list", "b", "--jobs", "1"});
    EXPECT_EQ(std::tuple(l.list, l.report, l.jobs), std::tuple("b", "a", 1u));
    // The board file may stand anywhere among the options.
    const auto a = parsed<AnalyseCommand>(
        {"analyse", "--kind", "4", "pos.txt", "--depth", "0", "--white", "0"});
    EXPECT_EQ(std::tuple(a.boardFile, a.kind, a.depth, a.black, a.white),
              std::tuple("pos.txt", 4, 0, std::nullopt, 0));
    // Help wins anywhere.
    for (const Words& words :
         {Words{"-h"}, Words{"tournament", "--help"}, Words{"bogus", "--cycles", "x", "-h"}})
        parsed<HelpRequest>(words);
    EXPECT_NE(helpText().find("quintline-batch analyse BOARDFILE --kind K --depth D"),
              std::string_view::npos);
}

TEST(Arguments, UsageErrorsNameTheProblem) {
    const std::pair<Words, std::string_view> cases[] = {
        {{}, "no command"},
        {{"play"}, "unknown command 'play'"},
        {{"tournament"}, "needs --cycles"},
        {{"tournament", "--cycles", "0"}, "--cycles takes a whole number from 1 to 32767"},
        {{"tournament", "--cycles", "32768"}, "from 1 to 32767"},
        {{"tournament", "--cycles", "5x"}, "not '5x'"},
        {{"tournament", "--cycles"}, "--cycles needs a value"},
        {{"tournament", "--cycles", "2", "--cycles", "3"}, "given twice"},
        {{"tournament", "--cycles", "2", "--list", "x"}, "unknown option --list"},
        {{"tournament", "--cycles", "2", "extra"}, "unexpected argument 'extra'"},
        {{"tournament", "--cycles", "2", "--seed", "-1"}, "--seed"},
        {{"testsuite", "--jobs", "0"}, "--jobs takes a whole number from 1"},
        {{"testsuite", "--jobs", "257"}, "to 256"},
        {{"analyse", "--kind", "1", "--depth", "2"}, "needs a board file"},
        {{"analyse", "a", "b", "--kind", "1", "--depth", "2"}, "one board file, not 2"},
        {{"analyse", "a", "--depth", "2"}, "needs --kind K and --depth D"},
        {{"analyse", "a", "--kind", "5", "--depth", "2"},
         "--kind takes a whole number from 1 to 4"},
        {{"analyse", "a", "--kind", "1", "--depth", "9"},
         "--depth takes a whole number from 0 to 8"},
        {{"analyse", "a", "--kind", "1", "--depth", "2", "--white", "-1"}, "--white"},
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
