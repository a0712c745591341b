#include "ui/settingsDialog.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "ui/tabOrder.h"

namespace quintline {

namespace {

// Shows `text` in an editable combo box, with the list on the matching item if
// there is one.
void setComboText(QComboBox* combo, const QString& text) {
    const int index = combo->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index >= 0) combo->setCurrentIndex(index);
    combo->setEditText(text);
}

QComboBox* makeCombo(QWidget* parent, const char* name, const QStringList& items,
                     const QString& text) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(name);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->addItems(items);
    setComboText(combo, text);
    return combo;
}

QString fromStd(const std::string& text) {
    return QString::fromStdString(text);
}

}  // namespace

SettingsDialog::SettingsDialog(const TwipScale& scale, QWidget* parent) : QDialog(parent) {
    setObjectName("settingsDialog");
    setWindowTitle("Dialog Caption");
    setFont(scale.font());
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowCloseButtonHint | Qt::MSWindowsFixedSizeDialogHint);
    setFixedSize(scale.pixels(6165), scale.pixels(5085));
    move(scale.pixels(2760), scale.pixels(3750));

    const QStringList depths{"3", "2"};
    depthBox_[1] = makeCombo(this, "Combo3(1)", depths, "3");
    place(depthBox_[1], scale, 4440, 1080, 615, 315);

    auto* frame2 = placeNamed(new QGroupBox("Situation for computer vs computer", this), "Frame2",
                              scale, 360, 1920, 5535, 1815);
    bKnowsA_ =
        placeNamed(new QRadioButton("B knows A", frame2), "Option3", scale, 240, 1080, 2175, 495);
    aKnowsB_ =
        placeNamed(new QRadioButton("A knows B", frame2), "Option2", scale, 240, 720, 2775, 375);
    knowNothing_ = placeNamed(new QRadioButton("know nothing about the other player", frame2),
                              "Option1", scale, 240, 360, 3135, 255);
    knowNothing_->setChecked(true);

    auto* frame1 =
        placeNamed(new QGroupBox("Two Players", this), "Frame1", scale, 360, 240, 5535, 1455);
    depthBox_[0] = makeCombo(frame1, "Combo3(0)", depths, "3");
    place(depthBox_[0], scale, 4080, 360, 615, 315);
    whiteRow_ = makeCombo(frame1, "Combo2", {"Computer A", "Computer B", "User"}, "User");
    place(whiteRow_, scale, 1680, 840, 2055, 315);
    blackRow_ = makeCombo(frame1, "Combo1", {"User", "Computer A", "Computer B"}, "Computer A");
    place(blackRow_, scale, 1680, 360, 2055, 315);
    auto* steps = placeNamed(new QLabel("steps", frame1), "Label3", scale, 4200, 120, 495, 375);
    auto* whiteLabel =
        placeNamed(new QLabel("White ", frame1), "Label2", scale, 240, 840, 1335, 495);
    auto* blackLabel =
        placeNamed(new QLabel("Black (move first)", frame1), "Label1", scale, 240, 360, 1815, 375);
    for (QLabel* label : {steps, whiteLabel, blackLabel}) {
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    }

    auto* cancel =
        placeNamed(new QPushButton("Cancel", this), "CancelButton", scale, 4680, 4440, 1215, 375);
    auto* ok = placeNamed(new QPushButton("OK", this), "OKButton", scale, 4680, 3960, 1215, 375);
    for (QPushButton* button : {ok, cancel}) button->setAutoDefault(false);

    // The white row's depth box is no child of the frame it sits over, so it has
    // to be lifted above it to stay visible and reachable.
    depthBox_[1]->raise();

    applyTabOrder({{0, ok},
                   {1, cancel},
                   {3, blackRow_},
                   {6, whiteRow_},
                   {8, knowNothing_},
                   {9, aKnowsB_},
                   {10, bKnowsA_},
                   {11, depthBox_[0]},
                   {12, depthBox_[1]}});

    connect(ok, &QPushButton::clicked, this, [this] {
        if (onOk) onOk();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

SettingsValues SettingsDialog::values() const {
    SettingsValues v;
    v.blackRow = blackRow_->currentText().toStdString();
    v.whiteRow = whiteRow_->currentText().toStdString();
    v.depthBox[0] = depthBox_[0]->currentText().toStdString();
    v.depthBox[1] = depthBox_[1]->currentText().toStdString();
    v.situation = aKnowsB_->isChecked()   ? Situation::aKnowsB
                  : bKnowsA_->isChecked() ? Situation::bKnowsA
                                          : Situation::knowNothing;
    return v;
}

void SettingsDialog::setValues(const SettingsValues& v) {
    setComboText(blackRow_, fromStd(v.blackRow));
    setComboText(whiteRow_, fromStd(v.whiteRow));
    setComboText(depthBox_[0], fromStd(v.depthBox[0]));
    setComboText(depthBox_[1], fromStd(v.depthBox[1]));
    switch (v.situation) {
        case Situation::knowNothing:
            knowNothing_->setChecked(true);
            break;
        case Situation::aKnowsB:
            aKnowsB_->setChecked(true);
            break;
        case Situation::bKnowsA:
            bKnowsA_->setChecked(true);
            break;
    }
}

std::string designDepthBoxText(int index) {
    const SettingsDialog hidden(TwipScale::ofScreen());
    return hidden.values().depthBox[index == 0 ? 0 : 1];
}

}  // namespace quintline
