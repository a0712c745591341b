// Every window's controls against its golden file in tests/ui/golden. A change
// of design shows as a diff of the golden: run with QUINTLINE_UPDATE_GOLDEN=1
// to rewrite the files, then review and commit them.

#include <gtest/gtest.h>

#include <QFile>
#include <functional>
#include <memory>

#include "support/controlTable.h"
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
    const SysInfoPlatform noTool{store, {}, {}, {}};
    const std::pair<const char*, std::function<std::unique_ptr<QWidget>()>> windows[] = {
        {"mainForm", [] { return std::make_unique<MainForm>(); }},
        {"settingsDialog", [&] { return std::make_unique<SettingsDialog>(scale); }},
        {"dlgSavefile",
         [&] { return std::make_unique<BoardFileDialog>(BoardFileDialogKind::save, scale, path); }},
        {"dlgOpenfile",
         [&] { return std::make_unique<BoardFileDialog>(BoardFileDialogKind::open, scale, path); }},
        {"frmAbout", [&] { return std::make_unique<AboutBox>(scale, noTool); }},
    };
    for (const auto& [name, make] : windows) {
        const QByteArray table = testing::controlTable(*make(), scale).toUtf8();
        QFile golden(QStringLiteral(QUINTLINE_UI_GOLDEN_DIR "/%1.txt").arg(name));
        if (qEnvironmentVariableIsSet("QUINTLINE_UPDATE_GOLDEN")) {
            ASSERT_TRUE(golden.open(QIODevice::WriteOnly) && golden.write(table) == table.size());
        } else {
            ASSERT_TRUE(golden.open(QIODevice::ReadOnly)) << name;
            EXPECT_EQ(table.toStdString(), golden.readAll().toStdString()) << name;
        }
    }
}

}  // namespace
}  // namespace quintline
