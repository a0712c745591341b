#pragma once
// settingsDialog: who plays which colour, the two search depths and, for two
// computers, which models the other. It only moves values between its controls
// and SettingsValues; the rules live in game/settings.h.

#include <QDialog>
#include <functional>

#include "game/settings.h"
#include "ui/twips.h"

class QComboBox;
class QGroupBox;
class QPushButton;
class QRadioButton;

namespace quintline {

class SettingsDialog : public QDialog {
    Q_OBJECT
  public:
    explicit SettingsDialog(const TwipScale& scale, QWidget* parent = nullptr);

    SettingsValues values() const;
    void setValues(const SettingsValues& values);

    // Runs when OKButton is clicked; the handler closes the dialog with done().
    std::function<void()> onOk;

  private:
    QComboBox* depthBox_[2];  // Combo3(0), Combo3(1)
    QComboBox* blackRow_;     // Combo1
    QComboBox* whiteRow_;     // Combo2
    QRadioButton* knowNothing_;
    QRadioButton* aKnowsB_;
    QRadioButton* bKnowsA_;
};

// The design text of the depth box Combo3(index), read from a dialog built
// hidden for the purpose.
std::string designDepthBoxText(int index);

}  // namespace quintline
