#include <gtest/gtest.h>

#include <string>

#include "ui/registry.h"
#include "ui/sysInfo.h"

namespace quintline {
namespace {

constexpr RegKey hklm = hkeyLocalMachine;

// The bytes of a 32-bit number as the registry stores it, low byte first.
std::string dword(std::uint32_t v) {
    return {char(v & 0xFF), char((v >> 8) & 0xFF), char((v >> 16) & 0xFF), char(v >> 24)};
}

// A string's one terminating zero, cut or absent, is seen through StartSysInfo below.
TEST(GetKeyValue, ReadsStringsAndNumbersAsOfOldAndAlwaysClosesTheKey) {
    const struct {
        std::uint32_t type;
        std::string stored, text;
        bool read;
        std::string key = "K", name = "v";  // where it is looked for; it is stored at K, v
        RegKey root = hklm;
    } rows[] = {
        {regString, std::string("ab\0\0", 4), std::string("ab\0", 3), true},
        {regString, "", "", true},
        {regNumber, dword(0xFFFFFFFF), "-1", true},    // read as a signed number
        {regNumber, dword(0x01020304), "4660", true},  // one digit a byte: &h1234
        {regNumber, dword(0x0100), "16", true},        // 00 01 00 reads as &h010
        {3, "\x01\x02", "old", true},                  // other types leave the value alone
        {regString, "x", "", false, "Missing"},
        {regString, "x", "", false, "K", "missing"},
        {regString, "x", "", false, "K", "v", 0x80000001},
        {regString, std::string(1025, 'x'), "", false},  // over the 1024-byte buffer
    };
    for (const auto& row : rows) {
        MemoryRegistry store;
        store.setValue(hklm, "K", "v", row.type, row.stored);
        std::string value = row.type == regNumber ? "" : "old";
        EXPECT_EQ(GetKeyValue(store, row.root, row.key, row.name, value), row.read) << row.text;
        EXPECT_EQ(value, row.text);
        const RegKey opened = row.root == hklm && row.key == "K";  // a failed open closes handle 0
        EXPECT_EQ(store.closedHandles(), std::vector<RegKey>{opened});
        EXPECT_EQ(store.openCount(), 0u);
    }
}

TEST(StartSysInfo, StartsTheToolFoundInTheRegistryOrSaysItIsUnavailable) {
    const std::string tools = "SOFTWARE\\Microsoft\\Shared Tools", path = tools + "\\MSINFO";
    const std::string dir = tools + " Location";
    const std::string none(sysInfoUnavailable);
    const struct {
        std::string key, name, value;
        bool startWorks;
        std::string started, message;  // the tool exists only where it is started
    } rows[] = {
        {"", "", "", true, "", none},
        {path, "PATH", std::string("C:\\m.exe\0", 9), true, "C:\\m.exe", ""},
        {dir, "MSINFO", "C:\\tools", true, "C:\\tools\\MSINFO32.EXE", ""},
        {dir, "MSINFO", "C:\\tools", true, "", none},  // the directory without the tool
        {path, "PATH", "C:\\gone.exe", false, "C:\\gone.exe", none},
    };
    for (const auto& row : rows) {
        MemoryRegistry store;
        if (!row.key.empty()) store.setValue(hklm, row.key, row.name, regString, row.value);
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
