#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "ui/registry.h"
#include "ui/sysInfo.h"

namespace quintline {
namespace {

const std::string key = "SOFTWARE\\Quintline\\Test";

// The bytes of a 32-bit number as the registry stores it, low byte first.
std::string dword(std::uint32_t v) {
    return {char(v & 0xFF), char((v >> 8) & 0xFF), char((v >> 16) & 0xFF), char(v >> 24)};
}

TEST(GetKeyValue, StringLosesOnlyOneTerminatingZero) {
    MemoryRegistry store;
    store.setValue(hkeyLocalMachine, key, "withZero", regString, std::string("C:\\tool\0", 8));
    store.setValue(hkeyLocalMachine, key, "withoutZero", regString, "C:\\tool");
    store.setValue(hkeyLocalMachine, key, "twoZeros", regString, std::string("ab\0\0", 4));
    store.setValue(hkeyLocalMachine, key, "empty", regString, "");

    std::string value = "old";
    EXPECT_TRUE(GetKeyValue(store, hkeyLocalMachine, key, "withZero", value));
    EXPECT_EQ(value, "C:\\tool");
    EXPECT_TRUE(GetKeyValue(store, hkeyLocalMachine, key, "withoutZero", value));
    EXPECT_EQ(value, "C:\\tool");
    EXPECT_TRUE(GetKeyValue(store, hkeyLocalMachine, key, "twoZeros", value));
    EXPECT_EQ(value, std::string("ab\0", 3));
    EXPECT_TRUE(GetKeyValue(store, hkeyLocalMachine, key, "empty", value));
    EXPECT_EQ(value, "");
    EXPECT_EQ(store.openCount(), 0u);
}

TEST(GetKeyValue, NumberBecomesDecimalTextOfItsUnpaddedHexBytes) {
    MemoryRegistry store;
    const struct {
        std::uint32_t stored;
        const char* text;
    } rows[] = {
        {0x12345678, "305419896"},
        {0xFFFFFFFF, "-1"},  // the formatting reads the digits as a signed number
        {1, "1"},            // the high zero byte goes as a terminating zero: "&h001"
        // Bytes below 0x10 give one digit each, so 0x01020304 reads as &h1234.
        {0x01020304, "4660"},
        // A zero byte inside stays as one digit "0": 00 01 00 reads as &h010.
        {0x0100, "16"},
    };
    for (const auto& row : rows) {
        store.setValue(hkeyLocalMachine, key, "n", regNumber, dword(row.stored));
        std::string value;
        EXPECT_TRUE(GetKeyValue(store, hkeyLocalMachine, key, "n", value)) << row.stored;
        EXPECT_EQ(value, row.text) << row.stored;
    }

    // Any other type leaves the value as the caller had it.
    store.setValue(hkeyLocalMachine, key, "binary", 3, "\x01\x02");
    std::string value = "kept";
    EXPECT_TRUE(GetKeyValue(store, hkeyLocalMachine, key, "binary", value));
    EXPECT_EQ(value, "kept");
}

TEST(GetKeyValue, FailureEmptiesTheValueAndStillClosesTheKey) {
    MemoryRegistry store;
    store.setValue(hkeyLocalMachine, key, "big", regString, std::string(1025, 'x'));

    std::string value = "old";
    EXPECT_FALSE(GetKeyValue(store, hkeyLocalMachine, "SOFTWARE\\Missing", "PATH", value));
    EXPECT_EQ(value, "");
    ASSERT_EQ(store.closedHandles().size(), 1u);
    EXPECT_EQ(store.closedHandles().back(), 0u);  // the handle of the failed open

    value = "old";
    EXPECT_FALSE(GetKeyValue(store, hkeyLocalMachine, key, "missing", value));
    EXPECT_EQ(value, "");
    EXPECT_FALSE(GetKeyValue(store, 0x80000001, key, "big", value));  // other root

    // A value longer than the 1024-character buffer cannot be read.
    value = "old";
    EXPECT_FALSE(GetKeyValue(store, hkeyLocalMachine, key, "big", value));
    EXPECT_EQ(value, "");
    EXPECT_EQ(store.closedHandles().size(), 4u);
    EXPECT_EQ(store.openCount(), 0u);
}

// A launcher over a test store that records what it was asked to do.
struct FakeDesktop {
    MemoryRegistry store;
    std::vector<std::string> existing;
    bool startWorks = true;
    std::vector<std::string> started;
    std::vector<std::string> messages;

    void run() {
        SysInfoPlatform platform{
            store,
            [this](const std::string& p) {
                return std::find(existing.begin(), existing.end(), p) != existing.end();
            },
            [this](const std::string& p) {
                started.push_back(p);
                return startWorks;
            },
            [this](std::string_view text) { messages.emplace_back(text); },
        };
        StartSysInfo(platform);
    }
};

const char* const msinfoKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
const char* const locationKey = "SOFTWARE\\Microsoft\\Shared Tools Location";

TEST(StartSysInfo, StartsTheToolFoundInTheRegistryOrSaysItIsUnavailable) {
    {
        FakeDesktop empty;  // this platform's store holds nothing
        empty.run();
        EXPECT_TRUE(empty.started.empty());
        EXPECT_EQ(empty.messages,
                  std::vector<std::string>{"System Information Is Unavailable At This Time"});
    }
    {
        FakeDesktop d;
        d.store.setValue(hkeyLocalMachine, msinfoKey, "PATH", regString,
                         std::string("C:\\x\\msinfo.exe\0", 16));
        d.run();
        EXPECT_EQ(d.started, std::vector<std::string>{"C:\\x\\msinfo.exe"});
        EXPECT_TRUE(d.messages.empty());
    }
    {
        // The second key names a directory; the tool must exist in it.
        FakeDesktop d;
        d.store.setValue(hkeyLocalMachine, locationKey, "MSINFO", regString, "C:\\tools");
        d.existing = {"C:\\tools\\MSINFO32.EXE"};
        d.run();
        EXPECT_EQ(d.started, std::vector<std::string>{"C:\\tools\\MSINFO32.EXE"});
        EXPECT_TRUE(d.messages.empty());

        d.started.clear();
        d.existing.clear();
        d.run();
        EXPECT_TRUE(d.started.empty());
        EXPECT_EQ(d.messages.size(), 1u);
    }
    {
        FakeDesktop d;
        d.store.setValue(hkeyLocalMachine, msinfoKey, "PATH", regString, "C:\\gone.exe");
        d.startWorks = false;
        d.run();
        EXPECT_EQ(d.started.size(), 1u);
        EXPECT_EQ(d.messages.size(), 1u);
    }
}

}  // namespace
}  // namespace quintline
