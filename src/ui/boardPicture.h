#pragma once
// The board picture box: shows its canvas and reports mouse presses in twips.
// It draws nothing of its own and knows nothing of the game.

#include <QWidget>
#include <functional>

#include "ui/imageCanvas.h"

namespace quintline {

class BoardPicture : public QWidget {
    Q_OBJECT
  public:
    BoardPicture(const TwipScale& scale, double widthTwips, double heightTwips, Colour background,
                 QWidget* parent = nullptr);

    ImageCanvas& canvas() { return canvas_; }
    const ImageCanvas& canvas() const { return canvas_; }

    // Called with X and Y in twips on a press of any mouse button.
    std::function<void(float x, float y)> onMouseDown;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    ImageCanvas canvas_;
};

}  // namespace quintline
