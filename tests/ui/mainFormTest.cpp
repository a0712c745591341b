// The main window's wiring: clicks and menu items reach the game, the game's
// figures reach the retained image, modal windows are answered while they are up.

#include "ui/mainForm.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>

#include "support/controlTable.h"
#include "ui/boardPicture.h"
#include "ui/sysInfo.h"

namespace quintline {
namespace {

using testing::in;

// Runs `answer` with the modal window once it is up.
void whenModal(std::function<void(QWidget&)> answer) {
    QTimer::singleShot(0, [answer] { answer(*QApplication::activeModalWidget()); });
}

class MainFormTest : public ::testing::Test {
  protected:
    // Triggers a menu item, clicks a control, or clicks the point "x y" on the
    // board, with the right button: any button plays.
    void act(const char* step) {
        int x = 0, y = 0;
        if (auto* item = in<QAction>(form, step)) {
            item->trigger();
        } else if (std::sscanf(step, "%d %d", &x, &y) == 2) {
            QTest::mouseClick(&form.boardPicture(), Qt::RightButton, {}, pixelAt(x, y));
        } else {
            QTest::mouseClick(in(form, step), Qt::LeftButton);
        }
    }
    QPoint pixelAt(int x, int y, double dxTwips = 0) {
        const TwipScale& scale = form.scale();
        return {int(scale.toPixels((x - 0.5) * s.cellSize + dxTwips)),
                int(scale.toPixels((y - 0.5) * s.cellSize))};
    }
    // Each point as its centre then its ring: B black, W white, - the background.
    std::string picture(std::initializer_list<Point> points) {
        const QImage& image = form.boardPicture().canvas().image();
        std::string shown;
        for (const Point p : points) {
            for (const double dx : {0.0, 133.25}) {
                const QColor c = image.pixel(pixelAt(p.x, p.y, dx));
                shown += c == form.palette().color(QPalette::Button) ? '-'
                         : c == Qt::black                            ? 'B'
                         : c == Qt::white                            ? 'W'
                                                                     : '?';
            }
            shown += ' ';
        }
        return shown.substr(0, shown.size() - 1);
    }
    QString caption(const char* name) { return testing::captionOf(in(form, name)); }

