#include "ui/mainForm.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
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
    template <class W = QWidget>
    W* control(const char* name) {
        W* widget = form.findChild<W*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }
    QString caption(const char* name) {
        if (auto* label = form.findChild<QLabel*>(name)) return label->text();
        return control<QPushButton>(name)->text();
    }
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
    QRgb boardBackground() { return form.palette().color(QPalette::Button).rgb() & 0xFFFFFF; }

    MainForm form;
    GameState& s = form.game().state();
};

TEST_F(MainFormTest, OpensWithTheDesignedControlsAndTheOpeningStone) {
    EXPECT_EQ(form.windowTitle(), "Quintline Version 3.5  15*15  ");
    EXPECT_EQ(s.windowTitle, "Quintline Version 3.5  15*15  ");
    EXPECT_EQ(form.centralWidget()->size(), QSize(px(10950), px(8865)));

    const struct {
        const char* name;
        const char* caption;  // nullptr for no caption
        bool enabled, visible;
        QRect geometry;
    } controls[] = {
        {"Command1", "no suggestion", true, true, pxRect(120, 105, 1335, 315)},
        {"List1", nullptr, true, false, pxRect(8280, 120, 735, 3960)},
        {"List2", nullptr, true, false, pxRect(9000, 120, 735, 3960)},
        {"List3", nullptr, true, false, pxRect(9720, 120, 735, 3960)},
        {"boardPic", nullptr, true, true, pxRect(120, 480, 8000, 8000)},
        {"Frame1", nullptr, true, true, pxRect(75, -30, 8040, 495)},
        {"backwardEnd", "|<", true, true, pxRect(1575, 120, 495, 345)},
        {"cmdForwardEnd", ">|", true, true, pxRect(3045, 105, 495, 345)},
        {"cmdBack", "<", false, true, pxRect(2070, 105, 495, 345)},
        {"cmdForw", ">", false, true, pxRect(2550, 105, 495, 345)},
        {"whoRun", "Computer A is running", true, true, pxRect(8280, 8040, 2415, 375)},
        {"whiteSideLabel", "User", true, true, pxRect(8880, 7440, 1455, 375)},
        {"blackSideLabel", "Computer A", true, true, pxRect(8880, 7080, 1455, 375)},
        {"WhiteLabel", "White:", true, true, pxRect(8280, 7440, 615, 375)},
        {"blackLable", "Black:", true, true, pxRect(8280, 7080, 615, 375)},
        {"checkPos", "0", true, true, pxRect(9600, 6570, 735, 375)},
        {"Label4", "check position:", true, true, pxRect(8310, 6555, 1275, 315)},
        {"Label2", "stepNum:", true, true, pxRect(8280, 5280, 855, 390)},
        {"Label1", "0", true, true, pxRect(9600, 5760, 615, 255)},
        {"winLab", "will I win?", true, true, pxRect(8295, 6120, 2100, 300)},
        {"stepNumLab", "1", true, true, pxRect(9600, 5280, 615, 255)},
        {"Label3", "search depth:", true, true, pxRect(8280, 5760, 975, 495)},
    };
    form.show();
    for (const auto& row : controls) {
        SCOPED_TRACE(row.name);
        QWidget* widget = control(row.name);
        ASSERT_NE(widget, nullptr);
        if (row.caption != nullptr) {
            EXPECT_EQ(caption(row.name), row.caption);
        }
        EXPECT_EQ(widget->isEnabled(), row.enabled);
        EXPECT_EQ(widget->isVisible(), row.visible);
        EXPECT_EQ(widget->geometry(), row.geometry);
    }
    // The replay buttons live in their frame; Command1 is reachable over it.
    EXPECT_EQ(control("cmdBack")->parentWidget(), control("Frame1"));
    EXPECT_EQ(control<QGroupBox>("Frame1")->title(), "");
    QWidget* command1 = control("Command1");
    EXPECT_EQ(form.centralWidget()->childAt(command1->geometry().center()), command1);
    EXPECT_EQ(control("cmdForw")->palette().color(QPalette::Button), QColor(0xC0, 0xC0, 0xC0));

    // The opening stone is on the board and on the picture, with its white ring.
    EXPECT_EQ(s.position.board[8][8], black);
    EXPECT_EQ(form.boardWidth(), 8000);
    EXPECT_EQ(colourAt(8, 8), 0x000000u);
    EXPECT_EQ(colourAt(8, 8, 133.25), 0xFFFFFFu);
    EXPECT_EQ(colourAt(1, 1), boardBackground());
    // The widget shows exactly the canvas.
    EXPECT_EQ(form.boardPicture().grab().toImage().convertToFormat(QImage::Format_RGB32),
              form.boardPicture().canvas().image());
}

