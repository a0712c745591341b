#pragma once
// A small registry layer of our own: the three calls the system-information
// launcher makes, an in-memory key store behind them, and the value reader over
// them. On this platform the store the program uses holds nothing.

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quintline {

using RegKey = std::uint32_t;
using RegStatus = std::int32_t;

inline constexpr RegKey hkeyLocalMachine = 0x80000002;
inline constexpr RegStatus regSuccess = 0;
inline constexpr RegStatus regFileNotFound = 2;
inline constexpr RegStatus regInvalidHandle = 6;
inline constexpr RegStatus regMoreData = 234;

inline constexpr std::uint32_t regString = 1;  // REG_SZ
inline constexpr std::uint32_t regNumber = 4;  // REG_DWORD, little-endian

class Registry {
  public:
    virtual ~Registry() = default;
    // Opens `subKey` under `root`; on success `handle` names the open key.
    virtual RegStatus openKey(RegKey root, std::string_view subKey, std::uint32_t options,
                              std::uint32_t access, RegKey& handle) = 0;
    // Copies the value's bytes into `buffer`, at most `size` of them; on success
    // `size` becomes the number of bytes returned and `type` the value's type.
    virtual RegStatus queryValue(RegKey handle, std::string_view valueName, std::uint32_t& type,
                                 char* buffer, std::uint32_t& size) = 0;
    virtual RegStatus closeKey(RegKey handle) = 0;
};

// Keys live in memory, written with setValue. Handles count up from 1; a
// handle of 0 is never open.
class MemoryRegistry : public Registry {
  public:
    void setValue(RegKey root, std::string_view key, std::string_view name, std::uint32_t type,
                  std::string bytes);

    RegStatus openKey(RegKey root, std::string_view subKey, std::uint32_t options,
                      std::uint32_t access, RegKey& handle) override;
    RegStatus queryValue(RegKey handle, std::string_view valueName, std::uint32_t& type,
                         char* buffer, std::uint32_t& size) override;
    RegStatus closeKey(RegKey handle) override;

    // Every handle passed to closeKey, in order, open or not.
    const std::vector<RegKey>& closedHandles() const { return closed_; }
    std::size_t openCount() const { return open_.size(); }

  private:
    using KeyPath = std::pair<RegKey, std::string>;
    struct Value {
        std::uint32_t type;
        std::string bytes;
    };
    std::map<KeyPath, std::map<std::string, Value, std::less<>>> keys_;
    std::map<RegKey, KeyPath> open_;
    std::vector<RegKey> closed_;
    RegKey nextHandle_ = 1;
};

// Reads value `subKeyRef` of key `keyName` under `keyRoot` into `keyVal`. A
// string loses one terminating zero; a number becomes decimal text. Gives false
// with `keyVal` empty when the key or value cannot be read. The key is closed on
// every path, also when the open failed.
bool GetKeyValue(Registry& registry, RegKey keyRoot, std::string_view keyName,
                 std::string_view subKeyRef, std::string& keyVal);

}  // namespace quintline
