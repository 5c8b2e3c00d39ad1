#include "toolkit/report/designer/versions_dialog.h"

#include "base/environment.h"
#include "base/guard.h"
#include "toolkit/report/paged_output.h"
#include "toolkit/report/report_layout.h"
#include "toolkit/report/report_file.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QSize pictureRoom(380, 460);

}  // namespace

VersionsDialog::VersionsDialog(QWidget* owner, std::vector<TemplateFile::Version> versions, const DesignSample& sample)
    : QDialog(owner), versions_(std::move(versions)), sample_(sample), list_(new QListWidget(this)), picture_(new QLabel(this)) {
  setWindowTitle(u"Önceki Sürümler"_s);
  list_->setObjectName(u"versions"_s);
  list_->setAccessibleName(u"Önceki sürümler"_s);
  list_->setMinimumWidth(200);
  for (const TemplateFile::Version& each : versions_) list_->addItem(each.saved.toString(u"dd.MM.yyyy HH:mm:ss"_s));
  picture_->setFixedSize(pictureRoom);
  picture_->setAlignment(Qt::AlignCenter);
  picture_->setWordWrap(true);
  auto* row = new QHBoxLayout;
  row->addWidget(list_, 1);
  row->addWidget(picture_);
  auto* buttons = new QDialogButtonBox(this);
  bringBack_ = buttons->addButton(u"Geri getir"_s, QDialogButtonBox::AcceptRole);
  buttons->addButton(u"Vazgeç"_s, QDialogButtonBox::RejectRole);
  auto* column = new QVBoxLayout(this);
  column->addWidget(new QLabel(u"Şablonun son kaydedilen halleri. Geri getirilen, kaydedince geçerli olur."_s, this));
  column->addLayout(row, 1);
  column->addWidget(buttons);
  connectGuarded(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
  connectGuarded(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
  connectGuarded(list_, &QListWidget::currentRowChanged, this, [this] { showVersion(); });
  connectGuarded(list_, &QListWidget::itemDoubleClicked, this, [this] { accept(); });
  if (versions_.empty())
    picture_->setText(u"Bu şablonun önceki sürümü yok."_s);
  else
    list_->setCurrentRow(0);
  showVersion();
}

QString VersionsDialog::chosenFile() const { return list_->currentRow() < 0 ? QString() : versions_[size_t(list_->currentRow())].file; }

void VersionsDialog::showVersion() {
  bringBack_->setEnabled(list_->currentRow() >= 0);
  if (list_->currentRow() < 0) return;
  try {
    const ReportDocument filled = filledWith(ReportFile::load(chosenFile()), sample_);
    const ReportPagedDocument pages(layoutReport(filled, sample_.data, sample_.richTexts, environment().now()));
    if (pages.pageCount() == 0) return;
    const QSizeF size = pages.pageSize(0);
    const double dots = std::min(pictureRoom.width() / size.width(), pictureRoom.height() / size.height()) * 25.4 * devicePixelRatioF();
    QPixmap picture = QPixmap::fromImage(pagePicture(pages, 0, dots));
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture_->setPixmap(picture);
  } catch (const EInOutError& error) {
    picture_->setText(error.message());
    bringBack_->setEnabled(false);
  }
}
