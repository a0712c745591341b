#pragma once
// The board's canvas kept in an image: every primitive draws into the image at
// once, and the picture on screen is only ever a copy of it.

#include <QImage>

#include "ui/canvas.h"
#include "ui/twips.h"

namespace quintline {

class ImageCanvas : public Canvas {
  public:
    // A canvas of the given size in twips, cleared to `background`.
    ImageCanvas(const TwipScale& scale, double widthTwips, double heightTwips, Colour background);

    const QImage& image() const { return image_; }
    const TwipScale& scale() const { return scale_; }

    double width() const override { return width_; }
    double height() const override { return height_; }
    Colour backColor() const override { return background_; }

    void setForeColor(Colour colour) override { foreColor_ = colour; }
    void setFillColor(Colour colour) override { fillColor_ = colour; }
    void setFillStyle(FillStyle style) override { fillStyle_ = style; }
    void setDrawWidth(int pixels) override { drawWidth_ = pixels; }

    void cls() override;
    void line(double x1, double y1, double x2, double y2) override;
    void circle(double x, double y, double radius) override;
    void circle(double x, double y, double radius, Colour outline) override;

  private:
    TwipScale scale_;
    double width_;
    double height_;
    Colour background_;
    QImage image_;
    // The drawing state a fresh picture box starts with.
    Colour foreColor_ = blackColour;
    Colour fillColor_ = blackColour;
    FillStyle fillStyle_ = FillStyle::transparent;
    int drawWidth_ = 1;
};

}  // namespace quintline
