#pragma once
// dlgSavefile and dlgOpenfile: the twin dialogs that name a board file. They
// touch no file; their only result is the path written to boardFilePath, a
// whole path on OK with a name, otherwise empty.

#include <QDialog>
#include <string>

#include "ui/twips.h"

class QLineEdit;
class QListWidget;
class QListWidgetItem;

namespace quintline {

enum class BoardFileDialogKind { save, open };

class BoardFileDialog : public QDialog {
    Q_OBJECT
  public:
    BoardFileDialog(BoardFileDialogKind kind, const TwipScale& scale, std::string& boardFilePath,
                    QWidget* parent = nullptr);

    // The directory Dir1 stands at; setting it lists that directory in File1.
    QString dirPath() const { return dirPath_; }
    void setDirPath(const QString& path);

    void reject() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void okClicked();
    // File1's selected name without directory, empty when none is selected.
    QString selectedFileName() const;

    BoardFileDialogKind kind_;
    std::string& boardFilePath_;
    QString dirPath_;
    QListWidget* dir1_;
    QListWidget* file1_;
    QLineEdit* txtFileName_;
};

}  // namespace quintline
