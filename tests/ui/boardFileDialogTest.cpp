#include "ui/boardFileDialog.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

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
        for (const QString& name : {QString("b.txt"), QString("a.txt"), QString("sub/c.txt")}) {
            QFile file(root.filePath(name));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
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

    template <class W>
    static W* child(QDialog& dialog, const char* name) {
        W* widget = dialog.findChild<W*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    static void selectFile(QDialog& dialog, const QString& name) {
        auto* files = child<QListWidget>(dialog, "File1");
        const QList<QListWidgetItem*> found = files->findItems(name, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << name.toStdString();
        files->setCurrentItem(found.first());
    }

    QTemporaryDir scratch_;
    QString previous_;
    QString dir_;
    const TwipScale scale_{96};
};

TEST_F(BoardFileDialogTest, TwinsHaveTheirDesignedControls) {
    struct Row {
        BoardFileDialogKind kind;
        const char* name;
        const char* title;
        const char* label;
        QSize client;
        QRect ok, cancel, dir, file, text, labelRect;
    };
    // 15 twips to a pixel.
    const Row rows[] = {
        {BoardFileDialogKind::save, "dlgSavefile", "Save as...",
         "Name of the chess board to save :", QSize(448, 277), QRect(355, 15, 81, 25),
         QRect(355, 46, 81, 25), QRect(220, 55, 121, 201), QRect(14, 54, 201, 201),
         QRect(191, 15, 149, 25), QRect(16, 21, 169, 25)},
        {BoardFileDialogKind::open, "dlgOpenfile", "Open file as...",
         "Open file Name of the chess board:  ", QSize(444, 262), QRect(352, 8, 81, 25),
         QRect(352, 39, 81, 25), QRect(217, 48, 121, 201), QRect(11, 47, 201, 201),
         QRect(188, 8, 149, 25), QRect(13, 14, 169, 25)},
    };
    for (const Row& row : rows) {
        std::string path;
        BoardFileDialog dialog(row.kind, scale_, path);
        SCOPED_TRACE(row.name);
        EXPECT_EQ(dialog.objectName(), row.name);
        EXPECT_EQ(dialog.windowTitle(), row.title);
        EXPECT_EQ(dialog.size(), row.client);
        auto* ok = child<QPushButton>(dialog, "OKButton");
        auto* cancel = child<QPushButton>(dialog, "CancelButton");
        EXPECT_EQ(ok->text(), "OK");
        EXPECT_EQ(cancel->text(), "Cancel");
        EXPECT_FALSE(ok->isDefault() || ok->autoDefault() || cancel->autoDefault());
        EXPECT_EQ(ok->geometry(), row.ok);
        EXPECT_EQ(cancel->geometry(), row.cancel);
        EXPECT_EQ(child<QListWidget>(dialog, "Dir1")->geometry(), row.dir);
        EXPECT_EQ(child<QListWidget>(dialog, "File1")->geometry(), row.file);
        EXPECT_EQ(child<QLineEdit>(dialog, "txtFileName")->geometry(), row.text);
        EXPECT_TRUE(child<QLineEdit>(dialog, "txtFileName")->text().isEmpty());
        auto* label = child<QLabel>(dialog, "Label1");
        EXPECT_EQ(label->text(), row.label);
        EXPECT_EQ(label->geometry(), row.labelRect);
    }
}

TEST_F(BoardFileDialogTest, SaveTakesTheTypedNameJoinedToTheDirectory) {
    std::string path = "earlier";
    {
        BoardFileDialog dialog(BoardFileDialogKind::save, scale_, path);
        dialog.show();
        EXPECT_EQ(dialog.dirPath(), dir_);
        // All files of the directory, and no directories, in File1.
        auto* files = child<QListWidget>(dialog, "File1");
        ASSERT_EQ(files->count(), 2);
        EXPECT_EQ(files->item(0)->text(), "a.txt");
        EXPECT_EQ(files->item(1)->text(), "b.txt");

        // Clicking a file fills the box; the name can then be edited. A directory
        // part typed into it is simply appended after the separator.
        selectFile(dialog, "b.txt");
        auto* text = child<QLineEdit>(dialog, "txtFileName");
        EXPECT_EQ(text->text(), "b.txt");
        text->setText("games/b2.txt");
        QTest::mouseClick(child<QPushButton>(dialog, "OKButton"), Qt::LeftButton);
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_EQ(path, joined(dir_, "games/b2.txt"));
    }
    {
        // OK with an empty box is no choice.
        BoardFileDialog dialog(BoardFileDialogKind::save, scale_, path);
        dialog.show();
        QTest::mouseClick(child<QPushButton>(dialog, "OKButton"), Qt::LeftButton);
        EXPECT_EQ(path, "");
    }
}

TEST_F(BoardFileDialogTest, OpenTakesOnlyTheSelectedFile) {
    std::string path = "earlier";
    {
        BoardFileDialog dialog(BoardFileDialogKind::open, scale_, path);
        dialog.show();
        child<QLineEdit>(dialog, "txtFileName")->setText("typed.txt");
        QTest::mouseClick(child<QPushButton>(dialog, "OKButton"), Qt::LeftButton);
        EXPECT_EQ(path, "");  // a typed name plays no part
    }
    {
        BoardFileDialog dialog(BoardFileDialogKind::open, scale_, path);
        dialog.show();
        selectFile(dialog, "a.txt");
        child<QLineEdit>(dialog, "txtFileName")->setText("typed.txt");
        QTest::mouseClick(child<QPushButton>(dialog, "OKButton"), Qt::LeftButton);
        EXPECT_EQ(path, joined(dir_, "a.txt"));
    }
}

TEST_F(BoardFileDialogTest, CancelAndClosingThroughTheFrameLeaveNoChoice) {
    for (const auto kind : {BoardFileDialogKind::save, BoardFileDialogKind::open}) {
        std::string path = "earlier";
        BoardFileDialog dialog(kind, scale_, path);
        dialog.show();
        child<QLineEdit>(dialog, "txtFileName")->setText("x.txt");
        selectFile(dialog, "a.txt");
        QTest::mouseClick(child<QPushButton>(dialog, "CancelButton"), Qt::LeftButton);
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_EQ(path, "");

        path = "earlier";
        BoardFileDialog framed(kind, scale_, path);
        framed.show();
        selectFile(framed, "a.txt");
        framed.close();
        EXPECT_EQ(path, "");
    }
}

TEST_F(BoardFileDialogTest, NavigatingDir1MovesFile1AndThePathButNotTheProcess) {
    std::string path;
    {
        BoardFileDialog dialog(BoardFileDialogKind::open, scale_, path);
        dialog.show();
        auto* dirs = child<QListWidget>(dialog, "Dir1");
        // The current directory is selected, its one subdirectory listed after it.
        ASSERT_EQ(dirs->currentRow(), dirs->count() - 2);
        QListWidgetItem* sub = dirs->item(dirs->count() - 1);
        EXPECT_EQ(sub->text().trimmed(), "sub");
        emit dirs->itemActivated(sub);
        EXPECT_EQ(dialog.dirPath(), dir_ + "/sub");
        auto* files = child<QListWidget>(dialog, "File1");
        ASSERT_EQ(files->count(), 1);
        selectFile(dialog, "c.txt");
        QTest::mouseClick(child<QPushButton>(dialog, "OKButton"), Qt::LeftButton);
        EXPECT_EQ(path, joined(dir_ + "/sub", "c.txt"));
        EXPECT_EQ(QDir::currentPath(), dir_);

        // Going up again through the parent's entry in the list.
        dialog.show();
        emit dirs->itemActivated(dirs->item(dirs->currentRow() - 1));
        EXPECT_EQ(dialog.dirPath(), dir_);
    }
    {
        // Each opening starts again at the process's current directory.
        BoardFileDialog dialog(BoardFileDialogKind::save, scale_, path);
        EXPECT_EQ(dialog.dirPath(), dir_);
        // A root already ends in its separator; the join adds another.
        dialog.setDirPath(QDir::rootPath());
        dialog.show();
        child<QLineEdit>(dialog, "txtFileName")->setText("r.txt");
        QTest::mouseClick(child<QPushButton>(dialog, "OKButton"), Qt::LeftButton);
        EXPECT_EQ(path, joined(QDir::rootPath(), "r.txt"));
    }
}

TEST_F(BoardFileDialogTest, ModalEscapeDoesNothingAndOkEndsTheDialog) {
    std::string path;
    BoardFileDialog dialog(BoardFileDialogKind::save, scale_, path);
    bool stillOpenAfterEscape = false;
    QTimer::singleShot(0, &dialog, [&] {
        QTest::keyClick(&dialog, Qt::Key_Escape);
        stillOpenAfterEscape = dialog.isVisible();
        child<QLineEdit>(dialog, "txtFileName")->setText("m.txt");
        child<QPushButton>(dialog, "OKButton")->click();
    });
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
    EXPECT_TRUE(stillOpenAfterEscape);
    EXPECT_EQ(path, joined(dir_, "m.txt"));
}

}  // namespace
}  // namespace quintline
