#include "ui/boardFileDialog.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "support/controlTable.h"

namespace quintline {
namespace {

// A scratch directory with two files and a subdirectory holding a third,
// made the process's current directory for the length of a test.
class BoardFileDialogTest : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(scratch_.isValid());
        const QDir root(scratch_.path());
        ASSERT_TRUE(root.mkdir("sub"));
        for (const char* name : {"b.txt", "a.txt", "sub/c.txt"}) {
            ASSERT_TRUE(QFile(root.filePath(name)).open(QIODevice::WriteOnly));
        }
        previous_ = QDir::currentPath();
        QDir::setCurrent(scratch_.path());
        dir_ = QDir::current().absolutePath();
    }
    void TearDown() override { QDir::setCurrent(previous_); }

    // The path the dialogs should give for `name` in the directory `dir`.
    static std::string joined(const QString& dir, const QString& name) {
        return (QDir::toNativeSeparators(dir) + QDir::separator() + name).toStdString();
    }
    static void type(QDialog& dialog, const QString& text) {
        dialog.findChild<QLineEdit*>("txtFileName")->setText(text);
    }
    static void select(QDialog& dialog, const QString& name) {
        auto* files = dialog.findChild<QListWidget*>("File1");
        files->setCurrentItem(files->findItems(name, Qt::MatchExactly).value(0));
    }
    static void click(QDialog& dialog, const char* button) {
        QTest::mouseClick(dialog.findChild<QPushButton*>(button), Qt::LeftButton);
    }

    QTemporaryDir scratch_;
    QString previous_, dir_;
    const TwipScale scale_{96};
    std::string path_ = "earlier";
};

TEST_F(BoardFileDialogTest, TwinsHaveTheirDesignedControls) {
    for (const auto kind : {BoardFileDialogKind::open, BoardFileDialogKind::save}) {
        const bool save = kind == BoardFileDialogKind::save;
        BoardFileDialog dialog(kind, scale_, path_);
        EXPECT_EQ(dialog.objectName(), save ? "dlgSavefile" : "dlgOpenfile");
        EXPECT_EQ(dialog.windowTitle(), save ? "Save as..." : "Open file as...");
        EXPECT_EQ(dialog.size(), save ? QSize(448, 277) : QSize(444, 262));
        // The save dialog's controls lie 3 pixels right of and 7 below the open dialog's.
        const QPoint d = save ? QPoint(3, 7) : QPoint(0, 0);
        const char* label =
            save ? "Name of the chess board to save :" : "Open file Name of the chess board:  ";
        testing::expectControls(dialog,
                                {{"OKButton", "OK", QRect(352, 8, 81, 25).translated(d)},
                                 {"CancelButton", "Cancel", QRect(352, 39, 81, 25).translated(d)},
                                 {"Dir1", nullptr, QRect(217, 48, 121, 201).translated(d)},
                                 {"File1", nullptr, QRect(11, 47, 201, 201).translated(d)},
                                 {"txtFileName", "", QRect(188, 8, 149, 25).translated(d)},
                                 {"Label1", label, QRect(13, 14, 169, 25).translated(d)}});
        for (auto* button : dialog.findChildren<QPushButton*>()) {
            EXPECT_FALSE(button->isDefault() || button->autoDefault());
        }
    }
}

TEST_F(BoardFileDialogTest, SaveJoinsTheTypedNameToDir1) {
    BoardFileDialog dialog(BoardFileDialogKind::save, scale_, path_);
    dialog.show();
    EXPECT_EQ(dialog.dirPath(), dir_);
    // All files of the directory, and no directories, in File1; a click fills the box.
    auto* files = dialog.findChild<QListWidget*>("File1");
    ASSERT_EQ(files->count(), 2);
    EXPECT_EQ(files->item(0)->text(), "a.txt");
    select(dialog, "b.txt");
    EXPECT_EQ(dialog.findChild<QLineEdit*>("txtFileName")->text(), "b.txt");
    // A directory part typed into the box is simply appended after the separator.
    type(dialog, "games/b2.txt");
    click(dialog, "OKButton");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(path_, joined(dir_, "games/b2.txt"));

    dialog.show();  // OK with an empty box is no choice
    type(dialog, "");
    click(dialog, "OKButton");
    EXPECT_EQ(path_, "");

    // Escape does nothing; Cancel leaves no choice.
    dialog.show();
    type(dialog, "c.txt");
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_TRUE(dialog.isVisible());
    click(dialog, "CancelButton");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(path_, "");

    // A root already ends in its separator; the join adds another.
    dialog.setDirPath(QDir::rootPath());
    dialog.show();
    type(dialog, "r.txt");
    click(dialog, "OKButton");
    EXPECT_EQ(path_, joined(QDir::rootPath(), "r.txt"));
}

TEST_F(BoardFileDialogTest, OpenTakesTheSelectedFileOfWhereDir1Went) {
    BoardFileDialog dialog(BoardFileDialogKind::open, scale_, path_);
    dialog.show();
    type(dialog, "typed.txt");  // a typed name plays no part
    click(dialog, "OKButton");
    EXPECT_EQ(path_, "");

    // The current directory is selected in Dir1, its one subdirectory after it.
    dialog.show();
    auto* dirs = dialog.findChild<QListWidget*>("Dir1");
    ASSERT_EQ(dirs->currentRow(), dirs->count() - 2);
    emit dirs->itemActivated(dirs->item(dirs->count() - 1));
    EXPECT_EQ(dialog.dirPath(), dir_ + "/sub");
    EXPECT_EQ(dialog.findChild<QListWidget*>("File1")->count(), 1);
    select(dialog, "c.txt");
    click(dialog, "OKButton");
    EXPECT_EQ(path_, joined(dir_ + "/sub", "c.txt"));
    EXPECT_EQ(QDir::currentPath(), dir_);  // the process stays where it was

    dialog.show();  // up again through the parent's entry
    emit dirs->itemActivated(dirs->item(dirs->currentRow() - 1));
    EXPECT_EQ(dialog.dirPath(), dir_);
    select(dialog, "a.txt");
    dialog.close();  // through the frame: no choice
    EXPECT_EQ(path_, "");
}

}  // namespace
}  // namespace quintline
