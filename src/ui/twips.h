#pragma once
// The one conversion between the design's twips and screen pixels: 1440 twips
// to the logical inch, so 15 twips to a pixel at 96 dots per inch.

#include <QFont>
#include <QRect>

class QWidget;

namespace quintline {

class TwipScale {
  public:
    explicit TwipScale(double logicalDpi) : pixelsPerTwip_(logicalDpi / 1440.0) {}
    // The logical DPI of the primary screen.
    static TwipScale ofScreen();

    double toPixels(double twips) const { return twips * pixelsPerTwip_; }
    double toTwips(double pixels) const { return pixels / pixelsPerTwip_; }
    int pixels(double twips) const;  // rounded to the nearest pixel
    QRect rect(double left, double top, double width, double height) const;
    // The font of every window: a condensed sans-serif of 7.5 points, as
    // many pixels high as this scale makes of them, so that captions keep their
    // place in the controls at any DPI.
    QFont font() const;

  private:
    double pixelsPerTwip_;
};

// Places a control by its design position and size in twips.
void place(QWidget* widget, const TwipScale& scale, double left, double top, double width,
           double height);

// Gives a control its design name and places it; returns the control.
template <class Widget>
Widget* placeNamed(Widget* widget, const char* name, const TwipScale& scale, double left,
                   double top, double width, double height) {
    widget->setObjectName(name);
    place(widget, scale, left, top, width, height);
    return widget;
}

}  // namespace quintline
