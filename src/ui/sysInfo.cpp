#include "ui/sysInfo.h"

namespace quintline {

void StartSysInfo(SysInfoPlatform& platform) {
    std::string path;
    bool found = GetKeyValue(platform.registry, hkeyLocalMachine,
                             "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH", path);
    if (!found && GetKeyValue(platform.registry, hkeyLocalMachine,
                              "SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO", path)) {
        // This value names the tool's directory, not the tool.
        path += "\\MSINFO32.EXE";
        found = platform.fileExists(path);
    }
    if (found && platform.startProgram(path)) return;
    platform.showMessage(sysInfoUnavailable);
}

}  // namespace quintline
