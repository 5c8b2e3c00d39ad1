#include "extras/statistics.h"

#include "app/dmUnit.h"
#include "app/editors/qcx_editors.h"
#include "base/data/my_query.h"
#include "base/environment.h"
#include "base/guard.h"
#include "extras/named_box.h"
#include "extras/statistics_chart.h"
#include "extras/statistics_store.h"

#include <QBoxLayout>
#include <QEvent>
#include <QGridLayout>

using namespace Qt::StringLiterals;
using namespace StatisticsStore;

TIstForm* IstForm = nullptr;

namespace {

constexpr int boxWidth = 220;
constexpr int yearLength = 4;
constexpr int yearButtonIndex = 1;
constexpr QSize preferredSize(640, 480);

qcxTextEdit* countBox(const QString& name, const QString& caption) {
  auto* box = namedBox(new qcxTextEdit, name, caption, boxWidth);
  box->setReadOnly(true);
  return box;
}

}  // namespace

TIstForm::TIstForm(QWidget* parent)
    : QDialog(parent),
      query_(std::make_unique<TMyQuery>(DM->MySQL, u"qSeri"_s)),
      qSeri(*query_),
      eYil(namedBox(new qcxButtonEdit, u"eYil"_s, u" İŞLEM YILI"_s, boxWidth)),
      eOLUMLU(countBox(u"eOLUMLU"_s, u" OLUMLU İŞLEM"_s)),
      eOLUMSUZ(countBox(u"eOLUMSUZ"_s, u" OLUMSUZ İŞLEM"_s)),
      eSERVIS(countBox(u"eSERVIS"_s, u" SERVİSDE OLAN"_s)),
      eTOPLAM(countBox(u"eTOPLAM"_s, u" TOPLAM İŞLEM"_s)),
      chart_(new StatisticsChart(qSeri)) {
  setObjectName(u"IstForm"_s);
  eYil->setMaxLength(yearLength);
  eYil->setOnlyChars(u"0123456789"_s);
  eYil->addButton(ellipsisButton(u"Yılı Göster (F5)"_s));
  connectGuarded(eYil, &EditBox::buttonClicked, this, [this](int index) {
    if (index == yearButtonIndex) chooseYear();
  });
  chart_->setObjectName(u"chart"_s);
  auto* boxes = new QGridLayout;
  boxes->addWidget(eYil, 0, 0);
  boxes->addWidget(eOLUMLU, 1, 0);
  boxes->addWidget(eOLUMSUZ, 1, 1);
  boxes->addWidget(eSERVIS, 2, 0);
  boxes->addWidget(eTOPLAM, 2, 1);
  boxes->setColumnStretch(2, 1);
  auto* all = new QVBoxLayout(this);
  all->addLayout(boxes);
  all->addWidget(chart_, 1);
  resize(preferredSize);
  colorBoxes();
  IstForm = this;
}

TIstForm::~TIstForm() {
  if (IstForm == this) IstForm = nullptr;
}

void TIstForm::GirisMusteri(const QString& customerName) { enter(customerName, {}); }

void TIstForm::GirisSeriNo(const QString& serial) { enter({}, serial); }

void TIstForm::enter(const QString& customer, const QString& serial) {
  const bool isCustomer = serial.isEmpty();
  setWindowTitle((isCustomer ? customer : serial) + u" İSTATİSTİK"_s);
  customer_ = customer;
  serial_ = serial;
  eYil->setText(QString::number(environment().today().year()));
  isCustomer ? openCustomer(qSeri, customer_, eYil->text()) : openSerial(qSeri, serial_, eYil->text());
  const std::pair<qcxTextEdit*, Row> counts[] = {{eOLUMSUZ, Bad}, {eOLUMLU, Good}, {eSERVIS, InShop}, {eTOPLAM, All}};
  for (const auto& [box, row] : counts) box->setText(QString::number(countOf(qSeri, row)));
  eYil->line()->setFocus();
  eYil->line()->selectAll();
  exec();
}

void TIstForm::chooseYear() {
  if (!customer_.isEmpty()) {
    openCustomer(qSeri, customer_, eYil->text());
    eOLUMSUZ->setText(QString::number(countOf(qSeri, Bad)));
    // Into the same box again, so that the good outcomes stand there and their own box keeps the year before: meant.
    eOLUMSUZ->setText(QString::number(countOf(qSeri, Good)));
    eSERVIS->setText(QString::number(countOf(qSeri, InShop)));
    eTOPLAM->setText(QString::number(countOf(qSeri, All)));
  }
  if (!serial_.isEmpty()) openSerialAnew(qSeri, serial_, eYil->text());
}

void TIstForm::colorBoxes() {
  const std::pair<qcxTextEdit*, Row> boxes[] = {{eOLUMSUZ, Bad}, {eOLUMLU, Good}, {eSERVIS, InShop}, {eTOPLAM, All}};
  for (const auto& [box, row] : boxes) {
    QPalette colors = box->line()->palette();
    colors.setColor(QPalette::Text, StatisticsChart::color(row, palette()));
    box->line()->setPalette(colors);
  }
}

void TIstForm::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) guarded(this, [this] { colorBoxes(); });
}
