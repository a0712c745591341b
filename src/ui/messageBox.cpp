#include "ui/messageBox.h"

#include <QApplication>
#include <QMessageBox>

#include "ui/twips.h"
#include "ui/untitledWindow.h"

namespace quintline {

namespace {

// A message box whose title bar stays empty in the window system as well.
class UntitledMessageBox : public QMessageBox {
  public:
    using QMessageBox::QMessageBox;

  protected:
    // The native window exists by now and is not yet shown to the window manager.
    void showEvent(QShowEvent* event) override {
        QMessageBox::showEvent(event);
        clearNativeTitle(this);
    }
};

}  // namespace

MessageAnswer showMessageBox(QWidget* fallbackParent, std::string_view text,
                             MessageButtons buttons) {
    QWidget* parent = QApplication::activeModalWidget();
    if (parent == nullptr) parent = fallbackParent;
    UntitledMessageBox box(parent);
    box.setObjectName("messageBox");
    box.setWindowTitle(QString());
    box.setFont(TwipScale::ofScreen().font());
    box.setText(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    if (buttons == MessageButtons::okCancel) {
        box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
    } else {
        box.setStandardButtons(QMessageBox::Ok);
    }
    box.setDefaultButton(QMessageBox::Ok);
    return box.exec() == QMessageBox::Ok ? MessageAnswer::ok : MessageAnswer::cancel;
}

}  // namespace quintline
