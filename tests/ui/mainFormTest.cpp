// The main window's wiring: clicks and menu items reach the game, the game's
// figures reach the retained image, modal windows are answered while up.

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

namespace quintline {
namespace {

// Runs `answer` with the modal window once it is up.
void whenModal(std::function<void(QWidget*)> answer) {
    QTimer::singleShot(0, [answer] { answer(QApplication::activeModalWidget()); });
}

template <class Control = QWidget>
Control* in(QWidget* window, const char* name) {
    return window->findChild<Control*>(name);
}

class MainFormTest : public ::testing::Test {
  protected:
    QString caption(const char* name) { return testing::captionOf(in(&form, name)); }
    // Clicks a control, triggers a menu item, or clicks the point "x y" on the
    // board (with the right button: any button plays).
    void act(const char* step) {
        int x = 0, y = 0;
        if (auto* item = in<QAction>(&form, step)) {
            item->trigger();
        } else if (std::sscanf(step, "%d %d", &x, &y) == 2) {
            QTest::mouseClick(&form.boardPicture(), Qt::RightButton, {}, pixelAt(x, y));
        } else {
            QTest::mouseClick(in(&form, step), Qt::LeftButton);
        }
    }
    QPoint pixelAt(int x, int y, double dxTwips = 0) {
        const double cell = s.cellSize;
        const TwipScale& scale = form.boardPicture().canvas().scale();
        return {int(scale.toPixels((x - 0.5) * cell + dxTwips)),
                int(scale.toPixels((y - 0.5) * cell))};
    }
    // Each point as its centre then its ring: B black, W white, - the background.
    std::string picture(std::initializer_list<Point> points) {
        const QImage& image = form.boardPicture().canvas().image();
        const QRgb ground = form.palette().color(QPalette::Button).rgb();
        QString shown;
        for (const Point p : points) {
            for (const double dx : {0.0, 133.25}) {
                const QRgb c = image.pixel(pixelAt(p.x, p.y, dx)) | 0xFF000000;
                shown += c == ground ? '-' : c == 0xFF000000 ? 'B' : c == 0xFFFFFFFF ? 'W' : '?';
            }
            shown += ' ';
        }
        return shown.trimmed().toStdString();
    }

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
        const char* replayButtons;  // which of "<" and ">" are enabled
        const char* shown;          // (7, 7), (8, 8) and the reply
    } flow[] = {{"", 3, "<", "WW BB BW"},
                {"7 7", 3, "<", "WW BB BW"},
                {"backwardEnd", 0, ">", "-- -- --"},
                {"cmdForw", 1, "<>", "-- BB --"},
                {"cmdForwardEnd", 3, "<", "WW BB BB"},
                {"new", 1, "<", "-- BW --"}};
    for (const auto& step : flow) {
        if (*step.step) act(step.step);
        EXPECT_EQ(s.stepNum, step.stepNum) << step.step;
        EXPECT_EQ(caption("stepNumLab"), QString::number(step.stepNum)) << step.step;
        EXPECT_EQ(std::string(in(&form, "cmdBack")->isEnabled() ? "<" : "") +
                      (in(&form, "cmdForw")->isEnabled() ? ">" : ""),
                  step.replayButtons)
            << step.step;
        EXPECT_EQ(picture({{7, 7}, {8, 8}, reply}), step.shown) << step.step;
    }
    act("Command1");
    EXPECT_EQ(caption("Command1"), "suggestion");
    EXPECT_EQ(picture({{s.bestX[1], s.bestY[1]}}), "-B");
}

TEST_F(MainFormTest, SettingsRefuseABadDepthThenSetThePlayers) {
    QString refusal, shown;
    whenModal([&](QWidget* dialog) {
        in<QComboBox>(dialog, "Combo3(0)")->setEditText("12");
        whenModal([&](QWidget* box) {
            refusal = qobject_cast<QMessageBox*>(box)->text();
            qobject_cast<QMessageBox*>(box)->button(QMessageBox::Ok)->click();
        });
        in<QPushButton>(dialog, "OKButton")->click();
        EXPECT_TRUE(dialog->isVisible());
        in<QComboBox>(dialog, "Combo3(0)")->setEditText("2");
        in<QComboBox>(dialog, "Combo1")->setEditText("User");
        in<QPushButton>(dialog, "OKButton")->click();
    });
    act("sr");
    EXPECT_EQ(refusal, "search depth must be a whole number from 1 to 9");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(s.depthA, 2);
    EXPECT_EQ(caption("whoRun"), "Users are running");

    // The next opening shows the design depth and the chosen rows; Cancel keeps all.
    whenModal([&](QWidget* dialog) {
        shown = testing::controlTable(*dialog, form.scale());
        in<QComboBox>(dialog, "Combo1")->setEditText("Computer B");
        in<QPushButton>(dialog, "CancelButton")->click();
    });
    act("sr");
    EXPECT_TRUE(shown.contains("\nCombo3(0) QComboBox \"3\"") &&
                shown.contains("Combo1 QComboBox \"User\""));
    EXPECT_EQ(s.blackSide, userKind);
}

TEST_F(MainFormTest, SaveAndReadPutThePathInTheTitleAndBatchesRun) {
    QTemporaryDir scratch;
    const QString previous = QDir::currentPath(), title = form.windowTitle();
    ASSERT_TRUE(scratch.isValid() && QDir::setCurrent(scratch.path()));
    const QString path = QDir::toNativeSeparators(scratch.path() + "/b.txt");
    const struct {
        const char* item;
        const char* file;  // typed and picked; none: Cancel
        QString path;
        int movesAhead;
    } flow[] = {{"read", nullptr, "", 0}, {"save", "b.txt", path, 0}, {"read", "b.txt", path, 1}};
    for (const auto& step : flow) {
        whenModal([&](QWidget* dialog) {
            if (step.file != nullptr) {
                in<QLineEdit>(dialog, "txtFileName")->setText(step.file);
                auto* files = in<QListWidget>(dialog, "File1");
                files->setCurrentItem(files->findItems(step.file, Qt::MatchExactly).value(0));
            }
            in<QPushButton>(dialog, step.file ? "OKButton" : "CancelButton")->click();
        });
        act(step.item);
        EXPECT_EQ(form.windowTitle(), step.path.isEmpty() ? title : title + "      " + path);
        EXPECT_EQ(s.movesAhead, step.movesAhead) << step.item;
    }
    act("one");
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
        about = box->objectName();
        QTest::keyClick(box, Qt::Key_Escape);
    });
    act("about");
    EXPECT_EQ(about, "frmAbout");

    // Quit ends the event loop at once; a fallback ends it with another code.
    QTimer::singleShot(0, &form, [&] { act("quit"); });
    QTimer::singleShot(3000, [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_TRUE(form.isVisible());  // nothing was asked or closed first
}

}  // namespace
}  // namespace quintline
