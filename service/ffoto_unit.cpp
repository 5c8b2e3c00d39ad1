#include "service/ffoto_unit.h"

#include "toolkit/edits/image_box.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QScreen>

#include <algorithm>

using namespace Qt::StringLiterals;

TfFoto* fFoto = nullptr;

QByteArray slipPictureFormat() { return "jpeg"; }

TfFoto::TfFoto() : URUN_FOTO(new QLabel(this)) {
  setObjectName(u"fFoto"_s);
  URUN_FOTO->setObjectName(u"URUN_FOTO"_s);
  URUN_FOTO->setAccessibleName(u"Cihaz Fotoğrafı"_s);
  URUN_FOTO->setScaledContents(true);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(URUN_FOTO);
  fFoto = this;
}

TfFoto::~TfFoto() {
  if (fFoto == this) fFoto = nullptr;
}

void TfFoto::Giris(const QString& title, const QByteArray& picture) {
  // A picture larger than the screen is shown as large as there is room.
  const QSize room = screen()->availableSize() * 9 / 10;
  const QPixmap pixmap = QPixmap::fromImage(decodedPicture(picture, slipPictureFormat(), std::max(room.width(), room.height()) * 2));
  setWindowTitle(title);
  URUN_FOTO->setPixmap(pixmap);
  const bool fits = pixmap.width() <= room.width() && pixmap.height() <= room.height();
  setFixedSize(fits ? pixmap.size() : pixmap.size().scaled(room, Qt::KeepAspectRatio));
  exec();
  URUN_FOTO->clear();
}
