#include "ui/settingsDialog.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace quintline {
namespace {

QStringList items(const QComboBox* combo) {
    QStringList list;
    for (int i = 0; i < combo->count(); ++i) list << combo->itemText(i);
    return list;
}

TEST(SettingsDialog, OpensWithTheDesignedControls) {
    SettingsDialog dialog(TwipScale(96));
    EXPECT_EQ(dialog.objectName(), "settingsDialog");
    EXPECT_EQ(dialog.windowTitle(), "Dialog Caption");
    EXPECT_EQ(dialog.size(), QSize(411, 339));
    EXPECT_EQ(dialog.minimumSize(), dialog.maximumSize());
    EXPECT_EQ(dialog.pos(), QPoint(184, 250));

    auto* frame1 = dialog.findChild<QGroupBox*>("Frame1");
    auto* frame2 = dialog.findChild<QGroupBox*>("Frame2");
    ASSERT_TRUE(frame1 && frame2);
    EXPECT_EQ(frame1->title(), "Two Players");
    EXPECT_EQ(frame2->title(), "Situation for computer vs computer");

    const struct {
        const char* name;
        QWidget* parent;
        const char* text;
        QStringList items;
        QRect geometry;
    } combos[] = {
        {"Combo3(1)", &dialog, "3", {"3", "2"}, QRect(296, 72, 41, 21)},
        {"Combo3(0)", frame1, "3", {"3", "2"}, QRect(272, 24, 41, 21)},
        {"Combo2", frame1, "User", {"Computer A", "Computer B", "User"}, QRect(112, 56, 137, 21)},
        {"Combo1",
         frame1,
         "Computer A",
         {"User", "Computer A", "Computer B"},
         QRect(112, 24, 137, 21)},
    };
    for (const auto& row : combos) {
        auto* combo = dialog.findChild<QComboBox*>(row.name);
        ASSERT_NE(combo, nullptr) << row.name;
        EXPECT_EQ(combo->parentWidget(), row.parent) << row.name;
        EXPECT_TRUE(combo->isEditable()) << row.name;
        EXPECT_EQ(combo->currentText(), row.text) << row.name;
        EXPECT_EQ(items(combo), row.items) << row.name;
        EXPECT_EQ(combo->geometry(), row.geometry) << row.name;
    }

    const struct {
        const char* name;
        const char* caption;
        bool checked;
    } options[] = {{"Option1", "know nothing about the other player", true},
                   {"Option2", "A knows B", false},
                   {"Option3", "B knows A", false}};
    for (const auto& row : options) {
        auto* option = frame2->findChild<QRadioButton*>(row.name);
        ASSERT_NE(option, nullptr) << row.name;
        EXPECT_EQ(option->text(), row.caption);
        EXPECT_EQ(option->isChecked(), row.checked) << row.name;
    }
    EXPECT_EQ(frame1->findChild<QLabel*>("Label1")->text(), "Black (move first)");
    EXPECT_EQ(frame1->findChild<QLabel*>("Label2")->text(), "White ");
    EXPECT_EQ(frame1->findChild<QLabel*>("Label3")->text(), "steps");
    EXPECT_EQ(dialog.findChild<QPushButton*>("OKButton")->geometry(), QRect(312, 264, 81, 25));
    EXPECT_EQ(dialog.findChild<QPushButton*>("CancelButton")->geometry(), QRect(312, 296, 81, 25));

    // The white row's depth box lies over the frame and is the one a click reaches.
    dialog.show();
    QWidget* hit = dialog.childAt(dialog.findChild<QComboBox*>("Combo3(1)")->geometry().center());
    ASSERT_NE(hit, nullptr);
    EXPECT_TRUE(hit->objectName() == "Combo3(1)" ||
                hit->parentWidget()->objectName() == "Combo3(1)");

    SettingsValues design;
    EXPECT_EQ(dialog.values().blackRow, design.blackRow);
    EXPECT_EQ(dialog.values().whiteRow, design.whiteRow);
    EXPECT_EQ(dialog.values().depthBox, design.depthBox);
    EXPECT_EQ(dialog.values().situation, Situation::knowNothing);
    EXPECT_EQ(designDepthBoxText(0), "3");
    EXPECT_EQ(designDepthBoxText(1), "3");
}

TEST(SettingsDialog, MovesValuesBetweenControlsAndFields) {
    SettingsDialog dialog(TwipScale(96));
    SettingsValues in;
    in.blackRow = "Computer B";
    in.whiteRow = "somebody";  // a typed text need not be an item
    in.depthBox = {"2", " 4.5"};
    in.situation = Situation::bKnowsA;
    dialog.setValues(in);
    EXPECT_EQ(dialog.findChild<QComboBox*>("Combo1")->currentIndex(), 2);
    EXPECT_TRUE(dialog.findChild<QRadioButton*>("Option3")->isChecked());
    EXPECT_FALSE(dialog.findChild<QRadioButton*>("Option1")->isChecked());
    const SettingsValues out = dialog.values();
    EXPECT_EQ(out.blackRow, in.blackRow);
    EXPECT_EQ(out.whiteRow, in.whiteRow);
    EXPECT_EQ(out.depthBox, in.depthBox);
    EXPECT_EQ(out.situation, in.situation);

    // What the user types or picks is what the values carry.
    dialog.show();
    auto* depth = dialog.findChild<QComboBox*>("Combo3(0)");
    depth->lineEdit()->clear();
    QTest::keyClicks(depth->lineEdit(), "7");
    dialog.findChild<QComboBox*>("Combo2")->setCurrentIndex(0);
    auto* option2 = dialog.findChild<QRadioButton*>("Option2");
    QTest::mouseClick(option2, Qt::LeftButton, {}, QPoint(5, option2->height() / 2));
    EXPECT_EQ(dialog.values().depthBox[0], "7");
    EXPECT_EQ(dialog.values().whiteRow, "Computer A");
    EXPECT_EQ(dialog.values().situation, Situation::aKnowsB);
    EXPECT_FALSE(dialog.findChild<QRadioButton*>("Option3")->isChecked());

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
