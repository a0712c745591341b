#include "ui/messageBox.h"

#include <QApplication>
#include <QMessageBox>

namespace quintline {

MessageAnswer showMessageBox(QWidget* fallbackParent, std::string_view text,
                             MessageButtons buttons) {
    QWidget* parent = QApplication::activeModalWidget();
    if (parent == nullptr) parent = fallbackParent;
    QMessageBox box(parent);
    box.setObjectName("messageBox");
    box.setWindowTitle(QString());
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
