#include "extras/report_design.h"

#include "app/ports.h"
#include "app/quendUtils.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "base/platform/settings_store.h"
#include "toolkit/report/designer/report_designer.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QScreen>
#include <QStyle>

using namespace Qt::StringLiterals;

TfRaporTasarla* fRaporTasarla = nullptr;

namespace {

const QString captionText = u"Rapor Tasarım"_s;
/// Where the designer's own state is kept for the user; both design commands of a slip take it away first.
const QString statePath = u"Software\\FastReport"_s;
const QString stateSection = u"Designer"_s;
const QString stateKey = u"Layout"_s;
constexpr QSize mostSize(1480, 920);
constexpr int leastRoom = 640;  ///< height of a screen that has room for the window's edges

}  // namespace

TfRaporTasarla::TfRaporTasarla() : frxPreview1(new QWidget(this)) {
  fRaporTasarla = this;
  setObjectName(u"fRaporTasarla"_s);
  setWindowTitle(captionText);
  setWindowFlags(Qt::Window | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(frxPreview1);
  frxPreview1->setObjectName(u"frxPreview1"_s);
  auto* inside = new QVBoxLayout(frxPreview1);
  inside->setContentsMargins(0, 0, 0, 0);
}

void TfRaporTasarla::startDesigner() {
  if (frxDesigner1) return;
  frxDesigner1 = new ReportDesigner(frxPreview1);
  frxPreview1->layout()->addWidget(frxDesigner1);
  connectGuarded(frxDesigner1, &ReportDesigner::titleChanged, this, [this](const QString& title) {
    setWindowTitle(u"%1 - %2"_s.arg(captionText, title));
  });
  connectGuarded(frxDesigner1, &ReportDesigner::closeAsked, this, [this] { reject(); });
}

TfRaporTasarla::~TfRaporTasarla() { fRaporTasarla = nullptr; }

void TfRaporTasarla::Giris(const QString& file, const DesignSample& sample) {
  openFolder_ = QFileInfo(file).absolutePath();
  if (!QFileInfo::exists(file)) {
    QuendUtil->ErrorMesaj(this, u"Rapor dosyası bulunamadı."_s);
    return;
  }
  try {
    frxReport1.load(file);
    startDesigner();
    frxDesigner1->setOpenFolder(openFolder_);
    frxDesigner1->restoreState(QByteArray::fromBase64(SettingsStore::read(statePath, stateSection, stateKey).toLatin1()));
    frxDesigner1->open(file, sample);
  } catch (const EInOutError& error) {
    logMessage(u"Rapor tasarımı"_s, &error);
    QuendUtil->ErrorMesaj(this, u"Rapor dosyası okunamadı. %1"_s.arg(error.message()));
    return;
  }
  exec();
  keepState();
  frxDesigner1->close();
}

void TfRaporTasarla::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  guarded(this, [&] {
    if (event->spontaneous()) return;
    const QRect room = screen()->availableGeometry();
    const QSize size(std::min(mostSize.width(), room.width() - 40), std::min(mostSize.height(), room.height() - 60));
    setGeometry(QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, size, room));
    if (room.height() < leastRoom) setWindowState(windowState() | Qt::WindowMaximized);
    layout()->activate();
    postGuarded(this, [this] { frxDesigner1->canvas().fitReadable(); });
  });
}

void TfRaporTasarla::reject() {
  if (frxDesigner1->mayLeave()) QDialog::reject();
}

void TfRaporTasarla::keyPressEvent(QKeyEvent* event) {
  guarded(this, [&] {
    // Escape leaves what is being done, but not the designer.
    if (event->key() == Qt::Key_Escape)
      frxDesigner1->canvas().setFocus();
    else
      QDialog::keyPressEvent(event);
  });
}

void TfRaporTasarla::closeEvent(QCloseEvent* event) {
  guarded(this, [&] {
    event->ignore();
    reject();
  });
}

void TfRaporTasarla::keepState() {
  try {
    SettingsStore::write(statePath, stateSection, stateKey, QString::fromLatin1(frxDesigner1->state().toBase64()));
  } catch (const EInOutError& error) {
    logMessage(u"Rapor tasarımının görünümü"_s, &error);
  }
}

void TfRaporTasarla::forgetState() { SettingsStore::remove(statePath); }
