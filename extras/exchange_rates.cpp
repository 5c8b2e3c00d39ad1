#include "extras/exchange_rates.h"

#include "app/dmUnit.h"
#include "app/editors/qcx_editors.h"
#include "app/ports.h"
#include "app/quendUtils.h"
#include "base/date_text.h"
#include "base/environment.h"
#include "base/guard.h"
#include "base/whole_file.h"
#include "comm/http_client.h"
#include "comm/service_addresses.h"
#include "extras/named_box.h"
#include "extras/rate_store.h"
#include "toolkit/shell/waiting_run.h"

#include <QBoxLayout>
#include <QPushButton>
#include <QTabWidget>

using namespace Qt::StringLiterals;

TfDoviz* fDoviz = nullptr;

namespace {

constexpr int boxWidth = 300;
constexpr int ratePlaces = 5;
const QString path = u"/doviz.xml"_s;
const QString workingFile = u"temp.adpheadlines.xml"_s;  // beside the program

qcxCurrencyEdit* rateBox(const QString& name, const QString& caption) {
  auto* box = namedBox(new qcxCurrencyEdit, name, caption, boxWidth);
  box->setDisplayFormat(u",0.00000;-,0.00000"_s);
  box->setDecimalPlaces(ratePlaces);
  box->setValue(1);
  return box;
}

QString today() { return DateText::date(environment().today()); }

}  // namespace

TfDoviz::TfDoviz(QWidget* parent)
    : QDialog(parent),
      eTarih(namedBox(new qcxTextEdit, u"eTarih"_s, u"Kur Tarihi"_s, boxWidth)),
      eDolar(rateBox(u"eDolar"_s, u"($) Dolar"_s)),
      eEuro(rateBox(u"eEuro"_s, u"(€) Euro"_s)),
      eSterlin(rateBox(u"eSterlin"_s, u"(£) Sterlin"_s)),
      RzBitBtn1(new QPushButton(u"Serbest Piyasa"_s)),
      Tamam_Button(new QPushButton(u"&Tamam"_s)) {
  setObjectName(u"fDoviz"_s);
  setWindowTitle(u"Döviz Kurları"_s);
  eTarih->setReadOnly(true);
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  for (QWidget* box : {static_cast<QWidget*>(eTarih), static_cast<QWidget*>(eDolar), static_cast<QWidget*>(eEuro),
                       static_cast<QWidget*>(eSterlin)})
    column->addWidget(box);
  auto* pages = new QTabWidget;
  pages->addTab(page, u"DÖVİZ KURLARI"_s);
  pages->setFocusPolicy(Qt::NoFocus);  // one page: nothing to choose

  RzBitBtn1->setObjectName(u"RzBitBtn1"_s);
  RzBitBtn1->setAutoDefault(false);
  Tamam_Button->setObjectName(u"Tamam_Button"_s);
  Tamam_Button->setDefault(true);
  auto* giveUp = new QPushButton(u"Vazgeç"_s);
  giveUp->setAutoDefault(false);
  connectGuarded(RzBitBtn1, &QPushButton::clicked, this, [this] { LoadRates(today()); });
  connectGuarded(Tamam_Button, &QPushButton::clicked, this, [this] { tamamButtonClick(); });
  connectGuarded(giveUp, &QPushButton::clicked, this, [this] { reject(); });
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(RzBitBtn1);
  buttons->addStretch();
  buttons->addWidget(Tamam_Button);
  buttons->addWidget(giveUp);

  auto* all = new QVBoxLayout(this);
  all->addWidget(pages);
  all->addLayout(buttons);
  all->setSizeConstraint(QLayout::SetFixedSize);
  fDoviz = this;
}

TfDoviz::~TfDoviz() {
  if (fDoviz == this) fDoviz = nullptr;
}

void TfDoviz::Giris() {
  LoadRates(today());
  eDolar->line()->setFocus();
  exec();
}

void TfDoviz::LoadRates(const QString& dateText) { RateLoad::load(dateText, today(), QuendUtil->programFolder + workingFile, *this); }

bool TfDoviz::DownloadFile(const QString& url, const QString& fileName) {
  try {
    HttpRequest request;
    request.method = "GET";
    request.address = url;
    request.keepsCookies = false;
    const HttpAnswer answer = resultWhileWaiting([&request] { return HttpClient().exchange(request); });
    WholeFile::replace(fileName, answer.body);
    return true;
  } catch (const Exception& error) {
    logMessage(u"Döviz kurları alınamadı"_s, &error);
    return false;
  }
}

bool TfDoviz::download(const QString& file) {
  QString url;
  try {
    url = ServiceAddresses::load(QuendUtil->programFolder).ratesAddress(path);
  } catch (const ENetworkError& error) {
    logMessage(u"Döviz kurları alınamadı"_s, &error);
    return false;
  }
  return DownloadFile(url, file);
}

/// The form closes however it ends: a rate that is no number and what the server refuses are told to nobody, which is meant.
void TfDoviz::tamamButtonClick() {
  try {
    store();
  } catch (const Exception& error) {
    logMessage(u"Döviz kurları saklanamadı"_s, &error);
  }
  accept();
}

qcxCurrencyEdit* TfDoviz::box(Currency currency) const {
  switch (currency) {
    case Currency::Dollar: return eDolar;
    case Currency::Euro: return eEuro;
    case Currency::Sterling: break;
  }
  return eSterlin;
}

QString TfDoviz::date() const { return eTarih->text(); }

void TfDoviz::setDate(const QString& date) { eTarih->setText(date); }

void TfDoviz::setRate(Currency currency, double rate) { box(currency)->setValue(rate); }

void TfDoviz::setUnreadableRate(Currency currency, const QString& text) { box(currency)->setText(text); }

void TfDoviz::setHourglass(bool on) {
  if (!on) hourglass_.reset();
  if (on && !hourglass_) hourglass_.emplace();
}

void TfDoviz::setStatusText(const QString& text) { ports().setStatusText(text); }

std::optional<DayRates> TfDoviz::storedRates() { return RateStore::stored(DM->pGetQ); }

void TfDoviz::store() {
  RateStore::store(DM->MySQL, DM->pGetQ, {eTarih->text(), {eDolar->value(), eEuro->value(), eSterlin->value()}});
}
