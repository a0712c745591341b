#pragma once
// The drawing surface of the board picture: a retained canvas with the drawing
// state the board figures rely on. Coordinates and radii are twips as real
// numbers, origin at the top left corner, y growing downward. The state set by
// one call stays until set again.

#include <cstdint>

namespace quintline {

// 0xRRGGBB.
using Colour = std::uint32_t;
inline constexpr Colour blackColour = 0x000000;
inline constexpr Colour whiteColour = 0xFFFFFF;

enum class FillStyle : std::int16_t { solid = 0, transparent = 1 };

class Canvas {
  public:
    virtual ~Canvas() = default;

    // Size of the drawing area in twips.
    virtual double width() const = 0;
    virtual double height() const = 0;
    // The colour that cls leaves.
    virtual Colour backColor() const = 0;

    virtual void setForeColor(Colour colour) = 0;
    virtual void setFillColor(Colour colour) = 0;
    virtual void setFillStyle(FillStyle style) = 0;
    virtual void setDrawWidth(int pixels) = 0;

    // Clears everything drawn to the background colour.
    virtual void cls() = 0;
    // A straight line with the current pen.
    virtual void line(double x1, double y1, double x2, double y2) = 0;
    // A circle outlined in the foreground colour, filled with the fill colour when
    // the fill style is solid.
    virtual void circle(double x, double y, double radius) = 0;
    // The same with an outline colour for this one circle.
    virtual void circle(double x, double y, double radius, Colour outline) = 0;
};

}  // namespace quintline