// Counts the paint events a widget receives.
class PaintCounter : public QObject {
  public:
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++paints;
        return false;
    }
};

TEST_F(MainFormTest, ForcedRepaintPaintsTheBoardWithoutTheEventLoop) {
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    QApplication::processEvents();
    PaintCounter counter;
    form.boardPicture().installEventFilter(&counter);
    // A stone drawn inside a running routine only asks for a later paint ...
    form.drawStoneAndRing({3, 3}, black, white);
    EXPECT_EQ(counter.paints, 0);
    // ... and the forced repaint brings it to the screen before returning.
    form.repaint();
    EXPECT_GE(counter.paints, 1);
}

TEST_F(MainFormTest, MenuBarHoldsItsItemsInOrderWithTheirCaptions) {
    const QList<QAction*> bar = form.menuBar()->actions();
    QStringList barItems;
    for (QAction* a : bar) barItems << a->text();
    EXPECT_EQ(barItems,
              (QStringList{"&New", "&Save", "&Read", "&Testsuit", "Se&ttings", "&About", "&Quit"}));
    for (const char* name : {"new", "save", "read", "sr", "about", "quit"}) {
        QAction* action = form.findChild<QAction*>(name);
        ASSERT_NE(action, nullptr) << name;
        EXPECT_TRUE(bar.contains(action)) << name;  // acts at once from the bar
        EXPECT_EQ(action->menu(), nullptr) << name;
        EXPECT_TRUE(action->shortcut().isEmpty()) << name;
        EXPECT_FALSE(action->isCheckable()) << name;
    }

    auto* testsuit = form.findChild<QMenu*>("testsuit");
    ASSERT_NE(testsuit, nullptr);
    EXPECT_EQ(bar[3], testsuit->menuAction());
    QStringList names;
    for (QAction* a : testsuit->actions()) {
        names << (a->menu() ? a->menu()->objectName() : a->objectName()) + "=" + a->text();
    }
    EXPECT_EQ(names,
              (QStringList{"randomtest=random 1000", "random=random", "fromFiletest=fromFile"}));
    auto* random = form.findChild<QMenu*>("random");
    ASSERT_NE(random, nullptr);
    names.clear();
    for (QAction* a : random->actions()) names << a->objectName() + "=" + a->text();
    EXPECT_EQ(names, (QStringList{"one=1", "ten=10", "hundred=100", "thousand=1000",
                                  "five_thousand=5000", "ten_thousand=10000"}));
}

TEST_F(MainFormTest, ClickOnTheBoardPlaysTheUsersStoneAndTheComputersReply) {
    form.show();
    // Any mouse button: the right one plays like the left.
    clickCell(7, 7, Qt::RightButton);
    EXPECT_EQ(s.position.board[7][7], white);
    EXPECT_EQ(s.stepNum, 3);
    EXPECT_EQ(caption("stepNumLab"), "3");
    EXPECT_EQ(caption("whoRun"), "Computer A is running");
    EXPECT_EQ(caption("Label1"), "3");
    EXPECT_NE(caption("checkPos"), "0");
    EXPECT_TRUE(control("cmdBack")->isEnabled());

    // On the picture: the user's white stone without a ring, the centre stone
    // plain again, the computer's reply with its ring.
    EXPECT_EQ(colourAt(7, 7), 0xFFFFFFu);
    EXPECT_EQ(colourAt(7, 7, 133.25), 0xFFFFFFu);
    EXPECT_EQ(colourAt(8, 8, 133.25), 0x000000u);
    const MoveRecordEntry reply = s.moveRecord[3];
    EXPECT_EQ(reply.colour, black);
    EXPECT_EQ(colourAt(reply.x, reply.y), 0x000000u);
    EXPECT_EQ(colourAt(reply.x, reply.y, 133.25), 0xFFFFFFu);

    // A click on a stone plays nothing.
    clickCell(7, 7);
    EXPECT_EQ(s.stepNum, 3);

    // Back to the start: every stone is erased to the background.
    QTest::mouseClick(control("backwardEnd"), Qt::LeftButton);
    EXPECT_EQ(s.stepNum, 0);
    EXPECT_EQ(s.movesAhead, 3);
    EXPECT_FALSE(control("cmdBack")->isEnabled());
    EXPECT_TRUE(control("cmdForw")->isEnabled());
    EXPECT_EQ(colourAt(8, 8), boardBackground());
    EXPECT_EQ(colourAt(7, 7), boardBackground());
    QTest::mouseClick(control("cmdForw"), Qt::LeftButton);
    EXPECT_EQ(s.stepNum, 1);
    EXPECT_EQ(colourAt(8, 8), 0x000000u);
    EXPECT_EQ(colourAt(8, 8, 133.25), 0x000000u);  // a replayed stone has no ring
    QTest::mouseClick(control("cmdForwardEnd"), Qt::LeftButton);
    EXPECT_EQ(s.stepNum, 3);
    QTest::mouseClick(control("cmdBack"), Qt::LeftButton);
    EXPECT_EQ(s.stepNum, 2);

    // The new game clears the picture down to the grid and the opening stone.
    form.findChild<QAction*>("new")->trigger();
    EXPECT_EQ(s.stepNum, 1);
    EXPECT_EQ(colourAt(7, 7), boardBackground());
    EXPECT_EQ(colourAt(8, 8, 133.25), 0xFFFFFFu);
}

