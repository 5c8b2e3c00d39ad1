#include "service/slip_picture_page.h"

#include "app/exceptions.h"
#include "app/guard.h"
#include "app/quendUtils.h"
#include "service/ffoto_unit.h"
#include "toolkit/edits/image_box.h"
#include "toolkit/edits/task_dialog.h"

#include <QBoxLayout>
#include <QFile>
#include <QGroupBox>
#include <QSaveFile>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

QString pictureFilter() { return u"JPeg Dosyası (*.jpg)"_s; }

}  // namespace

SlipPicturePage::SlipPicturePage(std::function<QString()> titleOfPicture, QWidget* parent)
    : QWidget(parent), titleOfPicture_(std::move(titleOfPicture)) {
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(8, 8, 8, 8);
  auto* group = new QGroupBox(u"Cihaz Fotoğrafı"_s, this);
  page->addWidget(group);
  auto* line = new QHBoxLayout(group);
  auto* buttons = new QVBoxLayout;
  URUN_FOTO = new ImageBox(group);
  URUN_FOTO->setObjectName(u"URUN_FOTO"_s);
  URUN_FOTO->setAccessibleName(group->title());
  URUN_FOTO->setEmptyText(u"Resim yok"_s);
  URUN_FOTO->setContextMenuPolicy(Qt::NoContextMenu);
  line->addWidget(URUN_FOTO, 1);
  line->addLayout(buttons);

  const auto addButton = [&](const QString& name, const QString& icon, const QString& hint, auto work) {
    auto* button = new QToolButton(group);
    button->setObjectName(name);
    button->setIcon(QIcon::fromTheme(icon));
    button->setIconSize(QSize(22, 22));
    button->setText(hint);
    button->setToolTip(hint);
    button->setAccessibleName(hint);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    button->setFocusPolicy(Qt::StrongFocus);
    connectGuarded(button, &QToolButton::clicked, this, work);
    buttons->addWidget(button);
  };
  addButton(u"btnShowImage"_s, u"zoom-in"_s, u"Resmi Büyüt"_s, [this] {
    if (!bytes_.isEmpty()) fFoto->Giris(titleOfPicture_(), bytes_);
  });
  addButton(u"btnEkle"_s, u"list-add"_s, u"Resim Ekle"_s, [this] { addPicture(); });
  addButton(u"btnSil"_s, u"list-remove"_s, u"Resmi Sil"_s, [this] { removePicture(); });
  addButton(u"RzBitBtn1"_s, u"document-save-as"_s, u"Resmi Kaydet"_s, [this] { savePicture(); });
  buttons->addStretch(1);
}

void SlipPicturePage::clear() {
  URUN_FOTO->clearImage();
  bytes_.clear();
}

void SlipPicturePage::setBytes(const QByteArray& bytes) {
  URUN_FOTO->clearImage();
  bytes_ = bytes;
  URUN_FOTO->setImageBytes(bytes);
}

void SlipPicturePage::addPicture() {
  const QString path = askOpenFile(this, u"Resim Ekle"_s, pictureFilter(), u"jpg"_s);
  if (path.isEmpty()) return;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) throw EInOutError(u"Dosya açılamadı: %1"_s.arg(path));
  const QByteArray bytes = file.readAll();
  URUN_FOTO->setImageBytes(bytes);
  bytes_ = bytes;
}

void SlipPicturePage::removePicture() {
  if (QuendUtil->Mesaj(this, u"Cihaz resmi silinecek onaylıyor musunuz?"_s) == TQuendUtil::Confirmed) clear();
}

void SlipPicturePage::savePicture() {
  if (bytes_.isEmpty()) return;
  const QString path = askSaveFile(this, u"Resmi Kaydet"_s, pictureFilter(), u"jpg"_s);
  if (path.isEmpty()) return;
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes_) != bytes_.size() || !file.commit())
    throw EInOutError(u"Dosya yazılamadı: %1"_s.arg(path));
}
