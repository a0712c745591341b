#include "ui/aboutBox.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace quintline {
namespace {

TEST(AboutBox, ShowsItsDesignAndClosesOnEnterEscapeOrOk) {
    MemoryRegistry store;  // holds no tool
    std::string said;
    SysInfoPlatform platform{store, [](const std::string&) { return true; },
                             [](const std::string&) { return true; },
                             [&](std::string_view text) { said = text; }};
    for (const auto close : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_unknown}) {
        AboutBox box(TwipScale(96), platform);
        said.clear();
        EXPECT_EQ(box.windowTitle(), "About MyApp");
        EXPECT_EQ(box.geometry(), QRect(156, 129, 382, 237));
        const struct {
            const char* name;
            QRect geometry;
        } controls[] = {{"lblVersion", QRect(70, 52, 259, 15)},
                        {"lblDisclaimer", QRect(19, 159, 258, 73)},
                        {"Line1(1)", QRect(6, 151, 371, 1)},
                        {"Line1(0)", QRect(7, 152, 370, 2)},
                        {"cmdOK", QRect(283, 163, 84, 23)}};
        for (const auto& row : controls) {
            QWidget* widget = box.findChild<QWidget*>(row.name);
            ASSERT_NE(widget, nullptr) << row.name;
            EXPECT_EQ(widget->geometry(), row.geometry) << row.name;
        }
        EXPECT_EQ(box.findChild<QLabel*>("lblVersion")->text(), "Version 3.5,  2008/11/6.");
        auto* ok = box.findChild<QPushButton*>("cmdOK");
        auto* sysInfo = box.findChild<QPushButton*>("cmdSysInfo");
        ASSERT_NE(sysInfo, nullptr);
        EXPECT_EQ(ok->text(), "OK");
        EXPECT_TRUE(ok->isDefault());  // Enter reaches it wherever the focus is
        EXPECT_EQ(sysInfo->text(), "&System Info...");
        QTimer::singleShot(0, &box, [&] {
            EXPECT_TRUE(box.isVisible() && ok->isVisible());
            EXPECT_FALSE(sysInfo->isVisible());
            if (close == Qt::Key_unknown) {
                QTest::mouseClick(ok, Qt::LeftButton);
            } else {
                QTest::keyClick(&box, close);
            }
        });
        box.exec();
        EXPECT_FALSE(box.isVisible()) << close;
        // The hidden button still runs the launcher, which finds nothing here.
        sysInfo->click();
        EXPECT_EQ(said, "System Information Is Unavailable At This Time");
    }
}

}  // namespace
}  // namespace quintline
