#include "ui/settingsDialog.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "support/controlTable.h"

namespace quintline {
namespace {

using testing::expectControls;

QStringList items(const QComboBox* combo) {
    QStringList list;
    for (int i = 0; i < combo->count(); ++i) list << combo->itemText(i);
    return list;
}

TEST(SettingsDialog, OpensWithTheDesignedControlsAndValues) {
    SettingsDialog dialog(TwipScale(96));
    EXPECT_EQ(dialog.objectName(), "settingsDialog");
    EXPECT_EQ(dialog.windowTitle(), "Dialog Caption");
    EXPECT_EQ(dialog.geometry(), QRect(184, 250, 411, 339));
    expectControls(dialog,
                   {{"Frame1", "Two Players", QRect(24, 16, 369, 97)},
                    {"Frame2", "Situation for computer vs computer", QRect(24, 128, 369, 121)},
                    {"Combo1", "Computer A", QRect(112, 24, 137, 21)},
                    {"Combo2", "User", QRect(112, 56, 137, 21)},
                    {"Combo3(0)", "3", QRect(272, 24, 41, 21)},
                    {"Combo3(1)", "3", QRect(296, 72, 41, 21)},
                    {"Option1", "know nothing about the other player", QRect(16, 24, 209, 17)},
                    {"Option2", "A knows B", QRect(16, 48, 185, 25)},
                    {"Option3", "B knows A", QRect(16, 72, 145, 33)},
                    {"Label1", "Black (move first)", QRect(16, 24, 121, 25)},
                    {"Label2", "White ", QRect(16, 56, 89, 33)},
                    {"Label3", "steps", QRect(280, 8, 33, 25)},
                    {"OKButton", "OK", QRect(312, 264, 81, 25)},
                    {"CancelButton", "Cancel", QRect(312, 296, 81, 25)}});
    EXPECT_EQ(items(dialog.findChild<QComboBox*>("Combo1")),
              (QStringList{"User", "Computer A", "Computer B"}));
    EXPECT_EQ(items(dialog.findChild<QComboBox*>("Combo2")),
              (QStringList{"Computer A", "Computer B", "User"}));
    EXPECT_EQ(items(dialog.findChild<QComboBox*>("Combo3(1)")), (QStringList{"3", "2"}));

    // The white row's depth box belongs to the dialog, lifted over the frame so
    // that a click reaches it.
    dialog.show();
    auto* depth1 = dialog.findChild<QComboBox*>("Combo3(1)");
    QWidget* hit = dialog.childAt(depth1->geometry().center());
    EXPECT_TRUE(hit == depth1 || hit->parentWidget() == depth1);

    const SettingsValues v = dialog.values();
    EXPECT_EQ(v.blackRow, "Computer A");
    EXPECT_EQ(v.whiteRow, "User");
    EXPECT_EQ(v.depthBox, (std::array<std::string, 2>{"3", "3"}));
    EXPECT_EQ(v.situation, Situation::knowNothing);
    EXPECT_EQ(designDepthBoxText(1), "3");
}

TEST(SettingsDialog, MovesValuesBetweenControlsAndFields) {
    SettingsDialog dialog(TwipScale(96));
    for (const Situation situation : {Situation::bKnowsA, Situation::aKnowsB}) {
        const SettingsValues in{"Computer B", "somebody", {"2", " 4.5"}, situation};
        dialog.setValues(in);
        const SettingsValues out = dialog.values();
        EXPECT_EQ(dialog.findChild<QComboBox*>("Combo1")->currentIndex(), 2);
        EXPECT_EQ(out.blackRow, in.blackRow);
        EXPECT_EQ(out.whiteRow, in.whiteRow);  // a typed text need not be an item
        EXPECT_EQ(out.depthBox, in.depthBox);
        EXPECT_EQ(out.situation, in.situation);
    }

    // What the user types, picks or clicks is what the values carry.
    dialog.show();
    auto* depth = dialog.findChild<QComboBox*>("Combo3(0)");
    depth->lineEdit()->clear();
    QTest::keyClicks(depth->lineEdit(), "7");
    dialog.findChild<QComboBox*>("Combo2")->setCurrentIndex(0);
    auto* option3 = dialog.findChild<QRadioButton*>("Option3");
    QTest::mouseClick(option3, Qt::LeftButton, {}, QPoint(5, option3->height() / 2));
    EXPECT_EQ(dialog.values().depthBox[0], "7");
    EXPECT_EQ(dialog.values().whiteRow, "Computer A");
    EXPECT_EQ(dialog.values().situation, Situation::bKnowsA);
    EXPECT_FALSE(dialog.findChild<QRadioButton*>("Option2")->isChecked());

    // OK hands over to its handler, Cancel just closes.
    int okClicks = 0;
    dialog.onOk = [&] { ++okClicks; };
    QTest::mouseClick(dialog.findChild<QPushButton*>("OKButton"), Qt::LeftButton);
    EXPECT_EQ(okClicks, 1);
    EXPECT_TRUE(dialog.isVisible());
    QTest::mouseClick(dialog.findChild<QPushButton*>("CancelButton"), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(okClicks, 1);
}

}  // namespace
}  // namespace quintline
