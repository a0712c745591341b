#include "ui/boardPicture.h"

#include <QMouseEvent>
#include <QPainter>

namespace quintline {

BoardPicture::BoardPicture(const TwipScale& scale, double widthTwips, double heightTwips,
                           Colour background, QWidget* parent)
    : QWidget(parent), canvas_(scale, widthTwips, heightTwips, background) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void BoardPicture::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.drawImage(event->rect(), canvas_.image(), event->rect());
}

void BoardPicture::mousePressEvent(QMouseEvent* event) {
    if (!onMouseDown) return;
    const QPointF at = event->position();
    const TwipScale& scale = canvas_.scale();
    onMouseDown(static_cast<float>(scale.toTwips(at.x())),
                static_cast<float>(scale.toTwips(at.y())));
}

}  // namespace quintline
