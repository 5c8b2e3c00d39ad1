#include "cards/service_types.h"

#include "base/data/my_query.h"
#include "cards/card_columns.h"
#include "cards/card_store.h"

using namespace Qt::StringLiterals;

TfServisTip* fServisTip = nullptr;

namespace {

std::vector<GridColumn> typeColumns() {
  return {CardColumns::edited(CardColumns::stretching(u"SERVIS_AD"_s, u"SERVİS ADI"_s, 320))};
}

}  // namespace

TfServisTip::TfServisTip(QWidget* parent)
    : InPlaceList({u"fServisTip"_s, u"Servis Tipleri"_s, u"qServisTip"_s, typeColumns(), u"SERVİS ADI"_s}, parent),
      qServisTip(rows()) {
  CardStore::setUpServiceTypes(qServisTip);
  resize(400, 420);
  fServisTip = this;
}

TfServisTip::~TfServisTip() {
  if (fServisTip == this) fServisTip = nullptr;
}

void TfServisTip::open() { qServisTip.Open(); }

void TfServisTip::Giris() { showRows(); }
