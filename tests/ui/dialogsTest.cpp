// What the dialogs make of what the user types, picks and clicks.

#include <gtest/gtest.h>

#include <QTest>

#include "support/golden.h"
#include "ui/aboutBox.h"
#include "ui/boardFileDialog.h"
#include "ui/settingsDialog.h"

namespace quintline {
namespace {

using testing::in;

std::string text(const SettingsValues& v) {
    return v.blackRow + "|" + v.whiteRow + "|" + v.depthBox[0] + "|" + v.depthBox[1] + "|" +
           std::to_string(int(v.situation));
}

TEST(SettingsDialog, ValuesRoundTripAndFollowTheUser) {
    SettingsDialog dialog(TwipScale(96));
    EXPECT_EQ(text(dialog.values()) + designDepthBoxText(1), "Computer A|User|3|3|03");
    for (const auto situation : {Situation::bKnowsA, Situation::knowNothing, Situation::aKnowsB}) {
        const SettingsValues values{"Computer B", "somebody", {"2", " 4.5"}, situation};
        dialog.setValues(values);  // a typed text need not be an item
        EXPECT_EQ(text(dialog.values()), text(values));
    }
    EXPECT_EQ(in<QComboBox>(dialog, "Combo1")->currentIndex(), 2);  // the list follows the text
    dialog.show();
    QTest::mouseClick(in(dialog, "Option3"), Qt::LeftButton, {}, QPoint(5, 10));
    EXPECT_EQ(dialog.values().situation, Situation::bKnowsA);
}

// Each dialog ends with the path it names in the directory Dir1 shows, or none.
TEST(BoardFileDialog, NamesAPathInDir1OrNone) {
    QTemporaryDir scratch;
    const QString previous = QDir::currentPath();
    ASSERT_TRUE(QDir(scratch.path()).mkdir("sub") && QDir::setCurrent(scratch.path()));
    for (const char* name : {"b.txt", "a.txt", "sub/c.txt"}) QFile(name).open(QIODevice::WriteOnly);
    const QString here = QDir::currentPath(), root = QDir::rootPath();
    using enum BoardFileDialogKind;
    const struct {
        BoardFileDialogKind kind;
        QString dir, typed, picked;
        const char* how;  // the key or button that ends it
        QString path;     // ~ for the directory; "earlier open": nothing chosen yet
    } steps[] = {
        {save, here, "", "b.txt", "OKButton", "~/b.txt"},  // a pick fills the box
        {save, here, "games/b2.txt", "", "OKButton", "~/games/b2.txt"},
        {save, here, "", "", "OKButton", ""},
        {save, here, "c.txt", "", "Escape", "earlier open"},
        {save, here, "c.txt", "", "CancelButton", ""},
        {save, root, "r.txt", "", "OKButton", "//r.txt"},  // a second separator after the root's
        {open, here, "a.txt", "", "OKButton", ""},         // typing plays no part
        {open, here + "/sub", "", "c.txt", "OKButton", "~/sub/c.txt"},
        {open, here, "", "a.txt", "close", ""},
    };
    for (const auto& step : steps) {
        std::string path = "earlier";
        BoardFileDialog dialog(step.kind, TwipScale(96), path);
        dialog.setDirPath(step.dir);
        dialog.show();
        in<QLineEdit>(dialog, "txtFileName")->setText(step.typed);
        auto* files = in<QListWidget>(dialog, "File1");
        files->setCurrentItem(files->findItems(step.picked, Qt::MatchExactly).value(0));
        if (step.how == std::string("Escape")) QTest::keyClick(&dialog, Qt::Key_Escape);
        if (step.how == std::string("close")) dialog.close();
        if (auto* button = in(dialog, step.how)) QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_EQ(
            QString::fromStdString(path).replace(here, "~") + (dialog.isVisible() ? " open" : ""),
            step.path);
    }
    // Dir1 shows the way down to the directory, which is selected, then its
    // subdirectories; an entry activated shows its files in File1, and the
    // process stays where it was.
    std::string path;
    BoardFileDialog dialog(open, TwipScale(96), path);
    auto* dirs = in<QListWidget>(dialog, "Dir1");
    ASSERT_EQ(dirs->currentRow(), dirs->count() - 2);
    QStringList seen;
    for (const bool down : {true, false}) {
        emit dirs->itemActivated(dirs->item(down ? dirs->count() - 1 : dirs->currentRow() - 1));
        seen << dialog.dirPath().replace(here, "~");
        for (auto* file : in<QListWidget>(dialog, "File1")->findItems("*", Qt::MatchWildcard))
            seen << file->text();
    }
    EXPECT_EQ(seen.join(' ') + (QDir::currentPath() == here ? "" : " moved"),
              "~/sub c.txt ~ a.txt b.txt");
    QDir::setCurrent(previous);
}

TEST(AboutBox, ItsHiddenButtonStillStartsTheLauncher) {
    MemoryRegistry store;  // holds no tool
    std::string said;
    AboutBox box(TwipScale(96), {store, {}, {}, [&](std::string_view text) { said = text; }});
    in<QPushButton>(box, "cmdSysInfo")->click();
    EXPECT_EQ(said, sysInfoUnavailable);
}

}  // namespace
}  // namespace quintline