    MainForm form;
    GameState& s = form.game().state();
};

TEST_F(MainFormTest, ClicksReachTheGameAndItsFiguresTheImage) {
    form.show();
    EXPECT_EQ(picture({{8, 8}, {1, 1}}), "BW --");  // the opening stone with its ring
    EXPECT_EQ(form.boardPicture().grab().toImage().convertToFormat(QImage::Format_RGB32),
              form.boardPicture().canvas().image());
    act("7 7");
    const Point reply{s.moveRecord[3].x, s.moveRecord[3].y};
    const struct {
        const char* step;
        int stepNum;
        const char* enabled;  // which of the replay buttons "<" and ">"
        const char* shown;    // (7, 7), (8, 8) and the reply
    } flow[] = {{"", 3, "<", "WW BB BW"},
                {"7 7", 3, "<", "WW BB BW"},
                {"backwardEnd", 0, ">", "-- -- --"},
                {"cmdForw", 1, "<>", "-- BB --"},
                {"cmdForwardEnd", 3, "<", "WW BB BB"},
                {"new", 1, "<", "-- BW --"}};
    for (const auto& step : flow) {
        if (*step.step) act(step.step);
        EXPECT_EQ(caption("stepNumLab"), QString::number(step.stepNum)) << step.step;
        EXPECT_EQ(std::string(in(form, "cmdBack")->isEnabled() ? "<" : "") +
                      (in(form, "cmdForw")->isEnabled() ? ">" : ""),
                  step.enabled)
            << step.step;
        EXPECT_EQ(picture({{7, 7}, {8, 8}, reply}), step.shown) << step.step;
    }
    act("Command1");
    EXPECT_EQ(caption("Command1"), "suggestion");
    EXPECT_EQ(picture({{s.bestX[1], s.bestY[1]}}), "-B");
}

TEST_F(MainFormTest, SettingsRefuseABadDepthThenSetThePlayers) {
    QString refusal, shown;
    whenModal([&](QWidget& dialog) {
        in<QComboBox>(dialog, "Combo3(0)")->setEditText("12");
        whenModal([&](QWidget& box) {
            refusal = dynamic_cast<QMessageBox&>(box).text();
            QTest::keyClick(&box, Qt::Key_Return);
        });
        in<QPushButton>(dialog, "OKButton")->click();
        EXPECT_TRUE(dialog.isVisible());
        in<QComboBox>(dialog, "Combo3(0)")->setEditText("2");
        in<QComboBox>(dialog, "Combo1")->setEditText("User");
        in<QPushButton>(dialog, "OKButton")->click();
    });
    act("sr");
    EXPECT_EQ(refusal, "search depth must be a whole number from 1 to 9");
    EXPECT_EQ(s.depthA, 2);
    EXPECT_EQ(caption("whoRun"), "Users are running");
    // The next opening shows the design depth and the chosen rows; Cancel keeps all.
    whenModal([&](QWidget& dialog) {
        shown = in<QComboBox>(dialog, "Combo3(0)")->currentText() + "/" +
                in<QComboBox>(dialog, "Combo1")->currentText();
        in<QComboBox>(dialog, "Combo1")->setEditText("Computer B");
        in<QPushButton>(dialog, "CancelButton")->click();
    });
    act("sr");
    EXPECT_EQ(shown, "3/User");
    EXPECT_EQ(s.blackSide, userKind);
}

TEST_F(MainFormTest, SaveAndReadPutThePathInTheTitleAndBatchesRun) {
    QTemporaryDir scratch;
    const QString previous = QDir::currentPath(), title = form.windowTitle();
    ASSERT_TRUE(QDir::setCurrent(scratch.path()));
    const QString titled = title + "      " + QDir::toNativeSeparators(scratch.path() + "/b.txt");
    const struct {
        const char* item;
        const char* file;  // typed and picked; none: Cancel
        QString title;
        int movesAhead;
    } flow[] = {
        {"read", nullptr, title, 0}, {"save", "b.txt", titled, 0}, {"read", "b.txt", titled, 1}};
    for (const auto& step : flow) {
        whenModal([&](QWidget& dialog) {
            if (step.file != nullptr) {
                in<QLineEdit>(dialog, "txtFileName")->setText(step.file);
                auto* files = in<QListWidget>(dialog, "File1");
                files->setCurrentItem(files->findItems(step.file, Qt::MatchExactly).value(0));
            }
            in<QPushButton>(dialog, step.file ? "OKButton" : "CancelButton")->click();
        });
        act(step.item);
        EXPECT_EQ(form.windowTitle(), step.title) << step.item;
        EXPECT_EQ(s.movesAhead, step.movesAhead) << step.item;
    }
    act("one");
    EXPECT_TRUE(s.cycleCount == 1 && QFile::exists("result.txt"));
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

TEST_F(MainFormTest, RepaintAboutBoxAndQuit) {
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    QApplication::processEvents();
    PaintCounter counter;
    form.boardPicture().installEventFilter(&counter);
    form.drawStoneAndRing({3, 3}, black, white);  // only asks for a later paint
    EXPECT_EQ(counter.paints, 0);
    form.repaint();  // paints before returning
    EXPECT_GE(counter.paints, 1);

    // The about box's hidden button still says the tool is missing; Enter,
    // Escape or OK closes the box.
    for (const auto close : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space}) {
        QString said;
        whenModal([&](QWidget& box) {
            whenModal([&](QWidget& message) {
                said = dynamic_cast<QMessageBox&>(message).text();
                QTest::keyClick(&message, Qt::Key_Return);
            });
            in<QPushButton>(box, "cmdSysInfo")->click();
            if (close == Qt::Key_Space) QTest::mouseClick(in(box, "cmdOK"), Qt::LeftButton);
            if (close != Qt::Key_Space) QTest::keyClick(&box, close);
        });
        act("about");
        EXPECT_EQ(said, sysInfoUnavailable.data()) << close;
    }

    // Quit ends the event loop at once; a fallback ends it with another code.
    QTimer::singleShot(0, &form, [&] { act("quit"); });
    QTimer::singleShot(3000, [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_TRUE(form.isVisible());  // nothing was asked or closed first
}

}  // namespace
}  // namespace quintline
