#include "ui/mainForm.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <cmath>
#include <functional>

#include "support/controlTable.h"
#include "ui/boardPicture.h"

namespace quintline {
namespace {

// Pixels for a design length in twips on the screen the tests run on.
int px(double twips) {
    return static_cast<int>(
        std::lround(twips * QGuiApplication::primaryScreen()->logicalDotsPerInch() / 1440.0));
}

QRect pxRect(double left, double top, double width, double height) {
    return QRect(px(left), px(top), px(width), px(height));
}

// Runs `answer` with the modal window once it is up.
void whenModal(std::function<void(QWidget*)> answer) {
    QTimer::singleShot(0, [answer] { answer(QApplication::activeModalWidget()); });
}

class MainFormTest : public ::testing::Test {
  protected:
    QWidget* control(const char* name) { return form.findChild<QWidget*>(name); }
    QString caption(const char* name) { return testing::captionOf(control(name)); }
    void trigger(const char* item) { form.findChild<QAction*>(item)->trigger(); }
    // The colour on the board picture at the centre of point (x, y), offset in twips.
    QRgb colourAt(int x, int y, double dxTwips = 0) {
        const double cell = form.game().state().cellSize;
        const ImageCanvas& canvas = form.boardPicture().canvas();
        return canvas.image().pixel(int(canvas.scale().toPixels((x - 0.5) * cell + dxTwips)),
                                    int(canvas.scale().toPixels((y - 0.5) * cell))) &
               0xFFFFFF;
    }
    void clickCell(int x, int y, Qt::MouseButton button = Qt::LeftButton) {
        const double cell = form.game().state().cellSize;
        const TwipScale& scale = form.boardPicture().canvas().scale();
        QTest::mouseClick(
            &form.boardPicture(), button, {},
            QPoint(int(scale.toPixels((x - 0.5) * cell)), int(scale.toPixels((y - 0.5) * cell))));
    }
    QRgb background() { return form.palette().color(QPalette::Button).rgb() & 0xFFFFFF; }

