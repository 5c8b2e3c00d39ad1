#include "app/company_card.h"

#include "app/dmUnit.h"
#include "app/editors/qcx_editors.h"
#include "app/quendUtils.h"
#include "base/data/my_query.h"
#include "base/guard.h"
#include "toolkit/shell/screen_room.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QTabWidget>

using namespace Qt::StringLiterals;

TfSirket* fSirket = nullptr;

namespace {

constexpr int boxWidth = 460;

/// Columns and captions, in the order of the boxes.
constexpr std::pair<QStringView, QStringView> Boxes[] = {
    {u"SIRKET_ADI", u"ŞİRKET ADI"}, {u"SIRKET_ADRES", u"ŞİRKET ADRES"}, {u"SIRKET_ILCE", u"İLÇE"},
    {u"SIRKET_IL", u"İL"},          {u"SIRKET_TEL", u"TELEFON"},        {u"SIRKET_FAX", u"FAX"},
    {u"SIRKET_EPOSTA", u"E-POSTA"}, {u"SIRKET_WEB", u"WEB"}};

}  // namespace

TfSirket::TfSirket(QWidget* parent) : QDialog(parent), query_(std::make_unique<TMyQuery>(DM->MySQL, u"qSirket"_s)), qSirket(*query_) {
  setObjectName(u"fSirket"_s);
  setWindowTitle(u"Şirket Bilgileri"_s);
  qSirket.SQL.setText(u"select * from sirket"_s);
  buildForm();
  fSirket = this;
}

TfSirket::~TfSirket() {
  if (fSirket == this) fSirket = nullptr;
}

void TfSirket::buildForm() {
  auto* group = new QGroupBox(u"Firma Bilgileri"_s);
  auto* column = new QVBoxLayout(group);
  for (const auto& [name, caption] : Boxes) {
    auto* box = new qcxButtonEdit(group);
    box->setObjectName(name.toString());
    box->setCaption(caption.toString());  // a button that does nothing
    box->setCharCase(CharCase::Upper);
    box->setFixedWidth(boxWidth);
    column->addWidget(box);
  }
  auto* page = new QWidget;
  auto* pageColumn = new QVBoxLayout(page);
  pageColumn->addWidget(group);
  auto* pages = new QTabWidget;
  pages->addTab(page, u"ŞİRKET BİLGİLERİ"_s);
  pages->setFocusPolicy(Qt::NoFocus);  // one page: nothing to choose

  Tamam_Button = new QPushButton(u"&Tamam"_s, this);
  Tamam_Button->setObjectName(u"Tamam_Button"_s);
  Tamam_Button->setDefault(true);
  auto* giveUp = new QPushButton(u"Vazgeç"_s, this);
  giveUp->setAutoDefault(false);
  connectGuarded(Tamam_Button, &QPushButton::clicked, this, [this] { tamamButtonClick(); });
  connectGuarded(giveUp, &QPushButton::clicked, this, [this] { done(GivenUp); });
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(Tamam_Button);
  buttons->addWidget(giveUp);

  auto* all = new QVBoxLayout(this);
  all->addWidget(new ScreenRoom(pages));
  all->addLayout(buttons);
  all->setSizeConstraint(QLayout::SetFixedSize);
}

void TfSirket::open() {
  qSirket.Open();
  SirketYukle();
}

void TfSirket::SirketYukle() {
  QuendUtil->EkranReset(*this, qSirket);
  QuendUtil->AlanlardanEkrana(*this, qSirket);
}

int TfSirket::Giris() {
  SirketYukle();
  findChild<qcxButtonEdit*>(Boxes[0].first.toString())->line()->setFocus();
  const int result = exec();
  if (result != Saved) SirketYukle();  // receipts and letters read the boxes
  return result;
}

/// What cannot be written stays on the screen, to be tried again.
void TfSirket::tamamButtonClick() {
  qSirket.Edit();
  try {
    QuendUtil->EkrandanAlanlara(*this, qSirket);
    qSirket.Post();
  } catch (...) {
    qSirket.Cancel();
    throw;
  }
  done(Saved);
}
