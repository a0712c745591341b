// What the windows make of clicks, keys and menu items: the main window hands
// them to the game and shows the game's figures, the dialogs return what the
// user typed, picked and clicked; modal windows are answered while they are up.

#include <gtest/gtest.h>

#include <QTest>
#include <QtWidgets>
#include <functional>

#include "ui/aboutBox.h"
#include "ui/boardFileDialog.h"
#include "ui/boardPicture.h"
#include "ui/mainForm.h"
#include "ui/messageBox.h"
#include "ui/settingsDialog.h"

namespace quintline {
namespace {

template <class Control = QWidget>
Control* in(const QWidget& window, const QString& name) {
    return window.findChild<Control*>(name);
}

// Types a name into a board file dialog and selects `picked` in its File1 (none when absent).
void nameBoardFile(QWidget& dialog, const QString& typed, const QString& picked) {
    in<QLineEdit>(dialog, "txtFileName")->setText(typed);
    auto* files = in<QListWidget>(dialog, "File1");
    files->setCurrentItem(files->findItems(picked, Qt::MatchExactly).value(0));
}

// Runs `answer` with the modal window once it is up.
void whenModal(const std::function<void(QWidget&)>& answer) {
    QTimer::singleShot(0, [answer] { answer(*QApplication::activeModalWidget()); });
}

struct PaintCounter : QObject {
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        return paints += event->type() == QEvent::Paint, false;
    }
};

// The point (x, y) in the picture's pixels, `dx` twips right of its centre.
QPoint pixelAt(MainForm& form, int x, int y, double dx = 0) {
    const GameState& s = form.game().state();
    return QPoint(int(form.scale().toPixels((x - 0.5) * s.cellSize + dx)),
                  int(form.scale().toPixels((y - 0.5) * s.cellSize)));
}

// Each point as its centre then its ring: B black, W white, - the background.
QString picture(MainForm& form, std::initializer_list<Point> points) {
    QString shown;
    for (const Point p : points) {
        for (const double dx : {0.0, 133.25}) {
            const QColor c =
                form.boardPicture().canvas().image().pixel(pixelAt(form, p.x, p.y, dx));
            const QColor ground = form.palette().color(QPalette::Button);
            shown += c == Qt::black ? 'B' : c == Qt::white ? 'W' : c == ground ? '-' : '?';
        }
        shown += ' ';
    }
    return shown;
}

// Triggers a menu item, clicks a control, clicks the point "x y" on the
// board with the right button (any button plays), or names the file of a
// board file dialog item ("save b.txt"; none: Cancel).
void act(MainForm& form, const QString& step) {
    const QStringList words = step.split(' ');
    if (words[0] == "save" || words[0] == "read") {
        whenModal([file = words.value(1)](QWidget& dialog) {
            nameBoardFile(dialog, file, file);
            QTest::mouseClick(in(dialog, file.isEmpty() ? "CancelButton" : "OKButton"),
                              Qt::LeftButton);
        });
    }
    if (auto* item = in<QAction>(form, words[0])) return item->trigger();
    if (words.size() < 2) return QTest::mouseClick(in(form, step), Qt::LeftButton);
    QTest::mouseClick(&form.boardPicture(), Qt::RightButton, {},
                      pixelAt(form, words[0].toInt(), words[1].toInt()));
}

// A chosen board file's path goes into the title bar, after the title; Cancel
// leaves it. Settings refuse a bad depth, then set the players and show them again.
TEST(MainForm, ClicksItemsAndDialogsReachTheGameAndItsFiguresThePicture) {
    MainForm form;
    GameState& s = form.game().state();
    QTemporaryDir scratch;
    const QString previous = QDir::currentPath(), title = form.windowTitle();
    ASSERT_TRUE(QDir::setCurrent(scratch.path()));
    form.show();
    EXPECT_EQ(form.boardPicture().grab().toImage().convertToFormat(QImage::Format_RGB32),
              form.boardPicture().canvas().image());
    act(form, "7 7");
    const Point reply{s.moveRecord[3].x, s.moveRecord[3].y};
    // Each step, then stepNumLab, the enabled ones of "<" and ">", (7, 7), (8, 8) and the reply on
    // the picture, and the file named after the title. A board read stands ready to replay.
    const char* const flow[] = {"7 7: 3 < WW BB BW ",
                                "backwardEnd: 0 > -- -- -- ",
                                "cmdForw: 1 <> -- BB -- ",
                                "cmdForwardEnd: 3 < WW BB BB ",
                                "save b.txt: 3 < WW BB BB b.txt",
                                "new: 1 < -- BW -- b.txt",
                                "Command1: 1 < -- BW -- -B b.txt",
                                "read: 1 < -- BW -- -B b.txt",
                                "read b.txt: 1 <> -- -- -- b.txt",
                                "cmdForwardEnd: 3 < WW BB BB b.txt"};
    for (const QString row : flow) {
        const QString step = row.section(": ", 0, 0);
        act(form, step);
        EXPECT_EQ(step + ": " + in<QLabel>(form, "stepNumLab")->text() + ' ' +
                      (in(form, "cmdBack")->isEnabled() ? "<" : "") +
                      (in(form, "cmdForw")->isEnabled() ? ">" : "") + ' ' +
                      picture(form, {{7, 7}, {8, 8}, reply}) +
                      (s.suggestionOn ? picture(form, {{s.bestX[1], s.bestY[1]}}) : QString()) +
                      form.windowTitle().remove(title).remove("      " + scratch.path() + "/"),
                  row);
    }
    QString shown;  // the depth and black's row each time it is filled; the refusal
    const auto fill = [&](QWidget& dialog, const char* depth, const char* black, const char* ok) {
        auto *box = in<QComboBox>(dialog, "Combo3(0)"), *row = in<QComboBox>(dialog, "Combo1");
        shown += box->currentText() + ' ' + row->currentText() + '|';
        box->setEditText(depth);
        row->setEditText(black);
        in<QPushButton>(dialog, ok)->click();
    };
    whenModal([&](QWidget& dialog) {
        whenModal([&](QWidget& box) {
            shown += dynamic_cast<QMessageBox&>(box).text() + '|';
            QTest::keyClick(&box, Qt::Key_Return);
        });
        fill(dialog, "12", "User", "OKButton");
        EXPECT_TRUE(dialog.isVisible());  // refused: the dialog stays
        fill(dialog, "2", "User", "OKButton");
    });
    act(form, "sr");
    whenModal([&](QWidget& dialog) { fill(dialog, "2", "Computer B", "CancelButton"); });
    act(form, "sr");
    // The design depth again, the players kept.
    EXPECT_EQ(shown.toStdString(),
              "3 Computer A|search depth must be a whole number from 1 to 9|12 User|3 User|");
    EXPECT_TRUE(s.depthA == 2 && s.blackSide == userKind);
    act(form, "one");
    EXPECT_TRUE(s.cycleCount == 1 && QFile::exists("result.txt"));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    QApplication::processEvents();
    PaintCounter counter;
    form.boardPicture().installEventFilter(&counter);
    form.drawStoneAndRing({3, 3}, black, white);  // only asks for a later paint
    const int beforeRepaint = counter.paints;
    form.repaint();  // paints before returning
    EXPECT_TRUE(beforeRepaint == 0 && counter.paints >= 1);
    // Quit ends the event loop at once, asking and closing nothing; a fallback
    // ends it with another code.
    QTimer::singleShot(0, &form, [&] { act(form, "quit"); });
    QTimer::singleShot(3000, [] { QCoreApplication::exit(1); });
    EXPECT_TRUE(QApplication::exec() == 0 && form.isVisible());
    QDir::setCurrent(previous);
}

std::string text(const SettingsValues& v) {
    return v.blackRow + "|" + v.whiteRow + "|" + v.depthBox[0] + "|" + v.depthBox[1] + "|" +
           std::to_string(int(v.situation));
}

TEST(SettingsDialog, ValuesRoundTripAndFollowTheUser) {
    SettingsDialog dialog(TwipScale(96));
    EXPECT_EQ(text(dialog.values()) + designDepthBoxText(1), "Computer A|User|3|3|03");
    for (const auto situation :
         {Situation::bModelsA, Situation::knowNothing, Situation::aModelsB}) {
        const SettingsValues values{"Computer B", "somebody", {"2", " 4.5"}, situation};
        dialog.setValues(values);  // a typed text need not be an item
        EXPECT_EQ(text(dialog.values()), text(values));
    }
    EXPECT_EQ(in<QComboBox>(dialog, "Combo1")->currentIndex(), 2);  // the list follows the text
    dialog.show();
    QTest::mouseClick(in(dialog, "Option3"), Qt::LeftButton, {}, QPoint(5, 10));
    EXPECT_EQ(dialog.values().situation, Situation::bModelsA);
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
        {save, root, "r.txt", "", "OKButton", "//r.txt"},  // a second separator after the root's
        {open, here, "a.txt", "", "OKButton", ""},         // typing plays no part
        {open, here + "/sub", "", "c.txt", "OKButton", "~/sub/c.txt"},
    };
    for (const auto& step : steps) {
        std::string path = "earlier";
        BoardFileDialog dialog(step.kind, TwipScale(96), path);
        dialog.setDirPath(step.dir);
        dialog.show();
        nameBoardFile(dialog, step.typed, step.picked);
        if (step.how == std::string("Escape")) QTest::keyClick(&dialog, Qt::Key_Escape);
        if (auto* button = in(dialog, step.how)) QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_EQ(
            QString::fromStdString(path).replace(here, "~") + (dialog.isVisible() ? " open" : ""),
            step.path);
    }
    // Dir1 shows the way down to the directory, which is selected, then its subdirectories; an
    // entry activated shows its files in File1, and the process stays where it was.
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

// A message box's title bar as the window manager reads it: only a real X
// display has one (CTest runs this under xvfb-run as well).
TEST(MessageBox, HasAnEmptyTitleInTheWindowSystem) {
    if (QGuiApplication::platformName() != "xcb") GTEST_SKIP() << "needs an X display";
    QProcess xprop;
    QTimer::singleShot(0, [&] {
        QWidget* box = QApplication::activeModalWidget();
        xprop.start("xprop", {"-id", QString::number(box->winId()), "_NET_WM_NAME", "WM_NAME"});
        xprop.waitForFinished();
        box->close();
    });
    showMessageBox(nullptr, "GameOver! You Win!", MessageButtons::ok);
    EXPECT_EQ(xprop.readAllStandardOutput().toStdString(),
              "_NET_WM_NAME(UTF8_STRING) = \nWM_NAME(STRING) = \n");
}

}  // namespace
}  // namespace quintline

// One QApplication for the whole run, headless unless a platform is named.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    QApplication app(argc, argv);
    return RUN_ALL_TESTS();
}
