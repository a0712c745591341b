#include "ui/registry.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>

namespace quintline {

void MemoryRegistry::setValue(RegKey root, std::string_view key, std::string_view name,
                              std::uint32_t type, std::string bytes) {
    keys_[{root, std::string(key)}][std::string(name)] = Value{type, std::move(bytes)};
}

RegStatus MemoryRegistry::openKey(RegKey root, std::string_view subKey, std::uint32_t,
                                  std::uint32_t, RegKey& handle) {
    const KeyPath path{root, std::string(subKey)};
    if (!keys_.contains(path)) return regFileNotFound;
    handle = nextHandle_++;
    open_[handle] = path;
    return regSuccess;
}

RegStatus MemoryRegistry::queryValue(RegKey handle, std::string_view valueName, std::uint32_t& type,
                                     char* buffer, std::uint32_t& size) {
    const auto key = open_.find(handle);
    if (key == open_.end()) return regInvalidHandle;
    const auto& values = keys_.at(key->second);
    const auto value = values.find(valueName);
    if (value == values.end()) return regFileNotFound;
    const std::string& bytes = value->second.bytes;
    if (bytes.size() > size) return regMoreData;
    std::copy(bytes.begin(), bytes.end(), buffer);
    size = static_cast<std::uint32_t>(bytes.size());
    type = value->second.type;
    return regSuccess;
}

RegStatus MemoryRegistry::closeKey(RegKey handle) {
    closed_.push_back(handle);
    return open_.erase(handle) == 1 ? regSuccess : regInvalidHandle;
}

namespace {

// "&h" followed by hexadecimal digits, shown as the signed 32-bit number they
// spell; any other text is left as it stands.
std::string formatHexText(const std::string& text) {
    const std::string_view digits = std::string_view(text).substr(2);
    std::uint32_t value = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (digits.empty() || error != std::errc{} || end != digits.data() + digits.size()) {
        return text;
    }
    return std::to_string(static_cast<std::int32_t>(value));
}

}  // namespace

bool GetKeyValue(Registry& registry, RegKey keyRoot, std::string_view keyName,
                 std::string_view subKeyRef, std::string& keyVal) {
    constexpr std::uint32_t accessMask = 0x2003F;
    RegKey handle = 0;
    bool result = false;
    if (registry.openKey(keyRoot, keyName, 0, accessMask, handle) != regSuccess) {
        keyVal.clear();
    } else {
        std::array<char, 1024> buffer{};
        std::uint32_t size = buffer.size();
        std::uint32_t type = 0;
        if (registry.queryValue(handle, subKeyRef, type, buffer.data(), size) != regSuccess) {
            keyVal.clear();
        } else {
            // A string comes back with its terminating zero when it was stored with
            // one; only that last character is cut.
            std::string value(buffer.data(), size);
            if (size > 0 && buffer[size - 1] == '\0') value.pop_back();
            result = true;
            if (type == regString) {
                keyVal = value;
            } else if (type == regNumber) {
                // Each byte, high to low, in hexadecimal digits without padding.
                for (auto it = value.rbegin(); it != value.rend(); ++it) {
                    char digits[3];
                    std::snprintf(digits, sizeof digits, "%X", static_cast<unsigned char>(*it));
                    keyVal += digits;
                }
                keyVal = formatHexText("&h" + keyVal);
            }
        }
    }
    registry.closeKey(handle);
    return result;
}

}  // namespace quintline
