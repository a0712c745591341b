#include <QApplication>

#include "ui/mainForm.h"

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    quintline::MainForm window;
    window.show();
    return app.exec();
}
