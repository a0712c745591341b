#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "batch/arguments.h"

namespace quintline::batch {
namespace {

ParsedArguments parse(std::vector<std::string_view> words, unsigned cores = 6) {
    return parseArguments(words, cores);
}

TEST(Arguments, TournamentOptionsDefaultsAndBothValueForms) {
    const auto full = parse({"tournament", "--cycles", "12", "--seed=18446744073709551615",
                             "--jobs", "3", "--report", "out/r.txt"});
    ASSERT_TRUE(full.command) << full.error;
    const auto& t = std::get<TournamentCommand>(*full.command);
    EXPECT_EQ(t.cycles, 12);
    EXPECT_EQ(t.seed, 18446744073709551615ull);
    EXPECT_EQ(t.jobs, 3u);
    EXPECT_EQ(t.report, "out/r.txt");

    const auto bare = parse({"tournament", "--cycles=32767"}, 5);
    ASSERT_TRUE(bare.command) << bare.error;
    const auto& d = std::get<TournamentCommand>(*bare.command);
    EXPECT_EQ(d.cycles, 32767);
    EXPECT_FALSE(d.seed);
    EXPECT_EQ(d.jobs, 5u);
    EXPECT_EQ(d.report, "result.txt");
}

TEST(Arguments, TestSuiteAndAnalyse) {
    const auto suite = parse({"testsuite"}, 4);
    ASSERT_TRUE(suite.command) << suite.error;
    const auto& s = std::get<TestSuiteCommand>(*suite.command);
    EXPECT_EQ(s.list, "testsuit.txt");
    EXPECT_EQ(s.report, "result.txt");
    EXPECT_EQ(s.jobs, 4u);
    const auto listed = parse({"testsuite", "--report", "a", "--list", "b", "--jobs", "1"});
    ASSERT_TRUE(listed.command) << listed.error;
    EXPECT_EQ(std::get<TestSuiteCommand>(*listed.command).list, "b");
    EXPECT_EQ(std::get<TestSuiteCommand>(*listed.command).report, "a");
    EXPECT_EQ(std::get<TestSuiteCommand>(*listed.command).jobs, 1u);

    // The board file may stand anywhere among the options.
    const auto a = parse({"analyse", "--kind", "4", "pos.txt", "--depth", "0", "--white", "0"});
    ASSERT_TRUE(a.command) << a.error;
    const auto& an = std::get<AnalyseCommand>(*a.command);
    EXPECT_EQ(an.boardFile, "pos.txt");
    EXPECT_EQ(an.kind, 4);
    EXPECT_EQ(an.depth, 0);
    EXPECT_FALSE(an.black);
    EXPECT_EQ(an.white, 0);
}

TEST(Arguments, HelpWinsAnywhere) {
    for (auto words : std::vector<std::vector<std::string_view>>{
             {"--help"}, {"-h"}, {"tournament", "--help"}, {"bogus", "--cycles", "x", "-h"}}) {
        const auto parsed = parse(words);
        ASSERT_TRUE(parsed.command);
        EXPECT_TRUE(std::holds_alternative<HelpRequest>(*parsed.command));
    }
    EXPECT_NE(helpText().find("quintline-batch analyse BOARDFILE --kind K --depth D"),
              std::string_view::npos);
}

TEST(Arguments, UsageErrorsNameTheProblem) {
    struct Case {
        std::vector<std::string_view> words;
        std::string_view error;
    };
    const std::vector<Case> cases = {
        {{}, "no command"},
        {{"play"}, "unknown command 'play'"},
        {{"tournament"}, "needs --cycles"},
        {{"tournament", "--cycles", "0"}, "--cycles takes a whole number from 1 to 32767"},
        {{"tournament", "--cycles", "32768"}, "from 1 to 32767"},
        {{"tournament", "--cycles", "5x"}, "not '5x'"},
        {{"tournament", "--cycles", "-3"}, "--cycles"},
        {{"tournament", "--cycles"}, "--cycles needs a value"},
        {{"tournament", "--cycles", "2", "--cycles", "3"}, "given twice"},
        {{"tournament", "--cycles", "2", "--list", "x"}, "unknown option --list"},
        {{"tournament", "--cycles", "2", "extra"}, "unexpected argument 'extra'"},
        {{"tournament", "--cycles", "2", "--seed", "-1"}, "--seed"},
        {{"tournament", "--cycles", "2", "--jobs", "0"}, "--jobs takes a whole number from 1"},
        {{"testsuite", "--jobs", "257"}, "to 256"},
        {{"testsuite", "--seed", "1"}, "unknown option --seed"},
        {{"analyse", "--kind", "1", "--depth", "2"}, "needs a board file"},
        {{"analyse", "a", "b", "--kind", "1", "--depth", "2"}, "one board file, not 2"},
        {{"analyse", "a", "--depth", "2"}, "needs --kind K and --depth D"},
        {{"analyse", "a", "--kind", "1"}, "needs --kind K and --depth D"},
        {{"analyse", "a", "--kind", "0", "--depth", "2"},
         "--kind takes a whole number from 1 to 4"},
        {{"analyse", "a", "--kind", "5", "--depth", "2"}, "--kind"},
        {{"analyse", "a", "--kind", "1", "--depth", "9"},
         "--depth takes a whole number from 0 to 8"},
        {{"analyse", "a", "--kind", "1", "--depth", "2", "--black", "5"}, "--black"},
        {{"analyse", "a", "--kind", "1", "--depth", "2", "--white", "-1"}, "--white"},
    };
    for (const Case& c : cases) {
        const auto parsed = parse(c.words);
        EXPECT_FALSE(parsed.command) << c.error;
        EXPECT_NE(parsed.error.find(c.error), std::string::npos)
            << "got '" << parsed.error << "', wanted '" << c.error << "'";
    }
}

}  // namespace
}  // namespace quintline::batch
