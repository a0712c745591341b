#include <gtest/gtest.h>

#include "harness/testSuiteList.h"
#include "support/scratchDirectory.h"

namespace quintline {
namespace {

using testing::ScratchDirectory;
using testing::writeBytes;

TEST(TestSuiteList, ReadsNPathsAndNothingBeyond) {
    ScratchDirectory dir;
    const auto file = dir / "testsuit.txt";
    writeBytes(file, "3\r\nboards/a.txt\r\n\"C:\\x,y.txt\"\r\n  b c.txt  \r\nextra.txt\r\n");
    TestSuiteList list;
    std::string fault;
    ASSERT_TRUE(list.open(file, fault)) << fault;
    EXPECT_EQ(list.count(), 3);
    EXPECT_EQ(list.nextEntry(), "boards/a.txt");
    EXPECT_EQ(list.nextEntry(), "C:\\x,y.txt");
    EXPECT_EQ(list.nextEntry(), "b c.txt");
    EXPECT_EQ(list.nextEntry(), std::nullopt);
    EXPECT_EQ(list.nextEntry(), std::nullopt);
}

TEST(TestSuiteList, ShortListsZeroCountsAndFaults) {
    ScratchDirectory dir;
    const auto file = dir / "testsuit.txt";
    std::string fault;
    {
        writeBytes(file, "5,one.txt,two.txt");
        TestSuiteList list;
        ASSERT_TRUE(list.open(file, fault));
        EXPECT_EQ(list.nextEntry(), "one.txt");
        EXPECT_EQ(list.nextEntry(), "two.txt");
        EXPECT_EQ(list.nextEntry(), std::nullopt);
    }
    for (const char* zeroOrLess : {" 0 \r\na.txt\r\n", "-2\r\na.txt\r\n"}) {
        writeBytes(file, zeroOrLess);
        TestSuiteList list;
        ASSERT_TRUE(list.open(file, fault));
        EXPECT_EQ(list.nextEntry(), std::nullopt);
    }
    {
        TestSuiteList list;
        EXPECT_FALSE(list.open(dir / "missing.txt", fault));
        EXPECT_EQ(fault, (dir / "missing.txt").string() + " can not be opened");
    }
    const std::pair<const char*, const char*> broken[] = {
        {"", " is empty"},
        {"two\r\na.txt", " does not begin with the number of entries"},
        {"40000\r\n", ": the number of entries does not fit 16 bits"},
    };
    for (const auto& [text, message] : broken) {
        writeBytes(file, text);
        TestSuiteList list;
        EXPECT_FALSE(list.open(file, fault)) << text;
        EXPECT_EQ(fault, file.string() + message);
    }
}

}  // namespace
}  // namespace quintline
