#include "cards/customer_devices.h"

#include "base/data/my_query.h"
#include "base/data/value.h"
#include "cards/card_columns.h"
#include "cards/card_store.h"
#include "toolkit/grid/data_grid.h"

#include <QBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

TfMusteriCihaz* fMusteriCihaz = nullptr;

namespace {

/// Owner of every row that is written; stays from one opening to the next.
int customerId = 0;

std::vector<GridColumn> deviceColumns() {
  using namespace CardColumns;
  return {internal(u"CH_ID"_s, u"ID"_s), internal(u"CH_CA_ID"_s, u"Cari Ref"_s),
          edited(stretching(u"CH_MODEL"_s, u"CİHAZ MODEL"_s, 300)), edited(shown(u"CH_SERI"_s, u"SERİ NO"_s, 200))};
}

}  // namespace

TfMusteriCihaz::TfMusteriCihaz(QWidget* parent)
    : InPlaceList({u"fMusteriCihaz"_s, u"Müşteri Cihazları"_s, u"qmCihaz"_s, deviceColumns(), u"SERİ NO"_s}, parent),
      qmCihaz(rows()),
      sheet_(new QLabel(this)) {
  CardStore::setUpCustomerDevices(qmCihaz);
  qmCihaz.BeforePost = [this] { qmCihaz.FieldByName(u"CH_CA_ID"_s).set(customerId); };
  sheet_->setObjectName(u"sheet"_s);
  sheet_->setTextFormat(Qt::PlainText);
  QFont font = sheet_->font();
  font.setBold(true);
  sheet_->setFont(font);
  column()->insertWidget(0, sheet_);
  resize(620, 420);
  fMusteriCihaz = this;
}

TfMusteriCihaz::~TfMusteriCihaz() {
  if (fMusteriCihaz == this) fMusteriCihaz = nullptr;
}

void TfMusteriCihaz::setSheetCaption(const QString& caption) { sheet_->setText(caption); }

void TfMusteriCihaz::Giris(int customer) {
  customerId = customer;
  CardStore::openDevicesOf(qmCihaz, customerId);
  showRows();
  qmCihaz.Close();
}