    MainForm form;
    GameState& s = form.game().state();
};

TEST_F(MainFormTest, OpensWithTheDesignedControlsAndTheOpeningStone) {
    EXPECT_EQ(form.windowTitle(), "Quintline Version 3.5  15*15  ");
    EXPECT_EQ(form.centralWidget()->size(), QSize(px(10950), px(8865)));
    form.show();
    testing::expectControls(form,
                            {{"Command1", "no suggestion", pxRect(120, 105, 1335, 315)},
                             {"List1", nullptr, pxRect(8280, 120, 735, 3960)},
                             {"List2", nullptr, pxRect(9000, 120, 735, 3960)},
                             {"List3", nullptr, pxRect(9720, 120, 735, 3960)},
                             {"boardPic", nullptr, pxRect(120, 480, 8000, 8000)},
                             {"Frame1", "", pxRect(75, -30, 8040, 495)},
                             {"backwardEnd", "|<", pxRect(1575, 120, 495, 345)},
                             {"cmdForwardEnd", ">|", pxRect(3045, 105, 495, 345)},
                             {"cmdBack", "<", pxRect(2070, 105, 495, 345)},
                             {"cmdForw", ">", pxRect(2550, 105, 495, 345)},
                             {"whoRun", "Computer A is running", pxRect(8280, 8040, 2415, 375)},
                             {"whiteSideLabel", "User", pxRect(8880, 7440, 1455, 375)},
                             {"blackSideLabel", "Computer A", pxRect(8880, 7080, 1455, 375)},
                             {"WhiteLabel", "White:", pxRect(8280, 7440, 615, 375)},
                             {"blackLable", "Black:", pxRect(8280, 7080, 615, 375)},
                             {"checkPos", "0", pxRect(9600, 6570, 735, 375)},
                             {"Label4", "check position:", pxRect(8310, 6555, 1275, 315)},
                             {"Label2", "stepNum:", pxRect(8280, 5280, 855, 390)},
                             {"Label1", "0", pxRect(9600, 5760, 615, 255)},
                             {"winLab", "will I win?", pxRect(8295, 6120, 2100, 300)},
                             {"stepNumLab", "1", pxRect(9600, 5280, 615, 255)},
                             {"Label3", "search depth:", pxRect(8280, 5760, 975, 495)}});
    for (const char* list : {"List1", "List2", "List3"}) EXPECT_FALSE(control(list)->isVisible());
    EXPECT_FALSE(control("cmdBack")->isEnabled() || control("cmdForw")->isEnabled());
    EXPECT_TRUE(control("backwardEnd")->isEnabled() && control("cmdForwardEnd")->isEnabled());
    // The replay buttons live in their frame; Command1 is reachable over it.
    EXPECT_EQ(control("cmdBack")->parentWidget(), control("Frame1"));
    EXPECT_EQ(form.centralWidget()->childAt(control("Command1")->geometry().center()),
              control("Command1"));

    QStringList bar;
    for (QAction* a : form.menuBar()->actions()) bar << a->objectName() + "=" + a->text();
    EXPECT_EQ(bar, (QStringList{"new=&New", "save=&Save", "read=&Read", "=&Testsuit",
                                "sr=Se&ttings", "about=&About", "quit=&Quit"}));

    // The opening stone is on the board and on the picture, with its white ring.
    EXPECT_EQ(s.position.board[8][8], black);
    EXPECT_EQ(colourAt(8, 8), 0x000000u);
    EXPECT_EQ(colourAt(8, 8, 133.25), 0xFFFFFFu);
    EXPECT_EQ(colourAt(1, 1), background());
    EXPECT_EQ(form.boardPicture().grab().toImage().convertToFormat(QImage::Format_RGB32),
              form.boardPicture().canvas().image());
}

TEST_F(MainFormTest, ClicksPlayReplayAndSuggest) {
    form.show();
    clickCell(7, 7, Qt::RightButton);  // any mouse button plays
    EXPECT_EQ(s.position.board[7][7], white);
    EXPECT_EQ(s.stepNum, 3);
    EXPECT_EQ(caption("stepNumLab"), "3");
    EXPECT_TRUE(control("cmdBack")->isEnabled());
    // The user's white stone without a ring, the centre stone plain again, the
    // computer's reply with its ring.
    EXPECT_EQ(colourAt(7, 7, 133.25), 0xFFFFFFu);
    EXPECT_EQ(colourAt(8, 8, 133.25), 0x000000u);
    const MoveRecordEntry reply = s.moveRecord[3];
    EXPECT_EQ(colourAt(reply.x, reply.y), 0x000000u);
    EXPECT_EQ(colourAt(reply.x, reply.y, 133.25), 0xFFFFFFu);
    clickCell(7, 7);  // on a stone: nothing
    EXPECT_EQ(s.stepNum, 3);

    QTest::mouseClick(control("backwardEnd"), Qt::LeftButton);
    EXPECT_EQ(s.stepNum, 0);
    EXPECT_TRUE(control("cmdForw")->isEnabled());
    EXPECT_EQ(colourAt(8, 8), background());
    EXPECT_EQ(colourAt(7, 7), background());
    QTest::mouseClick(control("cmdForw"), Qt::LeftButton);
    EXPECT_EQ(colourAt(8, 8, 133.25), 0x000000u);  // a replayed stone has no ring

    trigger("new");
    EXPECT_EQ(s.stepNum, 1);
    EXPECT_EQ(colourAt(7, 7), background());
    QTest::mouseClick(control("Command1"), Qt::LeftButton);
    EXPECT_EQ(caption("Command1"), "suggestion");
    const Point mark{s.bestX[1], s.bestY[1]};
    ASSERT_TRUE(onBoard(mark.x, mark.y));
    EXPECT_EQ(colourAt(mark.x, mark.y), background());
    EXPECT_EQ(colourAt(mark.x, mark.y, 133.25), 0x000000u);
}

TEST_F(MainFormTest, SettingsFromTheMenuRefuseABadDepthThenSetThePlayers) {
    QString refusal;
    bool openAfterRefusal = false;
    whenModal([&](QWidget* dialog) {
        ASSERT_EQ(dialog->objectName(), "settingsDialog");
        auto* depth = dialog->findChild<QComboBox*>("Combo3(0)");
        depth->setEditText("12");
        whenModal([&](QWidget* box) {
            refusal = qobject_cast<QMessageBox*>(box)->text();
            qobject_cast<QMessageBox*>(box)->button(QMessageBox::Ok)->click();
        });
        dialog->findChild<QPushButton*>("OKButton")->click();
        openAfterRefusal = dialog->isVisible();
        depth->setEditText("2");
        dialog->findChild<QComboBox*>("Combo1")->setEditText("User");
        dialog->findChild<QPushButton*>("OKButton")->click();
    });
    trigger("sr");
    EXPECT_EQ(refusal, "search depth must be a whole number from 1 to 9");
    EXPECT_TRUE(openAfterRefusal);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(s.depthA, 2);
    EXPECT_EQ(caption("whoRun"), "Users are running");

    // The next opening shows the design depth and the filled rows; Cancel keeps all.
    QString depthShown, blackShown;
    whenModal([&](QWidget* dialog) {
        depthShown = dialog->findChild<QComboBox*>("Combo3(0)")->currentText();
        blackShown = dialog->findChild<QComboBox*>("Combo1")->currentText();
        dialog->findChild<QComboBox*>("Combo1")->setEditText("Computer B");
        dialog->findChild<QPushButton*>("CancelButton")->click();
    });
    trigger("sr");
    EXPECT_EQ(depthShown + "/" + blackShown, "3/User");
    EXPECT_EQ(s.blackSide, userKind);
}

TEST_F(MainFormTest, FileItemsPutThePathInTheTitleAndTestsuitRunsBatches) {
    QTemporaryDir scratch;
    ASSERT_TRUE(scratch.isValid());
    const QString previous = QDir::currentPath();
    QDir::setCurrent(scratch.path());
    const QString title = form.windowTitle();

    whenModal([](QWidget* dialog) {
        ASSERT_EQ(dialog->objectName(), "dlgSavefile");
        dialog->findChild<QLineEdit*>("txtFileName")->setText("board1.txt");
        dialog->findChild<QPushButton*>("OKButton")->click();
    });
    trigger("save");
    const QString path =
        QDir::toNativeSeparators(scratch.path()) + QDir::separator() + "board1.txt";
    EXPECT_EQ(form.windowTitle(), title + "      " + path);
    EXPECT_TRUE(QFile::exists("board1.txt"));

    // Cancel leaves the title; the saved board is read back for replay.
    whenModal([](QWidget* dialog) { dialog->findChild<QPushButton*>("CancelButton")->click(); });
    trigger("read");
    EXPECT_EQ(s.boardFilePath, "");
    whenModal([](QWidget* dialog) {
        ASSERT_EQ(dialog->objectName(), "dlgOpenfile");
        auto* files = dialog->findChild<QListWidget*>("File1");
        files->setCurrentItem(files->findItems("board1.txt", Qt::MatchExactly).value(0));
        dialog->findChild<QPushButton*>("OKButton")->click();
    });
    trigger("read");
    EXPECT_EQ(form.windowTitle(), title + "      " + path);
    EXPECT_EQ(s.movesAhead, 1);

    trigger("one");
    EXPECT_EQ(s.cycleCount, 1);
    EXPECT_TRUE(QFile::exists("result.txt"));
    QDir::setCurrent(previous);
}

// Counts the paint events a widget receives.
struct PaintCounter : QObject {
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};

TEST_F(MainFormTest, ForcedRepaintAboutBoxAndQuit) {
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    QApplication::processEvents();
    PaintCounter counter;
    form.boardPicture().installEventFilter(&counter);
    form.drawStoneAndRing({3, 3}, black, white);  // only asks for a later paint
    EXPECT_EQ(counter.paints, 0);
    form.repaint();  // paints before returning
    EXPECT_GE(counter.paints, 1);

    QString about;
    whenModal([&](QWidget* box) {
        about = box->windowTitle();
        QTest::keyClick(box, Qt::Key_Escape);
    });
    trigger("about");
    EXPECT_EQ(about, "About MyApp");

    // Quit ends the event loop at once; a fallback ends it with another code.
    QTimer::singleShot(0, &form, [&] { trigger("quit"); });
    QTimer::singleShot(3000, [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_TRUE(form.isVisible());  // nothing was asked or closed first
}

}  // namespace
}  // namespace quintline
