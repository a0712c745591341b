#include <gtest/gtest.h>

#include <string>

#include "ui/registry.h"
#include "ui/sysInfo.h"

namespace quintline {
namespace {

const std::string key = "SOFTWARE\\Quintline\\Test";

// The bytes of a 32-bit number as the registry stores it, low byte first.
std::string dword(std::uint32_t v) {
    return {char(v & 0xFF), char((v >> 8) & 0xFF), char((v >> 16) & 0xFF), char(v >> 24)};
}

TEST(GetKeyValue, TrimsOneTerminatingZeroAndFormatsNumbersFromUnpaddedHexBytes) {
    const struct {
        std::uint32_t type;
        std::string stored, text;
    } rows[] = {
        {regString, std::string("C:\\tool\0", 8), "C:\\tool"},
        {regString, "C:\\tool", "C:\\tool"},
        {regString, std::string("ab\0\0", 4), std::string("ab\0", 3)},
        {regString, "", ""},
        {regNumber, dword(0x12345678), "305419896"},
        {regNumber, dword(0xFFFFFFFF), "-1"},    // read as a signed number
        {regNumber, dword(1), "1"},              // the high zero byte goes as a terminator
        {regNumber, dword(0x01020304), "4660"},  // one digit a byte: &h1234
        {regNumber, dword(0x0100), "16"},        // 00 01 00 reads as &h010
        {3, "\x01\x02", "old"},                  // other types leave the value alone
    };
    for (const auto& row : rows) {
        MemoryRegistry store;
        store.setValue(hkeyLocalMachine, key, "v", row.type, row.stored);
        std::string value = row.type == regNumber ? "" : "old";
        EXPECT_TRUE(GetKeyValue(store, hkeyLocalMachine, key, "v", value)) << row.text;
        EXPECT_EQ(value, row.text);
        EXPECT_EQ(store.openCount(), 0u);
    }
}

TEST(GetKeyValue, FailureEmptiesTheValueAndStillClosesTheKey) {
    MemoryRegistry store;
    store.setValue(hkeyLocalMachine, key, "big", regString, std::string(1025, 'x'));
    const struct {
        RegKey root;
        std::string key, name;
    } rows[] = {{hkeyLocalMachine, "SOFTWARE\\Missing", "big"},
                {hkeyLocalMachine, key, "missing"},
                {0x80000001, key, "big"},
                {hkeyLocalMachine, key, "big"}};  // longer than the 1024-byte buffer
    for (const auto& row : rows) {
        std::string value = "old";
        EXPECT_FALSE(GetKeyValue(store, row.root, row.key, row.name, value)) << row.name;
        EXPECT_EQ(value, "");
    }
    EXPECT_EQ(store.closedHandles().size(), 4u);
    EXPECT_EQ(store.closedHandles().front(), 0u);  // the handle of the failed open
    EXPECT_EQ(store.openCount(), 0u);
}

TEST(StartSysInfo, StartsTheToolFoundInTheRegistryOrSaysItIsUnavailable) {
    const std::string unavailable = "System Information Is Unavailable At This Time";
    const struct {
        const char* key;
        const char* name;
        std::string value;
        bool startWorks;
        std::string started, message;
    } rows[] = {
        {"", "", "", true, "", unavailable},
        {"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH", std::string("C:\\m.exe\0", 9), true,
         "C:\\m.exe", ""},
        {"SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO", "C:\\tools", true,
         "C:\\tools\\MSINFO32.EXE", ""},
        // The same directory without the tool in it.
        {"SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO", "C:\\tools", true, "",
         unavailable},
        {"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH", "C:\\gone.exe", false, "C:\\gone.exe",
         unavailable},
    };
    // The tool exists only where the row expects it to be started.
    for (const auto& row : rows) {
        MemoryRegistry store;
        if (*row.key) store.setValue(hkeyLocalMachine, row.key, row.name, regString, row.value);
        std::string started, message;
        SysInfoPlatform platform{store, [&](const std::string& p) { return p == row.started; },
                                 [&](const std::string& p) { return started += p, row.startWorks; },
                                 [&](std::string_view text) { message += text; }};
        StartSysInfo(platform);
        EXPECT_EQ(started, row.started) << row.value;
        EXPECT_EQ(message, row.message) << row.value;
    }
}

}  // namespace
}  // namespace quintline
