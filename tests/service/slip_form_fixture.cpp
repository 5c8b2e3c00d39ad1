#include "tests/service/slip_form_fixture.h"

#include "app/parameter_models.h"
#include "base/data/my_query.h"
#include "base/data/value.h"

#include <stdexcept>

namespace {

/// Where a key of the keyboard arrives.
QWidget* keyTarget() {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  if (QApplication::focusWidget() == nullptr) {
    // The offscreen platform does not give the keyboard back when a popup closes.
    fKvb->activateWindow();
    if (!QTest::qWaitFor([] { return QApplication::activeWindow() == fKvb; })) throw std::runtime_error("the workspace is not active");
  }
  QWidget* target = QApplication::focusWidget();
  if (target == nullptr) throw std::runtime_error("nothing has the keyboard");
  return target;
}

}  // namespace

TfServisFis* SlipFormTest::newSlip() {
  ports().newSlip();
  return fServisFis;
}

TfServisFis* SlipFormTest::openSlip(qint64 id) {
  ports().openSlip(id);
  return fServisFis;
}

TfServisFis* SlipFormTest::filledSlip(const QString& number) {
  TfServisFis* slip = newSlip();
  box(slip, u"TS_NO"_s)->setText(number);
  box(slip, u"TS_MUSTERI"_s)->setText(u"AYŞE YILMAZ"_s);
  box(slip, u"TS_C_AD"_s)->setText(u"ÇAMAŞIR MAKİNESİ"_s);
  box(slip, u"TS_C_SERINO"_s)->setText(u"SN1"_s);
  return slip;
}

EditBox* SlipFormTest::box(TfServisFis* slip, const QString& column) {
  auto* found = slip->findChild<EditBox*>(column);
  if (found == nullptr) throw std::runtime_error("no box " + column.toStdString());
  return found;
}

void SlipFormTest::type(const QString& characters) {
  for (const QChar character : characters) ::type(keyTarget(), character);
}

void SlipFormTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(keyTarget(), key, modifiers);
  QCoreApplication::processEvents();
}

void SlipFormTest::enter(TfServisFis* slip, const QString& column, const QString& characters) {
  box(slip, column)->line()->setFocus();
  box(slip, column)->line()->selectAll();
  type(characters);
}

void SlipFormTest::addLine(TfServisFis* slip, const QString& part, const QString& quantity, const QString& amount) {
  TMyQuery& query = slip->qMalzeme;
  query.Append();
  query.FieldByName(u"MZ_SIRANO"_s).set(query.RecordCount());
  query.FieldByName(u"MZ_PARCA_ADI"_s).set(part);
  query.FieldByName(u"MZ_ADET"_s).set(quantity);
  query.FieldByName(u"MZ_TUTAR"_s).set(amount);
  query.Post();
}

void SlipFormTest::switchOn(int parameter) {
  QAbstractItemModel* list = parameters.findChild<QListView*>(u"ParamList"_s)->model();
  ASSERT_TRUE(list->setData(list->index(parameter, 0), Qt::Checked, Qt::CheckStateRole));
}

void SlipFormTest::makePassive(const QString& status) {
  QAbstractItemModel* table = parameters.findChild<QTableView*>(u"islemColor"_s)->model();
  const QModelIndexList found = table->match(table->index(0, StatusModel::Name), Qt::DisplayRole, status, 1, Qt::MatchExactly);
  ASSERT_EQ(found.size(), 1);
  ASSERT_TRUE(table->setData(table->index(found.first().row(), StatusModel::State), u"PASİF"_s, Qt::EditRole));
}
