// Every window's controls against its golden file in tests/ui/golden.

#include <memory>

#include "support/controlTable.h"
#include "support/golden.h"
#include "ui/aboutBox.h"
#include "ui/boardFileDialog.h"
#include "ui/mainForm.h"
#include "ui/settingsDialog.h"

namespace quintline {
namespace {

TEST(WindowLayout, EveryWindowMatchesItsGoldenFile) {
    const TwipScale scale = TwipScale::ofScreen();
    MemoryRegistry store;
    std::string path;
    const std::unique_ptr<QWidget> windows[] = {
        std::make_unique<MainForm>(),
        std::make_unique<SettingsDialog>(scale),
        std::make_unique<BoardFileDialog>(BoardFileDialogKind::save, scale, path),
        std::make_unique<BoardFileDialog>(BoardFileDialogKind::open, scale, path),
        std::make_unique<AboutBox>(scale, SysInfoPlatform{store, {}, {}, {}}),
    };
    for (const auto& window : windows) {
        testing::expectGolden(window->objectName().toStdString(),
                              testing::controlTable(*window, scale));
    }
}

}  // namespace
}  // namespace quintline
