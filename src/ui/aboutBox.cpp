#include "ui/aboutBox.h"

#include <QFileInfo>
#include <QLabel>
#include <QPainter>
#include <QProcess>
#include <QPushButton>

#include "ui/messageBox.h"
#include "ui/tabOrder.h"

namespace quintline {

namespace {

// A corner of a board with a black and a white stone, in the sixteen colours of
// the old icon palette.
QPixmap boardIcon() {
    QImage image(32, 32, QImage::Format_RGB32);
    image.fill(QColor(0xC0, 0xC0, 0xC0));
    QPainter p(&image);
    p.setPen(QColor(0x80, 0x80, 0x80));
    for (int i = 4; i < 32; i += 8) {
        p.drawLine(0, i, 31, i);
        p.drawLine(i, 0, i, 31);
    }
    p.setPen(Qt::black);
    p.setBrush(Qt::black);
    p.drawEllipse(QPoint(12, 12), 6, 6);
    p.setBrush(Qt::white);
    p.drawEllipse(QPoint(20, 20), 6, 6);
    p.end();
    return QPixmap::fromImage(image);
}

QLabel* makeLabel(QWidget* parent, const char* name, const QString& text, bool blackText) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    if (blackText) {
        QPalette palette = label->palette();
        palette.setColor(QPalette::WindowText, Qt::black);
        label->setPalette(palette);
    }
    return label;
}

// One line of the etched separator, as a strip `width` pixels high.
QWidget* makeLine(QWidget* parent, const char* name, const TwipScale& scale, QRgb colour, int width,
                  double x1, double x2, double y) {
    auto* line = new QWidget(parent);
    line->setObjectName(name);
    line->setAutoFillBackground(true);
    QPalette palette = line->palette();
    palette.setColor(QPalette::Window, QColor::fromRgb(colour));
    line->setPalette(palette);
    line->setGeometry(scale.pixels(x1), scale.pixels(y), scale.pixels(x2) - scale.pixels(x1),
                      width);
    return line;
}

}  // namespace

AboutBox::AboutBox(const TwipScale& scale, SysInfoPlatform sysInfo, QWidget* parent)
    : QDialog(parent), sysInfo_(std::move(sysInfo)) {
    setObjectName("frmAbout");
    setWindowTitle("About MyApp");
    setFont(scale.font());
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowCloseButtonHint | Qt::MSWindowsFixedSizeDialogHint);
    setFixedSize(scale.pixels(5730), scale.pixels(3555));
    move(scale.pixels(2340), scale.pixels(1935));

    auto* icon = new QLabel(this);
    icon->setObjectName("picIcon");
    icon->setPixmap(boardIcon());
    place(icon, scale, 240, 240, 540, 540);

    auto* ok = placeNamed(new QPushButton("OK", this), "cmdOK", scale, 4245, 2445, 1260, 345);
    // Default for Enter; Escape closes the dialog through reject() as well.
    ok->setDefault(true);

    auto* sysInfoButton = placeNamed(new QPushButton("&System Info...", this), "cmdSysInfo", scale,
                                     4260, 2895, 1245, 345);
    sysInfoButton->setAutoDefault(false);
    sysInfoButton->hide();

    auto* disclaimer = makeLabel(this, "lblDisclaimer",
                                 "The Quintline developers\n"
                                 "quintline@example.org\n"
                                 "https://example.org/quintline\n"
                                 "All rights reserved.",
                                 true);
    place(disclaimer, scale, 285, 2385, 3870, 1095);
    auto* description = makeLabel(this, "lblDescription",
                                  "      For the Purpose of studying Game, Learning and "
                                  "Adaptation, also, of course, for fun. ",
                                  true);
    place(description, scale, 1050, 1110, 3885, 1005);
    auto* title = makeLabel(this, "lblTitle", "Quintline.\nThe study room", true);
    place(title, scale, 1050, 240, 3885, 480);
    auto* version = makeLabel(this, "lblVersion", "Version 3.5,  2008/11/6.", false);
    place(version, scale, 1050, 780, 3885, 225);

    makeLine(this, "Line1(1)", scale, 0x808080, 1, 90, 5654, 2265);
    makeLine(this, "Line1(0)", scale, 0xFFFFFF, 2, 105, 5654, 2280);

    applyTabOrder({{0, ok}, {2, sysInfoButton}});

    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(sysInfoButton, &QPushButton::clicked, this, [this] { StartSysInfo(sysInfo_); });
}

SysInfoPlatform desktopSysInfo(Registry& registry, QWidget* messageParent) {
    return SysInfoPlatform{
        registry,
        [](const std::string& path) { return QFileInfo::exists(QString::fromStdString(path)); },
        [](const std::string& path) {
            return QProcess::startDetached(QString::fromStdString(path), {});
        },
        [messageParent](std::string_view text) {
            showMessageBox(messageParent, text, MessageButtons::ok);
        },
    };
}

}  // namespace quintline
