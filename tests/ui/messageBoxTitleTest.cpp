// The title bar of a message box as the window manager reads it. Runs on a real
// X display (registered under xvfb-run): offscreen windows have no such names.

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QTimer>

#include "game/captions.h"
#include "ui/messageBox.h"

namespace quintline {
namespace {

TEST(MessageBoxTitle, IsEmptyInTheWindowSystem) {
    std::string names;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        QProcess xprop;
        xprop.start("xprop", {"-id", QString::number(box->winId()), "_NET_WM_NAME", "WM_NAME"});
        xprop.waitForFinished();
        names = xprop.readAllStandardOutput().toStdString();
        box->button(QMessageBox::Ok)->click();
    });
    showMessageBox(nullptr, captions::youWin, MessageButtons::ok);
    EXPECT_EQ(names, "_NET_WM_NAME(UTF8_STRING) = \nWM_NAME(STRING) = \n");
}

}  // namespace
}  // namespace quintline
