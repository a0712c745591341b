// Opens the main window and saves a picture of what a person sees in one scene:
//   moves     three moves against Computer A, played by clicking the board (the default)
//   kind3     a game in which Computer A models Computer B, while it runs
//   kind4     a game in which Computer B models Computer A, while it runs
//   batch     the window after a batch of one cycle (the report goes to the current directory)
//   settings  the settings dialog open over the window
//   about     the about box open over the window
//   message   a message box (a refused depth) over the settings dialog; also prints
//             the box's window names as xprop reads them
// On an X display the picture is taken from the screen, window frames included;
// offscreen it is the window's own rendering.

#include <QApplication>
#include <QComboBox>
#include <QMessageBox>
#include <QPixmap>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <functional>
#include <string>

#include "game/captions.h"
#include "ui/boardPicture.h"
#include "ui/mainForm.h"

namespace {

using quintline::Control;

// The main window, telling the scene what game control writes into it.
class ObservedWindow : public quintline::MainForm {
  public:
    std::function<void(Control, std::string_view)> onCaption;

    void setCaption(Control control, std::string_view text) override {
        MainForm::setCaption(control, text);
        if (onCaption) onCaption(control, text);
    }
};

bool onRealScreen() {
    return QGuiApplication::platformName() == QLatin1String("xcb");
}

// Saves the screen under `top`, its frame included; offscreen, `top`'s own rendering.
bool savePicture(const QString& path, QWidget& top) {
    QTest::qWait(300);  // let the window manager and the X server draw
    QPixmap picture;
    if (onRealScreen()) {
        const QRect area = top.frameGeometry();
        picture = QGuiApplication::primaryScreen()->grabWindow(0, area.x(), area.y(), area.width(),
                                                               area.height());
    } else {
        picture = top.grab();
    }
    const bool saved = picture.save(path);
    if (!saved) std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
    return saved;
}

// Runs `answer` with the modal window once it is up.
void whenModal(std::function<void(QWidget*)> answer) {
    QTimer::singleShot(100, [answer] { answer(QApplication::activeModalWidget()); });
}

template <class Widget>
Widget* child(QWidget* window, const char* name) {
    return window->findChild<Widget*>(name);
}

void playMoves(ObservedWindow& window) {
    // Cells in twips: the centre of point (x, y) is at ((x - 0.5) * 533, (y - 0.5) * 533).
    const int moves[][2] = {{7, 7}, {9, 7}, {7, 9}};
    quintline::BoardPicture& board = window.boardPicture();
    for (const auto& move : moves) {
        const QPoint at(static_cast<int>(window.scale().toPixels((move[0] - 0.5) * 533)),
                        static_cast<int>(window.scale().toPixels((move[1] - 0.5) * 533)));
        QTest::mouseClick(&board, Qt::LeftButton, {}, at);
    }
}

// Computer A against Computer B at depth 2, the option naming the one that
// models the other; the picture is taken when that one starts its search after
// a dozen stones, or at the end of a shorter game.
bool modellingGame(ObservedWindow& window, const QString& path, const char* option,
                   std::string_view running) {
    bool saved = false, taken = false;
    window.onCaption = [&](Control control, std::string_view text) {
        if (!taken && control == Control::whoRun && text == running &&
            window.game().state().stepNum >= 12) {
            taken = true;
            saved = savePicture(path, window);
        }
    };
    whenModal([option](QWidget* dialog) {
        child<QComboBox>(dialog, "Combo1")->setEditText("Computer A");
        child<QComboBox>(dialog, "Combo2")->setEditText("Computer B");
        child<QComboBox>(dialog, "Combo3(0)")->setEditText("2");
        child<QComboBox>(dialog, "Combo3(1)")->setEditText("2");
        child<QRadioButton>(dialog, option)->setChecked(true);
        child<QPushButton>(dialog, "OKButton")->click();
    });
    window.findChild<QAction*>("sr")->trigger();
    window.onCaption = nullptr;
    return taken ? saved : savePicture(path, window);
}

// Opens the dialog behind `item`, lets `inside` look at it, and closes it with `button`.
bool withDialog(ObservedWindow& window, const char* item, const char* button,
                const std::function<bool(QWidget*)>& inside) {
    bool result = false;
    whenModal([&](QWidget* dialog) {
        result = inside(dialog);
        child<QPushButton>(dialog, button)->click();
    });
    window.findChild<QAction*>(item)->trigger();
    return result;
}

bool refusedDepth(ObservedWindow& window, const QString& path) {
    return withDialog(window, "sr", "CancelButton", [&](QWidget* dialog) {
        child<QComboBox>(dialog, "Combo3(0)")->setEditText("12");
        bool saved = false;
        whenModal([&](QWidget* box) {
            saved = savePicture(path, *box);
            if (onRealScreen()) {
                QProcess xprop;
                xprop.start("xprop", {"-id", QString::number(box->winId()), "_NET_WM_NAME",
                                      "WM_NAME", "_NET_WM_VISIBLE_NAME"});
                xprop.waitForFinished();
                std::fputs(xprop.readAllStandardOutput().constData(), stdout);
            }
            qobject_cast<QMessageBox*>(box)->button(QMessageBox::Ok)->click();
        });
        child<QPushButton>(dialog, "OKButton")->click();
        return saved;
    });
}

}  // namespace

int main(int argc, char* argv[]) {
    if (argc < 2 || argc > 3) {
        std::fprintf(stderr,
                     "usage: %s PICTURE.png [moves|kind3|kind4|batch|settings|about|message]\n",
                     argv[0]);
        return 2;
    }
    const std::string scene = argc == 3 ? argv[2] : "moves";
    QApplication app(argc, argv);
    ObservedWindow window;
    window.show();
    if (!QTest::qWaitForWindowExposed(&window)) {
        std::fprintf(stderr, "the window did not appear\n");
        return 1;
    }
    const QString path = QString::fromLocal8Bit(argv[1]);
    namespace captions = quintline::captions;
    bool saved = false;
    if (scene == "moves") {
        playMoves(window);
        saved = savePicture(path, window);
    } else if (scene == "kind3") {
        saved = modellingGame(window, path, "Option2", captions::aKnowsBRunning);
    } else if (scene == "kind4") {
        saved = modellingGame(window, path, "Option3", captions::bKnowsARunning);
    } else if (scene == "batch") {
        window.findChild<QAction*>("one")->trigger();
        saved = savePicture(path, window);
    } else if (scene == "settings" || scene == "about") {
        const bool settings = scene == "settings";
        saved = withDialog(window, settings ? "sr" : "about", settings ? "CancelButton" : "cmdOK",
                           [&](QWidget* dialog) { return savePicture(path, *dialog); });
    } else if (scene == "message") {
        saved = refusedDepth(window, path);
    } else {
        std::fprintf(stderr, "unknown scene %s\n", scene.c_str());
        return 2;
    }
    return saved ? 0 : 1;
}
