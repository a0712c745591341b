#include "ui/imageCanvas.h"

#include <QPainter>
#include <QPen>

namespace quintline {

namespace {

QColor toQColor(Colour colour) {
    return QColor::fromRgb(static_cast<QRgb>(colour));
}

}  // namespace

ImageCanvas::ImageCanvas(const TwipScale& scale, double widthTwips, double heightTwips,
                         Colour background)
    : scale_(scale),
      width_(widthTwips),
      height_(heightTwips),
      background_(background),
      image_(scale.pixels(widthTwips), scale.pixels(heightTwips), QImage::Format_RGB32) {
    image_.fill(toQColor(background_));
}

void ImageCanvas::cls() {
    image_.fill(toQColor(background_));
}

void ImageCanvas::line(double x1, double y1, double x2, double y2) {
    // Drawn without smoothing so that a disc of the background colour covers
    // exactly the pixels a disc of the same size coloured.
    QPainter painter(&image_);
    painter.setPen(QPen(toQColor(foreColor_), drawWidth_));
    painter.drawLine(QPointF(scale_.toPixels(x1), scale_.toPixels(y1)),
                     QPointF(scale_.toPixels(x2), scale_.toPixels(y2)));
}

void ImageCanvas::circle(double x, double y, double radius) {
    circle(x, y, radius, foreColor_);
}

void ImageCanvas::circle(double x, double y, double radius, Colour outline) {
    QPainter painter(&image_);
    painter.setPen(QPen(toQColor(outline), drawWidth_));
    if (fillStyle_ == FillStyle::solid) {
        painter.setBrush(toQColor(fillColor_));
    } else {
        painter.setBrush(Qt::NoBrush);
    }
    const double r = scale_.toPixels(radius);
    painter.drawEllipse(QPointF(scale_.toPixels(x), scale_.toPixels(y)), r, r);
}

}  // namespace quintline
