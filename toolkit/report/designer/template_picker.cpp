#include "toolkit/report/designer/template_picker.h"

#include "base/environment.h"
#include "base/guard.h"
#include "toolkit/report/paged_output.h"
#include "toolkit/report/report_layout.h"
#include "toolkit/report/report_file.h"
#include "toolkit/shell/screen_room.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QSize mostPicture(380, 460);

}  // namespace

TemplatePicker::TemplatePicker(QWidget* owner, TemplatePick pick, const DesignSample& sample)
    : QDialog(owner), entries_(std::move(pick.entries)), sample_(sample), list_(new QListWidget(this)), picture_(new QLabel(this)) {
  setWindowTitle(pick.title);
  list_->setObjectName(u"templates"_s);
  list_->setAccessibleName(pick.title);
  list_->setMinimumWidth(240);
  for (const TemplatePick::Entry& each : entries_) list_->addItem(each.caption);
  picture_->setFixedSize(pictureWithinScreen(*this, mostPicture));
  picture_->setAlignment(Qt::AlignCenter);
  picture_->setWordWrap(true);
  auto* row = new QHBoxLayout;
  row->addWidget(list_, 1);
  row->addWidget(picture_);
  auto* buttons = new QDialogButtonBox(this);
  button_ = buttons->addButton(pick.button, QDialogButtonBox::AcceptRole);
  buttons->addButton(u"Vazgeç"_s, QDialogButtonBox::RejectRole);
  auto* column = new QVBoxLayout(this);
  column->addWidget(new QLabel(pick.explanation, this));
  column->addLayout(row, 1);
  column->addWidget(buttons);
  connectGuarded(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
  connectGuarded(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
  connectGuarded(list_, &QListWidget::currentRowChanged, this, [this] { showPicture(); });
  connectGuarded(list_, &QListWidget::itemDoubleClicked, this, [this] {
    if (button_->isEnabled()) accept();
  });
  if (entries_.empty()) picture_->setText(pick.nothing);
  const auto first = std::find_if(entries_.begin(), entries_.end(), [&](const auto& each) { return each.file == pick.current; });
  list_->setCurrentRow(first == entries_.end() ? 0 : int(first - entries_.begin()));
  showPicture();
}

QString TemplatePicker::file() const { return list_->currentRow() < 0 ? QString() : entries_[size_t(list_->currentRow())].file; }

void TemplatePicker::showPicture() {
  button_->setEnabled(list_->currentRow() >= 0);
  if (list_->currentRow() < 0) return;
  try {
    const ReportDocument filled = filledWith(ReportFile::load(file()), sample_);
    const ReportPagedDocument pages(layoutReport(filled, sample_.data, sample_.richTexts, environment().now()));
    if (pages.pageCount() == 0) return;
    const QSizeF size = pages.pageSize(0);
    const double dots = std::min(picture_->width() / size.width(), picture_->height() / size.height()) * 25.4 * devicePixelRatioF();
    QPixmap picture = QPixmap::fromImage(pagePicture(pages, 0, dots));
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture_->setPixmap(picture);
  } catch (const EInOutError& error) {
    picture_->setText(error.message());
    button_->setEnabled(false);
  }
}
