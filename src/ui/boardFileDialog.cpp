#include "ui/boardFileDialog.h"

#include <QDir>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>

#include "ui/tabOrder.h"

namespace quintline {

namespace {

// Positions and sizes in twips of the six controls, and the texts, of one twin.
struct Design {
    const char* name;
    const char* title;
    int clientWidth, clientHeight;
    QRect ok, cancel, dir, file, text, label;
    const char* labelText;
};

constexpr int pathRole = Qt::UserRole;

const Design& designOf(BoardFileDialogKind kind) {
    static const Design save{"dlgSavefile",
                             "Save as...",
                             6720,
                             4155,
                             {5325, 225, 1215, 375},
                             {5325, 690, 1215, 375},
                             {3300, 825, 1815, 3015},
                             {210, 810, 3015, 3015},
                             {2865, 225, 2235, 375},
                             {240, 315, 2535, 375},
                             "Name of the chess board to save :"};
    static const Design open{"dlgOpenfile",
                             "Open file as...",
                             6660,
                             3930,
                             {5280, 120, 1215, 375},
                             {5280, 585, 1215, 375},
                             {3255, 720, 1815, 3015},
                             {165, 705, 3015, 3015},
                             {2820, 120, 2235, 375},
                             {195, 210, 2535, 375},
                             "Open file Name of the chess board:  "};
    return kind == BoardFileDialogKind::save ? save : open;
}

void placeAt(QWidget* widget, const TwipScale& scale, const QRect& twips) {
    place(widget, scale, twips.x(), twips.y(), twips.width(), twips.height());
}

}  // namespace

BoardFileDialog::BoardFileDialog(BoardFileDialogKind kind, const TwipScale& scale,
                                 std::string& boardFilePath, QWidget* parent)
    : QDialog(parent), kind_(kind), boardFilePath_(boardFilePath) {
    const Design& d = designOf(kind);
    setObjectName(d.name);
    setWindowTitle(d.title);
    setFont(scale.font());
    resize(scale.pixels(d.clientWidth), scale.pixels(d.clientHeight));

    auto* ok = new QPushButton("OK", this);
    ok->setObjectName("OKButton");
    placeAt(ok, scale, d.ok);
    auto* cancel = new QPushButton("Cancel", this);
    cancel->setObjectName("CancelButton");
    placeAt(cancel, scale, d.cancel);
    // Neither button is the dialog's default: Enter and Escape mean nothing here.
    for (QPushButton* button : {ok, cancel}) button->setAutoDefault(false);

    dir1_ = new QListWidget(this);
    dir1_->setObjectName("Dir1");
    placeAt(dir1_, scale, d.dir);
    file1_ = new QListWidget(this);
    file1_->setObjectName("File1");
    placeAt(file1_, scale, d.file);
    txtFileName_ = new QLineEdit(this);
    txtFileName_->setObjectName("txtFileName");
    placeAt(txtFileName_, scale, d.text);
    auto* label = new QLabel(d.labelText, this);
    label->setObjectName("Label1");
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    placeAt(label, scale, d.label);

    applyTabOrder({{0, txtFileName_}, {1, file1_}, {2, dir1_}, {3, cancel}, {4, ok}});

    connect(ok, &QPushButton::clicked, this, &BoardFileDialog::okClicked);
    connect(cancel, &QPushButton::clicked, this, &BoardFileDialog::reject);
    connect(dir1_, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { setDirPath(item->data(pathRole).toString()); });
    connect(file1_, &QListWidget::itemSelectionChanged, this, [this] {
        const QString name = selectedFileName();
        if (!name.isEmpty()) txtFileName_->setText(name);
    });

    setDirPath(QDir::currentPath());
}

void BoardFileDialog::setDirPath(const QString& path) {
    dirPath_ = QDir(path).absolutePath();

    // Dir1 shows the way down from the root, the directory itself selected, and
    // its subdirectories below it.
    dir1_->clear();
    const QIcon openIcon = style()->standardIcon(QStyle::SP_DirOpenIcon);
    const QIcon closedIcon = style()->standardIcon(QStyle::SP_DirClosedIcon);
    QStringList chain;
    for (QDir d(dirPath_);;) {
        chain.prepend(d.absolutePath());
        if (!d.cdUp()) break;
    }
    int depth = 0;
    for (const QString& dir : chain) {
        const QString name =
            QDir(dir).isRoot() ? QDir::toNativeSeparators(dir) : QDir(dir).dirName();
        auto* item = new QListWidgetItem(openIcon, QString(depth * 2, ' ') + name, dir1_);
        item->setData(pathRole, dir);
        ++depth;
    }
    dir1_->setCurrentRow(dir1_->count() - 1);
    const QDir current(dirPath_);
    for (const QString& sub : current.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        auto* item = new QListWidgetItem(closedIcon, QString(depth * 2, ' ') + sub, dir1_);
        item->setData(pathRole, current.absoluteFilePath(sub));
    }

    // A change of Dir1 sets File1's path.
    file1_->clear();
    file1_->addItems(current.entryList(QDir::Files, QDir::Name));
}

QString BoardFileDialog::selectedFileName() const {
    const QList<QListWidgetItem*> selected = file1_->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->text();
}

void BoardFileDialog::okClicked() {
    QString name;
    if (kind_ == BoardFileDialogKind::save) {
        name = txtFileName_->text();
    } else {
        name = selectedFileName();
    }
    // The path is always built from Dir1, and the separator always added.
    boardFilePath_ =
        name.isEmpty()
            ? std::string()
            : (QDir::toNativeSeparators(dirPath_) + QDir::separator() + name).toStdString();
    accept();
}

void BoardFileDialog::reject() {
    // Cancel, and also a close through the frame, leave no choice behind.
    boardFilePath_.clear();
    QDialog::reject();
}

void BoardFileDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return;
    QDialog::keyPressEvent(event);
}

}  // namespace quintline
