#include "bench/gallery/scene.h"

#include "base/guard.h"

#include <QApplication>
#include <QDialog>
#include <QPainter>
#include <QPixmap>
#include <QTest>

void Gallery::bringUp(QWidget& widget) {
  widget.show();
  if (!QTest::qWaitForWindowActive(&widget)) qFatal("a window does not come up");
  QTest::qWait(50);
}

void Gallery::type(const QString& text) {
  for (const QChar letter : text)
    QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, QString(letter), Qt::NoModifier);
  QTest::qWait(50);
}

QImage Gallery::picture(QWidget& widget) {
  QTest::qWait(120);
  QWidgetList windows{widget.window()};
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window != widget.window() && window->isVisible()) windows.append(window);
  QRect whole;
  for (const QWidget* window : windows) whole |= window->geometry();
  const qreal scale = widget.devicePixelRatioF();
  QImage image((QSizeF(whole.size()) * scale).toSize(), QImage::Format_RGB32);
  image.setDevicePixelRatio(scale);
  image.fill(QColor(0x80, 0x88, 0x90));
  QPainter painter(&image);
  for (QWidget* window : windows) painter.drawPixmap(window->geometry().topLeft() - whole.topLeft(), window->grab());
  return image;
}

QImage Gallery::pictureOfModal(const std::function<void()>& open) {
  QImage image;
  postGuarded(qApp, [&image] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) qFatal("no dialog is open");
    image = picture(*dialog);
    dialog->reject();
  }, 300);
  open();
  return image;
}