TEST_F(MainFormTest, SuggestionButtonSwitchesAndMarksThePoint) {
    QTest::mouseClick(control("Command1"), Qt::LeftButton);
    EXPECT_EQ(caption("Command1"), "suggestion");
    EXPECT_EQ(s.suggestionOn, flagTrue);
    EXPECT_EQ(caption("Label1"), "2");
    const Point mark{s.bestX[1], s.bestY[1]};
    ASSERT_TRUE(onBoard(mark.x, mark.y));
    EXPECT_EQ(colourAt(mark.x, mark.y), boardBackground());  // filled with it
    EXPECT_EQ(colourAt(mark.x, mark.y, 133.25), 0x000000u);  // black outline
    QTest::mouseClick(control("Command1"), Qt::LeftButton);
    EXPECT_EQ(caption("Command1"), "no suggestion");
    EXPECT_EQ(colourAt(mark.x, mark.y, 133.25), 0x000000u);  // the mark stays
}

TEST_F(MainFormTest, SettingsFromTheMenuSetThePlayersOrRefuseABadDepth) {
    form.show();
    bool refusedAndStillOpen = false;
    QString refusal;
    whenModal([&](QWidget* dialog) {
        ASSERT_NE(dialog, nullptr);
        ASSERT_EQ(dialog->objectName(), "settingsDialog");
        auto* depth = dialog->findChild<QComboBox*>("Combo3(0)");
        depth->setEditText("12");
        // OK answers with a message box over the dialog, which stays open.
        whenModal([&](QWidget* box) {
            refusal = qobject_cast<QMessageBox*>(box)->text();
            EXPECT_EQ(box->windowTitle(), "");
            qobject_cast<QMessageBox*>(box)->button(QMessageBox::Ok)->click();
        });
        dialog->findChild<QPushButton*>("OKButton")->click();
        refusedAndStillOpen = dialog->isVisible();
        depth->setEditText("2");
        dialog->findChild<QComboBox*>("Combo1")->setEditText("User");
        dialog->findChild<QComboBox*>("Combo2")->setEditText("User");
        dialog->findChild<QPushButton*>("OKButton")->click();
    });
    form.findChild<QAction*>("sr")->trigger();
    EXPECT_TRUE(refusedAndStillOpen);
    EXPECT_EQ(refusal, "search depth must be a whole number from 1 to 9");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(s.depthA, 2);
    EXPECT_EQ(s.twoUsers, flagTrue);
    EXPECT_EQ(caption("whoRun"), "Users are running");
    EXPECT_EQ(caption("blackSideLabel"), "User");

    // The next opening starts from the design depth and the filled rows; Cancel
    // changes nothing.
    QString depthAtOpening, blackAtOpening;
    whenModal([&](QWidget* dialog) {
        depthAtOpening = dialog->findChild<QComboBox*>("Combo3(0)")->currentText();
        blackAtOpening = dialog->findChild<QComboBox*>("Combo1")->currentText();
        dialog->findChild<QComboBox*>("Combo1")->setEditText("Computer B");
        dialog->findChild<QPushButton*>("CancelButton")->click();
    });
    form.findChild<QAction*>("sr")->trigger();
    EXPECT_EQ(depthAtOpening, "3");
    EXPECT_EQ(blackAtOpening, "User");
    EXPECT_EQ(s.blackSide, userKind);
    EXPECT_EQ(s.depthA, 2);
}

