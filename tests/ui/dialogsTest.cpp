// What the dialogs do with what the user types, picks and clicks.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "ui/aboutBox.h"
#include "ui/boardFileDialog.h"
#include "ui/settingsDialog.h"

namespace quintline {
namespace {

template <class Control = QWidget>
Control* in(QWidget& window, const char* name) {
    return window.findChild<Control*>(name);
}

std::string text(const SettingsValues& v) {
    return v.blackRow + "|" + v.whiteRow + "|" + v.depthBox[0] + "|" + v.depthBox[1] + "|" +
           std::to_string(int(v.situation));
}

TEST(SettingsDialog, ValuesRoundTripAndFollowTheUser) {
    SettingsDialog dialog(TwipScale(96));
    EXPECT_EQ(text(dialog.values()), "Computer A|User|3|3|0");
    EXPECT_EQ(designDepthBoxText(1), "3");
    for (const Situation situation :
         {Situation::bKnowsA, Situation::knowNothing, Situation::aKnowsB}) {
        const SettingsValues in{"Computer B", "somebody", {"2", " 4.5"}, situation};
        dialog.setValues(in);  // a typed text need not be an item
        EXPECT_EQ(text(dialog.values()), text(in));
    }
    EXPECT_EQ(in<QComboBox>(dialog, "Combo1")->currentIndex(), 2);  // the list follows the text

    dialog.show();
    auto* depth = in<QComboBox>(dialog, "Combo3(0)");
    depth->lineEdit()->clear();
    QTest::keyClicks(depth->lineEdit(), "7");
    in<QComboBox>(dialog, "Combo2")->setCurrentIndex(0);
    auto* option3 = in<QRadioButton>(dialog, "Option3");
    QTest::mouseClick(option3, Qt::LeftButton, {}, QPoint(5, option3->height() / 2));
    EXPECT_EQ(text(dialog.values()), "Computer B|Computer A|7| 4.5|2");

    // OK hands over to its handler, Cancel just closes.
    int okClicks = 0;
    dialog.onOk = [&] { ++okClicks; };
    for (const char* button : {"OKButton", "CancelButton"}) {
        QTest::mouseClick(in(dialog, button), Qt::LeftButton);
    }
    EXPECT_EQ(okClicks, 1);
    EXPECT_FALSE(dialog.isVisible());
}

TEST(BoardFileDialog, NamesAPathFromDir1AndTheNameOrNone) {
    QTemporaryDir scratch;
    const QString previous = QDir::currentPath();
    ASSERT_TRUE(QDir(scratch.path()).mkdir("sub") && QDir::setCurrent(scratch.path()));
    for (const char* name : {"b.txt", "a.txt", "sub/c.txt"}) QFile(name).open(QIODevice::WriteOnly);
    const QString here = QDir::currentPath();
    using enum BoardFileDialogKind;
    const struct {
        BoardFileDialogKind kind;
        QString dir, typed, picked, listed;
        const char* how;    // the key or button that ends the step
        const char* named;  // the name the path ends in; "-": none; nullptr: still open
    } steps[] = {
        {save, here, "", "b.txt", "a.txt b.txt", "OKButton", "b.txt"},  // a pick fills the box
        {save, here, "games/b2.txt", "", "a.txt b.txt", "OKButton", "games/b2.txt"},
        {save, here, "", "", "a.txt b.txt", "OKButton", "-"},
        {save, here, "c.txt", "", "a.txt b.txt", "Escape", nullptr},
        {save, here, "c.txt", "", "a.txt b.txt", "CancelButton", "-"},
        {save, QDir::rootPath(), "r.txt", "", "", "OKButton", "r.txt"},  // "//r.txt"
        {open, here, "a.txt", "", "a.txt b.txt", "OKButton", "-"},       // typing plays no part
        {open, here + "/sub", "", "c.txt", "c.txt", "OKButton", "c.txt"},
        {open, here, "", "a.txt", "a.txt b.txt", "close", "-"},
    };
    for (const auto& step : steps) {
        std::string path = "earlier";
        BoardFileDialog dialog(step.kind, TwipScale(96), path);
        for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
            EXPECT_FALSE(button->isDefault() || button->autoDefault());
        }
        dialog.setDirPath(step.dir);
        dialog.show();
        auto* files = in<QListWidget>(dialog, "File1");
        QStringList listed;
        for (int i = 0; i < files->count(); ++i) listed << files->item(i)->text();
        if (step.listed != "") {
            EXPECT_EQ(listed.join(' '), step.listed) << step.dir.toStdString();
        }
        in<QLineEdit>(dialog, "txtFileName")->setText(step.typed);
        if (step.picked != "")
            files->setCurrentItem(files->findItems(step.picked, Qt::MatchExactly)[0]);
        if (step.how == std::string("Escape")) QTest::keyClick(&dialog, Qt::Key_Escape);
        if (step.how == std::string("close")) dialog.close();
        if (auto* button = in(dialog, step.how)) QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_EQ(dialog.isVisible(), step.named == nullptr) << step.how;
        const QString named = QDir::toNativeSeparators(step.dir) + QDir::separator() + step.named;
        EXPECT_EQ(path, !step.named ? "earlier" : *step.named == '-' ? "" : named.toStdString());
    }

    // Dir1 shows the way down to the directory, which is selected, then its
    // subdirectories; activating an entry goes there without moving the process.
    std::string path;
    BoardFileDialog dialog(open, TwipScale(96), path);
    auto* dirs = in<QListWidget>(dialog, "Dir1");
    ASSERT_EQ(dirs->currentRow(), dirs->count() - 2);
    emit dirs->itemActivated(dirs->item(dirs->count() - 1));
    EXPECT_EQ(dialog.dirPath(), here + "/sub");
    emit dirs->itemActivated(dirs->item(dirs->currentRow() - 1));
    EXPECT_EQ(dialog.dirPath(), here);
    EXPECT_EQ(QDir::currentPath(), here);
    QDir::setCurrent(previous);
}

TEST(AboutBox, ClosesOnEnterEscapeOrOkAndItsHiddenButtonStillLaunches) {
    MemoryRegistry store;  // holds no tool
    std::string said;
    SysInfoPlatform platform{store, [](const std::string&) { return true; },
                             [](const std::string&) { return true; },
                             [&](std::string_view text) { said = text; }};
    for (const auto close : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_unknown}) {
        AboutBox box(TwipScale(96), platform);
        QTimer::singleShot(0, &box, [&] {
            if (close == Qt::Key_unknown)
                QTest::mouseClick(in(box, "cmdOK"), Qt::LeftButton);
            else
                QTest::keyClick(&box, close);
        });
        EXPECT_EQ(box.exec(), QDialog::Accepted - (close == Qt::Key_Escape)) << close;
        said.clear();
        in<QPushButton>(box, "cmdSysInfo")->click();
        EXPECT_EQ(said, sysInfoUnavailable);
    }
}

}  // namespace
}  // namespace quintline
