#include "toolkit/report/preview/offset_dialog.h"

#include "base/exceptions.h"
#include "base/guard.h"
#include "toolkit/edits/currency_edit.h"
#include "toolkit/edits/task_dialog.h"
#include "toolkit/report/printing.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr double farthest = 50;  ///< mm; more is a slip of the finger
constexpr int leastDots = 72;      ///< per inch
constexpr int mostDots = 4800;
constexpr int closeButton = 1;

}  // namespace

OffsetDialog::OffsetDialog(QWidget* owner, const QStringList& printers, const QString& current)
    : QDialog(owner), printer_(new QComboBox(this)), right_(new CurrencyEdit(this)), down_(new CurrencyEdit(this)), dots_(new CurrencyEdit(this)) {
  setWindowTitle(u"Yazıcı Kayması"_s);
  printer_->addItems(printers);
  printer_->setCurrentText(current);
  auto* form = new QFormLayout(this);
  auto* explanation = new QLabel(u"Yazı kâğıtta kayık çıkıyorsa, ne kadar kaydırılacağını milimetre olarak yazın.\n"
                                 "Sola ve yukarı için eksi sayı yazılır. Barkodlar okunmuyorsa yazıcının inç başına\n"
                                 "nokta sayısını da yazın; etiket yazıcılarında çoğu kez 203’tür.\n"
                                 "Yazılanlar bu bilgisayarda saklanır."_s,
                                 this);
  form->addRow(explanation);
  const auto addRow = [&](const QString& caption, QWidget* box) {
    nameBox(*box, caption);
    form->addRow(caption, box);
  };
  addRow(u"Yazıcı"_s, printer_);
  for (CurrencyEdit* edit : {right_, down_}) edit->setDisplayFormat(u"0.0#;-0.0#"_s);
  right_->setObjectName(u"right"_s);
  down_->setObjectName(u"down"_s);
  addRow(u"Sağa (mm)"_s, right_);
  addRow(u"Aşağı (mm)"_s, down_);
  dots_->setObjectName(u"dots"_s);
  dots_->setDisplayFormat(u"0;-0;"_s);  // unknown is an empty box
  addRow(u"Nokta (inçte)"_s, dots_);
  auto* buttons = new QDialogButtonBox(this);
  QPushButton* keep = buttons->addButton(u"Kaydet"_s, QDialogButtonBox::AcceptRole);
  keep->setObjectName(u"save"_s);
  buttons->addButton(u"Vazgeç"_s, QDialogButtonBox::RejectRole);
  form->addRow(buttons);
  connectGuarded(printer_, &QComboBox::currentTextChanged, this, [this] { showPrinter(); });
  connectGuarded(buttons, &QDialogButtonBox::accepted, this, [this] { save(); });
  connectGuarded(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
  showPrinter();
}

void OffsetDialog::showPrinter() {
  const QPointF offset = printerOffset(printer_->currentText());
  right_->setValue(offset.x());
  down_->setValue(offset.y());
  dots_->setValue(printerDots(printer_->currentText()));
}

void OffsetDialog::save() {
  const auto refuse = [this](const QString& text) {
    runTaskDialog(this, {.title = windowTitle(),
                         .instruction = u"Kayma kaydedilemedi"_s,
                         .text = text,
                         .icon = TaskIcon::Warning,
                         .buttons = {{closeButton, u"Kapat"_s}}});
  };
  try {
    const QPointF offset(right_->value(), down_->value());
    if (std::abs(offset.x()) > farthest || std::abs(offset.y()) > farthest)
      return refuse(u"Kayma en çok %1 mm olabilir."_s.arg(farthest));
    const double dots = dots_->value();
    if (dots != 0 && (dots < leastDots || dots > mostDots)) return refuse(u"Nokta sayısı %1 ile %2 arasında olmalı."_s.arg(leastDots).arg(mostDots));
    setPrinterOffset(printer_->currentText(), offset);
    setPrinterDots(printer_->currentText(), qRound(dots));
    accept();
  } catch (const EConvertError&) {
    refuse(u"Kutulara birer sayı yazın: 1,5"_s);
  } catch (const EInOutError& error) {
    refuse(error.message());
  }
}
