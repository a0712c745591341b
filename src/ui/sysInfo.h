#pragma once
// The launcher of the operating system's system-information tool, behind the
// about box's hidden button.

#include <functional>
#include <string>
#include <string_view>

#include "ui/registry.h"

namespace quintline {

struct SysInfoPlatform {
    Registry& registry;
    std::function<bool(const std::string& path)> fileExists;
    // Starts the program with a normal window without waiting; false when it
    // cannot be started.
    std::function<bool(const std::string& path)> startProgram;
    std::function<void(std::string_view text)> showMessage;
};

inline constexpr std::string_view sysInfoUnavailable =
    "System Information Is Unavailable At This Time";

// Looks the tool up in the registry and starts it, or says it is unavailable.
void StartSysInfo(SysInfoPlatform& platform);

}  // namespace quintline
