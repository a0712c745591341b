// Opens the main window, plays a few moves against Computer A by clicking the
// board, and saves a picture of the window to the path given as the argument.

#include <QApplication>
#include <QPixmap>
#include <QTest>
#include <cstdio>

#include "ui/boardPicture.h"
#include "ui/mainForm.h"

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s PICTURE.png\n", argv[0]);
        return 2;
    }
    QApplication app(argc, argv);
    quintline::MainForm window;
    window.show();
    if (!QTest::qWaitForWindowExposed(&window)) {
        std::fprintf(stderr, "the window did not appear\n");
        return 1;
    }

    // Cells in twips: the centre of point (x, y) is at ((x - 0.5) * 533, (y - 0.5) * 533).
    const int moves[][2] = {{7, 7}, {9, 7}, {7, 9}};
    quintline::BoardPicture& board = window.boardPicture();
    for (const auto& move : moves) {
        const double twipsX = (move[0] - 0.5) * 533;
        const double twipsY = (move[1] - 0.5) * 533;
        const QPoint at(static_cast<int>(window.scale().toPixels(twipsX)),
                        static_cast<int>(window.scale().toPixels(twipsY)));
        QTest::mouseClick(&board, Qt::LeftButton, {}, at);
    }
    QApplication::processEvents();
    if (!window.grab().save(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "cannot write %s\n", argv[1]);
        return 1;
    }
    return 0;
}