TEST_F(MainFormTest, BoardFileMenuItemsPutTheChosenPathInTheTitle) {
    QTemporaryDir scratch;
    ASSERT_TRUE(scratch.isValid());
    const QString previous = QDir::currentPath();
    QDir::setCurrent(scratch.path());
    const QString title = form.windowTitle();

    whenModal([](QWidget* dialog) {
        ASSERT_EQ(dialog->objectName(), "dlgOpenfile");
        dialog->findChild<QPushButton*>("CancelButton")->click();
    });
    form.findChild<QAction*>("read")->trigger();
    EXPECT_EQ(form.windowTitle(), title);
    EXPECT_EQ(s.boardFilePath, "");

    whenModal([](QWidget* dialog) {
        ASSERT_EQ(dialog->objectName(), "dlgSavefile");
        dialog->findChild<QLineEdit*>("txtFileName")->setText("board1.txt");
        dialog->findChild<QPushButton*>("OKButton")->click();
    });
    form.findChild<QAction*>("save")->trigger();
    const QString path =
        QDir::toNativeSeparators(QDir::currentPath()) + QDir::separator() + "board1.txt";
    EXPECT_EQ(s.boardFilePath, path.toStdString());
    EXPECT_EQ(form.windowTitle(), title + "      " + path);

    EXPECT_TRUE(QFile::exists("board1.txt"));

    // A new game keeps the path in the title; OK without a name changes nothing.
    form.findChild<QAction*>("new")->trigger();
    whenModal([](QWidget* dialog) { dialog->findChild<QPushButton*>("OKButton")->click(); });
    form.findChild<QAction*>("save")->trigger();
    EXPECT_EQ(form.windowTitle(), title + "      " + path);
    EXPECT_EQ(s.boardFilePath, "");

    // Reading the saved board lays its one move out for replay.
    whenModal([](QWidget* dialog) {
        auto* files = dialog->findChild<QListWidget*>("File1");
        files->setCurrentItem(files->findItems("board1.txt", Qt::MatchExactly).value(0));
        dialog->findChild<QPushButton*>("OKButton")->click();
    });
    form.findChild<QAction*>("read")->trigger();
    EXPECT_EQ(form.windowTitle(), title + "      " + path);
    EXPECT_EQ(s.stepNum, 0);
    EXPECT_EQ(s.movesAhead, 1);
    EXPECT_TRUE(control("cmdForw")->isEnabled());
    QDir::setCurrent(previous);
}

TEST_F(MainFormTest, TestsuitItemsRunTheirBatches) {
    QTemporaryDir scratch;
    ASSERT_TRUE(scratch.isValid());
    const QString previous = QDir::currentPath();
    QDir::setCurrent(scratch.path());

    // Without a list of board files the test suite refuses with a message.
    QString refusal;
    whenModal([&](QWidget* box) {
        refusal = qobject_cast<QMessageBox*>(box)->text();
        qobject_cast<QMessageBox*>(box)->button(QMessageBox::Ok)->click();
    });
    form.findChild<QAction*>("fromFiletest")->trigger();
    EXPECT_TRUE(refusal.contains("testsuit.txt")) << refusal.toStdString();

    form.findChild<QAction*>("one")->trigger();
    EXPECT_EQ(s.cycleCount, 1);
    EXPECT_TRUE(QFile::exists("result.txt"));
    EXPECT_NE(s.gameResult, gameOpen);
    QDir::setCurrent(previous);
}

TEST_F(MainFormTest, AboutBoxOpensFromTheMenuAndClosesWithOk) {
    QString title;
    whenModal([&](QWidget* box) {
        title = box->windowTitle();
        QTest::keyClick(box, Qt::Key_Escape);
    });
    form.findChild<QAction*>("about")->trigger();
    EXPECT_EQ(title, "About MyApp");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
}  // namespace quintline

namespace quintline {
namespace {

TEST(MainFormQuit, QuitItemEndsTheEventLoopAtOnce) {
    MainForm form;
    form.show();
    QTimer::singleShot(0, &form, [&] { form.findChild<QAction*>("quit")->trigger(); });
    // Should quit not end the loop, this ends it with a different code.
    QTimer fallback;
    fallback.setSingleShot(true);
    QObject::connect(&fallback, &QTimer::timeout, [] { QCoreApplication::exit(1); });
    fallback.start(3000);
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_TRUE(form.isVisible());  // nothing was asked or closed first
}

}  // namespace
}  // namespace quintline
