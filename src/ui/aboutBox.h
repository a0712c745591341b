#pragma once
// frmAbout: the title, version, description and maker's lines, closed by OK,
// with the system-information launcher behind a hidden button.

#include <QDialog>

#include "ui/sysInfo.h"
#include "ui/twips.h"

namespace quintline {

class AboutBox : public QDialog {
    Q_OBJECT
  public:
    AboutBox(const TwipScale& scale, SysInfoPlatform sysInfo, QWidget* parent = nullptr);

  private:
    SysInfoPlatform sysInfo_;
};

// What the launcher uses on this platform: the given key store, the file
// system, detached processes and the program's message box.
SysInfoPlatform desktopSysInfo(Registry& registry, QWidget* messageParent);

}  // namespace quintline
