#include "qt/drawn_icons.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

namespace ferrow {
namespace {

// Draws `paint` on a 32x32 canvas at several sizes, so it stays sharp at 200%.
template <typename Paint>
QIcon Drawn(Paint paint) {
  QIcon icon;
  for (int size : {16, 24, 32, 48, 64}) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 32.0, size / 32.0);
    p.setPen(QPen(QApplication::palette().color(QPalette::ButtonText), 2.5, Qt::SolidLine,
                  Qt::RoundCap, Qt::RoundJoin));
    paint(p);
    icon.addPixmap(pixmap);
  }
  return icon;
}

}  // namespace

QIcon SpannerIcon() {
  return Drawn([](QPainter& p) {
    p.drawLine(QPointF(7, 25), QPointF(18, 14));  // the handle
    QPainterPath jaw;
    jaw.arcMoveTo(QRectF(15, 3, 14, 14), 200);
    jaw.arcTo(QRectF(15, 3, 14, 14), 200, 250);
    p.drawPath(jaw);
    p.drawEllipse(QPointF(7, 25), 2.5, 2.5);
  });
}

QIcon BinocularsIcon() {
  return Drawn([](QPainter& p) {
    p.drawEllipse(QPointF(9, 21), 6, 6);
    p.drawEllipse(QPointF(23, 21), 6, 6);
    p.drawLine(QPointF(5, 17), QPointF(8, 7));
    p.drawLine(QPointF(27, 17), QPointF(24, 7));
    p.drawLine(QPointF(13, 14), QPointF(19, 14));
    p.drawRect(QRectF(7, 5, 5, 4));
    p.drawRect(QRectF(20, 5, 5, 4));
  });
}

}  // namespace ferrow
