#include "ui/aboutBox.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <string>
#include <vector>

namespace quintline {
namespace {

struct AboutBoxTest : ::testing::Test {
    MemoryRegistry store;
    std::vector<std::string> started;
    std::vector<std::string> messages;

    SysInfoPlatform platform() {
        return SysInfoPlatform{
            store,
            [](const std::string&) { return true; },
            [this](const std::string& path) {
                started.push_back(path);
                return true;
            },
            [this](std::string_view text) { messages.emplace_back(text); },
        };
    }
};

TEST_F(AboutBoxTest, ShowsItsDesignedTextsLinesAndButtons) {
    AboutBox box(TwipScale(96), platform());
    EXPECT_EQ(box.objectName(), "frmAbout");
    EXPECT_EQ(box.windowTitle(), "About MyApp");
    EXPECT_EQ(box.size(), QSize(382, 237));
    EXPECT_EQ(box.minimumSize(), box.maximumSize());  // fixed border
    EXPECT_EQ(box.pos(), QPoint(156, 129));

    const auto label = [&](const char* name) { return box.findChild<QLabel*>(name); };
    ASSERT_NE(label("lblVersion"), nullptr);
    EXPECT_EQ(label("lblVersion")->text(), "Version 3.5,  2008/11/6.");
    EXPECT_EQ(label("lblVersion")->geometry(), QRect(70, 52, 259, 15));
    EXPECT_EQ(label("lblDescription")->text(),
              "      For the Purpose of studying Game, Learning and Adaptation, also, of course, "
              "for fun. ");
    EXPECT_TRUE(label("lblDescription")->wordWrap());
    EXPECT_EQ(label("lblTitle")->text().section('\n', 0, 0), "Quintline.");
    EXPECT_EQ(label("lblDisclaimer")->text().count('\n'), 3);  // four lines
    EXPECT_EQ(label("lblDisclaimer")->geometry(), QRect(19, 159, 258, 73));
    EXPECT_FALSE(label("picIcon")->pixmap().isNull());
    EXPECT_EQ(label("picIcon")->pixmap().size(), QSize(32, 32));

    // The etched separator: grey above, a white strip twice as thick below.
    QWidget* grey = box.findChild<QWidget*>("Line1(1)");
    QWidget* white = box.findChild<QWidget*>("Line1(0)");
    ASSERT_TRUE(grey && white);
    EXPECT_EQ(grey->geometry(), QRect(6, 151, 371, 1));
    EXPECT_EQ(white->geometry(), QRect(7, 152, 370, 2));
    EXPECT_EQ(grey->palette().color(QPalette::Window), QColor(0x80, 0x80, 0x80));
    EXPECT_EQ(white->palette().color(QPalette::Window), QColor(0xFF, 0xFF, 0xFF));

    auto* ok = box.findChild<QPushButton*>("cmdOK");
    auto* sysInfo = box.findChild<QPushButton*>("cmdSysInfo");
    ASSERT_TRUE(ok && sysInfo);
    EXPECT_EQ(ok->text(), "OK");
    EXPECT_TRUE(ok->isDefault());
    EXPECT_EQ(ok->geometry(), QRect(283, 163, 84, 23));
    EXPECT_EQ(sysInfo->text(), "&System Info...");
    box.show();
    EXPECT_FALSE(sysInfo->isVisible());
    EXPECT_TRUE(ok->isVisible());
}

TEST_F(AboutBoxTest, EnterEscapeAndOkEachCloseTheBox) {
    for (const auto close : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_unknown}) {
        AboutBox box(TwipScale(96), platform());
        QTimer::singleShot(0, &box, [&] {
            if (close == Qt::Key_unknown) {
                QTest::mouseClick(box.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
            } else {
                QTest::keyClick(&box, close);
            }
        });
        box.exec();
        EXPECT_FALSE(box.isVisible()) << close;
    }
}

TEST_F(AboutBoxTest, HiddenButtonRunsTheLauncher) {
    AboutBox box(TwipScale(96), platform());
    box.findChild<QPushButton*>("cmdSysInfo")->click();
    EXPECT_TRUE(started.empty());
    EXPECT_EQ(messages, std::vector<std::string>{"System Information Is Unavailable At This Time"});
}

}  // namespace
}  // namespace quintline
