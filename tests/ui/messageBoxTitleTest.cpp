// A message box's title bar as the window manager reads it: run on a real X
// display (the test is registered under xvfb-run); offscreen windows have none.

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QProcess>
#include <QTimer>

#include "ui/messageBox.h"

namespace quintline {
namespace {

TEST(MessageBoxTitle, IsEmptyInTheWindowSystem) {
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
