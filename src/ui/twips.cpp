#include "ui/twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <cmath>

namespace quintline {

TwipScale TwipScale::ofScreen() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return TwipScale(screen != nullptr ? screen->logicalDotsPerInch() : 96.0);
}

int TwipScale::pixels(double twips) const {
    return static_cast<int>(std::lround(toPixels(twips)));
}

QFont TwipScale::font() const {
    constexpr double fontTwips = 150;  // 7.5 points of 20 twips
    // Condensed: the design's captions were set in a narrow face and leave little room.
    QFont font;
    font.setFamilies({QStringLiteral("DejaVu Sans Condensed"), QStringLiteral("DejaVu Sans")});
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(pixels(fontTwips));
    return font;
}

QRect TwipScale::rect(double left, double top, double width, double height) const {
    return QRect(pixels(left), pixels(top), pixels(width), pixels(height));
}

void place(QWidget* widget, const TwipScale& scale, double left, double top, double width,
           double height) {
    widget->setGeometry(scale.rect(left, top, width, height));
}

}  // namespace quintline
