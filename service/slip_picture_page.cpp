#include "service/slip_picture_page.h"

#include "app/dmUnit.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "app/quendUtils.h"
#include "base/whole_file.h"
#include "service/ffoto_unit.h"
#include "toolkit/edits/image_box.h"
#include "toolkit/edits/task_dialog.h"

#include <QBoxLayout>
#include <QFile>
#include <QGroupBox>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

/// Room in a statement for what goes with the picture.
constexpr quint64 statementBytes = 64 * 1024;

QString pictureFilter() { return u"JPeg Dosyası (*.jpg)"_s; }
QString noPictureText() { return u"Resim yok"_s; }

/// A picture that the server would not take is refused when it is chosen: the save that fails by it would not say so.
void refuseTooLarge(quint64 bytes, const QString& path) {
  const quint64 limit = DM->MySQL.packetLimit();
  if (limit != 0 && bytes + statementBytes >= limit)
    throw EInOutError(u"Resim dosyası çok büyük, veritabanı en çok %1 MB alabilir: %2"_s.arg(limit >> 20).arg(path));
}

/// The whole of a file that may be added. Throws EInOutError.
QByteArray readPictureFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) throw EInOutError(u"Dosya açılamadı: %1"_s.arg(path));
  refuseTooLarge(quint64(file.size()), path);
  const QByteArray bytes = file.readAll();
  if (DM->MySQL.Connected()) refuseTooLarge(quint64(DM->MySQL.quoted(bytes).size()), path);
  if (file.error() != QFileDevice::NoError) throw EInOutError(u"Dosya okunamadı: %1"_s.arg(path));
  if (bytes.isEmpty()) throw EInOutError(u"Dosya boş: %1"_s.arg(path));
  return bytes;
}

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
  URUN_FOTO->setEmptyText(noPictureText());
  URUN_FOTO->setFormat(slipPictureFormat());
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
  addButton(u"btnShowImage"_s, u"zoom-in"_s, u"Resmi Büyüt"_s, [this] { enlargePicture(); });
  addButton(u"btnEkle"_s, u"list-add"_s, u"Resim Ekle"_s, [this] { addPicture(); });
  addButton(u"btnSil"_s, u"list-remove"_s, u"Resmi Sil"_s, [this] { removePicture(); });
  addButton(u"RzBitBtn1"_s, u"document-save-as"_s, u"Resmi Kaydet"_s, [this] { savePicture(); });
  buttons->addStretch(1);
}

void SlipPicturePage::clear() {
  URUN_FOTO->clearImage();
  URUN_FOTO->setEmptyText(noPictureText());
  bytes_.clear();
}

void SlipPicturePage::setBytes(const QByteArray& bytes) {
  clear();
  bytes_ = bytes;
  URUN_FOTO->setEmptyText(u"Kayıtlı resim bozuk"_s);
  URUN_FOTO->setImageBytes(bytes);
  URUN_FOTO->setEmptyText(noPictureText());
}

void SlipPicturePage::telling(const std::function<void()>& work) {
  try {
    work();
  } catch (const Exception& error) {
    QuendUtil->ErrorMesaj(this, error.message());
  }
}

void SlipPicturePage::enlargePicture() {
  if (!bytes_.isEmpty()) telling([this] { fFoto->Giris(titleOfPicture_(), bytes_); });
}

void SlipPicturePage::addPicture() {
  const QString path = askOpenFile(this, u"Resim Ekle"_s, pictureFilter(), u"jpg"_s);
  if (path.isEmpty()) return;
  telling([&] {
    const QByteArray bytes = readPictureFile(path);
    URUN_FOTO->setImageBytes(bytes);
    bytes_ = bytes;
  });
}

void SlipPicturePage::removePicture() {
  if (QuendUtil->Mesaj(this, u"Cihaz resmi silinecek onaylıyor musunuz?"_s) == TQuendUtil::Confirmed) clear();
}

void SlipPicturePage::savePicture() {
  if (bytes_.isEmpty()) return;
  const QString path = askSaveFile(this, u"Resmi Kaydet"_s, pictureFilter(), u"jpg"_s);
  if (path.isEmpty()) return;
  telling([&] { WholeFile::replace(path, bytes_); });
}
